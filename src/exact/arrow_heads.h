#pragma once

#include <string_view>
#include <vector>

#include "exact/canvas.h"

namespace quillon::exact {

/// Where an arrow's tip is, and which way it points: a unit vector.
struct ArrowPlace {
  Point tip;
  Point direction;
};

/// Draws arrows of one kind: filled triangles, or the block of this upper-cased name, whose x axis
/// points where the arrow does and which is a unit long. A name that no block has gives triangles,
/// and a loss. Places and size are in the coordinates that `map` maps.
void drawArrows(const Item& item, std::string_view block, double size,
                const std::vector<ArrowPlace>& places, const Affine& map, Canvas& canvas,
                BlockDrawer& blocks);

}  // namespace quillon::exact
