#pragma once

#include <cmath>

#include "geometry/point.h"

namespace quillon::geometry {

/// An affine map of the plane: (x y) goes to (xx x + xy y + dx, yx x + yy y + dy).
struct Affine {
  double xx = 1.0;
  double xy = 0.0;
  double yx = 0.0;
  double yy = 1.0;
  double dx = 0.0;
  double dy = 0.0;

  static constexpr Affine scaling(double x, double y) { return {x, 0.0, 0.0, y, 0.0, 0.0}; }
  /// Turns the x axis to this unit vector.
  static constexpr Affine turnTo(Point direction) {
    return {direction.x, -direction.y, direction.y, direction.x, 0.0, 0.0};
  }
  static constexpr Affine shift(Point by) { return {1.0, 0.0, 0.0, 1.0, by.x, by.y}; }

  /// The image of a point.
  constexpr Point operator()(Point p) const {
    return {xx * p.x + xy * p.y + dx, yx * p.x + yy * p.y + dy};
  }
  /// The image of a vector, which is not moved.
  constexpr Point turn(Point v) const { return {xx * v.x + xy * v.y, yx * v.x + yy * v.y}; }

  /// Negative for a map that mirrors.
  constexpr double determinant() const { return xx * yy - xy * yx; }
  constexpr bool mirrors() const { return determinant() < 0.0; }
  /// The factor by which lengths grow on average; exact where they grow alike in all directions.
  double scale() const { return std::sqrt(std::fabs(determinant())); }

  bool operator==(const Affine&) const = default;
};

/// First `inner`, then `outer`.
constexpr Affine operator*(const Affine& outer, const Affine& inner) {
  return {outer.xx * inner.xx + outer.xy * inner.yx,
          outer.xx * inner.xy + outer.xy * inner.yy,
          outer.yx * inner.xx + outer.yy * inner.yx,
          outer.yx * inner.xy + outer.yy * inner.yy,
          outer.xx * inner.dx + outer.xy * inner.dy + outer.dx,
          outer.yx * inner.dx + outer.yy * inner.dy + outer.dy};
}

}  // namespace quillon::geometry
