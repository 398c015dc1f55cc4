#pragma once

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace quillon::testing {

/// Drops privileges on systems where tests run with all of them.
class Unprivileged {
 public:
  Unprivileged() {}
};

/// The Qt platform plugin for tests.
inline constexpr const char* kQtPlatform = "windows";

/// A program's output with "/" in its paths.
inline std::string withSlashes(std::string text) {
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

/// The variable with the folder for configurations, and this program's own folder there.
inline constexpr const char* kConfigVariable = "APPDATA";
inline constexpr const char* kConfigFolder = "Quillon";

/// Resolution of processor time, in seconds.
inline constexpr double kProcessorTick = 1.0 / 64.0;
/// Processor time of this process so far.
inline double processorSeconds() {
  FILETIME unused{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(GetCurrentProcess(), &unused, &unused, &kernel, &user);
  double ticks = 0.0;
  for (const FILETIME& time : {kernel, user}) {
    ticks += static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime;
  }
  return ticks / 1e7;
}

/// Makes local time UTC from now on.
inline void useUniversalTime() {
  _putenv_s("TZ", "UTC0");
  _tzset();
}

/// Both ends of a new pipe. False on failure.
inline bool openPipe(std::FILE*& reader, std::FILE*& writer) {
  int ends[2];
  if (_pipe(ends, 1U << 16, _O_BINARY | _O_NOINHERIT) != 0) return false;
  reader = _fdopen(ends[0], "rb");
  writer = _fdopen(ends[1], "wb");
  return true;
}

// Not available on this system; tests that need these are listed in skipped_tests.txt.

inline int openFullDevice() { return -1; }

inline bool makePipe(const std::string&) { return false; }

}  // namespace quillon::testing
