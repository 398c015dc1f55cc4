#pragma once

#include <cstdint>

namespace quillon::headless {

/// How the process gets its memory from the system. These are settings of the process: they are for
/// programs that convert and end, and change nothing where the system or its C library has none.

/// Lets each thread keep the memory that one conversion frees for the next. Giving it back to the
/// system and asking for it again takes longer than converting a small drawing.
void keepFreedMemory();

/// Takes the memory for a large drawing of so many bytes in large pages, if the system has some:
/// thousands of small ones take a tenth of the time and more. A smaller drawing changes nothing. To
/// be called by the main thread, before it converts. All memory stays with the process to its end.
void expectDrawing(std::uintmax_t bytes);

}  // namespace quillon::headless
