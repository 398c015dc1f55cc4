#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillon::geometry {

/// A point in whole steps of a grid, at most kLargestStep from its origin, so that products of
/// differences are exact.
struct GridPoint {
  std::int64_t x = 0;
  std::int64_t y = 0;

  bool operator==(const GridPoint&) const = default;
  constexpr bool operator<(const GridPoint& other) const {
    return x != other.x ? x < other.x : y < other.y;
  }
};

inline constexpr std::int64_t kLargestStep = std::int64_t{1} << 28;

/// From the lesser to the greater point.
struct GridSegment {
  GridPoint from;
  GridPoint to;

  bool operator==(const GridSegment&) const = default;
  constexpr bool operator<(const GridSegment& other) const {
    return from != other.from ? from < other.from : to < other.to;
  }
};

constexpr GridPoint operator-(GridPoint a, GridPoint b) { return {a.x - b.x, a.y - b.y}; }
constexpr std::int64_t cross(GridPoint a, GridPoint b) { return a.x * b.y - a.y * b.x; }
constexpr std::int64_t dot(GridPoint a, GridPoint b) { return a.x * b.x + a.y * b.y; }

/// Cuts segments where they meet others, at points of the grid, until they meet in their ends
/// alone. Of equal segments an odd one is kept and pairs go, as does what has no length. False when
/// that took too many comparisons or rounds; the segments are good for nothing then.
bool splitAtCrossings(std::vector<GridSegment>& segments);

}  // namespace quillon::geometry
