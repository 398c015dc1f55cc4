#pragma once

#include <algorithm>
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

}  // namespace quillon::testing
