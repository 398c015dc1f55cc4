#pragma once

#include "exact/canvas.h"
#include "exact/dimension_figure.h"
#include "exact/dimension_style.h"
#include "exact/dimension_text.h"
#include "exact/dimension_values.h"
#include "exact/texts.h"

namespace quillon::exact {

/// Draws a DIMENSION that has no block of its own: lines, arrows and text by its points and style.
void drawDimensionByPoints(const Item& item, const DimensionValues& values, Canvas& canvas,
                           BlockDrawer& blocks);
/// Its text, unless it has none.
ParagraphText dimensionParagraph(const DimensionValues& values, const DimensionFigure& figure,
                                 const DimensionStyle& style);

}  // namespace quillon::exact
