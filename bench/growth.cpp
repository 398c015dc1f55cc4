#include "growth.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <limits>

#include "drawing_file.h"
#include "measuring.h"
#include "scaled_drawings.h"

namespace quillon::bench {
namespace {

constexpr std::array<std::size_t, 4> kFactors = {1, 2, 4, 8};

using Seconds = std::array<double, kFactors.size()>;

/// The exponent of the count that the times grow with: the slope of the straight line that fits
/// their logarithms best.
double exponentOf(const Seconds& seconds) {
  const double middle = 0.5 * static_cast<double>(seconds.size() - 1);
  double products = 0.0;
  double squares = 0.0;
  for (std::size_t i = 0; i < seconds.size(); ++i) {
    const double step = static_cast<double>(i) - middle;  // the logarithm of the factor, to base 2
    products += step * std::log2(seconds[i]);
    squares += step * step;
  }
  return products / squares;
}

/// Best processor time of each size, alternating between sizes. Other programs disturb it less than
/// wall-clock time.
Seconds timesOf(const Series& series, const std::string& folder, std::size_t rounds) {
  std::array<convert::ConversionJob, kFactors.size()> jobs;
  for (std::size_t i = 0; i < kFactors.size(); ++i) {
    const std::string stem = folder + "/series-" + std::to_string(kFactors[i]);
    jobs[i].dxfFile = stem + ".dxf";
    jobs[i].scriptFile = stem + ".scr";
    jobs[i].overwriteScript = true;
    series.set(jobs[i]);
    makeFile(jobs[i].dxfFile, series.make, series.base * kFactors[i]);
  }
  Seconds best;
  best.fill(std::numeric_limits<double>::infinity());
  for (std::size_t round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < kFactors.size(); ++i) {
      best[i] = std::min(best[i], convertApart(jobs[i]).cpuSeconds);
    }
  }
  for (const convert::ConversionJob& job : jobs) {
    std::filesystem::remove(job.dxfFile);
    std::filesystem::remove(job.scriptFile);
  }
  return best;
}

bool measureSeries(const Series& series, const std::string& folder, std::size_t rounds) {
  const Seconds seconds = timesOf(series, folder, rounds);
  std::printf("%-16s", std::string(series.name).c_str());
  for (std::size_t i = 0; i < seconds.size(); ++i) {
    const double count = static_cast<double>(series.base * kFactors[i]);
    std::printf(" %9.2f", seconds[i] / count * 1e9);
  }
  std::printf(" ns/%-10s growth", std::string(series.unit).c_str());
  for (std::size_t i = 1; i < seconds.size(); ++i) {
    std::printf(" %5.2f", seconds[i] / seconds[i - 1]);
  }
  const double exponent = exponentOf(seconds);
  const bool good = exponent <= series.mostExponent;
  std::printf("  exponent %5.2f (at most %.1f)%s\n", exponent, series.mostExponent,
              good ? "" : "  TOO MUCH");
  std::fflush(stdout);
  return good;
}

}  // namespace

bool measureGrowth(const std::string& folder, const std::vector<std::string>& names,
                   std::size_t rounds) {
  std::printf("%-16s %9s %9s %9s %9s\n", "series", "x1", "x2", "x4", "x8");
  bool good = true;
  for (const Series& series : allSeries()) {
    const bool wanted = names.empty() || std::ranges::find(names, series.name) != names.end();
    if (wanted) good = measureSeries(series, folder, rounds) && good;
  }
  return good;
}

}  // namespace quillon::bench
