#pragma once

#include <vector>

#include "exact/canvas.h"
#include "geometry/bands.h"

namespace quillon::exact {

/// A polyline in its own coordinates, as its groups describe it.
struct FlatPolyline {
  Path path;
  /// One for each vertex, of the edge that starts there; negative ones count as positive. Without a
  /// width: empty, or zeros.
  std::vector<geometry::EdgeWidth> widths;
  bool dashesAlongWhole = false;
};

/// Draws a polyline as lines and arcs, or, where it has a width, as wide ones or as areas. The map
/// leads from its coordinates to the script.
void drawFlatPolyline(const Item& item, Canvas& canvas, const FlatPolyline& polyline,
                      const Affine& map);

}  // namespace quillon::exact
