#include "geometry/loops.h"

#include <gtest/gtest.h>

#include "geometry/area.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

std::vector<Path> target() {
  return {circlePath({0, 0}, 1), rectangle(-5, -5, 5, 5), circlePath({0, 0}, 4),
          circlePath({0, 0}, 2), circlePath({20, 0}, 1)};
}

TEST(Depths, CountTheLoopsAround) {
  EXPECT_EQ(depths(target()), (std::vector<std::size_t>{3, 0, 1, 2, 0}));
}

TEST(NestLoops, FillsEverySecond) {
  const NestedLoops nested = nestLoops(target(), NestedFill::everySecond);
  ASSERT_EQ(nested.regions.size(), 3U);
  EXPECT_EQ(nested.regions[0],
            (Region{rectangle(-5, -5, 5, 5), {reversed(circlePath({0, 0}, 4))}}));
  EXPECT_EQ(nested.regions[1], (Region{circlePath({0, 0}, 2), {reversed(circlePath({0, 0}, 1))}}));
  EXPECT_EQ(nested.regions[2], (Region{circlePath({20, 0}, 1), {}}));
  EXPECT_EQ(nested.dropped, 0U);
}

TEST(NestLoops, FillsTheOutermostAlone) {
  const NestedLoops nested = nestLoops(target(), NestedFill::outermost);
  ASSERT_EQ(nested.regions.size(), 2U);
  EXPECT_EQ(nested.regions[0].holes.size(), 1U);
  EXPECT_EQ(nested.regions[1].outer, circlePath({20, 0}, 1));
}

TEST(NestLoops, FillsTheWholeOfTheOutermost) {
  const NestedLoops nested = nestLoops(target(), NestedFill::whole);
  ASSERT_EQ(nested.regions.size(), 2U);
  EXPECT_TRUE(nested.regions[0].holes.empty());
  EXPECT_TRUE(nested.regions[1].holes.empty());
}

TEST(NestLoops, TurnsLoopsToTheirSense) {
  const std::vector<Path> loops = {reversed(circlePath({0, 0}, 4)), circlePath({0, 0}, 1)};
  const NestedLoops nested = nestLoops(loops, NestedFill::everySecond);
  ASSERT_EQ(nested.regions.size(), 1U);
  EXPECT_GT(signedArea(nested.regions[0].outer), 0.0);
  EXPECT_LT(signedArea(nested.regions[0].holes.at(0)), 0.0);
}

TEST(NestLoops, DropsLoopsWithoutArea) {
  std::vector<Path> loops = {closedPath({{{0, 0}}, {{1, 0}}}), closedPath({{{0, 0}}}),
                             closedPath({{{0.1, 0.1}}, {{0.7, 0.7}}, {{0.3, 0.3}}}),
                             rectangle(0, 0, 1, 1)};
  const NestedLoops nested = nestLoops(loops, NestedFill::everySecond);
  EXPECT_EQ(nested.dropped, 3U);
  ASSERT_EQ(nested.regions.size(), 1U);
}

TEST(NestLoops, FindsAHoleThatTouchesItsOutline) {
  // All corners of the diamond are on the square.
  const std::vector<Path> loops = {closedPath({{{0, 5}}, {{5, 0}}, {{10, 5}}, {{5, 10}}}),
                                   rectangle(0, 0, 10, 10)};
  EXPECT_EQ(depths(loops), (std::vector<std::size_t>{1, 0}));
}

TEST(NestLoops, FillsAnOpenPathAsIfClosed) {
  const NestedLoops nested = nestLoops(std::vector<Path>{openPath({{{0, 0}}, {{2, 0}}, {{0, 2}}})},
                                       NestedFill::everySecond);
  ASSERT_EQ(nested.regions.size(), 1U);
  EXPECT_EQ(signedArea(nested.regions[0].outer), 2.0);
}

TEST(NestLoops, SortsManyLoopsInGoodTime) {
  std::vector<Path> loops = {rectangle(-1, -1, 201, 201)};
  for (int x = 0; x < 100; ++x) {
    for (int y = 0; y < 100; ++y) loops.push_back(circlePath({2.0 * x + 1, 2.0 * y + 1}, 0.7));
  }
  const NestedLoops nested = nestLoops(loops, NestedFill::everySecond);
  ASSERT_EQ(nested.regions.size(), 1U);
  EXPECT_EQ(nested.regions[0].holes.size(), 10000U);
}

TEST(NestLoops, SurvivesHostilePaths) {
  for (const auto fill : {NestedFill::everySecond, NestedFill::outermost, NestedFill::whole}) {
    const NestedLoops nested = nestLoops(hostilePaths(), fill);
    EXPECT_LE(nested.regions.size() + nested.dropped, hostilePaths().size());
    EXPECT_GT(nested.dropped, 10U);
  }
  EXPECT_EQ(depths(hostilePaths()).size(), hostilePaths().size());
}

}  // namespace
}  // namespace quillon::geometry
