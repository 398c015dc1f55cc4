#include "preview/scene_flat.h"

#include <algorithm>
#include <cmath>

#include "geometry/degrees.h"

namespace quillon::preview {
namespace {

using geometry::Arc;
using geometry::Box;
using geometry::Point;

/// Arcs of more lines are halved, as most of such an arc is elsewhere.
constexpr double kMostLines = 48.0;

/// How many lines of the same length keep within the tolerance.
double linesOf(const Arc& arc, double tolerance) {
  const double radians = geometry::radiansOf(std::fabs(arc.curve));
  // A line over an angle a is off by r (1 - cos(a/2)), about r a a / 8.
  const double largest = std::sqrt(8.0 * tolerance / geometry::radius(arc));
  return std::ceil(std::max(radians / largest, radians / 1.6));
}

}  // namespace

void flatten(const Arc& arc, double tolerance, const Box& nearby, std::vector<Point>& points) {
  constexpr double kSmallestCurve = 1e-9;  // degrees; ends the halving whatever the numbers are
  const double lines = linesOf(arc, tolerance);
  if (lines <= kMostLines) {
    for (int i = 1; i < static_cast<int>(lines); ++i) {
      points.push_back(geometry::pointAt(arc, i / lines));
    }
    points.push_back(arc.end);
    return;
  }
  if (!(std::fabs(arc.curve) > kSmallestCurve) || !touch(geometry::bounds(arc), nearby)) {
    points.push_back(arc.end);
    return;
  }
  const auto [first, second] = geometry::halves(arc);
  flatten(first, tolerance, nearby, points);
  flatten(second, tolerance, nearby, points);
}

void flatten(const SceneCircle& circle, double tolerance, const Box& nearby,
             std::vector<Point>& points) {
  const Point reach{circle.radius, 0.0};
  const Point right = circle.centre + reach;
  const Point left = circle.centre - reach;
  points.push_back(right);
  if (right == left) return;
  flatten(Arc{right, left, 180.0}, tolerance, nearby, points);
  flatten(Arc{left, right, 180.0}, tolerance, nearby, points);
}

void flattenEdge(std::span<const SceneCorner> corners, std::size_t edge, double tolerance,
                 const Box& nearby, std::vector<Point>& points) {
  const Point to = corners[edge + 1 == corners.size() ? 0 : edge + 1].at;
  if (corners[edge].curve == 0.0F) return points.push_back(to);
  flatten(Arc{corners[edge].at, to, corners[edge].curve}, tolerance, nearby, points);
}

void flatten(std::span<const SceneCorner> corners, double tolerance, const Box& nearby,
             std::vector<Point>& points) {
  if (corners.empty()) return;
  points.push_back(corners.front().at);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    flattenEdge(corners, i, tolerance, nearby, points);
  }
  points.pop_back();  // the first corner again
}

}  // namespace quillon::preview
