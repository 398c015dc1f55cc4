#include "exact/areas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "geometry/area.h"
#include "geometry/path_tools.h"

namespace quillon::exact {
namespace {

using geometry::cross;

/// SOLID, TRACE and 3DFACE. A corner that is not given is no number.
struct CornerGroups {
  static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  static constexpr Point kNoPoint{kNone, kNone};

  std::array<Point, 4> corners{kNoPoint, kNoPoint, kNoPoint, kNoPoint};
  double elevation = 0.0;
  double flags = 0.0;

  /// The fourth corner is missing, or is the third one again.
  bool isTriangle() const {
    return std::isnan(corners[3].x) || std::isnan(corners[3].y) || corners[3] == corners[2];
  }
};

CornerGroups readCorners(const Item& item, const Canvas& canvas) {
  CornerGroups values;
  auto& at = values.corners;
  readNumbers(canvas.groupsOf(item), {{10, &at[0].x},
                                      {20, &at[0].y},
                                      {30, &values.elevation},
                                      {11, &at[1].x},
                                      {21, &at[1].y},
                                      {12, &at[2].x},
                                      {22, &at[2].y},
                                      {13, &at[3].x},
                                      {23, &at[3].y},
                                      {70, &values.flags}});
  return values;
}

/// Of the corners of a 3DFACE. They count within an oblique block alone.
std::array<double, 4> readHeights(const Item& item, const Canvas& canvas) {
  std::array<double, 4> heights{};
  if (item.depth == Point{}) return heights;
  readNumbers(canvas.groupsOf(item),
              {{30, &heights[0]}, {31, &heights[1]}, {32, &heights[2]}, {33, &heights[3]}});
  return heights;
}

/// Where two segments cross, other than in their ends.
std::optional<Point> crossingOfSegments(Point a, Point b, Point c, Point d) {
  const double fromC = cross(b - a, c - a);
  const double fromD = cross(b - a, d - a);
  const double fromA = cross(d - c, a - c);
  const double fromB = cross(d - c, b - c);
  const auto areApart = [](double one, double other) {
    return (one < 0.0 && other > 0.0) || (one > 0.0 && other < 0.0);
  };
  if (!areApart(fromC, fromD) || !areApart(fromA, fromB)) return std::nullopt;
  return a + (b - a) * (fromA / (fromA - fromB));
}

using Triangles = std::array<Path, 2>;

/// The halves of an outline of four corners that crosses itself.
std::optional<Triangles> bowTieOf(const Path& outline) {
  if (outline.vertices.size() != 4) return std::nullopt;
  const Point a = outline.vertices[0].at;
  const Point b = outline.vertices[1].at;
  const Point c = outline.vertices[2].at;
  const Point d = outline.vertices[3].at;
  if (const auto x = crossingOfSegments(a, b, c, d)) {
    return Triangles{Path{{{a}, {*x}, {d}}, true}, Path{{{*x}, {b}, {c}}, true}};
  }
  if (const auto x = crossingOfSegments(b, c, d, a)) {
    return Triangles{Path{{{a}, {b}, {*x}}, true}, Path{{{*x}, {c}, {d}}, true}};
  }
  return std::nullopt;
}

/// Thinner than EAGLE can tell from a line.
bool isThin(const Path& outline, double resolution) {
  const double longest = geometry::bounds(outline).diagonal();
  return !(std::fabs(geometry::signedArea(outline)) > 0.5 * resolution * longest);
}

}  // namespace

void drawSolid(const Item& item, Canvas& canvas) {
  const CornerGroups values = readCorners(item, canvas);
  const auto& at = values.corners;
  Path corners{{{at[0]}, {at[1]}, {at[2]}}, true};
  if (!values.isTriangle()) corners.vertices.insert(corners.vertices.begin() + 2, {at[3]});
  Path outline = canvas.mapped(item, corners, item.objectMap(values.elevation));
  if (outline.vertices.empty()) return;
  auto halves = bowTieOf(outline);
  if (halves && canvas.fills()) {
    for (Path& half : *halves) canvas.area(item, std::move(half));
    return;
  }
  if (!halves && isThin(outline, canvas.measures().resolution)) {
    return canvas.lose(item, LossRule::NoSize, outline.vertices.front().at);
  }
  canvas.area(item, std::move(outline));
}

void FaceRun::draw(const Item& item, Canvas& canvas) {
  if (item.origin.layer != layer_) drawn_.clear();
  layer_ = item.origin.layer;
  CornerGroups values = readCorners(item, canvas);
  const std::array<double, 4> heights = readHeights(item, canvas);
  auto& at = values.corners;
  for (std::size_t i = 0; i < at.size(); ++i) at[i] = item.seen(at[i], heights[i]);
  const Path corners{{{at[0]}, {at[1]}, {at[2]}, {values.isTriangle() ? at[2] : at[3]}}, true};
  const Path face = canvas.mapped(item, corners, Affine{});
  const double resolution = canvas.measures().resolution;
  if (!face.vertices.empty() && geometry::bounds(face).diagonal() < resolution) {
    return canvas.lose(item, LossRule::NoSize, face.vertices.front().at);
  }
  const auto hidden = static_cast<unsigned>(std::clamp(values.flags, 0.0, 1e6));
  for (std::size_t i = 0; i < face.vertices.size(); ++i) {
    if ((hidden >> i) % 2 != 0) continue;
    const geometry::Arc edge = geometry::arcAt(face, i);
    // Edges that are upright show as a point at most.
    if (geometry::chord(edge) < resolution || !isNew(edge.start, edge.end, resolution)) continue;
    canvas.stroke(item, {{{edge.start}, {edge.end}}, false}, Affine{}, {.solid = true});
  }
}

bool FaceRun::isNew(Point from, Point to, double resolution) {
  const auto place = [resolution](Point p) {
    return std::pair(std::round(p.x / resolution), std::round(p.y / resolution));
  };
  return drawn_.insert(std::minmax(place(from), place(to))).second;
}

}  // namespace quillon::exact
