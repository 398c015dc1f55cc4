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

/// The user that stands for "anybody" on every system.
inline constexpr uid_t kNobody = 65534;

/// Takes the root user's rights away as long as it lives: root may write everything. Changes
/// nothing for other users.
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

/// The plugin that Qt shows windows with in tests.
inline constexpr const char* kQtPlatform = "offscreen";

/// What a program says, with "/" in its paths.
inline std::string withSlashes(std::string text) { return text; }

/// Steps, in seconds, in which the system counts processor time.
inline constexpr double kProcessorTick = 1e-6;
/// Processor time of this process so far.
inline double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Local times are those of UTC from now on.
inline void useUniversalTime() {
  ::setenv("TZ", "UTC0", 1);
  ::tzset();
}

/// A descriptor of a device that takes nothing.
inline int openFullDevice() { return open("/dev/full", O_WRONLY | O_CLOEXEC); }

/// Both ends of a new pipe. False when there is none.
inline bool openPipe(std::FILE*& reader, std::FILE*& writer) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return false;
  reader = fdopen(ends[0], "rb");
  writer = fdopen(ends[1], "wb");
  return true;
}

/// Makes a named pipe. False when that failed.
inline bool makePipe(const std::string& path) { return mkfifo(path.c_str(), 0600) == 0; }

}  // namespace quillon::testing
