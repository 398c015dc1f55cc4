#include "geometry/uniform_spline.h"

#include <algorithm>

namespace quillon::geometry {

SplineBasis::SplineBasis(std::size_t count, std::size_t order)
    : count_(count),
      order_(order),
      lastKnot_(static_cast<double>(count - order + 1)),
      values_(order) {}

/// Open uniform: `order` zeros, then 1, 2, …, then the last value `order` times.
double SplineBasis::knot(std::size_t index) const {
  if (index < order_) return 0.0;
  return std::min(static_cast<double>(index - order_ + 1), lastKnot_);
}

void SplineBasis::evaluate(double t) {
  const std::size_t degree = order_ - 1;
  const auto lastSpan = count_ - order_;
  const std::size_t span = std::min(static_cast<std::size_t>(t), lastSpan);
  first_ = span;
  std::fill(values_.begin(), values_.end(), 0.0);
  if (t >= lastKnot_) {
    // At the last knot only the last basis function is not 0.
    values_[degree] = 1.0;
    return;
  }
  // Cox-de Boor over the functions that are not 0 in this span, one degree at a time, in place.
  const std::size_t knotIndex = span + degree;
  values_[0] = 1.0;
  for (std::size_t d = 1; d <= degree; ++d) {
    double carried = 0.0;
    for (std::size_t i = 0; i < d; ++i) {
      const double right = knot(knotIndex + i + 1);
      const double left = knot(knotIndex + i + 1 - d);
      const double share = values_[i] / (right - left);
      values_[i] = carried + (right - t) * share;
      carried = (t - left) * share;
    }
    values_[d] = carried;
  }
}

void evaluateSpline(const std::vector<Point>& controlPoints, std::size_t order, std::size_t samples,
                    const std::function<bool(Point)>& visit) {
  SplineBasis basis(controlPoints.size(), order);
  const double step = basis.lastKnot() / static_cast<double>(samples - 1);
  for (std::size_t i = 0; i < samples; ++i) {
    basis.evaluate(i + 1 == samples ? basis.lastKnot() : static_cast<double>(i) * step);
    Point point;
    for (std::size_t j = 0; j < order; ++j) {
      const double value = basis.values()[j];
      if (value == 0.0) continue;
      point.x += value * controlPoints[basis.first() + j].x;
      point.y += value * controlPoints[basis.first() + j].y;
    }
    if (!visit(point)) return;
  }
}

}  // namespace quillon::geometry
