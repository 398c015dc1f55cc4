#include "geometry/path_arcs.h"

#include <gtest/gtest.h>

#include <numbers>

#include "geometry/expect_near.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

using testing::expectNear;

TEST(PathArcs, FindTheCircleOfAQuarter) {
  const Circle circle = circleOf({{1, 0}, {0, 1}, 90.0});
  expectNear(circle.centre, {0, 0});
  EXPECT_NEAR(circle.radius, 1.0, 1e-15);
  expectNear(circleOf({{1, 0}, {0, 1}, -90.0}).centre, {1, 1});
}

TEST(PathArcs, MeasureThreeQuartersOfACircle) {
  const Edge edge{{1, 0}, {0, -1}, 270.0};
  EXPECT_NEAR(lengthOf(edge), 1.5 * std::numbers::pi, 1e-14);
  EXPECT_NEAR(sagittaOf(edge), 1.0 + std::sqrt(0.5), 1e-14);
  expectNear(pointAt(edge, 1.0 / 3.0), {0, 1});
  expectNear(pointAt(edge, 2.0 / 3.0), {-1, 0});
  expectNear(directionAt(edge, 1.0 / 3.0), {-1, 0});
  const Box box = boundsOf(edge);
  expectNear(box.low, {-1, -1});
  expectNear(box.high, {1, 1});
}

TEST(PathArcs, KeepEndsBitForBit) {
  const Edge edge{{0.1, 0.2}, {0.3, 0.7}, 33.0};
  EXPECT_EQ(pointAt(edge, 0.0), edge.from);
  EXPECT_EQ(pointAt(edge, 1.0), edge.to);
  EXPECT_EQ(partOf(edge, 1.0, 0.0), reversed(edge));
}

TEST(PathArcs, FindFractionsOfPointsOnAnyArc) {
  for (const double curve : {-359.0, -200.0, -90.0, -1e-7, 0.0, 1e-13, 5.0, 180.0, 350.0}) {
    const Edge edge{{3, -1}, {5, 2}, curve};
    for (const double fraction : {0.0, 0.001, 0.25, 0.5, 0.8, 1.0}) {
      EXPECT_NEAR(fractionOf(edge, pointAt(edge, fraction)), fraction, 1e-9) << curve;
    }
  }
}

TEST(PathArcs, StayExactWhenTheyAreAlmostStraight) {
  // The sagitta is half the chord times the tangent of a quarter of the curve.
  const Edge edge{{0, 0}, {100, 0}, -1e-6};
  EXPECT_NEAR(pointAt(edge, 0.5).y / (50.0 * std::tan(radiansOf(1e-6) / 4.0)), 1.0, 1e-9);
  EXPECT_NEAR(lengthOf(edge), 100.0, 1e-12);
}

TEST(PathArcs, FindTheNearestPoint) {
  EXPECT_NEAR(distanceTo({{0, 0}, {2, 0}, 0.0}, {1, 3}), 3.0, 1e-15);
  EXPECT_NEAR(distanceTo({{0, 0}, {2, 0}, 0.0}, {5, 4}), 5.0, 1e-15);
  EXPECT_NEAR(distanceTo({{1, 0}, {-1, 0}, 180.0}, {0, 3}), 2.0, 1e-14);
  EXPECT_NEAR(distanceTo({{1, 0}, {-1, 0}, 180.0}, {0, -1}), std::sqrt(2.0), 1e-14);
  EXPECT_NEAR(distanceTo({{1, 0}, {-1, 0}, 180.0}, {0, 0}), 1.0, 1e-14);
  EXPECT_NEAR(distanceTo({{1, 0}, {0, -1}, 270.0}, {-3, 0}), 2.0, 1e-14);
}

TEST(PathArcs, KnowWhichPathsCannotBeReckonedWith) {
  EXPECT_TRUE(isUsable(circlePath({0, 0}, 1)));
  EXPECT_FALSE(isUsable(closedPath({{{0, 0}, 360.0}, {{1, 0}}})));
  EXPECT_FALSE(isUsable(closedPath({{{0, 0}, std::nan("")}, {{1, 0}}})));
  EXPECT_FALSE(isUsable(openPath({{{0, 0}}, {{1e300, 0}}})));
}

TEST(PathArcs, CountTheEdgesOfOpenAndClosedPaths) {
  EXPECT_EQ(edgeCount(rectangle(0, 0, 1, 1)), 4U);
  EXPECT_EQ(edgeCount(openPath({{{0, 0}}, {{1, 0}}, {{1, 1}}})), 2U);
  EXPECT_EQ(edgeCount(Path{}), 0U);
  EXPECT_EQ(edgeAt(rectangle(0, 0, 1, 1), 3), (Edge{{0, 1}, {0, 0}, 0.0}));
}

}  // namespace
}  // namespace quillon::geometry
