#include "exact_cost.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <string_view>

#include "drawing_file.h"
#include "drawings.h"
#include "measuring.h"

namespace quillon::bench {
namespace {

/// A way to convert a drawing.
struct Way {
  std::string_view name;
  void (*set)(convert::ConversionJob& job);
  /// Maximum processor time, as a multiple of that of the first way.
  double mostTime;
};

void setExact(convert::ConversionJob& job) {
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
}

void setUncleaned(convert::ConversionJob& job) {
  setExact(job);
  job.exact.chains = false;
  job.exact.dropDuplicates = false;
  job.exact.joinTolerance = 0.0;
}

constexpr std::array<Way, 3> kWays = {{
    {"classic", [](convert::ConversionJob&) {}, 1.0},
    {"exact, not cleaned", setUncleaned, 2.0},
    {"exact", setExact, 2.5},
}};

/// A drawing that is so many times as large may take this many times as long: hash tables outgrow
/// the caches, and there is noise.
constexpr std::size_t kGrowth = 8;
constexpr double kMostWayGrowth = 20.0;

using WaySeconds = std::array<double, kWays.size()>;

/// Median processor times. The ways alternate, so that all see the same machine load.
WaySeconds timesOf(const std::string& stem, std::size_t rounds) {
  std::array<std::vector<double>, kWays.size()> seconds;
  for (std::size_t round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < kWays.size(); ++i) {
      convert::ConversionJob job;
      job.dxfFile = stem + ".dxf";
      job.scriptFile = stem + ".scr";
      job.unit = base::Unit::Mm;
      kWays[i].set(job);
      // On some file systems, replacing a file forces it to disk at once.
      std::filesystem::remove(job.scriptFile);
      seconds[i].push_back(convertApart(job).cpuSeconds);
    }
  }
  std::filesystem::remove(stem + ".scr");
  WaySeconds medians{};
  for (std::size_t i = 0; i < kWays.size(); ++i) medians[i] = spreadOf(seconds[i]).median;
  return medians;
}

bool measureDrawing(const DrawingKind& kind, const std::string& folder, std::size_t bytes,
                    std::size_t rounds) {
  const std::string stem = folder + "/" + std::string(kind.name);
  std::array<WaySeconds, 2> times{};
  for (std::size_t i = 0; i < times.size(); ++i) {
    const std::string file = stem + "-exact-" + std::to_string(i);
    makeFile(file + ".dxf", kind.make, i == 0 ? bytes / kGrowth : bytes);
    times[i] = timesOf(file, rounds);
    std::filesystem::remove(file + ".dxf");
  }
  const auto& [small, large] = times;
  std::printf("%s: %.0f MB, and %zu times less\n", std::string(kind.name).c_str(),
              static_cast<double>(bytes) / 1e6, kGrowth);
  bool good = true;
  for (std::size_t i = 0; i < kWays.size(); ++i) {
    const double ratio = large[i] / large[0];
    const double growth = large[i] / small[i];
    const bool kept = ratio <= kWays[i].mostTime && growth <= kMostWayGrowth;
    std::printf("  %-20s %7.3f s  %5.2f times classic, at most %.1f  growth %5.2f: %s\n",
                std::string(kWays[i].name).c_str(), large[i], ratio, kWays[i].mostTime, growth,
                kept ? "kept" : "NOT KEPT");
    good = good && kept;
  }
  std::fflush(stdout);
  return good;
}

}  // namespace

bool measureExact(const std::string& folder, const std::vector<std::string>& names,
                  std::size_t bytes, std::size_t rounds) {
  bool good = true;
  for (const DrawingKind& kind : kDrawingKinds) {
    const bool wanted =
        names.empty() || std::find(names.begin(), names.end(), kind.name) != names.end();
    if (wanted) good = measureDrawing(kind, folder, bytes, rounds) && good;
  }
  return good;
}

}  // namespace quillon::bench
