#include "geometry/degrees.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "support/infinity.h"

namespace quillon::geometry {
namespace {

using testing::kInfinity;

TEST(UnitVector, IsExactForQuarterTurnsHoweverManyThereAre) {
  EXPECT_EQ(unitVector(0.0), (Point{1.0, 0.0}));
  EXPECT_EQ(unitVector(90.0), (Point{0.0, 1.0}));
  EXPECT_EQ(unitVector(180.0), (Point{-1.0, 0.0}));
  EXPECT_EQ(unitVector(270.0), (Point{0.0, -1.0}));
  EXPECT_EQ(unitVector(-90.0), (Point{0.0, -1.0}));
  EXPECT_EQ(unitVector(3690.0), (Point{0.0, 1.0}));
  EXPECT_EQ(unitVector(-360e9), (Point{1.0, 0.0}));
}

TEST(UnitVector, AgreesWithTheLibraryForAnyAngle) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> angle(-720.0, 720.0);
  for (int i = 0; i < 1000; ++i) {
    const double degrees = angle(random);
    const double radians = degrees * std::numbers::pi / 180.0;
    EXPECT_NEAR(unitVector(degrees).x, std::cos(radians), 4e-15) << degrees;
    EXPECT_NEAR(unitVector(degrees).y, std::sin(radians), 4e-15) << degrees;
  }
}

TEST(UnitVector, IsTheSameForAnglesThatAreTurnsApart) {
  for (const double degrees : {0.5, 33.0, 44.75, 45.0, 120.25, 359.0}) {
    EXPECT_EQ(unitVector(degrees), unitVector(degrees - 360.0)) << degrees;
    EXPECT_EQ(unitVector(degrees), unitVector(degrees + 720.0)) << degrees;
  }
}

TEST(UnitVector, HasNoDirectionForWhatIsNotFinite) {
  for (const double degrees : {kInfinity, -kInfinity, std::nan("")}) {
    EXPECT_TRUE(std::isnan(unitVector(degrees).x));
    EXPECT_TRUE(std::isnan(unitVector(degrees).y));
  }
  EXPECT_NEAR(std::hypot(unitVector(1e300).x, unitVector(1e300).y), 1.0, 1e-15);
}

TEST(TangentOf, FollowsTheAngle) {
  EXPECT_EQ(tangentOf(0.0), 0.0);
  EXPECT_NEAR(tangentOf(45.0), 1.0, 5e-16);
  EXPECT_NEAR(tangentOf(-60.0), -std::numbers::sqrt3, 1e-15);
}

TEST(DirectionOf, FindsAllQuadrants) {
  EXPECT_EQ(directionOf({1.0, 0.0}), 0.0);
  EXPECT_EQ(directionOf({2.0, 2.0}), 45.0);
  EXPECT_EQ(directionOf({0.0, 3.0}), 90.0);
  EXPECT_EQ(directionOf({-3.0, 3.0}), 135.0);
  EXPECT_EQ(directionOf({-1.0, 0.0}), 180.0);
  EXPECT_EQ(directionOf({-1.0, -1.0}), -135.0);
  EXPECT_EQ(directionOf({0.0, -1.0}), -90.0);
  EXPECT_EQ(directionOf({0.0, 0.0}), 0.0);
}

TEST(DirectionOf, UndoesUnitVector) {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> angle(-180.0, 180.0);
  for (int i = 0; i < 1000; ++i) {
    const double degrees = angle(random);
    EXPECT_NEAR(directionOf(unitVector(degrees)), degrees, 1e-13);
  }
}

TEST(DirectionOf, TakesHugeAndTinyVectors) {
  EXPECT_EQ(directionOf({1e300, 1e300}), 45.0);
  EXPECT_EQ(directionOf({5e-324, -5e-324}), -45.0);
  EXPECT_EQ(directionOf({kInfinity, 1.0}), 0.0);
}

TEST(SweepBetween, GoesCounterClockwiseAndNeverIsNothing) {
  EXPECT_EQ(sweepBetween(0.0, 90.0), 90.0);
  EXPECT_EQ(sweepBetween(90.0, 0.0), 270.0);
  EXPECT_EQ(sweepBetween(350.0, 10.0), 20.0);
  EXPECT_EQ(sweepBetween(30.0, 30.0), 360.0);
  EXPECT_EQ(sweepBetween(0.0, 360.0), 360.0);
  EXPECT_EQ(sweepBetween(-90.0, 630.0), 360.0);
  EXPECT_EQ(sweepBetween(0.0, -30.0), 330.0);
  EXPECT_TRUE(std::isnan(sweepBetween(0.0, kInfinity)));
}

}  // namespace
}  // namespace quillon::geometry
