#pragma once

#include <cstddef>
#include <vector>

#include "geometry/box.h"
#include "geometry/point.h"

namespace quillon::geometry {

/// An end of a piece.
struct PieceEnd {
  Point at;
  std::size_t index = 0;  ///< of the i-th piece 2 i at its start, 2 i + 1 at its end
  bool isAlone = false;   ///< no other end is the same point
};

/// Finds the nearest one of many ends: ends near each other are kept near each other in memory, a
/// few of them in a box, a few boxes in a larger one, and so on.
class NearestEnd {
 public:
  /// The ends are usable(), and no two of them the same point.
  explicit NearestEnd(const std::vector<PieceEnd>& ends);

  /// In the order in which they are best asked for.
  const std::vector<PieceEnd>& ends() const { return ends_; }

  struct Found {
    const PieceEnd* end = nullptr;  ///< the one with the lower index among equally near ones
    double distance = 0.0;
  };
  /// The end nearest to ends()[place].
  Found nearestTo(std::size_t place) const;

 private:
  struct Search;

  void lookInto(Search& search, std::size_t level, std::size_t node, std::size_t except) const;

  std::vector<PieceEnd> ends_;
  /// Of each level, from the smallest to a single one; boxes of the first hold ends.
  std::vector<std::vector<Box>> levels_;
};

}  // namespace quillon::geometry
