// AddressSanitizer reports every allocation, including those of the C library.
#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <cstddef>

#include "allocations.h"

namespace quillon::fuzz {
namespace {

// The hooks can only reach static variables.
std::ptrdiff_t inUse = 0;
std::ptrdiff_t most = 0;
std::size_t allocated = 0;

void onAllocation(const volatile void*, std::size_t size) {
  inUse += static_cast<std::ptrdiff_t>(size);
  most = std::max(most, inUse);
  allocated += size;
}

void onRelease(const volatile void* block) {
  if (block == nullptr) return;
  inUse -=
      static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(const_cast<const void*>(block)));
}

}  // namespace

void startMeasuring() {
  static const int installed = __sanitizer_install_malloc_and_free_hooks(onAllocation, onRelease);
  static_cast<void>(installed);
  inUse = 0;
  most = 0;
  allocated = 0;
}

std::size_t mostBytesInUse() { return static_cast<std::size_t>(most); }

std::size_t bytesAllocated() { return allocated; }

}  // namespace quillon::fuzz
