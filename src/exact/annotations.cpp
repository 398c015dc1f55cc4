#include "exact/annotations.h"

namespace quillon::exact {

void drawDimension(const Item&, Canvas&, BlockDrawer&) {}
void drawLeader(const Item&, Canvas&, BlockDrawer&) {}
void drawMultiLeader(const Item&, Canvas&, BlockDrawer&) {}
void drawTolerance(const Item&, Canvas&) {}
void drawTable(const Item&, Canvas&, BlockDrawer&) {}

}  // namespace quillon::exact
