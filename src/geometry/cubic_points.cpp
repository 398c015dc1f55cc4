#include "geometry/cubic_points.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "geometry/spline.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// How many steps from the start of a part the points are, by their places.
constexpr std::array<double, kPointsInPart> stepsByPlace() {
  std::array<double, kPointsInPart> steps{};
  for (std::size_t i = 0; i < kPointsInPart; ++i) {
    steps[PartPoints::placeOf(i)] = static_cast<double>(i + 1);
  }
  return steps;
}

constexpr std::array<double, kPointsInPart> kStepsByPlace = stepsByPlace();

}  // namespace

CubicPoints::CubicPoints(const Spline& spline) : size_(spline.largestCoordinate()) {
  const std::vector<double> knots = spline.spans();
  spans_.reserve(knots.size() - 1);
  for (std::size_t i = 1; i < knots.size(); ++i) {
    const double width = knots[i] - knots[i - 1];
    const CurveSample start = spline.sample(knots[i - 1], Side::kAfter);
    const CurveSample end = spline.sample(knots[i], Side::kBefore);
    const Point leaving = start.derivative * width;
    const Point meeting = end.derivative * width;
    const Point way = end.at - start.at;
    spans_.push_back(
        {knots[i - 1],
         knots[i],
         1.0 / width,
         {start.at, leaving, way * 3.0 - leaving * 2.0 - meeting, leaving + meeting - way * 2.0}});
  }
}

void CubicPoints::divide(double from, double to, const CurveSample&, PartPoints& points) {
  const double step = (to - from) / static_cast<double>(kPointsInPart + 1);
  const Span& span = spanOf(from + step);
  // Nearly always the whole part lies in one span.
  if (from + step * static_cast<double>(kPointsInPart) < span.to) {
    return divideWithin(span, from, step, points);
  }
  for (std::size_t i = 0; i < kPointsInPart; ++i) {
    points.set(i, at(from + step * static_cast<double>(i + 1)));
  }
}

void CubicPoints::divideWithin(const Span& span, double from, double step, PartPoints& points) {
  const auto& [start, first, second, third] = span.terms;
  for (std::size_t place = 0; place < kPointsInPart; ++place) {
    const double parameter = from + step * kStepsByPlace[place];
    const double part = (parameter - span.from) * span.perWidth;
    points.x[place] = start.x + (first.x + (second.x + third.x * part) * part) * part;
    points.y[place] = start.y + (first.y + (second.y + third.y * part) * part) * part;
  }
}

Point CubicPoints::middle(double from, double to, const CurveSample&) {
  return at(from + 0.5 * (to - from));
}

Point CubicPoints::at(double parameter) { return pointIn(spanOf(parameter), parameter); }

const CubicPoints::Span& CubicPoints::spanOf(double parameter) const {
  const auto after =
      std::upper_bound(spans_.begin() + 1, spans_.end(), parameter,
                       [](double wanted, const Span& span) { return wanted < span.from; });
  return *std::prev(after);
}

Point CubicPoints::pointIn(const Span& span, double parameter) {
  const double part = (parameter - span.from) * span.perWidth;
  const auto& [start, first, second, third] = span.terms;
  return start + (first + (second + third * part) * part) * part;
}

}  // namespace quillon::geometry
