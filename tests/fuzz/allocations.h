#pragma once

#include <cstddef>

namespace quillon::fuzz {

/// Starts measuring the program's memory.
void startMeasuring();
/// Peak number of bytes in use since then; 0 where that cannot be measured.
std::size_t mostBytesInUse();
/// Total bytes allocated since then; 0 where that cannot be measured.
std::size_t bytesAllocated();

}  // namespace quillon::fuzz
