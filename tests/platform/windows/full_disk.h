#pragma once

#include <cstdint>

namespace quillon::testing {

/// Files cannot be kept from growing here: the tests that need it are skipped.
class FullDisk {
 public:
  explicit FullDisk(std::uint64_t) {}
};

}  // namespace quillon::testing
