#pragma once

#include "geometry/area.h"
#include "geometry/loops.h"

namespace quillon::testing {

/// The area of a region, whose holes run the other way round.
inline double areaOf(const geometry::Region& region) {
  double area = geometry::signedArea(region.outer);
  for (const geometry::Path& hole : region.holes) area += geometry::signedArea(hole);
  return area;
}

}  // namespace quillon::testing
