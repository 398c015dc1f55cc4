#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quillon::geometry {

/// The memory of searches that follow each other: each takes over what the one before had, since
/// memory that is new to the process costs more than what is done with it here.
class HashMemory {
 public:
  /// A hash that was added, and by whom.
  struct Entry {
    std::uint32_t hash;   ///< its last bits
    std::uint32_t owner;  ///< the same for owners that are 2^32 apart
  };
  using Chunk = std::array<Entry, 512>;

  /// What is in it means nothing.
  Chunk* take();
  void giveBack(Chunk* chunk) { free_.push_back(chunk); }

 private:
  std::vector<std::unique_ptr<Chunk>> chunks_;
  std::vector<Chunk*> free_;
};

/// Finds those of many owners that have a hash which was added more than once. The hashes are
/// parted by their first bits as they come; then each part is looked at on its own, so that the
/// processor has at hand what it needs.
class SharedHashes {
 public:
  /// For about this many hashes. The memory has to outlive this; null for memory of its own.
  explicit SharedHashes(std::size_t count, HashMemory* memory = nullptr);
  ~SharedHashes();
  SharedHashes(const SharedHashes&) = delete;
  SharedHashes& operator=(const SharedHashes&) = delete;

  void add(std::uint64_t hash, std::size_t owner) {
    const auto part = static_cast<std::size_t>(hash >> shift_);
    Room& room = rooms_[part];
    if (room.next == room.end) addChunk(part);
    *room.next++ = {static_cast<std::uint32_t>(hash), static_cast<std::uint32_t>(owner)};
  }

  /// Sets what is at the owner of each such hash, and at hardly any other. Forgets all hashes.
  void mark(std::vector<bool>& sharers);

 private:
  using Entry = HashMemory::Entry;
  using Chunk = HashMemory::Chunk;

  /// Where the next entry of a part goes, behind those that its chunks have, all of which but the
  /// last are full.
  struct Room {
    Entry* next = nullptr;
    Entry* end = nullptr;
  };

  std::size_t sizeOf(std::size_t part) const;
  template <typename Function>
  void forEachIn(std::size_t part, Function&& function) const;
  struct Slot {
    Entry entry;
    bool isUsed;
  };

  void addChunk(std::size_t part);
  void clear(std::size_t part);
  void findCrowded(std::size_t part);
  void markCrowded(std::vector<bool>& sharers);

  unsigned shift_ = 0;
  std::optional<HashMemory> own_;
  HashMemory& memory_;
  std::vector<Room> rooms_;                  ///< of each part
  std::vector<std::vector<Chunk*>> chunks_;  ///< likewise
  // Of one part.
  std::vector<std::uint64_t> once_;   ///< a bit for each hash
  std::vector<std::uint64_t> again_;  ///< for those whose bit was set already
  std::vector<Entry> crowded_;        ///< these, and those before them with the same bit
  std::vector<Slot> slots_;
};

}  // namespace quillon::geometry
