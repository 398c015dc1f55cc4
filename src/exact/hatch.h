#pragma once

#include "exact/canvas.h"

namespace quillon::exact {

/// HATCH and MPOLYGON.
void drawHatch(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
