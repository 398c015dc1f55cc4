#pragma once

#include "geometry/affine.h"
#include "geometry/box.h"

namespace quillon::geometry {

/// Adds the corners of another box, where a map takes them.
inline void addMapped(Box& to, const Box& box, const Affine& map) {
  for (const Point corner :
       {box.low, box.high, Point{box.low.x, box.high.y}, Point{box.high.x, box.low.y}}) {
    to.add(map(corner));
  }
}

}  // namespace quillon::geometry
