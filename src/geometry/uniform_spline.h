#pragma once

#include <array>
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

/// Draws open uniform B-splines by points. Those with the same few control points in number share
/// what does not depend on where the points are, which is kept.
class UniformSplines {
 public:
  /// Visits `samples` points of the B-spline of this order, evenly spaced in the parameter, from
  /// the first control point to the last. Stops when `visit` returns false.
  void evaluate(const std::vector<Point>& controlPoints, std::size_t order, std::size_t samples,
                const std::function<bool(Point)>& visit);

 private:
  /// Splines of more control points than this are rare, and would take up much memory.
  static constexpr std::size_t kMostKept = 32;

  /// The shares that control points have in each sample.
  struct Shares {
    std::size_t order = 0;
    std::size_t samples = 0;
    std::vector<std::size_t> firsts;  ///< by sample: the first control point that has any
    std::vector<double> values;       ///< of it and the following ones, `order` for each sample
  };
  const Shares& sharesOf(std::size_t count, std::size_t order, std::size_t samples);

  std::array<Shares, kMostKept + 1> kept_;  ///< by number of control points
};

}  // namespace quillon::geometry
