#include "geometry/end_grid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>

#include "geometry/cell_filter.h"
#include "geometry/hash_index.h"
#include "geometry/no_index.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

/// Of one cell; more would be a place of many ends, none of which means to meet a certain other.
constexpr int kMostCompared = 64;
constexpr std::size_t kEndsPerCheck = 64;

std::uint64_t hashOf(std::size_t layer, double x, double y) {
  return mixedBits(mixedBits(mixedBits(layer + 0x9e3779b97f4a7c15U) + bitsOf(x)) + bitsOf(y));
}

/// An arc of the same radius and sense between new ends, as far as it reaches.
double curveWithRadiusOf(const Edge& old, Point from, Point to) {
  if (old.curve == 0.0 || old.from == old.to) return old.curve;
  const double sine = norm(to - from) / (2.0 * circleOf(old).radius);
  if (!(sine <= 1.0)) return old.curve;
  double half = std::asin(sine);
  if (std::fabs(old.curve) > 180.0) half = std::numbers::pi - half;
  return std::copysign(degreesOf(2.0 * half), old.curve);
}

/// Ends that are equal, bit for bit, on one layer.
struct Place {
  Point at;
  std::size_t layer;
  std::size_t ends = 0;
  std::size_t firstEnd;
  bool leads = false;            ///< has an end of a line or polyline
  std::size_t point = kNoIndex;  ///< the number that it shares with the places joined with it
};

/// A point that places have become.
struct Target {
  Point at;
  std::size_t layer;
  std::size_t ends;
  std::size_t nextInCell;
};

class EndGrid {
 public:
  EndGrid(std::vector<Piece>& pieces, double tolerance, const StopCheck& stop)
      : pieces_(pieces),
        tolerance_(tolerance),
        stop_(stop),
        placeOf_(2 * pieces.size(), kNoIndex),
        nextAtPlace_(2 * pieces.size(), kNoIndex),
        filled_(2 * pieces.size()),
        cells_(tolerance > 0.0 ? 2 * pieces.size() : 0) {}

  JoinedEnds join() {
    findPlaces();
    // Where lines meet already is where others are to go.
    for (const bool leads : {true, false}) {
      for (const bool alone : {false, true}) {
        for (std::size_t i = 0; i < places_.size(); ++i) {
          if (i % kEndsPerCheck == 0 && stop_()) return {};
          if (places_[i].leads == leads && (places_[i].ends == 1) == alone) assign(i);
        }
      }
    }
    return moveEnds();
  }

 private:
  static bool hasEnds(const Piece& piece) {
    return !piece.path.closed && piece.path.vertices.size() > 1 && isUsable(piece.path);
  }

  Point endOf(std::size_t end) const {
    const auto& vertices = pieces_[end / 2].path.vertices;
    return end % 2 == 0 ? vertices.front().at : vertices.back().at;
  }

  /// Places of lines are in the order of the first end of a line there.
  void findPlaces() {
    HashIndex byHash(placeOf_.size());
    std::vector<std::size_t> nextWithHash;
    for (const bool arcs : {false, true}) {
      for (std::size_t end = 0; end < placeOf_.size(); ++end) {
        if (end % kEndsPerCheck == 0 && stop_()) return;
        const Piece& piece = pieces_[end / 2];
        if (piece.isArc != arcs || !hasEnds(piece)) continue;
        const Point at = endOf(end);
        std::size_t& first = byHash.at(hashOf(piece.layer, at.x, at.y));
        std::size_t place = first;
        while (place != kNoIndex &&
               (places_[place].at != at || places_[place].layer != piece.layer)) {
          place = nextWithHash[place];
        }
        if (place == kNoIndex) {
          place = places_.size();
          places_.push_back({.at = at, .layer = piece.layer, .firstEnd = end, .leads = !arcs});
          nextWithHash.push_back(std::exchange(first, place));
        }
        if (places_[place].ends++ > 0) {
          nextAtPlace_[end] = std::exchange(nextAtPlace_[places_[place].firstEnd], end);
        }
        placeOf_[end] = place;
      }
    }
  }

  void assign(std::size_t index) {
    Place& place = places_[index];
    std::size_t target = tolerance_ > 0.0 ? nearestTarget(place) : kNoIndex;
    if (target == kNoIndex) {
      target = targets_.size();
      targets_.push_back({place.at, place.layer, 0, kNoIndex});
      if (tolerance_ > 0.0) {
        const double x = cellOf(place.at.x);
        const double y = cellOf(place.at.y);
        filled_.add(place.layer, x, y);
        std::size_t& first = cells_.at(hashOf(place.layer, x, y));
        targets_[target].nextInCell = std::exchange(first, target);
      }
    }
    targets_[target].ends += place.ends;
    place.point = target;
  }

