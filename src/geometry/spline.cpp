#include "geometry/spline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "geometry/biarcs.h"
#include "geometry/cubic_points.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// Knots closer than this part of their range are meant to be equal.
constexpr double kSameKnot = 1e-9;
/// A smaller range is of no drawing, and derivatives over it might be infinite.
constexpr double kLeastRange = 1e-100;

/// The weights over the largest of them; empty if all points count alike, or if some weight is
/// none.
std::vector<double> relativeWeights(const std::vector<double>& weights, std::size_t count,
                                    bool& faulty) {
  if (weights.empty()) return {};
  const auto isWeight = [](double w) { return w > 0.0 && usable(w); };
  faulty = weights.size() != count || !std::all_of(weights.begin(), weights.end(), isWeight);
  if (faulty) return {};
  const auto [least, most] = std::minmax_element(weights.begin(), weights.end());
  if (*least == *most) return {};
  // Points so unequal that doubles cannot hold both.
  faulty = *least < 1e-12 * *most;
  if (faulty) return {};
  std::vector<double> relative;
  relative.reserve(count);
  for (const double weight : weights) relative.push_back(weight / *most);
  return relative;
}

}  // namespace

Spline::Spline(int degree, const std::vector<Point>& controlPoints, std::vector<double> knots,
               const std::vector<double>& weights) {
  takePoints(controlPoints, weights);
  if (faults_.points) return;
  const int most = static_cast<int>(std::min<std::size_t>(kMaxDegree, points_.size() - 1));
  const int wanted = degree < 1 ? 3 : degree;
  degree_ = static_cast<std::size_t>(std::min(wanted, most));
  faults_.degree = this->degree() != degree;
  if (takeKnots(std::move(knots))) return;
  faults_.knots = true;
  makeUniformKnots();
}

void Spline::takePoints(const std::vector<Point>& controlPoints,
                        const std::vector<double>& weights) {
  faults_.points =
      controlPoints.size() < 2 || !std::all_of(controlPoints.begin(), controlPoints.end(),
                                               [](Point p) { return geometry::usable(p); });
  if (faults_.points) return;
  const std::vector<double> relative =
      relativeWeights(weights, controlPoints.size(), faults_.weights);
  isRational_ = !relative.empty();
  points_.reserve(controlPoints.size());
  for (std::size_t i = 0; i < controlPoints.size(); ++i) {
    const double w = relative.empty() ? 1.0 : relative[i];
    points_.push_back({controlPoints[i].x * w, controlPoints[i].y * w, w});
  }
}

bool Spline::takeKnots(std::vector<double> knots) {
  if (knots.size() != points_.size() + degree_ + 1) return false;
  if (!std::all_of(knots.begin(), knots.end(), [](double k) { return geometry::usable(k); })) {
    return false;
  }
  const double range = knots[points_.size()] - knots[degree_];
  if (!(range > kLeastRange)) return false;
  const double same = kSameKnot * range;
  for (std::size_t i = 1; i < knots.size(); ++i) {
    const double rise = knots[i] - knots[i - 1];
    if (rise < -same) return false;
    if (rise <= same) knots[i] = knots[i - 1];
  }
  knots_ = std::move(knots);
  return first() < last();
}

void Spline::makeUniformKnots() {
  const std::size_t spans = points_.size() - degree_;
  knots_.assign(degree_, 0.0);
  for (std::size_t i = 0; i <= spans; ++i) knots_.push_back(static_cast<double>(i));
  knots_.insert(knots_.end(), degree_, static_cast<double>(spans));
}

std::size_t Spline::spanOf(double parameter, Side side) const {
  const auto begin = knots_.begin() + static_cast<std::ptrdiff_t>(degree_);
  const auto end = knots_.begin() + static_cast<std::ptrdiff_t>(points_.size());
  const bool before = parameter >= last() || (side == Side::kBefore && parameter > first());
  const auto next =
      before ? std::lower_bound(begin, end, parameter) : std::upper_bound(begin, end, parameter);
  return static_cast<std::size_t>(next - knots_.begin()) - 1;
}

