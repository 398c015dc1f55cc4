#pragma once

#include "exact/canvas.h"

namespace quillon::exact {

// Lines, arcs, circles, ellipses and splines.

void drawLine(const Item& item, Canvas& canvas);
void drawArc(const Item& item, Canvas& canvas);
void drawCircle(const Item& item, Canvas& canvas);
void drawEllipse(const Item& item, Canvas& canvas);
/// SPLINE and HELIX.
void drawSpline(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
