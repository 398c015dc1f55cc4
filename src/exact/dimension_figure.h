#pragma once

#include <optional>
#include <vector>

#include "exact/arrow_heads.h"
#include "exact/dimension_style.h"
#include "exact/dimension_text.h"
#include "exact/dimension_values.h"

namespace quillon::exact {

/// What a dimension looks like, in its object coordinates.
struct DimensionFigure {
  std::vector<Path> lines;
  std::vector<ArrowPlace> firstArrows;
  std::vector<ArrowPlace> secondArrows;
  Point textPlace;
  double textAngle = 0.0;  ///< degrees
  Measured measured = Measured::Length;
  double measure = 0.0;  ///< in units of the drawing or degrees
};

/// Nothing where points that must differ are the same, lines that must meet are parallel, or the
/// type is unknown. The values must be usable.
std::optional<DimensionFigure> dimensionFigure(const DimensionValues& values,
                                               const DimensionStyle& style);

}  // namespace quillon::exact
