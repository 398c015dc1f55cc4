#include "geometry/end_grid.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/ranges.h"
#include "geometry/cell_filter.h"
#include "geometry/end_filter.h"
#include "geometry/hash_index.h"
#include "geometry/no_index.h"

namespace quillon::geometry {
namespace {

/// Of one cell; more would be a place of many ends, none of which means to meet a certain other.
constexpr int kMostCompared = 64;
constexpr std::size_t kEndsPerCheck = 64;

std::uint64_t hashOfEndCell(std::size_t layer, double x, double y) {
  return mixedBits(mixedBits(mixedBits(layer + 0x9e3779b97f4a7c15U) + bitsOf(x)) + bitsOf(y));
}

/// Which of many places others are so near to that they may become one.
std::vector<std::uint32_t> placesNearOthers(const std::vector<EndPlace>& places, double tolerance,
                                            const StopCheck& stop) {
  EndFilter filter(places.size(), tolerance);
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (i % kEndsPerCheck == 0 && stop()) return {};
    filter.add(places[i].at, i);
  }
  const std::vector<bool> isNear = filter.meeting(places.size());
  std::vector<std::uint32_t> found;
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (isNear[i]) found.push_back(static_cast<std::uint32_t>(i));
  }
  return found;
}

/// A point that places near others have become.
struct Target {
  Point at;
  std::uint32_t layer = 0;
  std::uint32_t place = 0;  ///< the first of them
  std::uint32_t ends = 0;
  std::size_t nextInCell = kNoIndex;
};

class EndGrid {
 public:
  EndGrid(std::vector<Piece>& pieces, double tolerance, const StopCheck& stop)
      : pieces_(pieces), tolerance_(tolerance), stop_(stop) {}

  JoinedEnds join() {
    found_ = placesOf(pieces_, stop_);
    if (stop_()) return {};
    pointOf_.resize(found_.places.size());
    for (std::size_t i = 0; i < pointOf_.size(); ++i) pointOf_[i] = static_cast<std::uint32_t>(i);
    if (tolerance_ > 0.0 && !joinPlaces()) return {};
    return moveToPoints();
  }

 private:
  /// False where it was stopped.
  bool joinPlaces() {
    const std::vector<std::uint32_t> crowded =
        inOrder(placesNearOthers(found_.places, tolerance_, stop_));
    if (!crowded.empty()) linkEnds();
    filled_ = CellFilter(crowded.size());
    cells_ = HashIndex(crowded.size());
    for (std::size_t i = 0; i < crowded.size(); ++i) {
      if (i % kEndsPerCheck == 0 && stop_()) return false;
      assign(crowded[i]);
    }
    return !stop_();
  }

  /// Where lines meet already is where others are to go.
  std::vector<std::uint32_t> inOrder(std::vector<std::uint32_t> places) const {
    std::vector<std::pair<std::uint64_t, std::uint32_t>> order;
    order.reserve(places.size());
    for (const std::uint32_t i : places) {
      const EndPlace& place = found_.places[i];
      const std::uint64_t rank = (place.leads ? 0U : 2U) + (place.ends == 1 ? 1U : 0U);
      order.emplace_back(rank << 32 | place.firstEnd, i);
    }
    base::ranges::sort(order);
    std::transform(order.begin(), order.end(), places.begin(),
                   [](const auto& item) { return item.second; });
    return places;
  }

  void linkEnds() {
    nextAtPlace_.assign(found_.placeOf.size(), kNoEnd);
    for (std::uint32_t end = 0; end < nextAtPlace_.size(); ++end) {
      if (found_.placeOf[end] == kNoEnd) continue;
      const std::uint32_t first = found_.places[found_.placeOf[end]].firstEnd;
      if (end != first) nextAtPlace_[end] = std::exchange(nextAtPlace_[first], end);
    }
  }

