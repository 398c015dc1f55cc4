#pragma once

#include <cmath>
#include <cstddef>

#include "geometry/crowd_filter.h"
#include "geometry/vectors.h"

namespace quillon::geometry {

/// Tells of most ends that no other one is near, so that joinEnds() need not know them. All ends
/// are added first, each once.
class EndFilter {
 public:
  /// For so many ends. `tolerance` as that of joinEnds(), `round` as that of CrowdFilter.
  EndFilter(std::size_t ends, double tolerance, int round = 0)
      : tolerance_(tolerance), crowds_(ends + ends / 2, round) {}

  void add(Point end) {
    forEachCellOf(end, [this](std::uint64_t hash) { crowds_.add(hash); });
  }

  /// False only for an end that is alone with its cell of joinEnds() and those around.
  bool mayMeet(Point end) const {
    if (isFar(end)) return true;
    bool shares = false;
    forEachCellOf(end, [&](std::uint64_t hash) { shares = shares || crowds_.isShared(hash); });
    return shares;
  }

 private:
  bool isFar(Point end) const {
    const double most = kMostUnits * tolerance_;
    return tolerance_ > 0.0 && !(std::fabs(end.x) < most && std::fabs(end.y) < most);
  }

  template <typename Function>
  void forEachCellOf(Point end, Function&& function) const {
    constexpr double kWidth = 4.0;
    // Without a tolerance, only equal ends meet.
    if (!(tolerance_ > 0.0)) return function(hashOfCell(0, end.x, end.y));
    const WideCell x(std::floor(end.x / tolerance_), kWidth);
    const WideCell y(std::floor(end.y / tolerance_), kWidth);
    forEachCell(0, x, y, function);
  }

  double tolerance_;
  CrowdFilter crowds_;
};

}  // namespace quillon::geometry
