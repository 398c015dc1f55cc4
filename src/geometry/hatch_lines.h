#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/path.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {

/// Parallel lines. The one with number n, of any sign, runs through origin + n * step.
struct HatchFamily {
  double angle = 0.0;  ///< degrees, counter-clockwise from x
  Point origin;        ///< units of the loops, as all lengths here
  Point step;
  /// Lengths of dashes (above 0), gaps (below 0) and dots (0), which repeat from the line's point;
  /// none: solid.
  std::vector<double> dashes;
};

struct HatchLimits {
  std::size_t pieces = 20000;  ///< of all families together
  double spacing = 0.05;       ///< least distance between lines
};

struct HatchLines {
  std::vector<Edge> lines;  ///< straight, family by family, along each line in its direction
  std::vector<Point> dots;
  bool tooMany = false;   ///< more pieces than the limit: no lines and dots at all
  bool tooDense = false;  ///< lines closer than the spacing, or no distance: likewise
};

/// The parts of the lines that are inside of closed loops by the even-odd rule; crossings with arcs
/// are exact. Loops and families that cannot be reckoned with are left out.
HatchLines hatchLines(std::span<const Path> loops, std::span<const HatchFamily> families,
                      const HatchLimits& limits = {});

}  // namespace quillon::geometry
