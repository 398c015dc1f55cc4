#include "geometry/object_coordinates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/infinity.h"

namespace quillon::geometry {
namespace {

using testing::kInfinity;

void expectNear(const Affine& map, const Affine& expected, double tolerance = 1e-15) {
  EXPECT_NEAR(map.xx, expected.xx, tolerance);
  EXPECT_NEAR(map.xy, expected.xy, tolerance);
  EXPECT_NEAR(map.yx, expected.yx, tolerance);
  EXPECT_NEAR(map.yy, expected.yy, tolerance);
  EXPECT_NEAR(map.dx, expected.dx, tolerance);
  EXPECT_NEAR(map.dy, expected.dy, tolerance);
}

TEST(ObjectCoordinates, AreTheWorldsWhenSeenFromAbove) {
  EXPECT_EQ(objectCoordinates(0.0, 0.0, 1.0), Affine{});
  EXPECT_EQ(objectCoordinates(0.0, 0.0, 0.01, 7.0), Affine{});
}

TEST(ObjectCoordinates, AreMirroredWhenSeenFromBelow) {
  EXPECT_EQ(objectCoordinates(0.0, 0.0, -1.0, 12.0), Affine::scaling(-1.0, 1.0));
  EXPECT_FALSE(std::signbit(objectCoordinates(0.0, 0.0, -1.0).xy));
}

TEST(ObjectCoordinates, LieAlongTheWorldsAxesForPlanesSeenFromTheirEdge) {
  // N is the x axis: Ax is y, Ay is z; elevation goes along x.
  expectNear(objectCoordinates(1.0, 0.0, 0.0, 5.0), {0.0, 0.0, 1.0, 0.0, 5.0, 0.0});
  // N is the y axis: Ax is -x, Ay is z.
  expectNear(objectCoordinates(0.0, 1.0, 0.0, 5.0), {-1.0, 0.0, 0.0, 0.0, 0.0, 5.0});
}

TEST(ObjectCoordinates, TakeAnotherAxisCloseToThePole) {
  // (3 0 4)/5: Ax = z x N = y; Ay = N x Ax = (-4 0 3)/5.
  expectNear(objectCoordinates(3.0, 0.0, 4.0, 10.0), {0.0, -0.8, 1.0, 0.0, 6.0, 0.0});
  // Just within 1/64 Ax is y x N, which is nearly x; just outside it is y.
  EXPECT_GT(objectCoordinates(0.0156, 0.0, 1.0).xx, 0.99);
  EXPECT_LT(std::fabs(objectCoordinates(0.0157, 0.0, 1.0).xx), 1e-15);
  EXPECT_GT(objectCoordinates(0.0, -0.0156, 1.0).xx, 0.99);
  EXPECT_LT(objectCoordinates(0.0, 0.0157, 1.0).xx, -0.99);
}

TEST(ObjectCoordinates, DependOnTheDirectionAlone) {
  expectNear(objectCoordinates(3e300, 0.0, 4e300, 10.0), objectCoordinates(3.0, 0.0, 4.0, 10.0));
  expectNear(objectCoordinates(3e-300, 0.0, 4e-300, 10.0), objectCoordinates(3.0, 0.0, 4.0, 10.0));
}

TEST(ObjectCoordinates, ShrinkAreasByTheSlopeOfThePlane) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> part(-1.0, 1.0);
  for (int i = 0; i < 1000; ++i) {
    const double x = part(random);
    const double y = part(random);
    const double z = part(random);
    const Affine map = objectCoordinates(x, y, z, 2.0);
    const double length = std::sqrt(x * x + y * y + z * z);
    EXPECT_NEAR(map.determinant(), z / length, 1e-14);
    EXPECT_NEAR(map.dx, 2.0 * x / length, 1e-14);
    EXPECT_NEAR(map.dy, 2.0 * y / length, 1e-14);
  }
}

TEST(ObjectCoordinates, AreTheWorldsForVectorsThatAreNone) {
  EXPECT_EQ(objectCoordinates(0.0, 0.0, 0.0, 3.0), Affine{});
  EXPECT_EQ(objectCoordinates(std::nan(""), 0.0, 1.0), Affine{});
  EXPECT_EQ(objectCoordinates(0.0, -kInfinity, 1.0), Affine{});
  EXPECT_EQ(objectCoordinates(3.0, 0.0, 4.0, kInfinity), objectCoordinates(3.0, 0.0, 4.0));
}

}  // namespace
}  // namespace quillon::geometry
