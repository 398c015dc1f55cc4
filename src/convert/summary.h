#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "convert/driver.h"

namespace quillon::convert {

/// Number of converted entities as a user counts them: vertices belong to their polyline, skipped
/// entities do not count.
std::uint64_t entityCount(const ConversionResult& result);

/// How many entities were skipped on request, because their layer is assigned to 999; "" for none.
std::string hiddenText(const ConversionResult& result, const texts::Texts& texts);

/// How many entities were dropped because the drawing is damaged, and where; "" for none.
std::string damageText(const ConversionResult& result, const texts::Texts& texts);

/// Warnings about unrequested losses: damage and unrecognised kinds of entities.
std::vector<Message> lossWarnings(const ConversionResult& result, const texts::Texts& texts);

/// True when the drawing has entities but none was converted.
bool nothingConverted(const ConversionResult& result);

/// The unrecognised kinds of entities with their counts ("HATCH 2, IMAGE 1"); "" when there are
/// none. Long lists are cut.
std::string unknownKindsText(const ConversionResult& result);

/// What to type in EAGLE to run the script (without the command's name), or "" for a path that
/// would break the quotes.
std::string scriptArgument(const ConversionResult& result);

}  // namespace quillon::convert
