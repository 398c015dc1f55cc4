#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "geometry/shared_hashes.h"
#include "geometry/vectors.h"
#include "geometry/wide_cell.h"

namespace quillon::geometry {

/// Tells of most ends that no other one is near, so that joinEnds() need not know them. Each end
/// has an owner, by its index.
class EndFilter {
 public:
  /// Coarse is fast; fine is for those that are left, among which it leaves fewer.
  enum class Grid { Coarse, Fine };

  /// For about so many ends. `tolerance` as that of joinEnds(). The memory has to outlive this;
  /// null for memory of its own.
  EndFilter(std::size_t ends, double tolerance, Grid grid = Grid::Coarse,
            HashMemory* memory = nullptr)
      : tolerance_(tolerance),
        shift_(grid == Grid::Coarse ? kCoarseShift : 0),
        hashes_(grid == Grid::Coarse ? ends + ends / 4 : 4 * ends, memory) {}

  void add(Point end, std::size_t owner) {
    if (isFar(end)) {
      far_.push_back(owner);
    } else {
      addCellsOf(end, owner);
    }
  }

  /// Which of so many owners may meet others, or themselves: false only where each of their ends is
  /// alone with its cell of joinEnds() and those around. Forgets all ends.
  std::vector<bool> meeting(std::size_t owners) {
    std::vector<bool> meets(owners, false);
    hashes_.mark(meets);
    for (const std::size_t owner : far_) meets[owner] = true;
    far_.clear();
    return meets;
  }

 private:
  bool isFar(Point end) const {
    const double most = kMostUnits * tolerance_;
    return tolerance_ > 0.0 && !(std::fabs(end.x) < most && std::fabs(end.y) < most);
  }

  void addCellsOf(Point end, std::size_t owner) {
    // Without a tolerance, only equal ends meet.
    if (!(tolerance_ > 0.0)) return hashes_.add(hashOf(end), owner);
    const WideCell x = WideCell::ofWhole(wholeBelow(end.x / tolerance_), shift_);
    const WideCell y = WideCell::ofWhole(wholeBelow(end.y / tolerance_), shift_);
    forEachCell(0, x, y, [&](std::uint64_t hash) { hashes_.add(hash, owner); });
  }

  static std::uint64_t hashOf(Point end) {
    return mixedBits(mixedBits(bitsOf(end.x)) + bitsOf(end.y));
  }

  /// So wide cells, in powers of two, that few ends are in more than one of them.
  static constexpr unsigned kCoarseShift = 3;

  double tolerance_;
  unsigned shift_;
  SharedHashes hashes_;
  std::vector<std::size_t> far_;
};

}  // namespace quillon::geometry
