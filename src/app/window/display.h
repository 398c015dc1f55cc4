#pragma once

namespace quillon::window {

/// True when there is a display for windows. Qt ends a program that asks for one in vain.
bool hasDisplay();

}  // namespace quillon::window
