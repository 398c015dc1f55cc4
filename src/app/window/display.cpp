#include "app/window/display.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace quillon::window {

#if defined(_WIN32) || defined(__APPLE__)

bool hasDisplay() { return true; }

#else

namespace {

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

bool exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

/// Some platforms of Qt draw without a display server.
bool needsNoServer(std::string_view platform) {
  for (const std::string_view name : {"offscreen", "minimal", "vnc", "linuxfb", "eglfs"}) {
    if (platform.starts_with(name)) return true;
  }
  return false;
}

bool hasX11() {
  const std::string display = variable("DISPLAY");
  // A display of this machine has a socket; one of another machine is taken at its word.
  if (!display.starts_with(':')) return !display.empty();
  return exists("/tmp/.X11-unix/X" + display.substr(1, display.find('.') - 1));
}

bool hasWayland() {
  const std::string display = variable("WAYLAND_DISPLAY");
  if (display.empty() || display.front() == '/') return exists(display);
  return exists(variable("XDG_RUNTIME_DIR") + "/" + display);
}

}  // namespace

bool hasDisplay() { return needsNoServer(variable("QT_QPA_PLATFORM")) || hasX11() || hasWayland(); }

#endif

}  // namespace quillon::window
