#pragma once

#include "exact/canvas.h"

namespace quillon::exact {

/// DIMENSION and its relatives: their block, or what the rules make of their points.
void drawDimension(const Item& item, Canvas& canvas, BlockDrawer& blocks);
void drawLeader(const Item& item, Canvas& canvas, BlockDrawer& blocks);
void drawMultiLeader(const Item& item, Canvas& canvas, BlockDrawer& blocks);
void drawTolerance(const Item& item, Canvas& canvas);
void drawTable(const Item& item, Canvas& canvas, BlockDrawer& blocks);

}  // namespace quillon::exact
