#pragma once

namespace quillon::console {

/// From now on Ctrl-C, or the system's wish that the program ends, sets a flag instead of ending
/// it; a second one ends it. A pipe without a reader becomes an error of writing.
void catchInterrupt();

/// True once that has happened.
bool interrupted();

}  // namespace quillon::console
