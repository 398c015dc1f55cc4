#pragma once

#include "exact/canvas.h"
#include "exact/mline_styles.h"

namespace quillon::exact {

/// What the style says of its ends and corners is left to `styles`; null where that cannot wait,
/// and caps are named.
void drawMline(const Item& item, Canvas& canvas, MlineStyles* styles);
/// MESH: the edges of its cage.
void drawMesh(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
