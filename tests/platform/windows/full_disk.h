#pragma once

#include <cstdint>

namespace quillon::testing {

/// The size of files cannot be limited here: tests that need this are skipped.
class FullDisk {
 public:
  explicit FullDisk(std::uint64_t) {}
};

}  // namespace quillon::testing
