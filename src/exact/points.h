#pragma once

#include "exact/canvas.h"

namespace quillon::exact {

void drawPoint(const Item& item, Canvas& canvas);
/// RAY and XLINE.
void drawEndless(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
