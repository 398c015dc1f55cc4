#include "geometry/path_tools.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// The largest radius of an arc that is no line; 0 without any.
double largestRadius(const Path& path) {
  double largest = 0.0;
  for (std::size_t i = 0; i < arcCount(path); ++i) {
    const Arc arc = arcAt(path, i);
    if (arc.curve != 0.0) largest = std::max(largest, radius(arc));
  }
  return largest;
}

/// Whether start and end are the same point, and the way between them nothing.
bool isPoint(const Arc& arc, double resolution) {
  return chord(arc) < resolution && sagitta(arc) < resolution;
}

constexpr double kClearlyMore = 1.0 + 1e-9;
constexpr double kWidest = 359.0;

/// Whether this holds for the start and the end of each line and arc.
template <typename Test>
bool allArcs(const Path& path, Test&& test) {
  const std::vector<Vertex>& vertices = path.vertices;
  if (vertices.empty()) return true;
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    if (!test(vertices[i - 1], vertices[i].at)) return false;
  }
  return !path.closed || test(vertices.back(), vertices.front().at);
}

/// Whether two vertices in a row are close to each other.
bool hasShortChord(const Path& path, double resolution) {
  const double most = kClearlyMore * resolution * (kClearlyMore * resolution);
  return !allArcs(path, [&](const Vertex& start, Point end) {
    const Point way = end - start.at;
    return dot(way, way) > most || distance(start.at, end) >= resolution;
  });
}

/// Whether no two vertices in a row are close to each other, and no arc is flat or wide, as far as
/// it can be told at once.
bool isSurelyTidy(const Path& path, double resolution) {
  const double most = kClearlyMore * resolution * (kClearlyMore * resolution);
  return allArcs(path, [&](const Vertex& start, Point end) {
    const Point way = end - start.at;
    const double square = dot(way, way);
    if (!(square > most)) return false;
    if (start.curve == 0.0) return true;
    // A tangent is no less than its angle.
    const double quarter = radiansOf(0.25 * start.curve);
    return square * (quarter * quarter) > most && std::fabs(start.curve) <= kWidest;
  });
}

/// Moves the last vertex, which is all but there, to the very end, and leaves out those before it
/// that are now too close.
void settleEnd(std::vector<Vertex>& vertices, Point end, double resolution) {
  vertices.back().curve = 0.0;
  if (vertices.size() == 1) return;
  vertices.back().at = end;
  std::size_t before = vertices.size() - 2;
  while (before > 0 && isPoint({vertices[before].at, end, vertices[before].curve}, resolution)) {
    --before;
  }
  vertices.erase(vertices.begin() + static_cast<std::ptrdiff_t>(before) + 1, vertices.end() - 1);
}

}  // namespace

double length(const Path& path) {
  double sum = 0.0;
  for (std::size_t i = 0; i < arcCount(path); ++i) sum += length(arcAt(path, i));
  return sum;
}

Box bounds(const Path& path) {
  Box box;
  extend(box, path);
  return box;
}

bool areSurelyWithin(const Box& points, double mostCurve, const Box& box) {
  // No chord is longer than both sides together, and none of the arcs leaves the disc over it.
  const Point sides = points.high - points.low;
  const double reach = 0.5 * kClearlyMore * (sides.x + sides.y);
  return mostCurve <= 180.0 && reach >= 0.0 && points.low.x - reach >= box.low.x &&
         points.high.x + reach <= box.high.x && points.low.y - reach >= box.low.y &&
         points.high.y + reach <= box.high.y;
}

bool isSurelyWithin(const Arc& arc, const Box& box) {
  if (!(std::fabs(arc.curve) <= 180.0)) return false;
  const Point between = middle(arc.start, arc.end);
  const auto holds = [&](double reach) {
    return between.x - reach >= box.low.x && between.x + reach <= box.high.x &&
           between.y - reach >= box.low.y && between.y + reach <= box.high.y;
  };
  // No chord is longer than this, which mostly is enough.
  const Point way = arc.end - arc.start;
  return holds(0.5 * kClearlyMore * (std::fabs(way.x) + std::fabs(way.y))) ||
         holds(0.5 * kClearlyMore * chord(arc));
}

void extend(Box& box, const Path& path) {
  Box points;
  double mostCurve = 0.0;
  for (const Vertex& vertex : path.vertices) {
    points.add(vertex.at);
    mostCurve = std::max(mostCurve, std::fabs(vertex.curve));
  }
  box.addPointsOf(points);
  if (mostCurve == 0.0 || areSurelyWithin(points, mostCurve, box)) return;
  const std::size_t count = arcCount(path);
  for (std::size_t i = 0; i < count; ++i) {
    if (path.vertices[i].curve == 0.0) continue;
    const Arc arc = arcAt(path, i);
    if (!isSurelyWithin(arc, box)) box.add(bounds(arc));
  }
}

