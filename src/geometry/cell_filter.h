#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/hash_index.h"

namespace quillon::geometry {

/// Tells of most cells of a square grid that nothing is in them or next to them. Blocks of 8 x 8
/// cells share a word with a bit for each of them, so that a look around takes little more than one
/// access.
class CellFilter {
 public:
  /// For about this many cells that something is in.
  explicit CellFilter(std::size_t count)
      : words_(std::bit_ceil(count + 1)), mask_(words_.size() - 1) {}

  /// Cells by their integral coordinates.
  void add(std::size_t layer, double x, double y) {
    if (!isInGrid(x) || !isInGrid(y)) return;
    const auto column = static_cast<std::int64_t>(x);
    const auto row = static_cast<std::int64_t>(y);
    words_[wordOf(layer, column >> kShift, row >> kShift)] |=
        bits(column & kLast, column & kLast, row & kLast, row & kLast);
  }

  /// False where nothing was added to the cell.
  bool mayHave(std::size_t layer, double x, double y) const {
    if (!isInGrid(x) || !isInGrid(y)) return true;
    const auto column = static_cast<std::int64_t>(x);
    const auto row = static_cast<std::int64_t>(y);
    return (words_[wordOf(layer, column >> kShift, row >> kShift)] &
            bits(column & kLast, column & kLast, row & kLast, row & kLast)) != 0;
  }

  /// False where nothing was added to the cell and to those around it.
  bool mayHaveAround(std::size_t layer, double x, double y) const {
    if (!isInGrid(x) || !isInGrid(y)) return true;
    const auto column = static_cast<std::int64_t>(x);
    const auto row = static_cast<std::int64_t>(y);
    for (std::int64_t i = (column - 1) >> kShift; i <= (column + 1) >> kShift; ++i) {
      const std::int64_t left = std::max<std::int64_t>(column - 1 - i * kSide, 0);
      const std::int64_t right = std::min<std::int64_t>(column + 1 - i * kSide, kLast);
      for (std::int64_t j = (row - 1) >> kShift; j <= (row + 1) >> kShift; ++j) {
        const std::int64_t low = std::max<std::int64_t>(row - 1 - j * kSide, 0);
        const std::int64_t high = std::min<std::int64_t>(row + 1 - j * kSide, kLast);
        if ((words_[wordOf(layer, i, j)] & bits(left, right, low, high)) != 0) return true;
      }
    }
    return false;
  }

 private:
  static constexpr int kShift = 3;
  static constexpr std::int64_t kSide = 1 << kShift;
  static constexpr std::int64_t kLast = kSide - 1;

  /// Farther away, cells next to each other may have the same coordinates.
  static bool isInGrid(double coordinate) { return std::fabs(coordinate) < 1e15; }

  std::size_t wordOf(std::size_t layer, std::int64_t column, std::int64_t row) const {
    const std::uint64_t place = static_cast<std::uint64_t>(column) * 0x9e3779b97f4a7c15U +
                                static_cast<std::uint64_t>(row) * 0xc2b2ae3d27d4eb4fU;
    return mixedBits(place + layer) & mask_;
  }

  /// Of the cells of a block in these columns and rows.
  static std::uint64_t bits(std::int64_t left, std::int64_t right, std::int64_t low,
                            std::int64_t high) {
    const std::uint64_t inRow = (std::uint64_t{2} << right) - (std::uint64_t{1} << left);
    const std::uint64_t upToHigh = ~std::uint64_t{0} >> (kSide * (kLast - high));
    const std::uint64_t fromLow = ~std::uint64_t{0} << (kSide * low);
    return inRow * 0x0101010101010101U & upToHigh & fromLow;
  }

  std::vector<std::uint64_t> words_;
  std::size_t mask_;
};

}  // namespace quillon::geometry
