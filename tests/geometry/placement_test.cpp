#include "geometry/placement.h"

#include <gtest/gtest.h>

#include "classic/context.h"

namespace quillon::geometry {
namespace {

TEST(Placement, IsTheIdentityByDefault) {
  EXPECT_EQ(placePoint(0.1, -0.3, {}, {}), (Point{0.1, -0.3}));
}

TEST(Placement, MirrorsThenScalesThenTurnsThenMoves) {
  // (1, 2) mirrored to (-1, 2), scaled to (-2, 6), rotated to (-6, -2), moved to (4, 18).
  const Point placed =
      placePoint(1.0, 2.0, {.x = -1.0, .y = 1.0},
                 {.dx = 10.0, .dy = 20.0, .scaleX = 2.0, .scaleY = 3.0, .rotation = kPi / 2});
  EXPECT_NEAR(placed.x, 4.0, 1e-12);
  EXPECT_NEAR(placed.y, 18.0, 1e-12);
}

TEST(Placement, MirrorsEachCoordinateByItsOwnFactor) {
  EXPECT_EQ(placePoint(1.0, 2.0, {.x = -1.0, .y = 1.0}, {}), (Point{-1.0, 2.0}));
  EXPECT_EQ(placePoint(1.0, 2.0, {.x = 1.0, .y = -1.0}, {}), (Point{1.0, -2.0}));
  EXPECT_EQ(placePoint(1.0, 2.0, {.x = -1.0, .y = -1.0}, {}), (Point{-1.0, -2.0}));
}

TEST(Placement, ScalesEachCoordinateByItsOwnFactor) {
  EXPECT_EQ(placePoint(1.0, 2.0, {}, {.scaleX = 2.0, .scaleY = -3.0}), (Point{2.0, -6.0}));
  EXPECT_EQ(placePoint(1.0, 2.0, {}, {.scaleX = 0.0, .scaleY = 0.0}), (Point{0.0, 0.0}));
}

TEST(Placement, LeavesCoordinatesBitForBitWithoutARotation) {
  for (const double value : {0.1, 1e9 + 0.1, 3.3333333333333335, -7e-9}) {
    EXPECT_EQ(placePoint(value, -value, {}, {.rotation = 0.0}), (Point{value, -value}));
  }
}

TEST(Placement, AppliesARotationOfOneTurn) {
  const Point placed = placePoint(0.0, 1e9, {}, {.rotation = kTwoPi});
  EXPECT_NEAR(placed.x, 0.0, 1e-3);
  EXPECT_NEAR(placed.y, 1e9, 1e-3);
  EXPECT_NE(placed.x, 0.0) << "the way through the polar form shows in the last digits";
}

TEST(Placement, TurnsAVectorWithoutMovingIt) {
  const Point turned =
      turnPoint(1.0, 2.0, {.x = -1.0, .y = 1.0},
                {.dx = 10.0, .dy = 20.0, .scaleX = 2.0, .scaleY = 3.0, .rotation = kPi / 2});
  EXPECT_NEAR(turned.x, -6.0, 1e-12);
  EXPECT_NEAR(turned.y, -2.0, 1e-12);
  EXPECT_EQ(turnPoint(1.0, 2.0, {}, {.dx = 10.0, .dy = 20.0}), (Point{1.0, 2.0}));
}

}  // namespace
}  // namespace quillon::geometry
