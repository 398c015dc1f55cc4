// The scene of a drawing has exactly the lines that its script has.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/number_text.h"
#include "preview/figure.h"
#include "preview/scene_parts.h"
#include "support/conversion.h"
#include "support/temp_folder.h"

namespace quillon::preview {
namespace {

using geometry::Point;

/// The points of a command: "(1 2)" or, as an offset from where nothing is, "(R1 2)".
std::vector<Point> pointsOf(std::string_view command) {
  std::vector<Point> points;
  for (std::size_t at = command.find('('); at != std::string_view::npos;
       at = command.find('(', at + 1)) {
    const std::size_t first = at + (command[at + 1] == 'R' ? 2 : 1);
    const std::size_t blank = command.find(' ', at);
    points.push_back(
        {base::numberValue(command.substr(first)), base::numberValue(command.substr(blank + 1))});
  }
  return points;
}

/// All lines and arcs of a script: those of "Wire" commands, from point to point.
std::vector<SceneLine> linesOfScript(const std::string& script) {
  std::vector<SceneLine> lines;
  std::istringstream in(script);
  for (std::string command; std::getline(in, command, ';');) {
    const std::size_t start = command.find("Wire ");
    if (start == std::string::npos || (start > 0 && command[start - 1] != '\n')) continue;
    const std::vector<Point> points = pointsOf(std::string_view(command).substr(start));
    for (std::size_t i = 1; i < points.size(); ++i) lines.push_back({points[i - 1], points[i]});
  }
  return lines;
}

bool isNear(Point a, Point b) {
  constexpr double kDecimals = 2e-7;
  return std::fabs(a.x - b.x) <= kDecimals && std::fabs(a.y - b.y) <= kDecimals;
}

/// Takes from `there` what is the same as the line; false when nothing is.
bool takeOut(std::vector<SceneLine>& there, const SceneLine& line) {
  const auto found = std::find_if(there.begin(), there.end(), [&](const SceneLine& other) {
    return isNear(line.from, other.from) && isNear(line.to, other.to);
  });
  if (found == there.end()) return false;
  *found = there.back();
  there.pop_back();
  return true;
}

struct SceneOfScript : ::testing::TestWithParam<convert::Rules> {};

TEST_P(SceneOfScript, HasAllItsSegmentsAndNoOthers) {
  std::size_t segments = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QUILLON_GOLDEN_FOLDER)) {
    if (entry.path().extension() != ".dxf") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    convert::ConversionJob job;
    job.rules = GetParam();
    job.unit = base::Unit::Mm;
    job.version = convert::kEagle6;
    job.drawingName = "sheet";
    convert::Surroundings surroundings = testing::fixedSurroundings();
    surroundings.record = true;
    const testing::Conversion conversion(text, job, surroundings);
    // Arcs of the classic rules are a command of their own, with other points.
    if (!conversion.result.recording || conversion.script.find("\nArc ") != std::string::npos) {
      continue;
    }
    const auto scene = makeScene(*conversion.result.recording);
    const SceneParts parts = partsOf(*scene);
    std::vector<SceneLine> drawn = parts.straight;
    for (const SceneArc& arc : parts.arcs) drawn.push_back({arc.arc.start, arc.arc.end});
    EXPECT_EQ(drawn.size(), scene->segmentCount());
    for (const SceneLine& line : linesOfScript(conversion.script)) {
      if (!isInSight(line.from) || !isInSight(line.to)) continue;
      ++segments;
      EXPECT_TRUE(takeOut(drawn, line)) << entry.path() << ": " << line.from.x << " " << line.from.y
                                        << " to " << line.to.x << " " << line.to.y;
    }
    EXPECT_TRUE(drawn.empty()) << entry.path() << ": " << drawn.size() << " more";
    if (scene->bounds().empty()) continue;
    const geometry::Box bounds = Figure(*conversion.result.recording).bounds();
    EXPECT_TRUE(isNear(scene->bounds().low, bounds.low)) << entry.path();
    EXPECT_TRUE(isNear(scene->bounds().high, bounds.high)) << entry.path();
  }
  EXPECT_GT(segments, 500U);
}

INSTANTIATE_TEST_SUITE_P(BothRules, SceneOfScript,
                         ::testing::Values(convert::Rules::Classic, convert::Rules::Exact));

}  // namespace
}  // namespace quillon::preview
