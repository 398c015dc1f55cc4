#pragma once

#include <cstddef>
#include <vector>

#include "geometry/box.h"
#include "geometry/curve.h"

namespace quillon::geometry {

/// What a spline's numbers had wrong, and what was done about it.
struct SplineFaults {
  bool points = false;   ///< fewer than two control points, or huge ones: not usable
  bool degree = false;   ///< below 1, above Spline::kMaxDegree or too high for the points: changed
  bool knots = false;    ///< too few or many, falling, huge, no range: clamped uniform ones
  bool weights = false;  ///< not one for each point, 0, negative, huge: none

  bool operator==(const SplineFaults&) const = default;
};

/// A rational B-spline of any degree up to kMaxDegree. Whatever the numbers are, it can be asked
/// for points; faults() tells whether they are what was meant.
class Spline {
 public:
  static constexpr int kMaxDegree = 32;

  /// Knots that fall by less than a billionth of their range, or rise by less, count as equal to
  /// the one before. Without weights, or with equal ones, the spline is not rational; that is no
  /// fault.
  Spline(int degree, const std::vector<Point>& controlPoints, std::vector<double> knots,
         const std::vector<double>& weights = {});

  const SplineFaults& faults() const { return faults_; }
  bool usable() const { return !faults_.points; }
  int degree() const { return static_cast<int>(degree_); }

  // What follows is only for usable ones.

  /// The range of the parameter: first() < last().
  double first() const { return knots_[degree_]; }
  double last() const { return knots_[points_.size()]; }
  /// The point and the derivative by the parameter; beyond the range, those of its end. Takes time
  /// in proportion to the square of the degree and the logarithm of the number of knots.
  CurveSample sample(double parameter, Side side) const;

  /// Where the curve begins, may have a kink or a jump, and ends, and where long curves are cut
  /// so that each piece has few knots; rising.
  std::vector<double> cuts() const;
  /// All knots of the range, equal ones once; rising.
  std::vector<double> spans() const;
  /// No piece is of a higher degree than three, or a quotient.
  bool isCubic() const { return degree_ <= 3 && !isRational_; }
  /// The largest coordinate of the control points, without its sign.
  double largestCoordinate() const;

  /// Enough parameters within each span between two knots that no span can be overlooked; rising.
  std::vector<double> checks() const;

 private:
  /// A point times its weight, and the weight.
  struct Weighted {
    double x;
    double y;
    double w;
  };

  void takePoints(const std::vector<Point>& controlPoints, const std::vector<double>& weights);
  bool takeKnots(std::vector<double> knots);
  void makeUniformKnots();
  std::size_t spanOf(double parameter, Side side) const;

  std::size_t degree_ = 1;
  bool isRational_ = false;
  std::vector<Weighted> points_;
  std::vector<double> knots_;
  SplineFaults faults_;
};

/// The rectangle around points of the spline so many that it lacks no more than a small part.
Box bounds(const Spline& spline);

/// The spline as a path by biarcs; closed if its ends meet within the resolution. Empty, and so
/// reported, if it is not usable.
CurvePath splinePath(const Spline& spline, const CurveSettings& settings);

}  // namespace quillon::geometry
