#include "geometry/shared_hashes.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace quillon::geometry {
namespace {

/// The marks of so many entries fit into the cache next to the processor.
constexpr std::size_t kEntriesPerPart = 4096;
constexpr std::size_t kMostHashParts = 256;
constexpr int kHashBits = 64;
/// Of the marks' 64 bits, so that few hashes have one that is another's.
constexpr std::size_t kEntriesPerMarks = 4;

}  // namespace

HashMemory::Chunk* HashMemory::take() {
  if (free_.empty()) {
    chunks_.push_back(std::unique_ptr<Chunk>(new Chunk));
    return chunks_.back().get();
  }
  Chunk* const chunk = free_.back();
  free_.pop_back();
  return chunk;
}

SharedHashes::SharedHashes(std::size_t count, HashMemory* memory)
    : memory_(memory != nullptr ? *memory : own_.emplace()) {
  // Two parts at least: a hash cannot be shifted by all of its bits.
  const std::size_t parts =
      std::clamp(std::bit_ceil(count / kEntriesPerPart + 1), std::size_t{2}, kMostHashParts);
  shift_ = static_cast<unsigned>(kHashBits - std::countr_zero(parts));
  parts_.resize(parts);
}

SharedHashes::~SharedHashes() {
  for (Part& part : parts_) clear(part);
}

std::size_t SharedHashes::Part::size() const {
  return chunks.size() * Chunk().size() - static_cast<std::size_t>(end - next);
}

template <typename Function>
void SharedHashes::Part::forEach(Function&& function) const {
  for (const Chunk* const chunk : chunks) {
    const Entry* const last = chunk == chunks.back() ? next : chunk->data() + chunk->size();
    for (const Entry* entry = chunk->data(); entry != last; ++entry) function(*entry);
  }
}

void SharedHashes::addChunk(Part& part) {
  part.chunks.push_back(memory_.take());
  part.next = part.chunks.back()->data();
  part.end = part.next + part.chunks.back()->size();
}

void SharedHashes::clear(Part& part) {
  for (Chunk* const chunk : part.chunks) memory_.giveBack(chunk);
  part = {};
}

void SharedHashes::mark(std::vector<bool>& sharers) {
  for (Part& part : parts_) {
    findCrowded(part);
    clear(part);
    markCrowded(sharers);
  }
}

/// Nearly all hashes come once, which takes no branch to tell.
void SharedHashes::findCrowded(const Part& part) {
  constexpr std::uint32_t kBits = 64;
  marks_.assign(std::bit_ceil(part.size() / kEntriesPerMarks + 1), {});
  Marks* const marks = marks_.data();
  const auto mask = static_cast<std::uint32_t>(marks_.size() - 1);
  part.forEach([marks, mask](const Entry& entry) {
    Marks& found = marks[entry.hash / kBits & mask];
    const std::uint64_t bit = std::uint64_t{1} << (entry.hash % kBits);
    found.again |= found.once & bit;
    found.once |= bit;
  });
  crowded_.clear();
  part.forEach([marks, mask, this](const Entry& entry) {
    const Marks& found = marks[entry.hash / kBits & mask];
    if ((found.again >> (entry.hash % kBits) & 1U) != 0) crowded_.push_back(entry);
  });
}

void SharedHashes::markCrowded(std::vector<bool>& sharers) {
  const auto markAll = [&sharers](std::uint64_t owner) {
    constexpr std::uint64_t kApart = std::uint64_t{1} << 32;
    for (; owner < sharers.size(); owner += kApart) {
      sharers[static_cast<std::size_t>(owner)] = true;
    }
  };
  slots_.assign(std::bit_ceil(2 * crowded_.size() + 1), {});
  const std::size_t mask = slots_.size() - 1;
  for (const Entry& entry : crowded_) {
    std::size_t slot = entry.hash & mask;
    while (slots_[slot].isUsed && slots_[slot].entry.hash != entry.hash) slot = (slot + 1) & mask;
    if (!slots_[slot].isUsed) {
      slots_[slot] = {entry, true};
    } else {
      markAll(slots_[slot].entry.owner);
      markAll(entry.owner);
    }
  }
}

}  // namespace quillon::geometry
