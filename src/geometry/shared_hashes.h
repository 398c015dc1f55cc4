#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillon::geometry {

/// Finds those of many owners that have a hash which was added more than once. The hashes are
/// parted by their first bits as they come; then each part is looked at on its own, so that the
/// processor has at hand what it needs.
class SharedHashes {
 public:
  /// For about this many hashes.
  explicit SharedHashes(std::size_t count);

  void add(std::uint64_t hash, std::size_t owner) {
    parts_[static_cast<std::size_t>(hash >> shift_)].push_back(
        {static_cast<std::uint32_t>(hash) | kUsed, static_cast<std::uint32_t>(owner)});
  }

  /// Sets what is at the owner of each such hash, and at hardly any other. Forgets all hashes.
  void mark(std::vector<bool>& sharers);

 private:
  /// A slot without this bit is free.
  static constexpr std::uint32_t kUsed = 1;

  struct Entry {
    std::uint32_t hash = 0;   ///< its last bits
    std::uint32_t owner = 0;  ///< the same for owners that are 2^32 apart
  };
  using Part = std::vector<Entry>;

  void markIn(const Part& part, std::vector<bool>& sharers);

  unsigned shift_ = 0;
  std::vector<Part> parts_;
  std::vector<Entry> slots_;
};

}  // namespace quillon::geometry
