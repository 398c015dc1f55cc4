#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "convert/driver.h"

namespace quillon::convert {

/// Number of entities that were converted, as a user counts them: vertices belong to their
/// polyline, and what is left out does not count.
std::uint64_t entityCount(const ConversionResult& result);

/// What was recognised but left out, and why, in one line each.
std::vector<std::string> leftOutTexts(const ConversionResult& result,
                                      const resources::Texts& texts);

/// The kinds of entities that were met but not recognised, with their counts ("HATCH 2, IMAGE 1");
/// "" when there are none. Long lists are cut.
std::string unknownKindsText(const ConversionResult& result);

/// What to type in EAGLE to run the script (without the command's name), or "" for a path that
/// would break its quotes.
std::string scriptArgument(const ConversionResult& result);

}  // namespace quillon::convert
