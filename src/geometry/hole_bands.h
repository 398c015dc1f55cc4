#pragma once

#include <vector>

#include "geometry/loops.h"

namespace quillon::geometry {

/// The region as areas without holes: cut by level lines through the middles of the holes, as few
/// lines as meet them all. Neighbours overlap by `overlap` (units of the path, above 0), or by a
/// quarter of the lowest hole if that is less. Time n log n and what the pieces amount to.
std::vector<Path> cutIntoBands(const Region& region, double overlap);

}  // namespace quillon::geometry
