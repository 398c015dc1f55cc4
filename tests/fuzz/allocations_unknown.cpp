// Without clang's AddressSanitizer, allocations are not counted.
#include "allocations.h"

namespace quillon::fuzz {

void startMeasuring() {}

std::size_t mostBytesInUse() { return 0; }

std::size_t bytesAllocated() { return 0; }

}  // namespace quillon::fuzz
