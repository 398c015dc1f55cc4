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

  void enter(double from, double to, const CurveSample& start) override;
  Point inPart(std::size_t index) override;
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

  std::vector<Span> spans_;
  double size_;
  // The part at hand.
  double from_ = 0.0;
  double step_ = 0.0;
  const Span* span_ = nullptr;  ///< of the point asked for last
};

}  // namespace quillon::geometry
