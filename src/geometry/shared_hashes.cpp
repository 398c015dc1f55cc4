#include "geometry/shared_hashes.h"

#include <algorithm>
#include <bit>

namespace quillon::geometry {
namespace {

/// So many entries and their slots fit into the cache next to the processor.
constexpr std::size_t kEntriesPerPart = 8192;
constexpr std::size_t kMostHashParts = 256;
constexpr int kHashBits = 64;

}  // namespace

SharedHashes::SharedHashes(std::size_t count) {
  // Two parts at least: a hash cannot be shifted by all of its bits.
  const std::size_t parts =
      std::clamp(std::bit_ceil(count / kEntriesPerPart + 1), std::size_t{2}, kMostHashParts);
  shift_ = static_cast<unsigned>(kHashBits - std::countr_zero(parts));
  parts_.resize(parts);
  const std::size_t expected = count / parts;
  for (Part& part : parts_) part.reserve(expected + expected / 8);
}

void SharedHashes::mark(std::vector<bool>& sharers) {
  for (Part& part : parts_) {
    markIn(part, sharers);
    part = {};
  }
}

void SharedHashes::markIn(const Part& part, std::vector<bool>& sharers) {
  const auto markAll = [&sharers](std::uint64_t owner) {
    constexpr std::uint64_t kApart = std::uint64_t{1} << 32;
    for (; owner < sharers.size(); owner += kApart) {
      sharers[static_cast<std::size_t>(owner)] = true;
    }
  };
  slots_.assign(std::bit_ceil(2 * part.size() + 1), {});
  const std::size_t mask = slots_.size() - 1;
  for (const Entry& entry : part) {
    std::size_t slot = (entry.hash >> 1) & mask;
    while (slots_[slot].hash != 0 && slots_[slot].hash != entry.hash) slot = (slot + 1) & mask;
    if (slots_[slot].hash == 0) {
      slots_[slot] = entry;
    } else {
      markAll(slots_[slot].owner);
      markAll(entry.owner);
    }
  }
}

}  // namespace quillon::geometry