  double cellOf(double coordinate) const { return std::floor(coordinate / tolerance_); }

  std::size_t nearestTarget(const Place& place) const {
    std::size_t best = kNoIndex;
    const double x = cellOf(place.at.x);
    const double y = cellOf(place.at.y);
    if (!filled_.mayHaveAround(place.layer, x, y)) return best;
    double nearest = std::nextafter(tolerance_, 2.0 * tolerance_ + 1.0);
    for (const double dx : {-1.0, 0.0, 1.0}) {
      for (const double dy : {-1.0, 0.0, 1.0}) {
        int compared = 0;
        std::size_t i = cells_.find(hashOf(place.layer, x + dx, y + dy));
        for (; i != kNoIndex && compared < kMostCompared; ++compared) {
          const double distance = norm(targets_[i].at - place.at);
          if (distance < nearest && targets_[i].layer == place.layer) {
            if (isOwn(place, i)) {
              // What is beyond the other end of a short piece is not what an end has missed.
              nearest = distance;
              best = kNoIndex;
            } else if (place.ends == 1 || targets_[i].ends == 1) {
              nearest = distance;
              best = i;
            }
          }
          i = targets_[i].nextInCell;
        }
      }
    }
    return best;
  }

  /// A short piece leads from the place to the target.
  bool isOwn(const Place& place, std::size_t target) const {
    int compared = 0;
    for (std::size_t end = place.firstEnd; end != kNoIndex && compared < kMostCompared;
         ++compared) {
      if (places_[placeOf_[end ^ 1]].point == target && isShort(end)) return true;
      end = nextAtPlace_[end];
    }
    return false;
  }

  /// No way leads from one end round to the other.
  bool isShort(std::size_t end) const {
    double length = 0.0;
    const Path& path = pieces_[end / 2].path;
    for (std::size_t i = 0; i < edgeCount(path); ++i) length += lengthOf(edgeAt(path, i));
    return length <= 2.0 * tolerance_ + norm(endOf(end) - endOf(end ^ 1));
  }

  JoinedEnds moveEnds() {
    JoinedEnds joined{.points = {}, .pointCount = targets_.size()};
    for (std::size_t end = 0; end < placeOf_.size(); ++end) {
      joined.points.push_back(placeOf_[end] == kNoIndex ? joined.pointCount++
                                                        : places_[placeOf_[end]].point);
    }
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      if (placeOf_[2 * i] == kNoIndex) continue;
      for (const std::size_t end : {2 * i, 2 * i + 1}) {
        const double move = norm(targets_[joined.points[end]].at - endOf(end));
        if (!(endOf(end) == targets_[joined.points[end]].at)) ++joined.moved;
        joined.largestMove = std::max(joined.largestMove, move);
      }
      movePiece(pieces_[i].path, targets_[joined.points[2 * i]].at,
                targets_[joined.points[2 * i + 1]].at);
    }
    return joined;
  }

  static void movePiece(Path& path, Point start, Point end) {
    auto& vertices = path.vertices;
    if (vertices.front().at == start && vertices.back().at == end) return;
    if (start == end && vertices.size() == 2) {
      // An arc almost all round cannot be told by equal ends.
      const Edge edge = edgeAt(path, 0);
      vertices = {{edge.from, edge.curve / 2}, {pointAt(edge, 0.5), edge.curve / 2}, {edge.to}};
    }
    const std::size_t last = vertices.size() - 2;
    const Edge first = edgeAt(path, 0);
    const Edge final = edgeAt(path, last);
    vertices.front().at = start;
    vertices.back().at = end;
    vertices[0].curve = curveWithRadiusOf(first, vertices[0].at, vertices[1].at);
    vertices[last].curve = curveWithRadiusOf(final, vertices[last].at, vertices[last + 1].at);
  }

  std::vector<Piece>& pieces_;
  double tolerance_;
  const StopCheck& stop_;
  std::vector<Place> places_;
  std::vector<std::size_t> placeOf_;      ///< of each end
  std::vector<std::size_t> nextAtPlace_;  ///< the ends at a place after its first one
  std::vector<Target> targets_;
  CellFilter filled_;
  HashIndex cells_;  ///< the last target of each cell
};

}  // namespace

JoinedEnds joinEnds(std::vector<Piece>& pieces, double tolerance, const StopCheck& stop) {
  return EndGrid(pieces, tolerance, stop).join();
}

}  // namespace quillon::geometry
