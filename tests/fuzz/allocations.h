#pragma once

#include <cstddef>

namespace quillon::fuzz {

/// Starts measuring the memory that the program asks for.
void startMeasuring();
/// Most bytes in use at once since then; 0 where that cannot be measured.
std::size_t mostBytesInUse();
/// Bytes of all allocations since then; 0 where that cannot be measured.
std::size_t bytesAllocated();

}  // namespace quillon::fuzz
