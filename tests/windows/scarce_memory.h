#pragma once

#include <cstddef>

namespace quillon::windows {

/// For its lifetime, threads other than the one that makes it get no memory for anything of this
/// many bytes or more.
class ScarceMemory {
 public:
  explicit ScarceMemory(std::size_t bytes);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
};

}  // namespace quillon::windows
