#include "geometry/gaps.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <tuple>
#include <utility>

#include "base/ranges.h"
#include "geometry/end_filter.h"
#include "geometry/nearest_end.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

Gap::End toldAs(const PieceEnd& end) { return {end.index / 2, end.at}; }

/// The first end at each point.
std::map<std::size_t, std::vector<PieceEnd>> endsOf(std::span<const Piece> pieces,
                                                    const JoinedEnds& joined) {
  std::vector<std::size_t> counts(joined.pointCount, 0);
  const auto hasEnds = [](const Path& path) {
    return !path.closed && path.vertices.size() > 1 && isUsable(path);
  };
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (!hasEnds(pieces[i].path)) continue;
    for (const std::size_t end : {2 * i, 2 * i + 1}) ++counts[joined.points[end]];
  }
  std::vector<bool> isTold(joined.pointCount, false);
  std::map<std::size_t, std::vector<PieceEnd>> layers;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Path& path = pieces[i].path;
    if (!hasEnds(path)) continue;
    for (const std::size_t end : {2 * i, 2 * i + 1}) {
      const std::size_t point = joined.points[end];
      if (isTold[point]) continue;
      isTold[point] = true;
      layers[pieces[i].layer].push_back(
          {end % 2 == 0 ? path.vertices.front().at : path.vertices.back().at, end,
           counts[point] == 1});
    }
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

/// Those that have another one as near as this, and a few more; few by the second round.
std::vector<PieceEnd> endsNearOthers(const std::vector<PieceEnd>& ends, double reach, int round) {
  EndFilter filter(ends.size(), reach, round);
  for (const PieceEnd& end : ends) filter.add(end.at);
  std::vector<PieceEnd> near;
  for (const PieceEnd& end : ends) {
    if (filter.mayMeet(end.at)) near.push_back(end);
  }
  return near;
}

}  // namespace

std::vector<Gap> gapsBetween(const std::vector<PieceEnd>& ends, const StopCheck& stop) {
  constexpr std::size_t kGapsPerCheck = 64;
  std::vector<Gap> gaps;
  const NearestEnd index(ends);
  for (std::size_t i = 0; i < index.ends().size(); ++i) {
    if (i % kGapsPerCheck == 0 && stop()) return {};
    const PieceEnd& end = index.ends()[i];
    if (!end.isAlone) continue;
    Gap gap{.end = toldAs(end), .next = std::nullopt};
    const NearestEnd::Found found = index.nearestTo(i);
    if (found.end != nullptr) gap.next = toldAs(*found.end);
    gap.distance = found.distance;
    gaps.push_back(gap);
  }
  return sorted(gaps);
}

std::vector<Gap> nearestGaps(const std::vector<PieceEnd>& ends, double tolerance, std::size_t most,
                             const StopCheck& stop) {
  Box box;
  for (const PieceEnd& end : ends) box.add(end.at);
  // Where ends are scattered evenly, a few times as many as wanted are as near to their next ones.
  constexpr double kWider = 8.0;
  const auto count = static_cast<double>(ends.size());
  const double area = (box.high.x - box.low.x) * (box.high.y - box.low.y);
  const double share = static_cast<double>(most) * area / (count * count);
  double reach = std::sqrt(tolerance * tolerance + share);
  for (; usable(reach) && reach > 0.0; reach *= kWider) {
    const std::vector<PieceEnd> near = endsNearOthers(endsNearOthers(ends, reach, 0), reach, 1);
    if (stop()) return {};
    if (2 * near.size() > ends.size()) break;
    std::vector<Gap> gaps = gapsBetween(near, stop);
    const auto within =
        static_cast<std::size_t>(std::count_if(gaps.begin(), gaps.end(), [&](const Gap& gap) {
          return gap.next && gap.distance <= reach;
        }));
    if (within < most) continue;
    gaps.resize(most);
    return gaps;
  }
  std::vector<Gap> gaps = gapsBetween(ends, stop);
  gaps.resize(std::min(most, gaps.size()));
  return gaps;
}

std::vector<Gap> gapsOf(std::span<const Piece> pieces, const JoinedEnds& joined) {
  std::vector<Gap> gaps;
  for (const auto& [layer, ends] : endsOf(pieces, joined)) {
    const std::vector<Gap> found = gapsBetween(ends, {});
    gaps.insert(gaps.end(), found.begin(), found.end());
  }
  return sorted(gaps);
}

}  // namespace quillon::geometry
