#pragma once

#include <algorithm>
#include <cstdlib>

#include "platform.h"

namespace quillon::testing {

/// The least processor time of three runs, in seconds, so that a busy machine does not decide a
/// test. Where the processor clock is coarse, short runs are repeated.
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

/// By how much time limits are extended here: sanitizers and valgrind slow everything down.
inline int patience() {
  const char* const times = std::getenv("QUILLON_PATIENCE");
  return times == nullptr ? 1 : std::max(1, std::atoi(times));
}

}  // namespace quillon::testing
