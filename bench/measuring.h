#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "convert/job.h"

namespace quillon::bench {

/// The least work of any reader: reading the file through one buffer and finding its lines.
struct Floor {
  double seconds = 0.0;
  std::uint64_t lines = 0;
  std::uint64_t characters = 0;  ///< in lines, without their ends
};
Floor readAndSplit(const std::string& path);

/// One conversion from file to file in a child process.
struct Conversion {
  double seconds = 0.0;     ///< without starting the process
  double cpuSeconds = 0.0;  ///< of the whole process
  std::size_t peakBytes = 0;
  std::uint64_t commands = 0;
};
/// Throws std::runtime_error when the drawing is not converted.
Conversion convertApart(const convert::ConversionJob& job);

struct Spread {
  double best = 0.0;
  double median = 0.0;
  double worst = 0.0;
};
Spread spreadOf(std::vector<double> values);

}  // namespace quillon::bench
