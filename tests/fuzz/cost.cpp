#include "cost.h"

#include <sys/resource.h>

#include <algorithm>
#include <string>

#include "allocations.h"
#include "parts.h"

namespace quillon::fuzz {
namespace {

/// Processor time of this process, in seconds, without the system's: writing a file takes many
/// times as long on a busy machine.
double processorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_utime.tv_sec) +
         static_cast<double>(usage.ru_utime.tv_usec) * 1e-6;
}

double timeOf(const std::function<std::uint64_t()>& work) {
  const double start = processorSeconds();
  work();
  return processorSeconds() - start;
}

void requireBound(double cost, const CostBound& bound, double units, const std::string& what) {
  const double most = bound.fixed + bound.perUnit * units;
  require(cost <= most, what + ": " + std::to_string(cost) + " instead of " + std::to_string(most) +
                            " at most, for " + std::to_string(units));
}

}  // namespace

void requireCost(const CostBounds& bounds, std::size_t inputBytes,
                 const std::function<std::uint64_t()>& work) {
  startMeasuring();
  const double start = processorSeconds();
  const std::uint64_t steps = work();
  double seconds = processorSeconds() - start;
  const auto inUse = static_cast<double>(mostBytesInUse());
  const auto allocated = static_cast<double>(bytesAllocated());
  const auto bytes = static_cast<double>(inputBytes);
  const double units = bytes + static_cast<double>(steps);
  CostBound mostInUse = bounds.bytesInUse;
  mostInUse.fixed += bounds.bytesInUsePerStep * static_cast<double>(steps);
  requireBound(inUse, mostInUse, bytes, "bytes in use at once");
  requireBound(allocated, bounds.bytesAllocated, units, "bytes allocated");
  for (int again = 0; again < 5; ++again) {
    if (seconds <= bounds.seconds.fixed + bounds.seconds.perUnit * units) break;
    seconds = std::min(seconds, timeOf(work));
  }
  requireBound(seconds, bounds.seconds, units, "seconds");
}

}  // namespace quillon::fuzz
