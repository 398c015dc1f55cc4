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
        most_(tolerance > 0.0 ? kMostUnits * tolerance : 0.0),
        shift_(grid == Grid::Coarse ? kCoarseShift : 0),
        hashes_(grid == Grid::Coarse ? ends + ends / 4 : 4 * ends, memory) {}

  void add(const Point& end, std::size_t owner) {
    if (!(std::fabs(end.x) < most_ && std::fabs(end.y) < most_)) return addUnusual(end, owner);
    const WideCell x = WideCell::ofWhole(wholeBelowOfSmall(end.x / tolerance_), shift_);
    const WideCell y = WideCell::ofWhole(wholeBelowOfSmall(end.y / tolerance_), shift_);
    forEachCell(0, x, y, [&](std::uint64_t hash) { hashes_.add(hash, owner); });
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
  /// Without a tolerance, only equal ends meet.
  void addUnusual(const Point& end, std::size_t owner) {
    if (tolerance_ > 0.0) {
      far_.push_back(owner);
    } else {
      hashes_.add(hashOf(end), owner);
    }
  }

  static std::uint64_t hashOf(Point end) {
    return mixedBits(mixedBits(bitsOf(end.x)) + bitsOf(end.y));
  }

  /// So wide cells, in powers of two, that few ends are in more than one of them.
  static constexpr unsigned kCoarseShift = 3;

  double tolerance_;
  double most_;  ///< coordinates below have cells
  unsigned shift_;
  SharedHashes hashes_;
  std::vector<std::size_t> far_;
};

}  // namespace quillon::geometry