  void assign(std::uint32_t index) {
    const EndPlace& place = found_.places[index];
    std::size_t target = nearestTarget(place);
    if (target == kNoIndex) {
      target = targets_.size();
      const double x = cellOf(place.at.x);
      const double y = cellOf(place.at.y);
      filled_.add(place.layer, x, y);
      std::size_t& first = cells_.at(hashOfEndCell(place.layer, x, y));
      targets_.push_back({place.at, place.layer, index, 0, std::exchange(first, target)});
    }
    targets_[target].ends += place.ends;
    pointOf_[index] = targets_[target].place;
  }

  double cellOf(double coordinate) const { return std::floor(coordinate / tolerance_); }

  std::size_t nearestTarget(const EndPlace& place) const {
    std::size_t best = kNoIndex;
    const double x = cellOf(place.at.x);
    const double y = cellOf(place.at.y);
    if (!filled_.mayHaveAround(place.layer, x, y)) return best;
    double nearest = std::nextafter(tolerance_, 2.0 * tolerance_ + 1.0);
    for (const double dx : {-1.0, 0.0, 1.0}) {
      for (const double dy : {-1.0, 0.0, 1.0}) {
        if (!filled_.mayHave(place.layer, x + dx, y + dy)) continue;
        int compared = 0;
        std::size_t i = cells_.find(hashOfEndCell(place.layer, x + dx, y + dy));
        for (; i != kNoIndex && compared < kMostCompared; ++compared) {
          const double distance = norm(targets_[i].at - place.at);
          if (distance < nearest && targets_[i].layer == place.layer) {
            if (isOwn(place, targets_[i].place)) {
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

  /// A short piece leads from the place to the point.
  bool isOwn(const EndPlace& place, std::uint32_t point) const {
    int compared = 0;
    for (std::uint32_t end = place.firstEnd; end != kNoEnd && compared < kMostCompared;
         ++compared) {
      if (pointOf_[found_.placeOf[end ^ 1U]] == point && isShort(pieces_[end / 2])) return true;
      end = nextAtPlace_[end];
    }
    return false;
  }

  /// No way leads from one end round to the other.
  bool isShort(const Piece& piece) const {
    return lengthOf(piece) <= 2.0 * tolerance_ + norm(endOf(piece, 1) - endOf(piece, 0));
  }

  JoinedEnds moveToPoints() {
    JoinedEnds joined{.points = std::move(found_.placeOf), .pointCount = pointOf_.size()};
    if (targets_.empty()) return joined;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      std::uint32_t* const ends = &joined.points[2 * i];
      if (ends[0] == kNoEnd) continue;
      const bool stays = pointOf_[ends[0]] == ends[0] && pointOf_[ends[1]] == ends[1];
      if (stays) continue;
      for (const std::uint32_t k : {0U, 1U}) {
        ends[k] = pointOf_[ends[k]];
        const Point to = found_.places[ends[k]].at;
        const Point from = endOf(pieces_[i], k);
        if (from != to) ++joined.moved;
        joined.largestMove = std::max(joined.largestMove, norm(to - from));
      }
      joined.movedPieces.push_back(static_cast<std::uint32_t>(i));
      moveEnds(pieces_[i], found_.places[ends[0]].at, found_.places[ends[1]].at);
    }
    return joined;
  }

  std::vector<Piece>& pieces_;
  double tolerance_;
  const StopCheck& stop_;
  EndPlaces found_;
  std::vector<std::uint32_t> pointOf_;  ///< the place that each place has become
  // Of places that others are near to.
  std::vector<std::uint32_t> nextAtPlace_;  ///< the ends at a place after its first one
  std::vector<Target> targets_;
  CellFilter filled_{0};
  HashIndex cells_{0};  ///< the last target of each cell
};

}  // namespace

JoinedEnds joinEnds(std::vector<Piece>& pieces, double tolerance, const StopCheck& stop) {
  return EndGrid(pieces, tolerance, stop).join();
}

}  // namespace quillon::geometry
