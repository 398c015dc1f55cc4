#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace quillon::testing {

/// A user without special rights, present on every system.
inline constexpr uid_t kNobody = 65534;

/// Drops root's privileges for its lifetime, as root may write everything. No effect for other
/// users.
class Unprivileged {
 public:
  Unprivileged() {
    if (geteuid() == 0) dropped_ = seteuid(kNobody) == 0;
  }
  ~Unprivileged() {
    if (dropped_) static_cast<void>(seteuid(0) == 0);
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

 private:
  bool dropped_ = false;
};

/// The Qt platform plugin for tests.
inline constexpr const char* kQtPlatform = "offscreen";

/// A program's output with "/" in its paths.
inline std::string withSlashes(std::string text) { return text; }

/// The variable with the folder for configurations, and this program's own folder there.
inline constexpr const char* kConfigVariable = "XDG_CONFIG_HOME";
inline constexpr const char* kConfigFolder = "quillon";

/// Resolution of processor time, in seconds.
inline constexpr double kProcessorTick = 1e-6;
/// Processor time of this process so far.
inline double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Makes local time UTC from now on.
inline void useUniversalTime() {
  ::setenv("TZ", "UTC0", 1);
  ::tzset();
}

/// A descriptor for a device that accepts no data.
inline int openFullDevice() { return open("/dev/full", O_WRONLY | O_CLOEXEC); }

/// Both ends of a new pipe. False on failure.
inline bool openPipe(std::FILE*& reader, std::FILE*& writer) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return false;
  reader = fdopen(ends[0], "rb");
  writer = fdopen(ends[1], "wb");
  return true;
}

/// Creates a named pipe. False on failure.
inline bool makePipe(const std::string& path) { return mkfifo(path.c_str(), 0600) == 0; }

}  // namespace quillon::testing
