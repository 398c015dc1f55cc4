#include "geometry/area.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "base/ranges.h"

namespace quillon::geometry {
namespace {

constexpr double kMostLines = 10000.0;

/// Of the segment between an arc and its chord; positive for a counter-clockwise arc.
double segmentArea(const Edge& edge) {
  const double sweep = radiansOf(edge.curve);
  const Point chord = edge.to - edge.from;
  if (std::fabs(sweep) < 1e-3) return dot(chord, chord) * sweep / 12.0;
  const double sine = std::sin(sweep / 2.0);
  return dot(chord, chord) * (sweep - std::sin(sweep)) / (8.0 * sine * sine);
}

std::vector<Path> closedCopies(std::span<const Path> paths) {
  std::vector<Path> closed;
  for (const Path& path : paths) {
    closed.push_back(isUsable(path) ? path : Path{});
    closed.back().closed = true;
  }
  return closed;
}

/// Up and down, what reaches to its ring: of a ring beside a point, as many pieces are above it as
/// cancel each other.
std::vector<StabbingTree::Span> spansOf(const std::vector<MonotonePiece>& pieces,
                                        std::span<const Path> rings) {
  constexpr double kMargin = 1e-6;  // much more than rounding
  std::vector<StabbingTree::Range> heights;
  heights.reserve(rings.size());
  for (const Path& ring : rings) {
    const Box box = boundsOf(ring);
    const double margin =
        box.empty() ? 0.0
                    : kMargin * (box.diagonal() + std::fabs(box.low.y) + std::fabs(box.high.y));
    heights.push_back({box.low.y - margin, box.high.y + margin});
  }
  std::vector<StabbingTree::Span> spans;
  spans.reserve(pieces.size());
  for (const MonotonePiece& piece : pieces) {
    spans.push_back({piece.left.x, piece.right.x, heights[piece.ring]});
  }
  return spans;
}

/// Told of three or four corners alone, as which areas mostly come. No three of them are in one
/// line, so that nothing touches; where two edges cross, as many corners turn left as right.
bool isClearlySimple(const Path& path) {
  const std::size_t count = path.vertices.size();
  if (count < 3 || count > 4 || !isUsable(path)) return false;
  double shortest = std::numeric_limits<double>::infinity();
  double longest = 0.0;
  std::size_t turnsLeft = 0;
  Point in = path.vertices.front().at - path.vertices.back().at;
  double lengthIn = norm(in);
  for (std::size_t i = 0; i < count; ++i) {
    if (path.vertices[i].curve != 0.0) return false;
    const Point out = path.vertices[i + 1 < count ? i + 1 : 0].at - path.vertices[i].at;
    const double lengthOut = norm(out);
    constexpr double kClearly = 1e-6;
    const double turn = cross(in, out);
    if (!(std::fabs(turn) > kClearly * lengthIn * lengthOut)) return false;
    if (turn > 0.0) ++turnsLeft;
    shortest = std::min(shortest, lengthOut);
    longest = std::max(longest, lengthOut);
    in = out;
    lengthIn = lengthOut;
  }
  // Rounding matters to none of these then.
  constexpr double kMostRatio = 1e8;
  return 2 * turnsLeft != count && longest < kMostRatio * shortest;
}

}  // namespace

double signedArea(const Path& path) {
  if (!isUsable(path) || path.vertices.empty()) return 0.0;
  const Point origin = path.vertices.front().at;
  double area = 0.0;
  for (std::size_t i = 0; i < edgeCount(path); ++i) {
    const Edge edge = edgeAt(path, i);
    area += 0.5 * cross(edge.from - origin, edge.to - origin);
    if (edge.curve != 0.0) area += segmentArea(edge);
  }
  return area;
}

bool isCounterClockwise(const Path& path) { return signedArea(path) > 0.0; }

Path reversed(const Path& path) {
  Path other{.vertices = {}, .closed = path.closed};
  const std::size_t count = path.vertices.size();
  for (std::size_t i = 0; i < count; ++i) {
    // An open path turns round; a closed one keeps its first vertex.
    const std::size_t at = path.closed ? (count - i) % count : count - 1 - i;
    const std::size_t before = at == 0 ? count - 1 : at - 1;
    const bool leads = path.closed || at != 0;
    other.vertices.push_back({path.vertices[at].at, leads ? -path.vertices[before].curve : 0.0});
  }
  return other;
}

Box boundsOf(const Path& path) {
  Box box;
  if (!isUsable(path)) return box;
  for (const Vertex& vertex : path.vertices) box.add(vertex.at);
  for (std::size_t i = 0; i < edgeCount(path); ++i) box.add(boundsOf(edgeAt(path, i)));
  return box;
}

Path flattened(const Path& path, double tolerance) {
  Path flat{.vertices = {}, .closed = path.closed};
  if (!isUsable(path)) return flat;
  const std::size_t edges = edgeCount(path);
  for (std::size_t i = 0; i < path.vertices.size(); ++i) {
    flat.vertices.push_back({path.vertices[i].at});
    if (i >= edges || path.vertices[i].curve == 0.0) continue;
    const Edge edge = edgeAt(path, i);
    if (sagittaOf(edge) <= tolerance || edge.from == edge.to) continue;
    // The sagitta r (1 - cos(step / 2)) of each step.
    const double step =
        4.0 * std::asin(std::min(1.0, std::sqrt(tolerance / (2.0 * circleOf(edge).radius))));
    const double wanted = std::ceil(std::fabs(radiansOf(edge.curve)) / step);
    const int steps = static_cast<int>(wanted <= kMostLines ? wanted : kMostLines);
    for (int k = 1; k < steps; ++k) flat.vertices.push_back({pointAt(edge, k / double(steps))});
  }
  return flat;
}

Path withoutShortEdges(const Path& path, double length) {
  Path kept{.vertices = {}, .closed = path.closed};
  for (const Vertex& vertex : path.vertices) {
    if (kept.vertices.empty() || norm(vertex.at - kept.vertices.back().at) > length) {
      kept.vertices.push_back(vertex);
    } else {
      // The edge that goes on is that of the vertex left out.
      kept.vertices.back().curve = vertex.curve;
    }
  }
  if (kept.vertices.size() < 2) return kept;
  if (path.closed) {
    while (kept.vertices.size() > 1 &&
           norm(kept.vertices.back().at - kept.vertices.front().at) <= length) {
      kept.vertices.pop_back();
    }
  } else {
    kept.vertices.back().at = path.vertices.back().at;
  }
  return kept;
}

PointLocator::PointLocator(std::span<const Path> paths) {
  const std::vector<Path> closed = closedCopies(paths);
  for (std::size_t i = 0; i < closed.size(); ++i) addMonotonePieces(closed[i], i, pieces_);
  tree_ = StabbingTree(spansOf(pieces_, closed));
}

Location PointLocator::locate(Point p) const {
  if (!usable(p)) return Location::outside;
  std::vector<std::size_t> hits;
  tree_.find({p.x, p.x, {p.y, p.y}}, hits);
  bool odd = false;
  for (const std::size_t hit : hits) {
    const MonotonePiece& piece = pieces_[hit];
    const int side = piece.sideOf(p);
    if (side == 0) return Location::border;
    // A vertex counts once: as the left end of its pieces.
    if (side < 0 && p.x < piece.right.x) odd = !odd;
  }
  return odd ? Location::inside : Location::outside;
}

PointLocator::Rings PointLocator::ringsAt(Point p) const {
  Rings rings;
  if (!usable(p)) return rings;
  std::vector<std::size_t> hits;
  tree_.find({p.x, p.x, {p.y, p.y}}, hits);
  std::vector<std::size_t> above;
  for (const std::size_t hit : hits) {
    const MonotonePiece& piece = pieces_[hit];
    const int side = piece.sideOf(p);
    if (side == 0) rings.through.push_back(piece.ring);
    if (side < 0 && p.x < piece.right.x) above.push_back(piece.ring);
  }
  base::ranges::sort(rings.through);
  rings.through.erase(std::unique(rings.through.begin(), rings.through.end()), rings.through.end());
  base::ranges::sort(above);
  for (std::size_t first = 0; first < above.size();) {
    std::size_t last = first + 1;
    while (last < above.size() && above[last] == above[first]) ++last;
    const bool odd = (last - first) % 2 == 1;
    if (odd && !base::ranges::binary_search(rings.through, above[first])) {
      rings.around.push_back(above[first]);
    }
    first = last;
  }
  return rings;
}

Location locate(const Path& path, Point p) { return PointLocator({&path, 1}).locate(p); }

bool crossesItself(const Path& path, double tolerance) {
  if (tolerance == 0.0 && isClearlySimple(path)) return false;
  return crossOrTouch({&path, 1}, tolerance);
}

}  // namespace quillon::geometry
