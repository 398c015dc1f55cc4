#pragma once

#include <cstddef>
#include <vector>

#include "geometry/loops.h"
#include "geometry/path.h"

namespace quillon::geometry {

struct SlitOptions {
  double width = 0.001;        ///< of a slit, and by how much bands overlap; units of the path, > 0
  std::size_t bandsFrom = 20;  ///< so many holes and more are cut into bands
};

/// The region as outlines without holes, closed and counter-clockwise, whose edges neither cross
/// nor touch where those of the region do not. Few holes are joined into the outer ring by slits;
/// where no slit finds room, and for many holes, the region is cut into bands that overlap.
/// Coordinates that cannot be reckoned with give no outlines.
std::vector<Path> withoutHoles(const Region& region, const SlitOptions& options = {});

}  // namespace quillon::geometry
