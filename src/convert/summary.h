#pragma once

#include <cstdint>
#include <string>

#include "convert/driver.h"

namespace quillon::convert {

/// Number of entities that were converted, as a user counts them.
std::uint64_t entityCount(const ConversionResult& result);

/// The kinds of entities that were met but not recognised, with their counts ("HATCH 2, IMAGE 1");
/// "" when there are none. Long lists are cut.
std::string unknownKindsText(const ConversionResult& result);

/// What to type in EAGLE to run the script (without the command's name), or "" for a path that
/// would break its quotes.
std::string scriptArgument(const ConversionResult& result);

}  // namespace quillon::convert
