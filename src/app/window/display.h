#pragma once

namespace quillon::window {

/// True when there is a display for windows. Qt ends a program that asks for one in vain, so it is
/// tried out in another process first.
bool hasDisplay(int& argc, char** argv);

}  // namespace quillon::window
