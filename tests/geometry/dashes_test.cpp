#include "geometry/dashes.h"

#include <gtest/gtest.h>

#include <numbers>

#include "geometry/path_arcs.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

Path line(double from, double to) { return openPath({{{from, 0}}, {{to, 0}}}); }

double lengthOf(const Path& path) {
  double length = 0.0;
  for (std::size_t i = 0; i < edgeCount(path); ++i) length += lengthOf(edgeAt(path, i));
  return length;
}

TEST(Dashed, CentresThePatternAndDrawsBothEnds) {
  // n = floor((20 - 4) / 6) = 2, and (20 - 12 + 4) / 2 = 6 at each end.
  const Dashes dashes = dashed(line(0, 20), std::vector<double>{4, -2});
  EXPECT_EQ(dashes.dashes, (std::vector<Path>{line(0, 6), line(8, 12), line(14, 20)}));
  EXPECT_TRUE(dashes.dots.empty());
}

TEST(Dashed, DrawsDotsBetweenDashes) {
  const Dashes dashes = dashed(line(0, 17), std::vector<double>{5, -1, 0, -1});
  EXPECT_EQ(dashes.dashes, (std::vector<Path>{line(0, 7.5), line(9.5, 17)}));
  EXPECT_EQ(dashes.dots, (std::vector<Point>{{8.5, 0}}));
}

TEST(Dashed, LeavesShortEdgesSolid) {
  EXPECT_EQ(dashed(line(0, 6), std::vector<double>{4, -2}).dashes, (std::vector<Path>{line(0, 6)}));
  const Path square = rectangle(0, 0, 5, 5);
  EXPECT_EQ(dashed(square, std::vector<double>{4, -2}).dashes, (std::vector<Path>{square}));
}

TEST(Dashed, BeginsWithTheFirstDash) {
  EXPECT_EQ(dashed(line(0, 20), std::vector<double>{-2, 4}).dashes,
            dashed(line(0, 20), std::vector<double>{4, -2}).dashes);
}

TEST(Dashed, CentresDotsWithoutDashes) {
  const Dashes dashes = dashed(line(0, 11), std::vector<double>{0, -3});
  EXPECT_TRUE(dashes.dashes.empty());
  EXPECT_EQ(dashes.dots, (std::vector<Point>{{1, 0}, {4, 0}, {7, 0}, {10, 0}}));
}

TEST(Dashed, KeepsDashesWholeAroundCorners) {
  const Path path = openPath({{{0, 0}}, {{20, 0}}, {{20, 3}}, {{40, 3}}});
  const Dashes dashes = dashed(path, std::vector<double>{4, -2});
  ASSERT_EQ(dashes.dashes.size(), 5U);
  EXPECT_EQ(dashes.dashes[2], openPath({{{14, 0}}, {{20, 0}}, {{20, 3}}, {{26, 3}}}));
}

TEST(Dashed, RunsAlongTheWholePath) {
  const Path path = openPath({{{0, 0}}, {{9, 0}}, {{9, 11}}});
  const Dashes dashes = dashed(path, std::vector<double>{4, -2}, {.alongWhole = true});
  EXPECT_EQ(dashes.dashes, (std::vector<Path>{openPath({{{0, 0}}, {{6, 0}}}),
                                              openPath({{{8, 0}}, {{9, 0}}, {{9, 3}}}),
                                              openPath({{{9, 5}}, {{9, 11}}})}));
}

TEST(Dashed, CutsArcsByTheirLength) {
  const Path arc = openPath({{{10, 0}, 180}, {{-10, 0}}});
  const double unit = 10 * std::numbers::pi / 20;
  const Dashes dashes = dashed(arc, std::vector<double>{4 * unit, -2 * unit});
  ASSERT_EQ(dashes.dashes.size(), 3U);
  EXPECT_NEAR(lengthOf(dashes.dashes[0]), 6 * unit, 1e-12);
  EXPECT_NEAR(lengthOf(dashes.dashes[1]), 4 * unit, 1e-12);
  EXPECT_NEAR(dashes.dashes[1].vertices[0].curve, 36, 1e-9);
  EXPECT_NEAR(norm(dashes.dashes[1].vertices[1].at), 10, 1e-12);
  EXPECT_EQ(dashes.dashes[2].vertices[1].at, (Point{-10, 0}));
}

TEST(Dashed, StaysSolidForTooManyPieces) {
  const Dashes dashes = dashed(line(0, 1e6), std::vector<double>{4, -2});
  EXPECT_TRUE(dashes.tooMany);
  EXPECT_EQ(dashes.dashes, (std::vector<Path>{line(0, 1e6)}));
  EXPECT_FALSE(dashed(line(0, 5e4), std::vector<double>{4, -2}).tooMany);
  EXPECT_TRUE(dashed(line(0, 100), std::vector<double>{4, -2}, {.limit = 10}).tooMany);
}

TEST(Dashed, StaysSolidForPatternsThatAreNone) {
  for (const std::vector<double>& pattern :
       {std::vector<double>{}, {1, 2}, {0, 0}, {std::nan(""), -1}, {1e300, -1e300}, {-1, -2}}) {
    EXPECT_EQ(dashed(line(0, 100), pattern).dashes, (std::vector<Path>{line(0, 100)}));
    EXPECT_FALSE(dashed(line(0, 100), pattern).tooMany);
  }
}

TEST(Dashed, DrawsThePatternsShareOfRandomPaths) {
  std::mt19937 random(41);
  for (int round = 0; round < 50; ++round) {
    Path path = randomStar(random, {0, 0}, 50, 8);
    path.closed = round % 2 == 0;
    const double whole = lengthOf(path);
    const Dashes dashes =
        dashed(path, std::vector<double>{1, -0.5, 0, -0.5}, {.alongWhole = round % 3 == 0});
    double drawn = 0.0;
    for (const Path& dash : dashes.dashes) drawn += lengthOf(dash);
    EXPECT_NEAR(drawn + static_cast<double>(dashes.dots.size()), whole, 1e-6);
    EXPECT_NEAR(drawn / whole, 0.5, 0.05);
  }
}

TEST(Dashed, SurvivesHostilePaths) {
  for (const Path& path : hostilePaths()) {
    for (const std::vector<double>& pattern :
         {std::vector<double>{1, -1}, {1e-300, -1e-300}, {0, -1e-9}, {-1}, {-1, 1e99}}) {
      for (const bool whole : {false, true}) {
        const Dashes dashes = dashed(path, pattern, {.alongWhole = whole});
        EXPECT_LE(dashes.dashes.size() + dashes.dots.size(), 20000U);
        EXPECT_EQ(dashes.dashes.empty() && dashes.dots.empty(),
                  !isUsable(path) || edgeCount(path) == 0);
      }
    }
  }
}

}  // namespace
}  // namespace quillon::geometry
