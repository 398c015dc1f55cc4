#include "geometry/path_tools.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

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

/// Whether two vertices in a row are close to each other.
bool hasShortChord(const Path& path, double resolution) {
  constexpr double kClearly = 1.0 + 1e-9;
  const double longer = kClearly * resolution;
  const std::size_t count = arcCount(path);
  for (std::size_t i = 0; i < count; ++i) {
    const Arc arc = arcAt(path, i);
    const Point way = arc.end - arc.start;
    if (dot(way, way) > longer * longer) continue;
    if (!(chord(arc) >= resolution)) return true;
  }
  return false;
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

std::size_t arcCount(const Path& path) {
  const std::size_t count = path.vertices.size();
  return path.closed || count == 0 ? count : count - 1;
}

Arc arcAt(const Path& path, std::size_t index) {
  const Vertex& start = path.vertices[index];
  const std::size_t next = index + 1 < path.vertices.size() ? index + 1 : 0;
  return {start.at, path.vertices[next].at, start.curve};
}

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

bool isSurelyWithin(const Arc& arc, const Box& box) {
  constexpr double kMore = 1.0 + 1e-9;
  if (!(std::fabs(arc.curve) <= 180.0)) return false;
  const Point between = middle(arc.start, arc.end);
  const auto holds = [&](double reach) {
    return between.x - reach >= box.low.x && between.x + reach <= box.high.x &&
           between.y - reach >= box.low.y && between.y + reach <= box.high.y;
  };
  // No chord is longer than this, which mostly is enough.
  const Point way = arc.end - arc.start;
  return holds(0.5 * kMore * (std::fabs(way.x) + std::fabs(way.y))) ||
         holds(0.5 * kMore * chord(arc));
}

void extend(Box& box, const Path& path) {
  for (const Vertex& vertex : path.vertices) box.add(vertex.at);
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
  constexpr double kWidest = 359.0;
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

void closeWhereEndsMeet(Path& path, double resolution) {
  if (path.closed || path.vertices.size() < 2) return;
  if (!(distance(path.vertices.front().at, path.vertices.back().at) < resolution)) return;
  if (path.vertices.size() == 2 && isPoint(arcAt(path, 0), resolution)) return;
  path.vertices.pop_back();
  path.closed = true;
}

}  // namespace quillon::geometry
