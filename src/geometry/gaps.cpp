#include "geometry/gaps.h"

#include <limits>
#include <map>
#include <tuple>
#include <utility>

#include "base/ranges.h"
#include "geometry/nearest_end.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

Gap::End toldAs(const PieceEnd& end) { return {end.index / 2, end.at}; }

using Ends = std::vector<PieceEnd>;

/// The ends of each layer.
std::map<std::size_t, Ends> endsOf(std::span<const Piece> pieces, const JoinedEnds& joined) {
  std::map<std::size_t, Ends> layers;
  Ends* ends = nullptr;
  std::size_t layer = 0;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Path& path = pieces[i].path;
    if (path.closed || path.vertices.size() < 2 || !isUsable(path)) continue;
    if (ends == nullptr || pieces[i].layer != layer) {
      layer = pieces[i].layer;
      ends = &layers[layer];
    }
    ends->push_back({path.vertices.front().at, 2 * i, joined.points[2 * i]});
    ends->push_back({path.vertices.back().at, 2 * i + 1, joined.points[2 * i + 1]});
  }
  return layers;
}

std::vector<Gap> sorted(const std::vector<Gap>& gaps) {
  // Nearly all are told by their distances: sorting these alone moves less.
  std::vector<std::pair<double, std::size_t>> order;
  order.reserve(gaps.size());
  for (const Gap& gap : gaps) {
    order.emplace_back(gap.next ? gap.distance : std::numeric_limits<double>::infinity(),
                       order.size());
  }
  const auto key = [&gaps](std::size_t i) {
    const Gap& gap = gaps[i];
    return std::tuple(!gap.next, gap.end.piece, gap.end.at.x, gap.end.at.y);
  };
  base::ranges::sort(order, [&](const auto& a, const auto& b) {
    return a.first != b.first ? a.first < b.first : key(a.second) < key(b.second);
  });
  std::vector<Gap> result;
  result.reserve(gaps.size());
  for (const auto& [distance, index] : order) result.push_back(gaps[index]);
  return result;
}

}  // namespace

std::vector<Gap> gapsOf(std::span<const Piece> pieces, const JoinedEnds& joined) {
  std::map<std::size_t, Ends> layers = endsOf(pieces, joined);
  std::vector<std::size_t> counts(joined.pointCount, 0);
  for (const auto& [layer, ends] : layers) {
    for (const PieceEnd& end : ends) ++counts[end.point];
  }
  std::vector<Gap> gaps;
  for (const auto& [layer, ends] : layers) {
    const NearestEnd index(ends);
    for (std::size_t i = 0; i < index.ends().size(); ++i) {
      const PieceEnd& end = index.ends()[i];
      if (counts[end.point] != 1) continue;
      Gap gap{.end = toldAs(end), .next = std::nullopt};
      const NearestEnd::Found found = index.nearestTo(i);
      if (found.end != nullptr) gap.next = toldAs(*found.end);
      gap.distance = found.distance;
      gaps.push_back(gap);
    }
  }
  return sorted(gaps);
}

}  // namespace quillon::geometry
