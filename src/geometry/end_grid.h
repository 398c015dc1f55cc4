#pragma once

#include <cstddef>
#include <vector>

#include "geometry/path.h"
#include "geometry/stop_check.h"

namespace quillon::geometry {

/// A line, arc, polyline or the like, whose ends may have been meant to meet others.
struct Piece {
  Path path;
  std::size_t layer = 0;  ///< ends meet on the same layer alone
  std::size_t style = 0;  ///< chains are of one layer and one style, such as a width
  bool isArc = false;     ///< its ends give way to those of lines and polylines
};

/// Which ends are one point: that of pieces[i]'s start has the index 2 i, that of its end 2 i + 1.
struct JoinedEnds {
  std::vector<std::size_t> points;  ///< of each end; equal numbers are one point, on one layer
  std::size_t pointCount = 0;
  std::size_t moved = 0;     ///< ends that were not exactly there
  double largestMove = 0.0;  ///< in units of the paths
};

/// Makes ends one point that are at most `tolerance` (units of the paths; 0: equal ends alone) from
/// each other: where lines or polylines meet already, else where the first one of them in the order
/// of the pieces ends, else the same of arcs. Ends move to it bit for bit; arcs there keep their
/// radius, or their angle where the chord is too long for that. Ends of a piece that is hardly
/// longer than its chord and shorter than the tolerance stay apart, and so do places at which two
/// or more ends each meet already. Closed pieces have no ends, nor have those that cannot be
/// reckoned with: each of their points is one of its own. Linear time. Where `stop` ends it early,
/// the paths are as they were.
JoinedEnds joinEnds(std::vector<Piece>& pieces, double tolerance, const StopCheck& stop = {});

}  // namespace quillon::geometry
