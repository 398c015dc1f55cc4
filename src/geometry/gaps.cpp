#include "geometry/gaps.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <tuple>
#include <utility>

#include "base/ranges.h"
#include "geometry/end_filter.h"
#include "geometry/nearest_end.h"

namespace quillon::geometry {
namespace {

Gap::End toldAs(const PieceEnd& end) { return {end.index / 2, end.at}; }

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

/// Those that have another one as near as this, and a few more; fewer on the fine grid.
std::vector<PieceEnd> endsNearOthers(const std::vector<PieceEnd>& ends, double reach,
                                     EndFilter::Grid grid) {
  EndFilter filter(ends.size(), reach, grid);
  for (std::size_t i = 0; i < ends.size(); ++i) filter.add(ends[i].at, i);
  const std::vector<bool> isNear = filter.meeting(ends.size());
  std::vector<PieceEnd> near;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    if (isNear[i]) near.push_back(ends[i]);
  }
  return near;
}

}  // namespace

std::vector<PieceEnd> endsLeft(std::span<const Piece> pieces, const JoinedEnds& joined) {
  std::vector<std::uint32_t> counts(joined.pointCount, 0);
  for (const std::uint32_t point : joined.points) {
    if (point != kNoEnd) ++counts[point];
  }
  std::vector<PieceEnd> ends;
  std::vector<bool> isTold(joined.pointCount, false);
  for (std::size_t end = 0; end < joined.points.size(); ++end) {
    const std::uint32_t point = joined.points[end];
    if (point == kNoEnd || isTold[point]) continue;
    isTold[point] = true;
    ends.push_back({endOf(pieces[end / 2], end % 2), end, counts[point] == 1});
  }
  return ends;
}

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
    const std::vector<PieceEnd> near = endsNearOthers(
        endsNearOthers(ends, reach, EndFilter::Grid::Coarse), reach, EndFilter::Grid::Fine);
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

}  // namespace quillon::geometry
