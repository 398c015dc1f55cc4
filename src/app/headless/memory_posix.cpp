#include "app/headless/memory.h"

#if defined(__GLIBC__)
#include <malloc.h>
#include <sys/mman.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <memory>
#endif

namespace quillon::headless {

#if defined(__GLIBC__)

void keepFreedMemory() {
  // More than the buffers of a small drawing; larger blocks are the system's again at once.
  constexpr int kLargeBlock = 1 << 20;
  constexpr int kKept = 8 << 20;
  ::mallopt(M_MMAP_THRESHOLD, kLargeBlock);
  ::mallopt(M_TRIM_THRESHOLD, kKept);
}

void expectDrawing(std::uintmax_t bytes) {
  constexpr std::uintmax_t kLargeDrawing = std::uintmax_t{8} << 20;
  if (bytes < kLargeDrawing) return;
  // What a conversion holds is rarely more. What it does not touch costs nothing.
  constexpr std::uintmax_t kMostRoom = std::uintmax_t{1} << 30;
  const auto size = static_cast<std::size_t>(std::min(2 * bytes, kMostRoom));
  ::mallopt(M_MMAP_THRESHOLD, std::numeric_limits<int>::max());
  ::mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  // Freed at once, the room is the end of the heap, which everything is taken from.
  void* const room = std::malloc(size);
  if (room == nullptr) return;
  constexpr std::size_t kLargePage = std::size_t{2} << 20;
  void* aligned = room;
  std::size_t left = size;
  if (std::align(kLargePage, kLargePage, aligned, left) != nullptr) {
    madvise(aligned, left / kLargePage * kLargePage, MADV_HUGEPAGE);
  }
  std::free(room);
}

#else

void keepFreedMemory() {}

void expectDrawing(std::uintmax_t) {}

#endif

}  // namespace quillon::headless
