#include "geometry/gaps.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "base/ranges.h"
#include "geometry/box.h"
#include "geometry/no_index.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

struct End {
  Point at;
  std::size_t layer;
  std::size_t index;  ///< 2 i or 2 i + 1
  std::size_t point;
};

/// Ends of one layer as a tree that halves them by x or by y, whichever they differ in more: ends
/// in a row could not be told apart by the other one.
class EndTree {
 public:
  explicit EndTree(std::span<End> ends) : ends_(ends), byY_(ends.size(), false) {
    build(0, ends_.size());
  }

  /// The nearest end that is another point.
  const End* nearest(const End& from, double& distance) const {
    Search search{from, nullptr, std::numeric_limits<double>::infinity()};
    find(search, 0, ends_.size());
    distance = search.distance;
    return search.best;
  }

 private:
  struct Search {
    const End& from;
    const End* best;
    double distance;
  };

  static double key(const End& end, bool byY) { return byY ? end.at.y : end.at.x; }

  bool isTall(std::size_t first, std::size_t last) const {
    Box box;
    for (std::size_t i = first; i < last; ++i) box.add(ends_[i].at);
    return box.high.y - box.low.y > box.high.x - box.low.x;
  }

  void build(std::size_t first, std::size_t last) {
    if (last - first < 2) return;
    const std::size_t root = first + (last - first) / 2;
    const bool byY = isTall(first, last);
    byY_[root] = byY;
    const auto at = [this](std::size_t i) {
      return ends_.begin() + static_cast<std::ptrdiff_t>(i);
    };
    std::nth_element(at(first), at(root), at(last), [byY](const End& a, const End& b) {
      return std::tuple(key(a, byY), a.index) < std::tuple(key(b, byY), b.index);
    });
    build(first, root);
    build(root + 1, last);
  }

  void find(Search& search, std::size_t first, std::size_t last) const {
    if (first == last) return;
    const std::size_t root = first + (last - first) / 2;
    const End& end = ends_[root];
    if (end.point != search.from.point) {
      const double distance = norm(end.at - search.from.at);
      if (search.best == nullptr ||
          std::tuple(distance, end.index) < std::tuple(search.distance, search.best->index)) {
        search.best = &end;
        search.distance = distance;
      }
    }
    const bool byY = byY_[root];
    const double beyond = key(search.from, byY) - key(end, byY);
    const bool left = beyond < 0.0;
    find(search, left ? first : root + 1, left ? root : last);
    if (std::max(beyond, -beyond) <= search.distance) {
      find(search, left ? root + 1 : first, left ? last : root);
    }
  }

  std::span<End> ends_;
  std::vector<bool> byY_;  ///< of each end as a root
};

Gap::End toldAs(const End& end) { return {end.index / 2, end.at}; }

}  // namespace

std::vector<Gap> gapsOf(std::span<const Piece> pieces, const JoinedEnds& joined) {
  std::vector<End> ends;
  std::vector<std::size_t> counts(joined.pointCount, 0);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Path& path = pieces[i].path;
    if (path.closed || path.vertices.size() < 2 || !isUsable(path)) continue;
    for (const std::size_t end : {2 * i, 2 * i + 1}) {
      const Point at = end % 2 == 0 ? path.vertices.front().at : path.vertices.back().at;
      ends.push_back({at, pieces[i].layer, end, joined.points[end]});
      ++counts[joined.points[end]];
    }
  }
  base::ranges::sort(ends, {}, [](const End& end) { return std::tuple(end.layer, end.index); });
  std::vector<Gap> gaps;
  for (std::size_t first = 0; first < ends.size();) {
    std::size_t last = first;
    while (last < ends.size() && ends[last].layer == ends[first].layer) ++last;
    const EndTree tree(std::span<End>(ends).subspan(first, last - first));
    for (std::size_t i = first; i < last; ++i) {
      if (counts[ends[i].point] != 1) continue;
      Gap gap{.end = toldAs(ends[i]), .next = std::nullopt};
      double distance = 0.0;
      if (const End* next = tree.nearest(ends[i], distance)) {
        gap.next = toldAs(*next);
        gap.distance = distance;
      }
      gaps.push_back(gap);
    }
    first = last;
  }
  base::ranges::sort(gaps, {}, [](const Gap& gap) {
    return std::tuple(!gap.next, gap.distance, gap.end.piece, gap.end.at.x, gap.end.at.y);
  });
  return gaps;
}

}  // namespace quillon::geometry
