#include "geometry/slits.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "base/ranges.h"
#include "geometry/area.h"
#include "geometry/hole_bands.h"

namespace quillon::geometry {
namespace {

/// The same ring with its right-most point as its first vertex.
Path fromRightmost(const Path& ring) {
  Path split{.vertices = {}, .closed = true};
  for (std::size_t i = 0; i < edgeCount(ring); ++i) {
    for (const MonotonePiece& piece : monotonePieces(edgeAt(ring, i))) {
      const Edge part = piece.forward ? piece.asEdge() : reversed(piece.asEdge());
      split.vertices.push_back({part.from, part.curve});
    }
  }
  const auto rightmost =
      base::ranges::max_element(split.vertices, {}, [](const Vertex& v) { return v.at.x; });
  std::rotate(split.vertices.begin(), rightmost, split.vertices.end());
  return split;
}

bool isInTriangle(Point p, Point a, Point b, Point c) {
  const double one = cross(b - a, p - a);
  const double two = cross(c - b, p - b);
  const double three = cross(a - c, p - c);
  return (one >= 0.0 && two >= 0.0 && three >= 0.0) || (one <= 0.0 && two <= 0.0 && three <= 0.0);
}

/// A ring that takes holes in, one after the other.
class SlitRing {
 public:
  SlitRing(Path ring, double width) : ring_(std::move(ring)), width_(width) {}

  /// False when no place for a slit was found.
  bool join(const Path& hole) {
    hole_ = &hole;
    from_ = hole.vertices.front().at;
    if (!castRay()) return false;
    // Level slits never meet each other; one to a vertex may be in the way of later ones.
    std::size_t vertex = visibleVertex();
    const bool hitsVertex = hitFraction_ <= 0.0 || hitFraction_ >= 1.0;
    if (!hitsVertex) {
      splitHitEdge();
      if (vertex > hitEdge_) ++vertex;
    }
    for (const std::size_t to : {hitsVertex ? vertex : hitEdge_ + 1, vertex}) {
      if (!isFree(to)) continue;
      insertAt(to);
      return true;
    }
    return false;
  }

  const Path& ring() const { return ring_; }

 private:
  /// Finds the edge that the ray from the hole to the right meets first, and where.
  bool castRay() {
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < edgeCount(ring_); ++i) {
      const Edge edge = edgeAt(ring_, i);
      for (const double at : fractionsOnLine(edge, from_, {1.0, 0.0})) {
        const Point p = pointAt(edge, at);
        if (!(p.x > from_.x) || p.x >= nearest) continue;
        nearest = p.x;
        hitEdge_ = i;
        hitFraction_ = at;
      }
    }
    return nearest < std::numeric_limits<double>::infinity();
  }

  /// The right end of the hit edge, or the vertex that hides it.
  std::size_t visibleVertex() const {
    const Edge edge = edgeAt(ring_, hitEdge_);
    const std::size_t next = (hitEdge_ + 1) % ring_.vertices.size();
    if (hitFraction_ <= 0.0) return hitEdge_;
    if (hitFraction_ >= 1.0) return next;
    const Point hit = pointAt(edge, hitFraction_);
    std::size_t best = edge.from.x > edge.to.x ? hitEdge_ : next;
    const Point end = ring_.vertices[best].at;
    double steepest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < ring_.vertices.size(); ++i) {
      const Point p = ring_.vertices[i].at;
      if (p.x <= from_.x || !isInTriangle(p, from_, hit, end)) continue;
      const double steepness = std::fabs(p.y - from_.y) / (p.x - from_.x);
      if (steepness >= steepest) continue;
      steepest = steepness;
      best = i;
    }
    return best;
  }

  void splitHitEdge() {
    const Edge edge = edgeAt(ring_, hitEdge_);
    ring_.vertices[hitEdge_].curve = edge.curve * hitFraction_;
    const Vertex hit{{pointAt(edge, hitFraction_).x, from_.y}, edge.curve * (1.0 - hitFraction_)};
    ring_.vertices.insert(ring_.vertices.begin() + static_cast<std::ptrdiff_t>(hitEdge_) + 1, hit);
  }

  /// Nothing but the edges at its own ends comes near a slit to a vertex of the ring.
  bool isFree(std::size_t vertex) const {
    const std::size_t count = ring_.vertices.size();
    const std::size_t holes = hole_->vertices.size();
    return isFree(vertex, ring_, vertex, (vertex + count - 1) % count) &&
           isFree(vertex, *hole_, 0, holes - 1);
  }

