#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/end_places.h"
#include "geometry/piece.h"
#include "geometry/stop_check.h"

namespace quillon::geometry {

/// Which ends are one point: that of pieces[i]'s start has the index 2 i, that of its end 2 i + 1.
struct JoinedEnds {
  /// Of each end; equal numbers are one point, on one layer. kNoEnd for those of pieces without
  /// ends.
  std::vector<std::uint32_t> points;
  std::size_t pointCount = 0;                ///< all numbers are below it, not each one is used
  std::size_t moved = 0;                     ///< ends that were not exactly there
  std::vector<std::uint32_t> movedPieces{};  ///< that have such ends; ascending
  double largestMove = 0.0;                  ///< in units of the paths
};

/// Makes ends one point that are at most `tolerance` (units of the paths; 0: equal ends alone) from
/// each other: where lines or polylines meet already, else where the first one of them in the order
/// of the pieces ends, else the same of arcs. Ends move to it bit for bit, as by moveEnds(). Ends
/// of a piece that is hardly longer than its chord and shorter than the tolerance stay apart, and
/// so do places at which two or more ends each meet already. There may be up to kMostPieces. Linear
/// time. Where `stop` ends it early, the pieces are as they were.
JoinedEnds joinEnds(std::vector<Piece>& pieces, double tolerance, const StopCheck& stop = {});

}  // namespace quillon::geometry
