#include "exact/area_inset.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <deque>
#include <vector>

#include "geometry/area.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

using geometry::cross;
using geometry::Path;
using geometry::Point;

/// Sine of the angle up to which an edge goes straight on.
constexpr double kStraightOn = 1e-9;

/// What lies to the left of a line.
struct HalfPlane {
  Point on;
  Point way;  ///< a unit vector

  bool contains(Point p) const { return cross(way, p - on) > 0.0; }
};

Point crossingOf(const HalfPlane& a, const HalfPlane& b) {
  return a.on + a.way * (cross(b.on - a.on, b.way) / cross(a.way, b.way));
}

/// The half planes of a counter-clockwise outline's edges, moved inwards; empty unless the outline
/// is convex. Edges that go straight on are one.
std::vector<HalfPlane> halfPlanesOf(const Path& outline, double distance) {
  std::vector<HalfPlane> planes;
  const std::size_t count = outline.vertices.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point from = outline.vertices[i].at;
    const Point way = geometry::unit(outline.vertices[(i + 1) % count].at - from);
    if (outline.vertices[i].curve != 0.0 || way == Point{}) return {};
    if (!planes.empty()) {
      const double turn = cross(planes.back().way, way);
      if (turn < -kStraightOn || dot(planes.back().way, way) < kStraightOn - 1.0) return {};
      if (turn <= kStraightOn) continue;
    }
    planes.push_back({from + geometry::leftOf(way) * distance, way});
  }
  if (planes.size() < 3) return {};
  const double last = cross(planes.back().way, planes.front().way);
  if (last < -kStraightOn) return {};
  if (last <= kStraightOn) planes.pop_back();
  return planes;
}

/// What all half planes have in common, which are sorted by direction over one turn.
class CommonPart {
 public:
  /// False when there is nothing in common.
  bool add(const HalfPlane& plane) {
    while (sides_.size() > 1 && !plane.contains(lastCorner())) sides_.pop_back();
    while (sides_.size() > 1 && !plane.contains(firstCorner())) sides_.pop_front();
    if (!sides_.empty() && cross(sides_.back().way, plane.way) <= 0.0) return false;
    sides_.push_back(plane);
    return true;
  }

  std::optional<Path> outline() {
    while (sides_.size() > 2 && !sides_.front().contains(lastCorner())) sides_.pop_back();
    while (sides_.size() > 2 && !sides_.back().contains(firstCorner())) sides_.pop_front();
    if (sides_.size() < 3) return std::nullopt;
    Path path{{}, true};
    for (std::size_t i = 0; i < sides_.size(); ++i) {
      const HalfPlane& before = sides_[i == 0 ? sides_.size() - 1 : i - 1];
      path.vertices.push_back({crossingOf(before, sides_[i])});
    }
    for (std::size_t i = 0; i < sides_.size(); ++i) {
      const Point end = path.vertices[(i + 1) % sides_.size()].at;
      if (!(dot(end - path.vertices[i].at, sides_[i].way) > 0.0)) return std::nullopt;
    }
    return path;
  }

 private:
  Point firstCorner() const { return crossingOf(sides_[0], sides_[1]); }
  Point lastCorner() const { return crossingOf(sides_[sides_.size() - 2], sides_.back()); }

  std::deque<HalfPlane> sides_;
};

}  // namespace

std::optional<Path> insetOfConvex(const Path& outline, double distance) {
  const bool isClockwise = !geometry::isCounterClockwise(outline);
  const std::vector<HalfPlane> planes =
      halfPlanesOf(isClockwise ? geometry::reversed(outline) : outline, distance);
  if (planes.empty()) return std::nullopt;
  CommonPart part;
  for (const HalfPlane& plane : planes) {
    if (!part.add(plane)) return std::nullopt;
  }
  std::optional<Path> inset = part.outline();
  if (inset && isClockwise) geometry::reverse(*inset);
  return inset;
}

}  // namespace quillon::exact
