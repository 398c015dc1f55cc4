#pragma once

namespace quillon::console {

/// From now on Ctrl-C sets a flag instead of ending the program; a second one ends it.
void catchInterrupt();

/// True once Ctrl-C was pressed.
bool interrupted();

}  // namespace quillon::console
