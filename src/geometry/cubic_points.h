#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "geometry/curve.h"

namespace quillon::geometry {

class Spline;

/// Points of a cubic spline by the polynomials of its spans.
class CubicPoints final : public CurvePoints {
 public:
  /// The spline is usable() and isCubic().
  explicit CubicPoints(const Spline& spline);

  void divide(double from, double to, const CurveSample& start, PartPoints& points) override;
  Point middle(double from, double to, const CurveSample& start) override;
  Point at(double parameter) override;
  double size() const override { return size_; }

 private:
  struct Span {
    double from;
    double to;
    double perWidth;             ///< 1 / (to - from)
    std::array<Point, 4> terms;  ///< by powers of the part of the span
  };

  const Span& spanOf(double parameter) const;
  static Point pointIn(const Span& span, double parameter);
  static void divideWithin(const Span& span, double from, double step, PartPoints& points);

  std::vector<Span> spans_;
  double size_;
};

}  // namespace quillon::geometry
