// Measures whole conversions, from file to file, relative to reading the same file and splitting it
// into lines; or, with --linear, how their time grows with the drawing; or, with --exact, how much
// longer the exact rules take than the classic ones; or, with --ends, what joining adds.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "drawing_file.h"
#include "drawings.h"
#include "exact_cost.h"
#include "growth.h"
#include "joining_cost.h"
#include "measuring.h"
#include "program.h"
#include "support/temp_folder.h"

namespace quillon::bench {
namespace {

constexpr double kMegabyte = 1e6;
/// Maximum memory of a conversion, as a multiple of the file's size.
constexpr double kMostMemory = 0.5;

struct Options {
  double megabytes = 150.0;
  std::size_t rounds = 5;
  std::vector<std::string> only;  ///< drawings or series; empty: all
  std::string folder;  ///< where drawings are generated and kept; empty: a temporary folder
  bool check = false;
  bool linear = false;
  bool exact = false;
  bool ends = false;
};

void printSpread(const char* what, const Spread& spread, const char* unit) {
  std::printf("  %-22s best %7.3f  median %7.3f  worst %7.3f %s\n", what, spread.best,
              spread.median, spread.worst, unit);
}

/// Reading and converting alternate, so that both see the same machine load.
struct Rounds {
  std::vector<double> floors;
  std::vector<double> conversions;
  std::vector<double> ratios;
  std::size_t peakBytes = 0;
};

Rounds runRounds(const convert::ConversionJob& job, std::size_t count) {
  Rounds rounds;
  const Floor first = readAndSplit(job.dxfFile);  // warms the page cache
  std::optional<std::uint64_t> commands;
  for (std::size_t i = 0; i < count; ++i) {
    // On some file systems, replacing a file forces it to disk at once.
    std::filesystem::remove(job.scriptFile);
    const Floor floor = readAndSplit(job.dxfFile);
    const Conversion conversion = convertApart(job);
    if (floor.lines != first.lines || floor.characters != first.characters ||
        conversion.commands != commands.value_or(conversion.commands)) {
      throw std::runtime_error("two rounds gave different results");
    }
    commands = conversion.commands;
    rounds.floors.push_back(floor.seconds);
    rounds.conversions.push_back(conversion.seconds);
    rounds.ratios.push_back(conversion.seconds / floor.seconds);
    rounds.peakBytes = std::max(rounds.peakBytes, conversion.peakBytes);
  }
  return rounds;
}

/// True when time and memory are within their limits.
bool measureDrawing(const DrawingKind& kind, const Options& options, const std::string& folder) {
  convert::ConversionJob job;
  job.dxfFile = folder + "/" + std::string(kind.name) + ".dxf";
  job.scriptFile = folder + "/" + std::string(kind.name) + ".scr";
  makeFile(job.dxfFile, kind.make, static_cast<std::size_t>(options.megabytes * kMegabyte));
  const auto size = static_cast<double>(std::filesystem::file_size(job.dxfFile));

  const Rounds rounds = runRounds(job, options.rounds);
  const Spread ratio = spreadOf(rounds.ratios);
  const double memory = static_cast<double>(rounds.peakBytes) / size;
  const bool good = ratio.median <= kind.mostTime && memory <= kMostMemory;
  const auto scriptSize = static_cast<double>(std::filesystem::file_size(job.scriptFile));
  std::printf("%s: %.0f MB, script %.2f times the drawing\n", std::string(kind.name).c_str(),
              size / kMegabyte, scriptSize / size);
  printSpread("read and split", spreadOf(rounds.floors), "s");
  printSpread("convert", spreadOf(rounds.conversions), "s");
  printSpread("convert / read", ratio, "");
  std::printf("  %-22s %.2f\n", "ratio of the bests",
              spreadOf(rounds.conversions).best / spreadOf(rounds.floors).best);
  std::printf("  %-22s %.2f times the drawing\n", "peak memory", memory);
  std::printf("  median ratio at most %.1f, memory at most %.1f: %s\n", kind.mostTime, kMostMemory,
              good ? "kept" : "NOT KEPT");
  std::fflush(stdout);

  std::filesystem::remove(job.scriptFile);
  if (options.folder.empty()) std::filesystem::remove(job.dxfFile);
  return good;
}

bool measureDrawings(const Options& options, const std::string& folder) {
  bool good = true;
  for (const DrawingKind& kind : kDrawingKinds) {
    const bool wanted =
        options.only.empty() || std::ranges::find(options.only, kind.name) != options.only.end();
    if (wanted) good = measureDrawing(kind, options, folder) && good;
  }
  return good;
}

int run(const Options& options) {
  testing::TempFolder temporary;
  if (!options.folder.empty()) std::filesystem::create_directories(options.folder);
  const std::string folder = options.folder.empty() ? temporary.path().string() : options.folder;
  const auto bytes = static_cast<std::size_t>(options.megabytes * kMegabyte);
  const bool good = options.linear  ? measureGrowth(folder, options.only, options.rounds)
                    : options.ends  ? measureJoining(folder, options.rounds)
                    : options.exact ? measureExact(folder, options.only, bytes, options.rounds)
                                    : measureDrawings(options, folder);
  return good || !options.check ? 0 : 1;
}

}  // namespace
}  // namespace quillon::bench

int main(int argc, char** argv) {
  quillon::bench::Options options;
  CLI::App app("Measures whole conversions.");
  app.add_option("--size", options.megabytes, "Size of the drawings in MB")
      ->check(CLI::PositiveNumber)
      ->capture_default_str();
  quillon::bench::addRounds(app, options.rounds);
  app.add_option("--only", options.only, "Drawings or series to measure");
  app.add_option("--folder", options.folder, "Where drawings are made and stay");
  app.add_flag("--linear", options.linear, "Measure how time grows with the drawing");
  app.add_flag("--exact", options.exact, "Compare the exact rules with the classic ones")
      ->excludes("--linear");
  app.add_flag("--ends", options.ends, "Measure joining a million ends by the exact rules")
      ->excludes("--linear")
      ->excludes("--exact");
  app.add_flag("--check", options.check, "Fail when a limit is exceeded");
  CLI11_PARSE(app, argc, argv);
  return quillon::bench::exitCodeOf("end_to_end", [&] { return quillon::bench::run(options); });
}
