#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "geometry/hash_index.h"

namespace quillon::geometry {

/// The largest whole number that is not above another one. Those that are huge or no numbers are
/// all alike.
inline std::int64_t wholeBelow(double number) {
  constexpr double kHuge = 4e18;
  if (!(std::fabs(number) < kHuge)) return std::numeric_limits<std::int64_t>::max() / 2;
  const auto cut = static_cast<std::int64_t>(number);
  return cut - (number < static_cast<double>(cut) ? 1 : 0);
}

/// A coordinate in a grid of wide cells, in units of which those nearer than one are to share a
/// cell: its own cell, and the one before where it is so near to that.
struct WideCell {
  std::int64_t own;
  bool isInPrevious;

  /// A width that is a power of two takes no division.
  WideCell(double units, double width) : own(wholeBelow(units / width)) {
    // Rounding must not part what is just near enough.
    constexpr double kNear = 1.001;
    isInPrevious = units - static_cast<double>(own) * width < kNear;
  }

  /// For whole units, of which those next to each other are to share a cell of 2^shift of them.
  static WideCell ofWhole(std::int64_t units, unsigned shift) {
    const std::int64_t last = (std::int64_t{1} << shift) - 1;
    return WideCell(units >> shift, (units & last) == 0);
  }

 private:
  WideCell(std::int64_t cell, bool previous) : own(cell), isInPrevious(previous) {}
};

/// Beyond so many units, coordinates are not told from each other well enough for a WideCell.
inline constexpr double kMostUnits = 1e12;

/// The hash of a cell in a grid with a number of its own.
inline std::uint64_t hashOfCell(std::uint64_t grid, std::int64_t x, std::int64_t y) {
  return mixedBits(grid + static_cast<std::uint64_t>(x) * 0x9e3779b97f4a7c15U +
                   static_cast<std::uint64_t>(y) * 0xc2b2ae3d27d4eb4fU);
}

/// Calls the function with the hash of each cell that a place is in.
template <typename Function>
void forEachCell(std::uint64_t grid, const WideCell& x, const WideCell& y, Function&& function) {
  function(hashOfCell(grid, x.own, y.own));
  if (x.isInPrevious) function(hashOfCell(grid, x.own - 1, y.own));
  if (y.isInPrevious) function(hashOfCell(grid, x.own, y.own - 1));
  if (x.isInPrevious && y.isInPrevious) function(hashOfCell(grid, x.own - 1, y.own - 1));
}

}  // namespace quillon::geometry
