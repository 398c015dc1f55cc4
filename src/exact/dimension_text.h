#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "exact/dimension_style.h"

namespace quillon::exact {

/// What a dimension measures, which decides the signs at its number.
enum class Measured : std::uint8_t { Length, Diameter, Radius, Angle };

/// The number of a dimension, with the signs that the style and its kind ask for, and with codes
/// as in paragraphs. A length in units of the drawing, an angle in degrees.
std::string measureText(double measure, Measured what, const DimensionNumbers& style);

/// Whether the measure is part of a dimension's text.
bool showsMeasure(std::string_view own);

/// The text of a dimension: `own`, where "<>" stands for the measure and "[]" for that in alternate
/// units, which is left out; the measure alone if `own` is empty.
std::string dimensionText(std::string_view own, std::string_view measure);

}  // namespace quillon::exact
