#include "geometry/bands.h"

#include <gtest/gtest.h>

#include <numbers>

#include "base/ranges.h"
#include "geometry/area.h"
#include "geometry/path_samples.h"
#include "geometry/region_area.h"

namespace quillon::geometry {
namespace {

using testing::areaOf;

std::vector<std::pair<double, double>> cornersOf(const Path& path) {
  std::vector<std::pair<double, double>> corners;
  for (const Vertex& v : path.vertices) {
    corners.emplace_back(std::round(v.at.x * 1e6) / 1e6 + 0.0,
                         std::round(v.at.y * 1e6) / 1e6 + 0.0);
  }
  base::ranges::sort(corners);
  return corners;
}

using Corners = std::vector<std::pair<double, double>>;

TEST(BandAreas, EndFlat) {
  const auto areas = bandAreas(openPath({{{0, 0}}, {{10, 0}}}), 2);
  ASSERT_EQ(areas.size(), 1U);
  EXPECT_EQ(cornersOf(areas[0].outer), (Corners{{0, -1}, {0, 1}, {10, -1}, {10, 1}}));
  EXPECT_TRUE(isCounterClockwise(areas[0].outer));
}

TEST(BandAreas, MitreCorners) {
  const auto areas = bandAreas(openPath({{{0, 0}}, {{10, 0}}, {{10, 10}}}), 2);
  ASSERT_EQ(areas.size(), 1U);
  EXPECT_EQ(cornersOf(areas[0].outer),
            (Corners{{0, -1}, {0, 1}, {9, 1}, {9, 10}, {11, -1}, {11, 10}}));
}

TEST(BandAreas, CutSharpCornersOff) {
  // A tip lies w / (2 cos(turn / 2)) from its vertex: 2 w at a turn of 151.04 degrees.
  const auto tipped = [](double turn) {
    const double angle = turn * std::numbers::pi / 180;
    const auto areas = bandAreas(
        openPath({{{0, 0}}, {{100, 0}}, {{100 + 100 * std::cos(angle), 100 * std::sin(angle)}}}),
        2);
    EXPECT_EQ(areas.size(), 1U);
    return areas[0].outer.vertices.size();
  };
  EXPECT_EQ(tipped(151.0), 6U);
  EXPECT_EQ(tipped(151.1), 7U);
}

TEST(BandAreas, KeepArcsAroundTheirCentre) {
  const auto areas = bandAreas(openPath({{{10, 0}, 90}, {{0, 10}}}), 2);
  ASSERT_EQ(areas.size(), 1U);
  EXPECT_EQ(cornersOf(areas[0].outer), (Corners{{0, 9}, {0, 11}, {9, 0}, {11, 0}}));
  EXPECT_NEAR(areaOf(areas[0]), std::numbers::pi / 4 * (121 - 81), 1e-9);
}

TEST(BandAreas, JoinArcsAndLinesSmoothly) {
  const auto areas = bandAreas(openPath({{{0, 0}}, {{10, 0}, 90}, {{15, 5}}, {{15, 20}}}), 2);
  ASSERT_EQ(areas.size(), 1U);
  EXPECT_NEAR(areaOf(areas[0]), 2 * (10 + 2.5 * std::numbers::pi + 15), 1e-9);
  EXPECT_EQ(areas[0].outer.vertices.size(), 8U);
}

TEST(BandAreas, MeetOnTheInnerSideOfABendWithAnArc) {
  const auto areas = bandAreas(openPath({{{0, 0}}, {{20, 0}, -90}, {{40, 20}}}), 2);
  ASSERT_EQ(areas.size(), 1U);
  EXPECT_FALSE(crossesItself(areas[0].outer));
  EXPECT_EQ(locate(areas[0].outer, {19.0, 0.99}), Location::inside);
  EXPECT_EQ(locate(areas[0].outer, {18.9, 1.1}), Location::outside);
}

TEST(BandAreas, HaveAHoleInAClosedPath) {
  for (const Path& path : {rectangle(0, 0, 10, 10), reversed(rectangle(0, 0, 10, 10))}) {
    const auto areas = bandAreas(path, 2);
    ASSERT_EQ(areas.size(), 1U);
    EXPECT_EQ(cornersOf(areas[0].outer), (Corners{{-1, -1}, {-1, 11}, {11, -1}, {11, 11}}));
    ASSERT_EQ(areas[0].holes.size(), 1U);
    EXPECT_EQ(cornersOf(areas[0].holes[0]), (Corners{{1, 1}, {1, 9}, {9, 1}, {9, 9}}));
    EXPECT_NEAR(areaOf(areas[0]), 80, 1e-9);
  }
}

TEST(BandAreas, FillADonutWithoutAHole) {
  const auto ring = bandAreas(circlePath({0, 0}, 5), 4);
  ASSERT_EQ(ring.size(), 1U);
  EXPECT_NEAR(areaOf(ring[0]), std::numbers::pi * (49 - 9), 1e-9);
  EXPECT_EQ(ring[0].outer.vertices.size(), 2U);
  for (const double width : {10.0, 12.0}) {
    const auto disc = bandAreas(circlePath({0, 0}, 5), width);
    ASSERT_EQ(disc.size(), 1U);
    EXPECT_TRUE(disc[0].holes.empty());
    EXPECT_NEAR(areaOf(disc[0]), std::numbers::pi * (5 + width / 2) * (5 + width / 2), 1e-9);
  }
}

TEST(BandAreas, FallIntoPiecesWhereBendsAreTooNarrow) {
  const Path path = openPath({{{0, 0}}, {{10, 0}}, {{10, 1}}, {{0, 1}}});
  const auto areas = bandAreas(path, 4);
  EXPECT_EQ(areas.size(), 5U);
  for (const Region& area : areas) {
    EXPECT_FALSE(crossesItself(area.outer));
    EXPECT_GT(signedArea(area.outer), 0.0);
  }
}

TEST(BandAreas, CoverWhatIsNearRandomPaths) {
  std::mt19937 random(23);
  std::uniform_real_distribution<double> coordinate(0, 50);
  std::uniform_real_distribution<double> curve(-100, 100);
  int whole = 0;
  for (int round = 0; round < 100; ++round) {
    Path path{.vertices = {}, .closed = round % 2 == 0};
    for (int i = 0; i < 3; ++i) {
      path.vertices.push_back(
          {{coordinate(random), coordinate(random)}, round % 3 == 0 ? curve(random) : 0.0});
    }
    const auto areas = bandAreas(path, 2);
    whole += areas.size() == 1 ? 1 : 0;
    ASSERT_FALSE(areas.empty());
    for (std::size_t i = 0; i < edgeCount(path); ++i) {
      for (const double at : {0.05, 0.3, 0.5, 0.7, 0.95}) {
        const Edge edge = edgeAt(path, i);
        const Point aside = leftOf(directionAt(edge, at));
        for (const double by : {-0.98, 0.0, 0.98}) {
          const Point p = pointAt(edge, at) + aside * by;
          const bool covered = base::ranges::any_of(areas, [p](const Region& area) {
            return locate(area.outer, p) != Location::outside &&
                   base::ranges::none_of(area.holes, [p](const Path& hole) {
                     return locate(hole, p) == Location::inside;
                   });
          });
          EXPECT_TRUE(covered) << round;
        }
      }
    }
  }
  EXPECT_GT(whole, 60);
}

TEST(BandOf, IsOneRunForOneWidth) {
  const Path path = rectangle(0, 0, 1, 1);
  const std::vector<EdgeWidth> widths(4, {0.5, 0.5});
  const Band band = bandOf(path, widths, 0.001);
  EXPECT_EQ(band.runs, (std::vector<Band::Run>{{path, 0.5}}));
  EXPECT_TRUE(band.areas.empty());
}

TEST(BandOf, PartsRunsOfDifferentWidths) {
  const std::vector<EdgeWidth> widths = {{1, 1}, {2, 2}, {2, 2}, {1, 1}};
  const Band band = bandOf(rectangle(0, 0, 1, 1), widths, 0.001);
  ASSERT_EQ(band.runs.size(), 2U);
  EXPECT_EQ(band.runs[0], (Band::Run{openPath({{{0, 1}}, {{0, 0}}, {{1, 0}}}), 1.0}));
  EXPECT_EQ(band.runs[1], (Band::Run{openPath({{{1, 0}}, {{1, 1}}, {{0, 1}}}), 2.0}));
}

TEST(BandOf, TapersToQuadsAndTriangles) {
  const std::vector<EdgeWidth> widths = {{2, 4}, {4, 0}};
  const Band band = bandOf(openPath({{{0, 0}}, {{10, 0}}, {{20, 0}}}), widths, 0.001);
  EXPECT_TRUE(band.runs.empty());
  ASSERT_EQ(band.areas.size(), 2U);
  EXPECT_EQ(cornersOf(band.areas[0]), (Corners{{0, -1}, {0, 1}, {10, -2}, {10, 2}}));
  EXPECT_EQ(cornersOf(band.areas[1]), (Corners{{10, -2}, {10, 2}, {20, 0}}));
  EXPECT_NEAR(signedArea(band.areas[0]), 30, 1e-12);
  EXPECT_NEAR(signedArea(band.areas[1]), 20, 1e-12);
}

TEST(BandOf, TapersArcsWithinTheTolerance) {
  const Edge edge{{10, 0}, {-10, 0}, 180};
  const Band band =
      bandOf(openPath({{{10, 0}, 180}, {{-10, 0}}}), std::vector<EdgeWidth>{{4, 0}}, 1e-4);
  ASSERT_EQ(band.areas.size(), 1U);
  EXPECT_LT(band.areas[0].vertices.size(), 60U);
  // The integral of width times radius over the angle.
  EXPECT_NEAR(signedArea(band.areas[0]), 10 * std::numbers::pi * 2, 0.005);
  for (int i = 1; i < 40; ++i) {
    const double at = i / 40.0;
    const Point aside = leftOf(directionAt(edge, at));
    const double half = 2 * (1 - at);
    EXPECT_EQ(locate(band.areas[0], pointAt(edge, at) + aside * (half - 2e-4)), Location::inside);
    EXPECT_EQ(locate(band.areas[0], pointAt(edge, at) + aside * (half + 2e-4)), Location::outside);
    EXPECT_EQ(locate(band.areas[0], pointAt(edge, at) - aside * (half - 2e-4)), Location::inside);
    EXPECT_EQ(locate(band.areas[0], pointAt(edge, at) - aside * (half + 2e-4)), Location::outside);
  }
}

TEST(BandOf, SurvivesHostilePaths) {
  for (const Path& path : hostilePaths()) {
    for (const double width : {0.0, 1e-300, 1.0, 1e99, 1e300, -1.0, std::nan("")}) {
      bandAreas(path, width);
      const std::vector<EdgeWidth> widths = {{width, 1.0}, {width, width}, {0.0, width}};
      bandOf(path, widths, 0.001);
      bandOf(path, widths, 0.0);
    }
  }
  EXPECT_TRUE(bandAreas(rectangle(0, 0, 1, 1), -1.0).empty());
  EXPECT_TRUE(
      bandOf(rectangle(0, 0, 1, 1), std::vector<EdgeWidth>{{1, std::nan("")}}, 1).areas.empty());
}

}  // namespace
}  // namespace quillon::geometry
