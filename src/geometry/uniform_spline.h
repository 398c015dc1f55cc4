#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "geometry/point.h"

namespace quillon::geometry {

/// Values of the `order` B-spline basis functions that are not 0 at parameter t, for the open
/// uniform knot vector of `count` control points; `first` is the index of the first of them.
class SplineBasis {
 public:
  SplineBasis(std::size_t count, std::size_t order);

  /// The largest parameter; the smallest is 0.
  double lastKnot() const { return lastKnot_; }
  /// Evaluates at t in 0..lastKnot().
  void evaluate(double t);

  std::size_t first() const { return first_; }
  const std::vector<double>& values() const { return values_; }

 private:
  double knot(std::size_t index) const;

  std::size_t count_;
  std::size_t order_;
  double lastKnot_;
  std::size_t first_ = 0;
  std::vector<double> values_;
};

/// Visits `samples` points of the B-spline of this order, evenly spaced in the parameter, from the
/// first control point to the last. Stops when `visit` returns false.
void evaluateSpline(const std::vector<Point>& controlPoints, std::size_t order, std::size_t samples,
                    const std::function<bool(Point)>& visit);

}  // namespace quillon::geometry
