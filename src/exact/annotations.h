#pragma once

#include "exact/canvas.h"
#include "exact/texts.h"

namespace quillon::exact {

/// DIMENSION and its relatives: their block, or what the rules make of their points.
void drawDimension(const Item& item, Canvas& canvas, BlockDrawer& blocks);
void drawLeader(const Item& item, Canvas& canvas, BlockDrawer& blocks);
void drawMultiLeader(const Item& item, Canvas& canvas, BlockDrawer& blocks);
/// TOLERANCE: its text without the frame.
void drawTolerance(const Item& item, Canvas& canvas);
ParagraphText toleranceText(const Item& item, const Canvas& canvas);
void drawTable(const Item& item, Canvas& canvas, BlockDrawer& blocks);

/// Notes that the lines and texts of an entity whose layer is off are not drawn. Layers that are
/// not converted are no loss.
void loseOwnLines(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
