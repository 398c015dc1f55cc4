#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "convert/driver.h"

namespace quillon::convert {

/// Number of entities that were converted, as a user counts them: vertices belong to their
/// polyline, and what is left out does not count.
std::uint64_t entityCount(const ConversionResult& result);

/// How many entities were left out as the user wished, on layers assigned to 999; "" for none.
std::string hiddenText(const ConversionResult& result, const texts::Texts& texts);

/// How many entities were left out because the drawing is damaged, and where; "" for none.
std::string damageText(const ConversionResult& result, const texts::Texts& texts);

/// What was left out though nobody asked for that: warnings about damage and about kinds of
/// entities that were not recognised.
std::vector<Message> lossWarnings(const ConversionResult& result, const texts::Texts& texts);

/// True when the drawing has entities and none of them was converted.
bool nothingConverted(const ConversionResult& result);

/// The kinds of entities that were met but not recognised, with their counts ("HATCH 2, IMAGE 1");
/// "" when there are none. Long lists are cut.
std::string unknownKindsText(const ConversionResult& result);

/// What to type in EAGLE to run the script (without the command's name), or "" for a path that
/// would break its quotes.
std::string scriptArgument(const ConversionResult& result);

}  // namespace quillon::convert
