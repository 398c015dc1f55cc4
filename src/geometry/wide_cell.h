#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

#include "geometry/hash_index.h"

namespace quillon::geometry {

/// The largest whole number that is not above another one, which is no huge one.
inline std::int64_t wholeBelowOfSmall(double number) {
  const auto cut = static_cast<std::int64_t>(number);
  return cut - (number < static_cast<double>(cut) ? 1 : 0);
}

/// The same for any number. Those that are huge or no numbers are all alike.
inline std::int64_t wholeBelow(double number) {
  constexpr double kHuge = 4e18;
  if (!(std::fabs(number) < kHuge)) return std::numeric_limits<std::int64_t>::max() / 2;
  return wholeBelowOfSmall(number);
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

/// Mixed, the number of a cell in a grid with a number of its own is its hash. Cells beside each
/// other have numbers that differ by these.
inline constexpr std::uint64_t kNextColumn = 0x9e3779b97f4a7c15U;
inline constexpr std::uint64_t kNextRow = 0xc2b2ae3d27d4eb4fU;

inline std::uint64_t numberOfCell(std::uint64_t grid, std::int64_t x, std::int64_t y) {
  return grid + static_cast<std::uint64_t>(x) * kNextColumn +
         static_cast<std::uint64_t>(y) * kNextRow;
}

inline std::uint64_t hashOfCell(std::uint64_t grid, std::int64_t x, std::int64_t y) {
  return mixedBits(numberOfCell(grid, x, y));
}

/// Calls the function with the hash of each cell that a place is in, which mostly is one.
template <typename Function>
void forEachCell(std::uint64_t grid, const WideCell& x, const WideCell& y, Function&& function) {
  static constexpr std::array<std::uint64_t, 4> kWays = {0, kNextColumn, kNextRow,
                                                         kNextColumn + kNextRow};
  const std::uint64_t number = numberOfCell(grid, x.own, y.own);
  const unsigned previous = (x.isInPrevious ? 1U : 0U) | (y.isInPrevious ? 2U : 0U);
  // Each set of bits among these, the empty one last.
  for (unsigned way = previous;; way = (way - 1) & previous) {
    function(mixedBits(number - kWays[way]));
    if (way == 0) return;
  }
}

}  // namespace quillon::geometry
