#pragma once

#include <algorithm>
#include <cstdlib>

#include "platform.h"

namespace quillon::testing {

/// Least processor time of three runs, in seconds: what else the machine does must not decide a
/// test. Where the clock of processor times ticks slowly, short runs are repeated.
template <typename Run>
double leastSeconds(const Run& run) {
  double least = 1e9;
  for (int i = 0; i < 3; ++i) {
    const double start = processorSeconds();
    double used = 0.0;
    int times = 0;
    do {
      run();
      ++times;
      used = processorSeconds() - start;
    } while (used < 10.0 * kProcessorTick && times < 1000);
    least = std::min(least, used / times);
  }
  return least;
}

/// How many times longer than usual something may take here: sanitizers and valgrind slow
/// everything down.
inline int patience() {
  const char* const times = std::getenv("QUILLON_PATIENCE");
  return times == nullptr ? 1 : std::max(1, std::atoi(times));
}

}  // namespace quillon::testing