  bool isFree(std::size_t vertex, const Path& path, std::size_t own, std::size_t alsoOwn) const {
    const Point to = ring_.vertices[vertex].at;
    const double length = norm(to - from_);
    if (length < 4.0 * width_) return false;
    const Point along = (to - from_) * (1.0 / length);
    for (std::size_t i = 0; i < edgeCount(path); ++i) {
      const Edge edge = edgeAt(path, i);
      // Edges at the ends of the slit may start there, but not come back to it.
      const double skip = i == own || i == alsoOwn ? 10.0 * width_ : 0.0;
      if (comesNear(edge, along, length, skip)) return false;
    }
    return true;
  }

  /// The edge comes nearer to the slit than its width; `skip` leaves out the slit's two ends.
  bool comesNear(const Edge& edge, Point along, double length, double skip) const {
    const Point across = leftOf(along);
    const double near = 1.5 * width_;
    // The part of the edge beside the slit, between two lines at right angles to it.
    for (const double side : {-near, near}) {
      for (const double at : fractionsOnLine(edge, from_ + across * side, along)) {
        const double where = dot(pointAt(edge, at) - from_, along);
        const double margin = skip == 0.0 ? -near : skip;
        if (where > margin && where < length - margin) return true;
      }
    }
    if (skip != 0.0) return false;
    const double where = dot(edge.from - from_, along);
    return where > -near && where < length + near &&
           std::fabs(dot(edge.from - from_, across)) < near;
  }

  /// … vertex, hole, vertex …, with the ways there and back moved apart.
  void insertAt(std::size_t vertex) {
    const std::size_t count = ring_.vertices.size();
    const Point at = ring_.vertices[vertex].at;
    const Point way = from_ - at;
    const Point aside = leftOf(way) * (0.5 * width_ / norm(way));
    Vertex& before = ring_.vertices[(vertex + count - 1) % count];
    const Edge arriving = ending(edgeAt(ring_, (vertex + count - 1) % count), way, aside);
    const Edge leaving = reversed(ending(reversed(edgeAt(ring_, vertex)), way, aside * -1.0));
    const std::size_t last = hole_->vertices.size() - 1;
    const Edge first = reversed(ending(reversed(edgeAt(*hole_, 0)), way, aside));
    const Edge back = ending(edgeAt(*hole_, last), way, aside * -1.0);

    before.curve = arriving.curve;
    std::vector<Vertex> inserted = {{arriving.to}, {first.from, first.curve}};
    inserted.insert(inserted.end(), hole_->vertices.begin() + 1, hole_->vertices.end());
    inserted.back().curve = back.curve;
    inserted.push_back({back.to});
    inserted.push_back({leaving.from, leaving.curve});
    const auto place = ring_.vertices.begin() + static_cast<std::ptrdiff_t>(vertex);
    ring_.vertices.insert(ring_.vertices.erase(place), inserted.begin(), inserted.end());
  }

  /// The edge as far as to the side of the slit that is `aside` of its end: cut there, or led there
  /// when it does not meet it nearby.
  Edge ending(const Edge& edge, Point way, Point aside) const {
    const std::vector<double> crossings = fractionsOnLine(edge, edge.to + aside, way);
    if (!crossings.empty() && crossings.back() > 0.5) {
      const Point at = pointAt(edge, crossings.back());
      if (norm(at - edge.to) < 8.0 * width_) return partOf(edge, 0.0, crossings.back());
    }
    return {edge.from, edge.to + aside, edge.curve};
  }

  Path ring_;
  double width_;
  const Path* hole_ = nullptr;
  Point from_;  ///< the right-most point of the hole
  std::size_t hitEdge_ = 0;
  double hitFraction_ = 0.0;
};

std::optional<Path> joinedBySlits(const Region& region, double width) {
  std::vector<Path> holes;
  for (const Path& hole : region.holes) holes.push_back(fromRightmost(hole));
  std::erase_if(holes, [](const Path& hole) { return hole.vertices.size() < 2; });
  base::ranges::stable_sort(holes, std::greater<>(),
                            [](const Path& hole) { return hole.vertices.front().at.x; });
  SlitRing ring(region.outer, width);
  for (const Path& hole : holes) {
    if (!ring.join(hole)) return std::nullopt;
  }
  if (crossesItself(ring.ring())) return std::nullopt;
  return ring.ring();
}

}  // namespace

std::vector<Path> withoutHoles(const Region& region, const SlitOptions& options) {
  const bool fits = isUsable(region.outer) &&
                    base::ranges::all_of(region.holes, [](const Path& p) { return isUsable(p); });
  if (!fits || region.outer.vertices.size() < 2) return {};
  if (region.holes.empty()) return {region.outer};
  if (region.holes.size() < options.bandsFrom) {
    if (auto joined = joinedBySlits(region, options.width)) return {std::move(*joined)};
  }
  return cutIntoBands(region, options.width);
}

}  // namespace quillon::geometry
