#include "joining_cost.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>

#include "drawing_file.h"
#include "measuring.h"
#include "scaled_drawings.h"

namespace quillon::bench {
namespace {

constexpr std::size_t kEnds = 1'000'000;
constexpr double kMostJoiningSeconds = 1.0;

void makeEqualEnds(DrawingText& drawing, std::size_t count) { makeEnds(drawing, count, 0.0); }
void makeEndsOff(DrawingText& drawing, std::size_t count) { makeEnds(drawing, count, 0.003); }

struct EndsKind {
  const char* name;
  const char* title;
  void (*make)(DrawingText& drawing, std::size_t count);
};
constexpr std::array<EndsKind, 2> kEndsKinds = {{
    {"ends", "equal", makeEqualEnds},
    {"ends-off", "up to 0.003 mm off", makeEndsOff},
}};

struct Steps {
  bool joins;
  bool dropsDuplicates;
};

double secondsOf(const std::string& stem, const Steps& steps) {
  convert::ConversionJob job;
  job.dxfFile = stem + ".dxf";
  job.scriptFile = stem + ".scr";
  job.unit = base::Unit::Mm;
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  job.exact.chains = steps.joins;
  if (!steps.joins) job.exact.joinTolerance = 0.0;
  job.exact.dropDuplicates = steps.dropsDuplicates;
  const double seconds = convertApart(job).cpuSeconds;
  std::filesystem::remove(job.scriptFile);
  return seconds;
}

bool measureEnds(const EndsKind& kind, const std::string& folder, std::size_t rounds) {
  const std::string stem = folder + "/" + kind.name;
  makeFile(stem + ".dxf", kind.make, kEnds);
  std::vector<double> joining;
  std::vector<double> cleaning;
  // The ways alternate, so that all see the same machine load.
  for (std::size_t round = 0; round < rounds; ++round) {
    const double neither = secondsOf(stem, {false, false});
    joining.push_back(secondsOf(stem, {true, false}) - neither);
    cleaning.push_back(secondsOf(stem, {true, true}) - neither);
  }
  std::filesystem::remove(stem + ".dxf");
  const Spread joined = spreadOf(joining);
  const bool kept = joined.median <= kMostJoiningSeconds;
  std::printf("%zu ends, %s: joined in %.3f s of processor time (best %.3f), at most %.1f: %s\n",
              kEnds, kind.title, joined.median, joined.best, kMostJoiningSeconds,
              kept ? "kept" : "NOT KEPT");
  std::printf("  with looking for duplicates %.3f s\n", spreadOf(cleaning).median);
  std::fflush(stdout);
  return kept;
}

}  // namespace

bool measureJoining(const std::string& folder, std::size_t rounds) {
  bool good = true;
  for (const EndsKind& kind : kEndsKinds) good = measureEnds(kind, folder, rounds) && good;
  return good;
}

}  // namespace quillon::bench
