#pragma once

namespace quillon::window {

/// Asks Qt for windows in the system's colours, light or dark, where it does not take them by
/// itself. Call before the application is made. What the user has asked Qt for stays.
void askForSystemColours();

/// Whether the system's own style has light colours only.
extern const bool kSystemStyleIsLight;

}  // namespace quillon::window
