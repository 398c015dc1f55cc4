#pragma once

#include <cmath>
#include <cstdint>

#include "geometry/hash_index.h"

namespace quillon::geometry {

/// A coordinate in a grid of wide cells, in units of which those nearer than one are to share a
/// cell: its own cell, and the one before where it is so near to that.
struct WideCell {
  double own;
  bool isInPrevious;

  WideCell(double units, double width) : own(std::floor(units / width)) {
    // Rounding must not part what is just near enough.
    constexpr double kNear = 1.001;
    isInPrevious = units - own * width < kNear;
  }

  /// For whole units, of which those next to each other are to share a cell.
  static WideCell ofWhole(double units, double width) {
    WideCell cell(units, width);
    cell.isInPrevious = units == cell.own * width;
    return cell;
  }
};

/// Beyond so many units, coordinates are not told from each other well enough for a WideCell.
inline constexpr double kMostUnits = 1e12;

/// The hash of a cell in a grid with a number of its own.
inline std::uint64_t hashOfCell(std::uint64_t grid, double x, double y) {
  // The lower bits of whole numbers are zeros: the upper ones have to get there.
  const auto folded = [](double value) { return bitsOf(value) ^ bitsOf(value) >> 32; };
  return mixedBits(grid + folded(x) * 0x9e3779b97f4a7c15U + folded(y) * 0xc2b2ae3d27d4eb4fU);
}

/// Calls the function with the hash of each cell that a place is in.
template <typename Function>
void forEachCell(std::uint64_t grid, const WideCell& x, const WideCell& y, Function&& function) {
  function(hashOfCell(grid, x.own, y.own));
  if (x.isInPrevious) function(hashOfCell(grid, x.own - 1.0, y.own));
  if (y.isInPrevious) function(hashOfCell(grid, x.own, y.own - 1.0));
  if (x.isInPrevious && y.isInPrevious) function(hashOfCell(grid, x.own - 1.0, y.own - 1.0));
}

}  // namespace quillon::geometry