void reverse(Path& path) {
  std::vector<Vertex>& vertices = path.vertices;
  if (vertices.empty()) return;
  if (!path.closed) vertices.back().curve = 0.0;
  std::reverse(vertices.begin(), vertices.end());
  // Each vertex now has the curve of the arc that leads to it; that belongs to the one before.
  const double first = vertices.front().curve;
  for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
    vertices[i].curve = -vertices[i + 1].curve;
  }
  vertices.back().curve = path.closed ? -first : 0.0;
  if (path.closed) std::rotate(vertices.begin(), vertices.end() - 1, vertices.end());
}

bool keepsCircles(const Affine& map, double radius, double resolution) {
  const Point u = map.turn({radius, 0.0});
  const Point v = map.turn({0.0, radius});
  const double length = norm(u);
  const double most = std::max(0.5 * resolution, 1e-9 * length);
  if (!usable(u) || !usable(v)) return false;
  return std::fabs(length - norm(v)) <= most && std::fabs(dot(u, v)) <= most * length;
}

bool transform(Path& path, const Affine& map, double resolution) {
  const double largest = largestRadius(path);
  if (largest != 0.0 && !keepsCircles(map, largest, resolution)) return false;
  const double sense = map.mirrors() ? -1.0 : 1.0;
  for (Vertex& vertex : path.vertices) {
    vertex.at = map(vertex.at);
    if (vertex.curve != 0.0) vertex.curve *= sense;
  }
  return true;
}

void append(Path& path, const Path& tail, double resolution) {
  auto first = tail.vertices.begin();
  if (first == tail.vertices.end()) return;
  if (!path.vertices.empty()) {
    Vertex& end = path.vertices.back();
    end.curve = 0.0;
    if (distance(end.at, first->at) < resolution) {
      end.curve = first->curve;
      ++first;
    }
  }
  path.vertices.insert(path.vertices.end(), first, tail.vertices.end());
  if (tail.closed) path.vertices.push_back({tail.vertices.front().at, 0.0});
}

void splitWideArcs(Path& path) {
  const auto isWide = [](const Vertex& vertex) { return std::fabs(vertex.curve) > kWidest; };
  if (std::none_of(path.vertices.begin(), path.vertices.end(), isWide)) return;
  std::vector<Vertex> split;
  split.reserve(path.vertices.size());
  for (std::size_t i = 0; i < path.vertices.size(); ++i) {
    split.push_back(path.vertices[i]);
    if (i >= arcCount(path) || !isWide(path.vertices[i])) continue;
    const auto [first, second] = halves(arcAt(path, i));
    split.back().curve = first.curve;
    split.push_back({second.start, second.curve});
  }
  path.vertices = std::move(split);
}

void straightenFlatArcs(Path& path, double resolution) {
  const std::size_t count = arcCount(path);
  for (std::size_t i = 0; i < count; ++i) {
    double& curve = path.vertices[i].curve;
    if (curve != 0.0 && isStraight(arcAt(path, i), resolution)) curve = 0.0;
  }
}

void dropClosePoints(Path& path, double resolution) {
  if (path.vertices.empty()) return;
  if (!hasShortChord(path, resolution)) {
    if (!path.closed) path.vertices.back().curve = 0.0;
    return;
  }
  std::vector<Vertex> kept{path.vertices.front()};
  for (std::size_t i = 0; i < arcCount(path); ++i) {
    const Arc arc{kept.back().at, arcAt(path, i).end, path.vertices[i].curve};
    kept.back().curve = arc.curve;
    if (isPoint(arc, resolution)) continue;  // what follows leaves from the predecessor
    if (chord(arc) < resolution) {
      const auto [first, second] = halves(arc);
      kept.back().curve = first.curve;
      kept.push_back({second.start, second.curve});
    }
    kept.push_back({arc.end, 0.0});
  }
  settleEnd(kept, arcAt(path, arcCount(path) - 1).end, resolution);
  if (path.closed && kept.size() > 1) kept.pop_back();
  path.vertices = std::move(kept);
}

void tidy(Path& path, double resolution) {
  if (isSurelyTidy(path, resolution)) {
    if (!path.closed && !path.vertices.empty()) path.vertices.back().curve = 0.0;
    return;
  }
  dropClosePoints(path, resolution);
  straightenFlatArcs(path, resolution);
  splitWideArcs(path);
}

void closeWhereEndsMeet(Path& path, double resolution) {
  if (path.closed || path.vertices.size() < 2) return;
  if (!(distance(path.vertices.front().at, path.vertices.back().at) < resolution)) return;
  if (path.vertices.size() == 2 && isPoint(arcAt(path, 0), resolution)) return;
  path.vertices.pop_back();
  path.closed = true;
}

}  // namespace quillon::geometry