CurveSample Spline::sample(double parameter, Side side) const {
  // Written so that a parameter that is no number becomes the first one.
  const double t = parameter > first() ? std::min(parameter, last()) : first();
  const std::size_t span = spanOf(t, side);
  const std::size_t p = degree_;
  std::array<Weighted, kMaxDegree + 1> d;
  for (std::size_t i = 0; i <= p; ++i) d[i] = points_[span - p + i];
  const auto blend = [&](std::size_t i, double share) -> Weighted {
    const double rest = 1.0 - share;
    return {rest * d[i - 1].x + share * d[i].x, rest * d[i - 1].y + share * d[i].y,
            rest * d[i - 1].w + share * d[i].w};
  };
  for (std::size_t round = 1; round < p; ++round) {
    for (std::size_t i = p; i >= round; --i) {
      const double low = knots_[span - p + i];
      d[i] = blend(i, (t - low) / (knots_[span + i + 1 - round] - low));
    }
  }
  // The last round also tells the direction: from one of the two points left to the other.
  const double width = knots_[span + 1] - knots_[span];
  const Weighted at = blend(p, (t - knots_[span]) / width);
  const double speed = static_cast<double>(p) / width;
  const Point point{at.x / at.w, at.y / at.w};
  const double byWeight = (d[p].w - d[p - 1].w) / at.w;
  const Point step{(d[p].x - d[p - 1].x) / at.w - point.x * byWeight,
                   (d[p].y - d[p - 1].y) / at.w - point.y * byWeight};
  return {point, step * speed};
}

std::vector<double> Spline::cuts() const {
  // Pieces of few spans that are not too unequal: halving the parameter soon leads into each span.
  constexpr std::size_t kMostSpans = 8;
  constexpr double kMostUnequal = 100.0;
  std::vector<double> cuts{first()};
  std::size_t spans = 0;
  double least = 0.0;
  double most = 0.0;
  for (std::size_t i = degree_; i < points_.size();) {
    std::size_t next = i + 1;
    while (next < points_.size() && knots_[next] == knots_[i]) ++next;
    // Knots i..next - 1 are equal; the span from there leads to the knot `next`.
    const double width = knots_[next] - knots_[i];
    least = spans == 0 ? width : std::min(least, width);
    most = spans == 0 ? width : std::max(most, width);
    const bool kink = i > degree_ && next - i >= degree_;
    if (width > 0.0 && (kink || spans == kMostSpans || most > kMostUnequal * least)) {
      if (knots_[i] > cuts.back()) cuts.push_back(knots_[i]);
      spans = 0;
      least = most = width;
    }
    if (width > 0.0) ++spans;
    i = next;
  }
  cuts.push_back(last());
  return cuts;
}

std::vector<double> Spline::spans() const {
  std::vector<double> spans{first()};
  for (std::size_t i = degree_ + 1; i <= points_.size(); ++i) {
    if (knots_[i] > spans.back()) spans.push_back(knots_[i]);
  }
  return spans;
}

double Spline::largestCoordinate() const {
  double largest = 0.0;
  for (const Weighted& p : points_) {
    largest = std::max({largest, std::fabs(p.x) / p.w, std::fabs(p.y) / p.w});
  }
  return largest;
}

std::vector<double> Spline::checks() const {
  std::vector<double> checks;
  for (std::size_t i = degree_; i < points_.size(); ++i) {
    const double width = knots_[i + 1] - knots_[i];
    if (!(width > 0.0)) continue;
    const double step = width / static_cast<double>(degree_);
    for (std::size_t k = 0; k < degree_; ++k) {
      checks.push_back(knots_[i] + step * (static_cast<double>(k) + 0.5));
    }
  }
  return checks;
}

Box bounds(const Spline& spline) {
  Box box;
  if (!spline.usable()) return box;
  for (const double cut : spline.cuts()) box.add(spline.sample(cut, Side::kBefore).at);
  double from = spline.first();
  for (const double check : spline.checks()) {
    for (const double share : {0.25, 0.5, 0.75, 1.0}) {
      box.add(spline.sample(from + share * (check - from), Side::kAfter).at);
    }
    from = check;
  }
  for (const double share : {0.25, 0.5, 0.75}) {
    box.add(spline.sample(from + share * (spline.last() - from), Side::kAfter).at);
  }
  return box;
}

CurvePath splinePath(const Spline& spline, const CurveSettings& settings) {
  CurvePath result;
  if (!spline.usable()) {
    result.report.unusable = true;
    return result;
  }
  const Curve curve = [&spline](double t, Side side) { return spline.sample(t, side); };
  std::optional<CubicPoints> points;
  if (spline.isCubic()) points.emplace(spline);
  result.report = appendBiarcs(curve, spline.cuts(), spline.checks(), settings, result.path,
                               points ? &*points : nullptr);
  closeWhereEndsMeet(result.path, settings.resolution);
  return result;
}

}  // namespace quillon::geometry
