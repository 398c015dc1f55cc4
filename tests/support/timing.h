#pragma once

#include <algorithm>
#include <cstdlib>
#include <ctime>

namespace quillon::testing {

/// Least processor time of three runs, in seconds: what else the machine does must not decide a
/// test.
template <typename Run>
double leastSeconds(const Run& run) {
  double least = 1e9;
  for (int i = 0; i < 3; ++i) {
    const std::clock_t start = std::clock();
    run();
    const auto ticks = static_cast<double>(std::clock() - start);
    least = std::min(least, ticks / CLOCKS_PER_SEC);
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
