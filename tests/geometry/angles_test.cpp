#include "geometry/angles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillon::geometry {
namespace {

TEST(PolarAngle, OfTheOriginIsZero) { EXPECT_EQ(polarAngle(0.0, 0.0), 0.0); }

TEST(PolarAngle, IsExactOnTheAxes) {
  constexpr double kShortPi = 3.14159265358979;
  EXPECT_EQ(polarAngle(2.0, 0.0), 0.0);
  EXPECT_EQ(polarAngle(0.0, 2.0), kShortPi / 2.0);
  EXPECT_EQ(polarAngle(-2.0, 0.0), kShortPi);
  EXPECT_EQ(polarAngle(0.0, -2.0), 3.0 * kShortPi / 2.0);
}

TEST(PolarAngle, RunsFromZeroToTwoPiThroughTheQuadrants) {
  constexpr double kEighth = 0.785398163397448;
  EXPECT_NEAR(polarAngle(3.0, 3.0), kEighth, 1e-12);
  EXPECT_NEAR(polarAngle(-3.0, 3.0), 3 * kEighth, 1e-12);
  EXPECT_NEAR(polarAngle(-3.0, -3.0), 5 * kEighth, 1e-12);
  EXPECT_NEAR(polarAngle(3.0, -3.0), 7 * kEighth, 1e-12);
}

TEST(PolarAngle, IsTheArcTangentCorrectedByQuadrant) {
  EXPECT_EQ(polarAngle(4.0, 3.0), std::atan(0.75));
  EXPECT_EQ(polarAngle(-4.0, 3.0), std::atan(-0.75) + 3.14159265358979);
  EXPECT_EQ(polarAngle(-4.0, -3.0), std::atan(0.75) + 3.14159265358979);
  EXPECT_EQ(polarAngle(4.0, -3.0), std::atan(-0.75) + 6.28318530717958);
}

TEST(Rotation, TurnsCounterClockwiseAboutTheOrigin) {
  EXPECT_NEAR(rotatePoint(2.0, 0.0, kPi / 2.0).x, 0.0, 1e-12);
  EXPECT_NEAR(rotatePoint(2.0, 0.0, kPi / 2.0).y, 2.0, 1e-12);
  EXPECT_NEAR(rotatePoint(3.0, 4.0, kPi / 2.0).x, -4.0, 1e-12);
  EXPECT_NEAR(rotatePoint(3.0, 4.0, kPi / 2.0).y, 3.0, 1e-12);
  EXPECT_NEAR(rotatePoint(3.0, 4.0, -kPi / 2.0).x, 4.0, 1e-12);
  EXPECT_NEAR(rotatePoint(3.0, 4.0, -kPi / 2.0).y, -3.0, 1e-12);
}

TEST(Rotation, AgreesWithTheRotationMatrixInEveryQuadrant) {
  for (const double x : {-7.5, 0.0, 2.25}) {
    for (const double y : {-3.0, 0.0, 11.0}) {
      for (const double turn : {-5.0, -1.0, 0.3, 2.0, 6.28318530717958}) {
        const double c = std::cos(turn);
        const double s = std::sin(turn);
        EXPECT_NEAR(rotatePoint(x, y, turn).x, x * c - y * s, 1e-11);
        EXPECT_NEAR(rotatePoint(x, y, turn).y, x * s + y * c, 1e-11);
      }
    }
  }
}

TEST(Rotation, LeavesTheOriginWhereItIs) {
  EXPECT_EQ(rotatePoint(0.0, 0.0, 1.0).x, 0.0);
  EXPECT_EQ(rotatePoint(0.0, 0.0, 1.0).y, 0.0);
}

TEST(NormaliseAngle, LeavesAnglesOfUpToOneTurnAlone) {
  for (const double angle : {0.0, 45.0, 359.9999, 360.0, -45.0, -359.9999, -360.0}) {
    EXPECT_EQ(normaliseAngle(angle), angle);
  }
}

TEST(NormaliseAngle, TakesWholeTurnsAway) {
  EXPECT_EQ(normaliseAngle(361.0), 1.0);
  EXPECT_EQ(normaliseAngle(400.0), 40.0);
  EXPECT_EQ(normaliseAngle(725.5), 5.5);
  EXPECT_EQ(normaliseAngle(-365.0), -5.0);
  EXPECT_EQ(normaliseAngle(-810.0), -90.0);
}

TEST(NormaliseAngle, KeepsOneTurnOfSeveral) {
  EXPECT_EQ(normaliseAngle(720.0), 360.0);
  EXPECT_EQ(normaliseAngle(3600.0), 360.0);
  EXPECT_EQ(normaliseAngle(-720.0), -360.0);
  EXPECT_EQ(normaliseAngle(-1080.0), -360.0);
}

TEST(NormaliseAngle, IsDoneAtOnceForHugeAngles) {
  // 10^20 is 1 modulo 9 and 0 modulo 40, like 280.
  EXPECT_EQ(normaliseAngle(1e20), 280.0);
  EXPECT_EQ(normaliseAngle(-1e20), -280.0);
  EXPECT_LE(std::fabs(normaliseAngle(1e300)), 360.0);
}

TEST(Pi, HasTheFifteenDigitsThatTheGeometryUsesEverywhere) {
  EXPECT_EQ(kPi, 3.14159265358979);
  EXPECT_EQ(kTwoPi, 6.28318530717958);
  EXPECT_EQ(kDegreesPerRadian, 180.0 / 3.14159265358979);
  EXPECT_EQ(radians(90.0), 90.0 * 3.14159265358979 / 180.0);
  EXPECT_EQ(radians(0.0), 0.0);
}

}  // namespace
}  // namespace quillon::geometry
