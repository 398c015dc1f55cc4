#include "geometry/slits.h"

#include <gtest/gtest.h>

#include "base/ranges.h"
#include "geometry/area.h"
#include "geometry/hole_bands.h"
#include "geometry/path_samples.h"
#include "geometry/region_area.h"

namespace quillon::geometry {
namespace {

using testing::areaOf;

double areaOf(const std::vector<Path>& outlines) {
  double area = 0.0;
  for (const Path& outline : outlines) area += signedArea(outline);
  return area;
}

void expectSimple(const std::vector<Path>& outlines) {
  for (std::size_t i = 0; i < outlines.size(); ++i) {
    EXPECT_TRUE(outlines[i].closed);
    EXPECT_FALSE(crossesItself(outlines[i])) << i << " of " << outlines.size();
    EXPECT_GT(signedArea(outlines[i]), 0.0);
  }
}

/// Stars in a field of their own each, sometimes off its middle.
Region randomRegion(std::mt19937& random, int columns, int rows) {
  Region region{rectangle(-1, -1, 10.0 * columns + 1, 10.0 * rows + 1), {}};
  std::uniform_real_distribution<double> radius(0.5, 3.5);
  std::uniform_int_distribution<int> corners(3, 12);
  std::uniform_real_distribution<double> shift(-1.2, 1.2);
  for (int x = 0; x < columns; ++x) {
    for (int y = 0; y < rows; ++y) {
      const Point centre{10.0 * x + 5 + shift(random), 10.0 * y + 5 + shift(random)};
      // One after the other, so that every compiler makes the same holes.
      const int count = corners(random);
      Path hole = randomStar(random, centre, radius(random), count);
      region.holes.push_back(isCounterClockwise(hole) ? reversed(hole) : hole);
    }
  }
  return region;
}

TEST(WithoutHoles, LeavesARegionWithoutHoles) {
  EXPECT_EQ(withoutHoles({circlePath({0, 0}, 1), {}}), (std::vector<Path>{circlePath({0, 0}, 1)}));
}

TEST(WithoutHoles, JoinsASquareHoleByALevelSlit) {
  const Region region{rectangle(0, 0, 10, 10), {reversed(rectangle(4, 4, 6, 6))}};
  const std::vector<Path> outlines = withoutHoles(region, {.width = 0.002});
  ASSERT_EQ(outlines.size(), 1U);
  expectSimple(outlines);
  EXPECT_EQ(outlines[0].vertices.size(), 11U);
  EXPECT_NEAR(areaOf(outlines), 96.0 - 4 * 0.002, 0.0011);
}

TEST(WithoutHoles, SplitsACurvedEdgeWhereTheSlitMeetsIt) {
  const Region region{circlePath({0, 0}, 10), {reversed(circlePath({1, 3}, 2))}};
  const std::vector<Path> outlines = withoutHoles(region, {.width = 0.001});
  ASSERT_EQ(outlines.size(), 1U);
  expectSimple(outlines);
  const double length = std::sqrt(100.0 - 9.0) - 3.0;
  EXPECT_NEAR(areaOf(outlines), areaOf(region) - 0.001 * length, 2e-5);
  const auto hit = base::ranges::find_if(outlines[0].vertices, [](const Vertex& v) {
    return std::fabs(norm(v.at) - 10.0) < 1e-9 && std::fabs(v.at.y - 2.9995) < 1e-9;
  });
  EXPECT_NE(hit, outlines[0].vertices.end());
}

TEST(WithoutHoles, JoinsHolesInARowOneByOne) {
  Region region{rectangle(0, 0, 40, 10), {}};
  for (const double x : {5.0, 15.0, 25.0, 35.0}) {
    region.holes.push_back(reversed(circlePath({x, 5}, 3)));
  }
  const std::vector<Path> outlines = withoutHoles(region);
  ASSERT_EQ(outlines.size(), 1U);
  expectSimple(outlines);
  EXPECT_NEAR(areaOf(outlines), areaOf(region), 0.001 * 40);
}

TEST(WithoutHoles, FindsARoundaboutWayPastACorner) {
  // The nose of the outline hides the end of the hit edge.
  const Region region{
      closedPath({{{0, 0}}, {{20, 0}}, {{20, 20}}, {{12, 20}}, {{15, 6}}, {{8, 20}}, {{0, 20}}}),
      {reversed(rectangle(2, 4, 5, 7))}};
  const std::vector<Path> outlines = withoutHoles(region);
  ASSERT_EQ(outlines.size(), 1U);
  expectSimple(outlines);
  EXPECT_NEAR(areaOf(outlines), areaOf(region), 0.001 * 30);
}

TEST(WithoutHoles, KeepsTheAreaOfAFewRandomHoles) {
  std::mt19937 random(3);
  int bands = 0;  // where two slits would be too close to each other
  for (int round = 0; round < 150; ++round) {
    const Region region = randomRegion(random, 1 + round % 6, 1 + round % 3);
    const std::vector<Path> outlines = withoutHoles(region);
    bands += outlines.size() == 1 ? 0 : 1;
    expectSimple(outlines);
    const double length = 80.0 * static_cast<double>(region.holes.size());
    EXPECT_NEAR(areaOf(outlines), areaOf(region), 0.001 * length);
  }
  EXPECT_LE(bands, 5);
}

TEST(WithoutHoles, CutsManyHolesIntoBands) {
  std::mt19937 random(5);
  for (const auto& [columns, rows] : {std::pair{5, 4}, {20, 10}, {50, 20}}) {
    const Region region = randomRegion(random, columns, rows);
    const std::vector<Path> outlines = withoutHoles(region);
    EXPECT_GT(outlines.size(), 1U);
    expectSimple(outlines);
    const double overlaps = 0.001 * 10 * columns * 4.0 * rows;
    EXPECT_NEAR(areaOf(outlines), areaOf(region), overlaps);
    EXPECT_GT(areaOf(outlines), areaOf(region));
  }
}

TEST(WithoutHoles, PutsEachPointOfTheRegionIntoAPiece) {
  std::mt19937 random(6);
  const Region region = randomRegion(random, 5, 5);
  std::vector<Path> rings = region.holes;
  rings.push_back(region.outer);
  const PointLocator wanted(rings);
  const std::vector<Path> outlines = withoutHoles(region);
  std::vector<PointLocator> pieces;
  for (const Path& outline : outlines) pieces.emplace_back(std::span(&outline, 1));
  std::uniform_real_distribution<double> coordinate(-2, 52);
  for (int i = 0; i < 5000; ++i) {
    const Point p{coordinate(random), coordinate(random)};
    const auto hits = base::ranges::count_if(
        pieces, [p](const PointLocator& piece) { return piece.locate(p) == Location::inside; });
    if (wanted.locate(p) == Location::inside) {
      EXPECT_GE(hits, 1);
    } else {
      EXPECT_EQ(hits, 0);
    }
  }
}

TEST(WithoutHoles, CutsAGridOfEqualHolesAlongItsRows) {
  Region region{rectangle(0, 0, 100, 40), {}};
  for (int x = 0; x < 10; ++x) {
    for (int y = 0; y < 4; ++y) {
      region.holes.push_back(reversed(circlePath({10.0 * x + 5, 10.0 * y + 5}, 3)));
    }
  }
  // The first and last band, and between each two of the four rows one.
  const std::vector<Path> outlines = withoutHoles(region);
  EXPECT_EQ(outlines.size(), 5U);
  expectSimple(outlines);
}

TEST(WithoutHoles, NeedsNoRoomForSlitsWhenItCutsBands) {
  // Less than a slit between hole and outline.
  const Region region{rectangle(0, 0, 10, 10), {reversed(rectangle(1, 1, 9.9995, 9))}};
  const std::vector<Path> outlines = withoutHoles(region);
  expectSimple(outlines);
  EXPECT_NEAR(areaOf(outlines), areaOf(region), 0.01);
}

TEST(WithoutHoles, CutsFiftyThousandHolesInGoodTime) {
  Region region{rectangle(0, 0, 2500, 2000), {}};
  for (int x = 0; x < 250; ++x) {
    for (int y = 0; y < 200; ++y) {
      region.holes.push_back(reversed(circlePath({10.0 * x + 5, 10.0 * y + 5}, 3)));
    }
  }
  EXPECT_EQ(withoutHoles(region).size(), 201U);
}

TEST(WithoutHoles, SurvivesHostilePaths) {
  for (const Path& one : hostilePaths()) {
    for (const Path& other : hostilePaths()) {
      withoutHoles({one, {other}});
      withoutHoles({one, {other, one}}, {.width = 0.001, .bandsFrom = 0});
    }
    withoutHoles({rectangle(-10, -10, 10, 10), {one}});
    cutIntoBands({rectangle(-10, -10, 10, 10), {one}}, 0.001);
  }
  EXPECT_TRUE(withoutHoles({closedPath({{{std::nan(""), 0}}, {{1, 0}}, {{1, 1}}}), {}}).empty());
}

}  // namespace
}  // namespace quillon::geometry
