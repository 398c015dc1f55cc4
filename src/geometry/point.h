#pragma once

namespace quillon::geometry {

struct Point {
  double x = 0.0;
  double y = 0.0;

  /// Exact: points that differ in the last bit are different.
  bool operator==(const Point&) const = default;
};

}  // namespace quillon::geometry
