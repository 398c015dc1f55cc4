#pragma once

#include "exact/canvas.h"

namespace quillon::exact {

/// Whether points become holes: as the options say, where there can be any.
bool pointsAreHoles(const Options& options);
void drawPoint(const Item& item, Canvas& canvas);
/// RAY and XLINE.
void drawEndless(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
