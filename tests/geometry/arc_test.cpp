#include "geometry/arc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "geometry/dense_path.h"
#include "geometry/expect_near.h"
#include "geometry/vectors.h"
#include "support/infinity.h"

namespace quillon::geometry {
namespace {

using testing::complexOf;
using testing::DensePath;
using testing::densePoints;
using testing::expectNear;
using testing::kInfinity;
using testing::pointOf;

/// From the right of the unit circle over its top to its left.
const Arc kUpperHalf{{1.0, 0.0}, {-1.0, 0.0}, 180.0};

DensePath dense(const Arc& arc, int count = 2000) {
  return DensePath({{{arc.start, arc.curve}, {arc.end, 0.0}}, false}, count);
}

class RandomArcs {
 public:
  Arc next() {
    std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
    std::uniform_real_distribution<double> curve(-355.0, 355.0);
    return {{coordinate(random_), coordinate(random_)},
            {coordinate(random_), coordinate(random_)},
            curve(random_)};
  }
  double number(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

 private:
  std::mt19937 random_{4};
};

TEST(Arc, OfAHalfCircle) {
  EXPECT_EQ(chord(kUpperHalf), 2.0);
  EXPECT_NEAR(sagitta(kUpperHalf), 1.0, 1e-15);
  EXPECT_NEAR(radius(kUpperHalf), 1.0, 1e-15);
  EXPECT_NEAR(length(kUpperHalf), std::numbers::pi, 1e-15);
  expectNear(centre(kUpperHalf), {0.0, 0.0}, 1e-15);
  expectNear(pointAt(kUpperHalf, 0.5), {0.0, 1.0}, 1e-15);
  expectNear(tangentAt(kUpperHalf, 0.0), {0.0, 1.0}, 1e-15);
  expectNear(tangentAt(kUpperHalf, 0.5), {-1.0, 0.0}, 1e-15);
  expectNear(tangentAt(kUpperHalf, 1.0), {0.0, -1.0}, 1e-15);
}

TEST(Arc, OfThreeQuartersClockwise) {
  const Arc arc{{2.0, 0.0}, {0.0, 2.0}, -270.0};
  expectNear(centre(arc), {0.0, 0.0});
  EXPECT_NEAR(radius(arc), 2.0, 1e-14);
  EXPECT_NEAR(length(arc), 3.0 * std::numbers::pi, 1e-13);
  EXPECT_NEAR(sagitta(arc), 2.0 + std::numbers::sqrt2, 1e-14);
  expectNear(pointAt(arc, 1.0 / 3.0), {0.0, -2.0});
  expectNear(pointAt(arc, 2.0 / 3.0), {-2.0, 0.0});
}

TEST(Arc, OfALine) {
  const Arc line{{1.0, 1.0}, {4.0, 5.0}, 0.0};
  EXPECT_EQ(sagitta(line), 0.0);
  EXPECT_EQ(radius(line), kInfinity);
  EXPECT_EQ(length(line), 5.0);
  expectNear(pointAt(line, 0.5), {2.5, 3.0});
  expectNear(tangentAt(line, 0.2), {0.6, 0.8});
  EXPECT_EQ(bounds(line), (Box{{1.0, 1.0}, {4.0, 5.0}}));
  EXPECT_NEAR(ArcDistance(line)({5.0, 1.0}), 3.2, 1e-14);
  EXPECT_EQ(ArcDistance(line)({4.0, 8.0}), 3.0);
  EXPECT_EQ(ArcDistance(line)({-2.0, 1.0}), 3.0);
}

TEST(Arc, HasItsExactEnds) {
  RandomArcs arcs;
  for (int i = 0; i < 100; ++i) {
    const Arc arc = arcs.next();
    EXPECT_EQ(pointAt(arc, 0.0), arc.start);
    EXPECT_EQ(pointAt(arc, 1.0), arc.end);
    const auto [first, second] = halves(arc);
    EXPECT_EQ(first.start, arc.start);
    EXPECT_EQ(first.end, second.start);
    EXPECT_EQ(second.end, arc.end);
    EXPECT_EQ(first.curve + second.curve, arc.curve);
    EXPECT_EQ(reversed(reversed(arc)), arc);
  }
}

TEST(Arc, AgreesWithPointsAroundItsCentre) {
  RandomArcs arcs;
  for (int i = 0; i < 200; ++i) {
    const Arc arc = arcs.next();
    const auto points = densePoints(arc.start, arc.end, arc.curve, 1000);
    double sum = 0.0;
    for (std::size_t k = 0; k < points.size(); ++k) {
      expectNear(pointAt(arc, static_cast<double>(k) / 1000.0), pointOf(points[k]), 1e-9);
      if (k > 0) sum += std::abs(points[k] - points[k - 1]);
    }
    EXPECT_NEAR(length(arc), sum, 1e-5 * sum);
    EXPECT_NEAR(sagitta(arc), std::abs(points[500] - 0.5 * (points.front() + points.back())), 1e-9);
    EXPECT_NEAR(radius(arc), std::abs(points[300] - complexOf(centre(arc))), 1e-9);
    const Point tangent =
        pointOf((points[701] - points[699]) / std::abs(points[701] - points[699]));
    expectNear(tangentAt(arc, 0.7), tangent, 1e-9);
  }
}

TEST(Arc, HasTheBoundsOfItsPoints) {
  RandomArcs arcs;
  for (int i = 0; i < 300; ++i) {
    const Arc arc = arcs.next();
    Box expected;
    for (const auto& point : densePoints(arc.start, arc.end, arc.curve, 4000)) {
      expected.add(pointOf(point));
    }
    const double tolerance = 1e-6 * (1.0 + radius(arc));
    expectNear(bounds(arc).low, expected.low, tolerance);
    expectNear(bounds(arc).high, expected.high, tolerance);
  }
}

TEST(Arc, HasBoundsWithoutLossWhenAllButStraight) {
  // Radius 1e12: the top is 0.5 micro above both ends.
  const double curve = 2.0 * 1e3 / 1e12 * 180.0 / std::numbers::pi;
  const Arc arc{{1e3, 0.0}, {-1e3, 0.0}, curve};
  EXPECT_NEAR(bounds(arc).high.y, 5e-7, 1e-12);
  EXPECT_EQ(bounds(arc).low.y, 0.0);
}

TEST(ArcDistance, AgreesWithDensePoints) {
  RandomArcs arcs;
  for (int i = 0; i < 60; ++i) {
    const Arc arc = arcs.next();
    const DensePath path = dense(arc);
    const ArcDistance distanceTo(arc);
    const double tolerance = 2e-6 * (1.0 + radius(arc));
    for (int k = 0; k < 20; ++k) {
      const Point p{arcs.number(-20.0, 20.0), arcs.number(-20.0, 20.0)};
      EXPECT_NEAR(distanceTo(p), path.distance(p), tolerance);
    }
  }
}

TEST(ArcDistance, IsExactForArcsThatAreAllButStraight) {
  // Radius 5e9; its middle is 0.1 above the chord.
  const double curve = 4.0 * std::atan(0.1 / 31622.7766) * 180.0 / std::numbers::pi;
  const Arc arc{{31622.7766, 0.0}, {-31622.7766, 0.0}, curve};
  EXPECT_NEAR(ArcDistance(arc)({0.0, 0.1}), 0.0, 1e-12);
  EXPECT_NEAR(ArcDistance(arc)({0.0, 0.0}), 0.1, 1e-12);
}

TEST(ArcDistance, OfTheCentreAndThePointsOppositeIsRight) {
  const ArcDistance distanceTo(kUpperHalf);
  EXPECT_NEAR(distanceTo({0.0, 0.0}), 1.0, 1e-15);
  EXPECT_NEAR(distanceTo({0.0, 3.0}), 2.0, 1e-15);
  EXPECT_NEAR(distanceTo({0.0, -1.0}), std::numbers::sqrt2, 1e-15);
  EXPECT_EQ(ArcDistance(Arc{{1.0, 1.0}, {1.0, 1.0}, 90.0})({4.0, 5.0}), 5.0);
}

TEST(CurveOfBulge, IsFourTimesTheAngleOfItsTangent) {
  EXPECT_EQ(curveOfBulge(1.0), 180.0);
  EXPECT_EQ(curveOfBulge(-1.0), -180.0);
  EXPECT_NEAR(curveOfBulge(std::numbers::sqrt2 - 1.0), 90.0, 1e-13);
  EXPECT_EQ(curveOfBulge(0.0), 0.0);
  EXPECT_EQ(curveOfBulge(9e-10), 0.0);
  EXPECT_NE(curveOfBulge(1.1e-9), 0.0);
}

TEST(CurveOfBulge, StaysBelowAFullTurn) {
  EXPECT_LT(curveOfBulge(1e300), 360.0);
  EXPECT_GT(curveOfBulge(-1e300), -360.0);
  EXPECT_EQ(curveOfBulge(kInfinity), 0.0);
  EXPECT_EQ(curveOfBulge(std::nan("")), 0.0);
}

TEST(CurveOfBulge, IsTheSagittaOverHalfTheChord) {
  for (const double bulge : {0.01, 0.3, 1.0, 5.0, -2.0}) {
    const Arc arc{{0.0, 0.0}, {10.0, 0.0}, curveOfBulge(bulge)};
    EXPECT_NEAR(sagitta(arc), 5.0 * std::fabs(bulge), 1e-12);
  }
}

TEST(ArcAround, GoesCounterClockwise) {
  EXPECT_EQ(arcAround({1.0, 2.0}, 10.0, 0.0, 90.0), (Arc{{11.0, 2.0}, {1.0, 12.0}, 90.0}));
  EXPECT_EQ(arcAround({1.0, 2.0}, -10.0, 90.0, 0.0), (Arc{{1.0, 12.0}, {11.0, 2.0}, 270.0}));
  EXPECT_EQ(arcAround({0.0, 0.0}, 1.0, 45.0, 45.0).curve, 360.0);
  EXPECT_EQ(arcAround({0.0, 0.0}, 1.0, 0.0, 360.0).start, arcAround({}, 1.0, 0.0, 360.0).end);
}

TEST(ArcAround, HasThatCentreAndRadius) {
  RandomArcs random;
  for (int i = 0; i < 200; ++i) {
    const Point middlePoint{random.number(-50.0, 50.0), random.number(-50.0, 50.0)};
    const double r = random.number(0.1, 100.0);
    const double start = random.number(-400.0, 400.0);
    const Arc arc = arcAround(middlePoint, r, start, start + random.number(5.0, 355.0));
    expectNear(centre(arc), middlePoint, 1e-9);
    EXPECT_NEAR(radius(arc), r, 1e-9);
  }
}

TEST(IsStraight, ComparesTheSagittaWithHalfTheResolution) {
  const Arc arc{{0.0, 0.0}, {2.0, 0.0}, 4.0 * std::atan(0.001) * 180.0 / std::numbers::pi};
  EXPECT_NEAR(sagitta(arc), 0.001, 1e-15);
  EXPECT_TRUE(isStraight(arc, 0.002001));
  EXPECT_FALSE(isStraight(arc, 0.001999));
  EXPECT_TRUE(isStraight({{0.0, 0.0}, {2.0, 0.0}, 0.0}, 1e-9));
}

TEST(Arc, OfHostileNumbersIsNoTrap) {
  const double numbers[] = {0.0, 1.0, -1e300, 1e-320, kInfinity, std::nan("")};
  const double curves[] = {0.0, 1e-320, -180.0, 359.9999999, 360.0, 1e300, kInfinity, std::nan("")};
  for (const double x : numbers) {
    for (const double y : numbers) {
      for (const double curve : curves) {
        const Arc arc{{x, 0.0}, {0.0, y}, curve};
        bounds(arc);
        halves(arc);
        EXPECT_EQ(pointAt(arc, 1.0).x, 0.0);
        EXPECT_FALSE(ArcDistance(arc)({1.0, 2.0}) < 0.0);
        EXPECT_FALSE(length(arc) < 0.0 && std::fabs(curve) < 360.0);
      }
    }
  }
}

}  // namespace
}  // namespace quillon::geometry
