#include "exact/leader_line.h"

#include <algorithm>

#include "geometry/vectors.h"

namespace quillon::exact {

void drawLeaderLine(const Item& item, const LeaderLine& line, Canvas& canvas) {
  const PlacedPoints placed = placedPoints(item, line.points, line.heights);
  if (line.isSpline) {
    const geometry::FitSpline spline(placed.points);
    if (!spline.usable()) return canvas.lose(item, LossRule::NoSize);
    return canvas.stroke(item, canvas.mapped(item, spline, placed.map), Affine{},
                         {.cleanable = false, .dashesAlongWhole = true});
  }
  if (placed.points.size() < 2) return canvas.lose(item, LossRule::NoSize);
  Path path;
  for (const Point& point : placed.points) path.vertices.push_back({point});
  canvas.stroke(item, path, placed.map, {.cleanable = false});
}

std::optional<ArrowPlace> leaderArrow(const LeaderLine& line) {
  if (line.points.empty()) return {};
  const Point tip = line.points.front();
  if (line.isSpline) {
    const geometry::FitSpline spline(line.points);
    if (!spline.usable()) return {};
    const Point direction = geometry::unit(-spline.sample(0.0).derivative);
    if (direction != Point{}) return ArrowPlace{tip, direction};
  }
  const auto next = std::find_if(line.points.begin(), line.points.end(),
                                 [&](const Point& point) { return point != tip; });
  if (next == line.points.end()) return {};
  const Point direction = geometry::unit(tip - *next);
  if (direction == Point{}) return {};
  return ArrowPlace{tip, direction};
}

}  // namespace quillon::exact
