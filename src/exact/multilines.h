#pragma once

#include "exact/canvas.h"

namespace quillon::exact {

void drawMline(const Item& item, Canvas& canvas);
/// MESH: the edges of its cage.
void drawMesh(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
