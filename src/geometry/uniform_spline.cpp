#include "geometry/uniform_spline.h"

#include <algorithm>
#include <utility>

namespace quillon::geometry {
namespace {

/// The sum of `count` points times their shares.
Point blend(const Point* points, const double* shares, std::size_t count) {
  Point sum;
  for (std::size_t i = 0; i < count; ++i) {
    if (shares[i] == 0.0) continue;  // a point without a share may be infinite
    sum.x += shares[i] * points[i].x;
    sum.y += shares[i] * points[i].y;
  }
  return sum;
}

/// The basis at evenly spaced parameters.
class SampledBasis {
 public:
  SampledBasis(std::size_t count, std::size_t order, std::size_t samples)
      : basis_(count, order),
        samples_(samples),
        step_(basis_.lastKnot() / static_cast<double>(samples - 1)) {}

  const SplineBasis& at(std::size_t sample) {
    const bool isLast = sample + 1 == samples_;
    basis_.evaluate(isLast ? basis_.lastKnot() : static_cast<double>(sample) * step_);
    return basis_;
  }

 private:
  SplineBasis basis_;
  std::size_t samples_;
  double step_;
};

}  // namespace

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

const UniformSplines::Shares& UniformSplines::sharesOf(std::size_t count, std::size_t order,
                                                       std::size_t samples) {
  Shares& kept = kept_[count];
  if (kept.order == order && kept.samples == samples) return kept;
  Shares shares{order, samples, {}, {}};
  SampledBasis basis(count, order, samples);
  for (std::size_t i = 0; i < samples; ++i) {
    const SplineBasis& at = basis.at(i);
    shares.firsts.push_back(at.first());
    shares.values.insert(shares.values.end(), at.values().begin(), at.values().end());
  }
  kept = std::move(shares);
  return kept;
}

void UniformSplines::evaluate(const std::vector<Point>& controlPoints, std::size_t order,
                              std::size_t samples, const std::function<bool(Point)>& visit) {
  const std::size_t count = controlPoints.size();
  if (count > kMostKept) {
    SampledBasis basis(count, order, samples);
    for (std::size_t i = 0; i < samples; ++i) {
      const SplineBasis& at = basis.at(i);
      if (!visit(blend(&controlPoints[at.first()], at.values().data(), order))) return;
    }
    return;
  }
  const Shares& shares = sharesOf(count, order, samples);
  for (std::size_t i = 0; i < samples; ++i) {
    if (!visit(blend(&controlPoints[shares.firsts[i]], &shares.values[i * order], order))) return;
  }
}

}  // namespace quillon::geometry
