#pragma once

#include <algorithm>
#include <limits>

#include "geometry/vectors.h"

namespace quillon::geometry {

/// The smallest rectangle along the axes around what was added; empty at first.
struct Box {
  Point low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  Point high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  bool empty() const { return !(low.x <= high.x && low.y <= high.y); }

  /// Coordinates that are not a number change nothing.
  void add(Point p) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  void add(const Box& other) {
    add(other.low);
    add(other.high);
  }

  /// Adds the points that were added to another box, of which there may be none.
  void addPointsOf(const Box& other) {
    low = {std::min(low.x, other.low.x), std::min(low.y, other.low.y)};
    high = {std::max(high.x, other.high.x), std::max(high.y, other.high.y)};
  }

  /// The length of the diagonal; 0 for an empty box.
  double diagonal() const { return empty() ? 0.0 : distance(low, high); }

  bool operator==(const Box&) const = default;
};

}  // namespace quillon::geometry
