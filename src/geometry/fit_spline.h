#pragma once

#include <optional>
#include <vector>

#include "geometry/box.h"
#include "geometry/curve.h"

namespace quillon::geometry {

/// How a curve through points begins and ends. Without directions the ends are natural: the second
/// derivative is 0 there.
struct FitEnds {
  bool closed = false;                    ///< back to the first point; smooth there if no
                                          ///< direction is given
  std::optional<Point> startDirection{};  ///< of any length; (0 0) and huge ones count as none
  std::optional<Point> endDirection{};    ///< the way on, not back
};

/// The smooth curve of cubics through points, by the lengths of the chords between them. Points
/// that repeat their predecessor are left out. Two points are a segment, whatever the ends; of
/// fewer, and of huge ones, there is no curve.
class FitSpline {
 public:
  explicit FitSpline(const std::vector<Point>& points, const FitEnds& ends = {});

  /// False if there is no curve; then nothing else may be asked.
  bool usable() const { return points_.size() >= 2; }
  /// The parameter runs from 0 through whole numbers at the points to this.
  double last() const { return static_cast<double>(points_.size() - 1); }
  CurveSample sample(double parameter) const;

  /// The curve's ends, and points between that leave pieces of few points; rising.
  std::vector<double> cuts() const;
  /// Enough parameters between two points that no part can be overlooked; rising.
  std::vector<double> checks() const;

 private:
  void solveOpen(const FitEnds& ends);
  void solvePeriodic();

  std::vector<Point> points_;
  std::vector<Point> slopes_;    ///< by the length along the chords
  std::vector<double> lengths_;  ///< of the chord to the next point
};

Box bounds(const FitSpline& spline);

/// The curve as a path by biarcs; closed if its ends meet within the resolution. Empty, and so
/// reported, if there is no curve.
CurvePath fitSplinePath(const FitSpline& spline, const CurveSettings& settings);

}  // namespace quillon::geometry
