#include "geometry/cubic_points.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "geometry/spline.h"
#include "geometry/vectors.h"

namespace quillon::geometry {

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
  const std::size_t count = points.x.size();
  const Span* span = &spanOf(from + step);
  for (std::size_t i = 0; i < count;) {
    // Nearly always the whole part lies in one span.
    std::size_t stop = count;
    if (from + step * static_cast<double>(kPointsInPart) >= span->to) {
      stop = i + 1;
      while (stop < count && from + step * static_cast<double>(stop + 1) < span->to) ++stop;
    }
    const auto& [start, first, second, third] = span->terms;
    for (; i < stop; ++i) {
      const double parameter = from + step * static_cast<double>(i + 1);
      const double part = (parameter - span->from) * span->perWidth;
      points.x[i] = start.x + (first.x + (second.x + third.x * part) * part) * part;
      points.y[i] = start.y + (first.y + (second.y + third.y * part) * part) * part;
    }
    if (i < count) span = &spanOf(from + step * static_cast<double>(i + 1));
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
