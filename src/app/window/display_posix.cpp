#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/window/display.h"

namespace quillon::window {

namespace {

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

/// Some Qt platforms need no display server.
bool needsNoServer(std::string_view platform) {
  for (const std::string_view name : {"offscreen", "minimal", "vnc", "linuxfb", "eglfs"}) {
    if (platform.starts_with(name)) return true;
  }
  return false;
}

/// Opens the display in a child process, which exits with an error if that fails.
bool displayOpens(int& argc, char** argv) {
  const pid_t child = fork();
  if (child == 0) {
    const rlimit noCore{};
    setrlimit(RLIMIT_CORE, &noCore);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0) dup2(nowhere, STDERR_FILENO);
    const QGuiApplication app(argc, argv);
    _exit(0);
  }
  int status = -1;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

bool hasDisplay(int& argc, char** argv) {
  const std::string platform = variable("QT_QPA_PLATFORM");
  if (needsNoServer(platform)) return true;
  const bool named = !variable("DISPLAY").empty() || !variable("WAYLAND_DISPLAY").empty();
  return named && displayOpens(argc, argv);
}

}  // namespace quillon::window
