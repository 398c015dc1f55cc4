#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/bits.h"
#include "geometry/no_index.h"

namespace quillon::geometry {

/// Mixes all bits of a value into all bits of the result.
inline std::uint64_t mixedBits(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9U;
  value = (value ^ (value >> 27)) * 0x94d049bb133111ebU;
  return value ^ (value >> 31);
}

/// The bits of a coordinate; negative zero is zero.
inline std::uint64_t bitsOf(double value) { return base::bitCast<std::uint64_t>(value + 0.0); }

/// Indices by hashes, in one block of memory: finding one costs one access to it where a table of
/// nodes would need several.
class HashIndex {
 public:
  /// For up to `most` different hashes.
  explicit HashIndex(std::size_t most)
      : slots_(std::bit_ceil(most + most / 2 + 2)), mask_(slots_.size() - 1) {}

  /// The index that is kept for a hash; kNoIndex for a new one, to be set before the next call.
  std::size_t& at(std::uint64_t hash) {
    Slot& slot = slots_[slotOf(hash)];
    slot.hash = hash;
    return slot.index;
  }

  /// The same without keeping anything.
  std::size_t find(std::uint64_t hash) const { return slots_[slotOf(hash)].index; }

 private:
  struct Slot {
    std::uint64_t hash = 0;
    std::size_t index = kNoIndex;
  };

  std::size_t slotOf(std::uint64_t hash) const {
    std::size_t slot = hash & mask_;
    while (slots_[slot].index != kNoIndex && slots_[slot].hash != hash) slot = (slot + 1) & mask_;
    return slot;
  }

  std::vector<Slot> slots_;
  std::size_t mask_;
};

/// Tells of most hashes that they have not been added, from so little memory that the processor
/// has it at hand.
class HashFilter {
 public:
  /// For about this many different hashes.
  explicit HashFilter(std::size_t count)
      : words_(std::bit_ceil(count / kHashesPerWord + 1)), mask_(words_.size() - 1) {}

  /// False for a hash that has not been added.
  bool mayHave(std::uint64_t hash) const { return (wordOf(hash) & bitOf(hash)) != 0; }
  /// Returns what mayHave() was before.
  bool add(std::uint64_t hash) {
    std::uint64_t& word = words_[(hash >> 6) & mask_];
    const bool had = (word & bitOf(hash)) != 0;
    word |= bitOf(hash);
    return had;
  }

 private:
  static constexpr std::size_t kHashesPerWord = 4;

  std::uint64_t wordOf(std::uint64_t hash) const { return words_[(hash >> 6) & mask_]; }
  static std::uint64_t bitOf(std::uint64_t hash) { return std::uint64_t{1} << (hash & 63); }

  std::vector<std::uint64_t> words_;
  std::size_t mask_;
};

}  // namespace quillon::geometry
