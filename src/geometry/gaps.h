#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "geometry/end_grid.h"
#include "geometry/nearest_end.h"
#include "geometry/point.h"
#include "geometry/stop_check.h"

namespace quillon::geometry {

/// An end that no other one meets.
struct Gap {
  struct End {
    std::size_t piece = 0;
    Point at;

    bool operator==(const End&) const = default;
  };

  End end;
  std::optional<End> next;  ///< the nearest other end; none when there is no other
  double distance = 0.0;    ///< to it, in units of the paths

  bool operator==(const Gap&) const = default;
};

/// The ends of pieces after joinEnds(), of those that are one point only the first. Closed pieces
/// have none.
std::vector<PieceEnd> endsLeft(std::span<const Piece> pieces, const JoinedEnds& joined);

/// What is told of ends that are alone, nearest to their next one first, those without a next one
/// last; equal distances in the order of the pieces. The other end of the same piece counts as
/// next, where it is the nearest. Of two ends that are each other's next, both are told. The ends
/// are of one layer. Time n log n where ends are not all on top of each other.
std::vector<Gap> gapsBetween(const std::vector<PieceEnd>& ends, const StopCheck& stop);

/// The first of these, `most` at most. Looks at few ends where that is enough. None are nearer to
/// each other than the tolerance within which they were joined.
std::vector<Gap> nearestGaps(const std::vector<PieceEnd>& ends, double tolerance, std::size_t most,
                             const StopCheck& stop);

}  // namespace quillon::geometry
