// Where clang's AddressSanitizer is not there nobody counts allocations.
#include "allocations.h"

namespace quillon::fuzz {

void startMeasuring() {}

std::size_t mostBytesInUse() { return 0; }

std::size_t bytesAllocated() { return 0; }

}  // namespace quillon::fuzz
