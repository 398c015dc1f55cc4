#include "geometry/shared_hashes.h"

#include <algorithm>
#include <bit>
#include <tuple>
#include <utility>

namespace quillon::geometry {
namespace {

constexpr std::size_t kEntriesPerChunk = std::tuple_size_v<HashMemory::Chunk>;
/// The bits of so many entries fit into the cache next to the processor.
constexpr std::size_t kEntriesPerPart = 4096;
constexpr std::size_t kMostHashParts = 256;
constexpr int kHashBits = 64;
/// Of 64 bits, so that few hashes have one that is another's.
constexpr std::size_t kEntriesPerWord = 4;

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
  rooms_.resize(parts);
  chunks_.resize(parts);
}

SharedHashes::~SharedHashes() {
  for (std::size_t part = 0; part < rooms_.size(); ++part) clear(part);
}

std::size_t SharedHashes::sizeOf(std::size_t part) const {
  const Room& room = rooms_[part];
  return chunks_[part].size() * kEntriesPerChunk - static_cast<std::size_t>(room.end - room.next);
}

template <typename Function>
void SharedHashes::forEachIn(std::size_t part, Function&& function) const {
  for (const Chunk* const chunk : chunks_[part]) {
    const bool isLast = chunk == chunks_[part].back();
    const Entry* const end = isLast ? rooms_[part].next : chunk->data() + chunk->size();
    for (const Entry* entry = chunk->data(); entry != end; ++entry) function(*entry);
  }
}

void SharedHashes::addChunk(std::size_t part) {
  chunks_[part].push_back(memory_.take());
  Chunk& chunk = *chunks_[part].back();
  rooms_[part] = {chunk.data(), chunk.data() + chunk.size()};
}

void SharedHashes::clear(std::size_t part) {
  for (Chunk* const chunk : chunks_[part]) memory_.giveBack(chunk);
  chunks_[part].clear();
  rooms_[part] = {};
}

void SharedHashes::mark(std::vector<bool>& sharers) {
  for (std::size_t part = 0; part < rooms_.size(); ++part) {
    findCrowded(part);
    clear(part);
    markCrowded(sharers);
  }
}

/// Nearly all hashes come once.
void SharedHashes::findCrowded(std::size_t part) {
  constexpr std::uint32_t kBits = 64;
  const std::size_t words = std::bit_ceil(sizeOf(part) / kEntriesPerWord + 1);
  once_.assign(words, 0);
  again_.assign(words, 0);
  std::uint64_t* const once = once_.data();
  std::uint64_t* const again = again_.data();
  const auto mask = static_cast<std::uint32_t>(words - 1);
  forEachIn(part, [=](const Entry& entry) {
    const std::uint32_t word = entry.hash / kBits & mask;
    const std::uint64_t bit = std::uint64_t{1} << (entry.hash % kBits);
    ((once[word] & bit) == 0 ? once : again)[word] |= bit;
  });
  crowded_.clear();
  forEachIn(part, [=, this](const Entry& entry) {
    const std::uint64_t found = again[entry.hash / kBits & mask];
    if ((found >> (entry.hash % kBits) & 1U) != 0) crowded_.push_back(entry);
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
