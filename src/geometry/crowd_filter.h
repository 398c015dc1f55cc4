#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/hash_index.h"

namespace quillon::geometry {

/// Tells of most hashes that they were added once at most, from two bits for each of a few
/// counters, so that the processor has them at hand.
class CrowdFilter {
 public:
  /// For about this many hashes. What one filter confuses, one of another round does not.
  explicit CrowdFilter(std::size_t count, int round = 0)
      : turn_(29 * static_cast<unsigned>(round) % kBits),
        words_(std::bit_ceil(count * kCountersPerHash / kCountersPerWord + 1)),
        mask_(words_.size() * kCountersPerWord - 1) {}

  void add(std::uint64_t hash) {
    hash = turned(hash);
    std::uint64_t& word = wordOf(hash);
    const unsigned shift = shiftOf(hash);
    word |= kOnce << shift << ((word >> shift) & kOnce);
  }
  /// False for a hash that was not added.
  bool has(std::uint64_t hash) const {
    hash = turned(hash);
    return ((wordOf(hash) >> shiftOf(hash)) & kOnce) != 0;
  }
  /// False for a hash that was not added twice.
  bool isShared(std::uint64_t hash) const {
    hash = turned(hash);
    return ((wordOf(hash) >> shiftOf(hash)) & kTwice) != 0;
  }

 private:
  static constexpr std::size_t kCountersPerHash = 8;
  static constexpr std::size_t kCountersPerWord = 32;
  static constexpr std::uint64_t kOnce = 1;
  static constexpr std::uint64_t kTwice = 2;

  static constexpr unsigned kBits = 64;

  /// Turned to the right; the standard library's own takes different types with each compiler.
  std::uint64_t turned(std::uint64_t hash) const {
    return hash >> turn_ | hash << ((kBits - turn_) % kBits);
  }
  std::uint64_t& wordOf(std::uint64_t hash) { return words_[(hash & mask_) / kCountersPerWord]; }
  std::uint64_t wordOf(std::uint64_t hash) const {
    return words_[(hash & mask_) / kCountersPerWord];
  }
  static unsigned shiftOf(std::uint64_t hash) {
    return static_cast<unsigned>(hash % kCountersPerWord) * 2;
  }

  unsigned turn_;
  std::vector<std::uint64_t> words_;
  std::size_t mask_;
};

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
};

/// Beyond so many units, coordinates are not told from each other well enough for a WideCell.
inline constexpr double kMostUnits = 1e12;

/// The hash of a cell in a grid with a number of its own.
inline std::uint64_t hashOfCell(std::uint64_t grid, double x, double y) {
  // The lower bits of whole numbers are zeros, so that each has to be mixed.
  return mixedBits(mixedBits(bitsOf(x) + grid) + bitsOf(y));
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
