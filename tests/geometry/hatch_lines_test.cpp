#include "geometry/hatch_lines.h"

#include <gtest/gtest.h>

#include "geometry/area.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

HatchLines hatched(const std::vector<Path>& loops, const HatchFamily& family,
                   const HatchLimits& limits = {}) {
  return hatchLines(loops, std::vector<HatchFamily>{family}, limits);
}

double lengthOf(const HatchLines& hatch) {
  double length = 0.0;
  for (const Edge& line : hatch.lines) length += lengthOf(line);
  return length;
}

TEST(HatchLines, RunThroughOriginAndSteps) {
  const HatchLines hatch = hatched({rectangle(0, 0, 10, 4)},
                                   {.angle = 0, .origin = {0, 0.5}, .step = {0, 2}, .dashes = {}});
  EXPECT_EQ(hatch.lines, (std::vector<Edge>{{{0, 0.5}, {10, 0.5}}, {{0, 2.5}, {10, 2.5}}}));
}

TEST(HatchLines, LeaveHolesOut) {
  const HatchLines hatch = hatched({rectangle(0, 0, 10, 10), circlePath({5, 5}, 3)},
                                   {.angle = 0, .origin = {0, 5}, .step = {0, 100}, .dashes = {}});
  ASSERT_EQ(hatch.lines.size(), 2U);
  EXPECT_NEAR(hatch.lines[0].to.x, 2, 1e-12);
  EXPECT_NEAR(hatch.lines[1].from.x, 8, 1e-12);
}

TEST(HatchLines, MeetArcsExactly) {
  const HatchLines hatch = hatched(
      {circlePath({1, 2}, 10)}, {.angle = 33, .origin = {7, 7}, .step = {-0.5, 0.3}, .dashes = {}});
  EXPECT_GT(hatch.lines.size(), 30U);
  for (const Edge& line : hatch.lines) {
    EXPECT_NEAR(norm(line.from - Point{1, 2}), 10, 1e-9);
    EXPECT_NEAR(norm(line.to - Point{1, 2}), 10, 1e-9);
  }
}

TEST(HatchLines, CountVerticesOnALineOnce) {
  // Lines through the corners of a diamond, and along the edges of a square.
  const Path diamond = closedPath({{{0, -2}}, {{2, 0}}, {{0, 2}}, {{-2, 0}}});
  const HatchFamily level{.angle = 0, .origin = {0, 0}, .step = {0, 1}, .dashes = {}};
  EXPECT_NEAR(lengthOf(hatched({diamond}, level)), 4 + 2 + 2, 1e-12);
  const HatchLines square = hatched({rectangle(0, 0, 3, 2)}, level);
  EXPECT_EQ(square.lines.size(), 2U);  // of the two lines on edges one counts
}

TEST(HatchLines, BeginDashesAtEachLinesPoint) {
  const HatchLines hatch =
      hatched({rectangle(0, 0, 10, 3)},
              {.angle = 0, .origin = {1, 1}, .step = {2, 1.5}, .dashes = {3, -1, 0, -1}});
  EXPECT_EQ(hatch.lines, (std::vector<Edge>{{{1, 1}, {4, 1}},
                                            {{6, 1}, {9, 1}},
                                            {{0, 2.5}, {1, 2.5}},
                                            {{3, 2.5}, {6, 2.5}},
                                            {{8, 2.5}, {10, 2.5}}}));
  EXPECT_EQ(hatch.dots, (std::vector<Point>{{0, 1}, {5, 1}, {10, 1}, {2, 2.5}, {7, 2.5}}));
}

TEST(HatchLines, CoverTheAreaEvenly) {
  std::mt19937 random(43);
  std::uniform_real_distribution<double> angle(-180, 180);
  for (int round = 0; round < 30; ++round) {
    const std::vector<Path> loops = {randomStar(random, {0, 0}, 100, 9),
                                     randomStar(random, {5, 5}, 30, 6)};
    const double turn = angle(random);
    const double step = 0.25;
    const Point aside = turned({0, step}, radiansOf(turn));
    const HatchLines hatch =
        hatched(loops, {.angle = turn, .origin = {3, 4}, .step = aside, .dashes = {}});
    const double area = std::fabs(signedArea(loops[0])) - std::fabs(signedArea(loops[1]));
    EXPECT_NEAR(lengthOf(hatch) * step / area, 1.0, 1e-3);
    const PointLocator locator(loops);
    for (const Edge& line : hatch.lines) {
      EXPECT_NE(locator.locate(pointAt(line, 0.5)), Location::outside);
    }
  }
}

TEST(HatchLines, StopAtTheirLimits) {
  const HatchFamily fine{.angle = 0, .origin = {0, 0}, .step = {0, 0.06}, .dashes = {}};
  EXPECT_EQ(hatched({rectangle(0, 0, 10, 600)}, fine).lines.size(), 10000U);
  const HatchLines many = hatched({rectangle(0, 0, 10, 1300)}, fine);
  EXPECT_TRUE(many.tooMany);
  EXPECT_FALSE(many.tooDense);
  EXPECT_TRUE(many.lines.empty());
  const HatchFamily dashed{.angle = 0, .origin = {0, 0}, .step = {0, 1}, .dashes = {0.001, -0.001}};
  EXPECT_TRUE(hatched({rectangle(0, 0, 100, 2)}, dashed).tooMany);
  // The distance counts across the lines, not along the step.
  const HatchFamily dense{.angle = 0, .origin = {0, 0}, .step = {9, 0.04}, .dashes = {}};
  EXPECT_TRUE(hatched({rectangle(0, 0, 1, 1)}, dense).tooDense);
  EXPECT_TRUE(
      hatched({rectangle(0, 0, 1, 1)}, {.angle = 0, .origin = {}, .step = {1, 0}, .dashes = {}})
          .tooDense);
}

TEST(HatchLines, CountAllFamiliesTogether) {
  const HatchFamily level{.angle = 0, .origin = {0, 0.5}, .step = {0, 1}, .dashes = {}};
  const HatchFamily upright{.angle = 90, .origin = {0.5, 0}, .step = {-1, 0}, .dashes = {}};
  const std::vector<HatchFamily> both = {level, upright};
  const std::vector<Path> square = {rectangle(0, 0, 10, 10)};
  EXPECT_EQ(hatchLines(square, both, {.pieces = 20, .spacing = 0}).lines.size(), 20U);
  EXPECT_TRUE(hatchLines(square, both, {.pieces = 19, .spacing = 0}).tooMany);
}

TEST(HatchLines, SurviveHostileInput) {
  const std::vector<double> values = {0.0, 1.0, 1e-300, 1e99, 1e300, -1.0, std::nan("")};
  for (const Path& path : hostilePaths()) {
    for (const double value : values) {
      for (const HatchFamily& family :
           {HatchFamily{value, {0, 0}, {0, 0.1}, {}}, HatchFamily{45, {value, 0}, {0, 0.1}, {}},
            HatchFamily{45, {0, 0}, {value, 0.1}, {1, -1}},
            HatchFamily{45, {0, 0}, {0, value}, {1, -1}},
            HatchFamily{45, {0, 0}, {0, 0.1}, {value, -value}}}) {
        const HatchLines hatch = hatched({path, rectangle(-1, -1, 1, 1)}, family);
        EXPECT_LE(hatch.lines.size() + hatch.dots.size(), 20000U);
      }
    }
  }
}

}  // namespace
}  // namespace quillon::geometry
