#pragma once

namespace quillon::window {

/// True when windows can be shown. Qt exits when the display is unavailable, so this is tried in
/// another process first.
bool hasDisplay(int& argc, char** argv);

}  // namespace quillon::window
