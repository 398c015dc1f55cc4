#include "geometry/ellipse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <random>

#include "geometry/dense_path.h"
#include "geometry/expect_near.h"
#include "geometry/fine_settings.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

using testing::DensePath;
using testing::expectNear;
using testing::kFine;

constexpr double kTurn = 2.0 * std::numbers::pi;

Ellipse whole(double width, double height) {
  return {{3.0, 4.0}, {0.5 * width, 0.0}, {0.0, 0.5 * height}};
}

Path pathOf(const Ellipse& ellipse, const CurveSettings& settings = kFine) {
  const CurvePath result = ellipsePath(ellipse, settings);
  EXPECT_EQ(result.report, CurveReport{});
  return result.path;
}

/// Measures at 1,000 points of the ellipse, worked out from radians.
void expectWithin(const Ellipse& e, const Path& path, double tolerance) {
  const DensePath dense(path);
  std::mt19937 random(8);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  for (int i = 0; i < 1000; ++i) {
    const double t = (e.start + e.sweep * share(random)) * std::numbers::pi / 180.0;
    const double x = e.centre.x + e.u.x * std::cos(t) + e.v.x * std::sin(t);
    const double y = e.centre.y + e.u.y * std::cos(t) + e.v.y * std::sin(t);
    EXPECT_LT(dense.distance({x, y}), tolerance);
  }
}

double area(const Path& path) {
  double sum = 0.0;
  for (std::size_t i = 0; i < arcCount(path); ++i) {
    const Arc arc = arcAt(path, i);
    sum += 0.5 * cross(arc.start, arc.end);
  }
  return sum;
}

TEST(EllipsePath, DrawsAQuarterOfACircleExactly) {
  EXPECT_EQ(pathOf(circularArc({1.0, 2.0}, 10.0, 0.0, 90.0)),
            (Path{{{{11.0, 2.0}, 90.0}, {{1.0, 12.0}, 0.0}}, false}));
  EXPECT_EQ(pathOf(circularArc({1.0, 2.0}, 10.0, 90.0, 0.0)),
            (Path{{{{1.0, 12.0}, 270.0}, {{11.0, 2.0}, 0.0}}, false}));
}

TEST(EllipsePath, DrawsWholeCirclesAsTwoHalvesFromTheLeft) {
  const Path expected{{{{-9.0, 2.0}, 180.0}, {{11.0, 2.0}, 180.0}}, true};
  EXPECT_EQ(pathOf(circle({1.0, 2.0}, 10.0)), expected);
  EXPECT_EQ(pathOf(circle({1.0, 2.0}, -10.0)), expected);
  EXPECT_EQ(pathOf(circularArc({1.0, 2.0}, 10.0, 33.0, 33.0)), expected);
  EXPECT_EQ(pathOf(mapped(circle({-1.0, 2.0}, 10.0), Affine::scaling(-1.0, 1.0))), expected);
}

TEST(EllipsePath, TurnsArcsRoundUnderMirroring) {
  EXPECT_EQ(pathOf(mapped(circularArc({1.0, 2.0}, 10.0, 0.0, 90.0), Affine::scaling(-1.0, 1.0))),
            (Path{{{{-11.0, 2.0}, -90.0}, {{-1.0, 12.0}, 0.0}}, false}));
  EXPECT_EQ(pathOf(clockwise(circularArc({0.0, 0.0}, 10.0, 0.0, 90.0))),
            (Path{{{{10.0, 0.0}, -90.0}, {{0.0, -10.0}, 0.0}}, false}));
}

TEST(EllipsePath, MirroredTwiceIsItself) {
  const Affine mirror = Affine::scaling(-1.0, 1.0);
  for (const Ellipse& ellipse : {circularArc({1.0, 2.0}, 10.0, 30.0, 77.0), whole(100.0, 50.0),
                                 ellipticArc({1.0, 2.0}, {8.0, 1.0}, {-1.0, 3.0}, 0.5, 4.0)}) {
    EXPECT_EQ(pathOf(mapped(mapped(ellipse, mirror), mirror)), pathOf(ellipse));
    Path once = pathOf(mapped(ellipse, mirror));
    EXPECT_TRUE(transform(once, mirror, kFine.resolution));
    const Path direct = pathOf(ellipse);
    ASSERT_EQ(once.vertices.size(), direct.vertices.size());
    for (std::size_t i = 0; i < once.vertices.size(); ++i) {
      expectNear(once.vertices[i].at, direct.vertices[i].at, 1e-9);
      EXPECT_NEAR(once.vertices[i].curve, direct.vertices[i].curve, 1e-6);
    }
  }
}

TEST(EllipsePath, CutsVeryWideArcsInTwo) {
  const Path path = pathOf(circularArc({0.0, 0.0}, 10.0, 0.0, 359.5));
  ASSERT_EQ(path.vertices.size(), 3u);
  EXPECT_EQ(path.vertices[0].curve, 179.75);
  EXPECT_EQ(path.vertices[1].curve, 179.75);
  EXPECT_NEAR(path.vertices[1].at.x, -10.0, 1e-4);
  EXPECT_FALSE(path.closed);
  EXPECT_EQ(pathOf(circularArc({0.0, 0.0}, 10.0, 0.0, 359.0)).vertices.size(), 2u);
}

TEST(EllipsePath, DrawsArcsWithoutSagittaAsLines) {
  const Path path = pathOf(circularArc({0.0, 0.0}, 10.0, 0.0, 0.01));
  ASSERT_EQ(path.vertices.size(), 2u);
  EXPECT_EQ(path.vertices[0].curve, 0.0);
}

TEST(IsCircle, AllowsHalfTheResolutionOrABillionth) {
  EXPECT_TRUE(isCircle({{}, {10.0, 0.0}, {0.0, 10.0000015}}, 0.000003125));
  EXPECT_FALSE(isCircle({{}, {10.0, 0.0}, {0.0, 10.0000017}}, 0.000003125));
  EXPECT_TRUE(isCircle({{}, {1e5, 0.0}, {0.0, 1e5 + 9e-5}}, 0.000003125));
  EXPECT_FALSE(isCircle({{}, {1e5, 0.0}, {0.0, 1e5 + 2e-4}}, 0.000003125));
  EXPECT_FALSE(isCircle({{}, {10.0, 0.0}, {0.001, 10.0}}, 0.0001));
  EXPECT_TRUE(isCircle({{}, {6.0, 8.0}, {8.0, -6.0}}, 0.0001));
}

TEST(EllipsePath, NeedsFewArcs) {
  const auto count = [](double width, double height, double tolerance) {
    const Path path =
        pathOf(whole(width, height), {.tolerance = tolerance, .resolution = 0.000003125});
    EXPECT_TRUE(path.closed);
    return path.vertices.size();
  };
  EXPECT_LE(count(100.0, 50.0, 0.001), 112u);
  EXPECT_LE(count(100.0, 50.0, 0.01), 56u);
  EXPECT_LE(count(100.0, 10.0, 0.001), 120u);
  EXPECT_LE(count(10.0, 5.0, 0.001), 56u);
}

TEST(EllipsePath, KeepsWithinTheTolerance) {
  for (const double height : {50.0, 10.0, 0.5, 99.9, 170.0}) {
    for (const double tolerance : {0.001, 0.01, 0.5}) {
      const Ellipse ellipse = whole(100.0, height);
      const CurveSettings settings{.tolerance = tolerance, .resolution = 0.000003125};
      expectWithin(ellipse, pathOf(ellipse, settings), tolerance);
    }
  }
}

TEST(EllipsePath, KeepsWithinTheToleranceUnderRandomMaps) {
  std::mt19937 random(9);
  std::uniform_real_distribution<double> number(-20.0, 20.0);
  std::uniform_real_distribution<double> angle(0.0, 360.0);
  for (int i = 0; i < 12; ++i) {
    Ellipse ellipse{{number(random), number(random)},
                    {number(random), number(random)},
                    {number(random), number(random)},
                    angle(random),
                    angle(random)};
    if (i % 3 == 0) ellipse.sweep = 360.0;
    const Path path = pathOf(ellipse);
    EXPECT_EQ(path.closed, ellipse.full());
    expectWithin(ellipse, path, kFine.tolerance);
    if (path.closed) {
      const double expected = std::numbers::pi * cross(ellipse.u, ellipse.v);
      EXPECT_NEAR(area(path) / expected, 1.0, 0.05);
    } else {
      EXPECT_EQ(path.vertices.front().at, ellipse.at(ellipse.start));
      EXPECT_EQ(path.vertices.back().at, ellipse.at(ellipse.start + ellipse.sweep));
    }
  }
}

TEST(EllipsePath, StartsWholeEllipsesAtTheirFirstAxisAndReachesAllEnds) {
  const Path path = pathOf(whole(100.0, 50.0));
  EXPECT_EQ(path.vertices.front().at, (Point{53.0, 4.0}));
  for (const Point end : {Point{3.0, 29.0}, {-47.0, 4.0}, {3.0, -21.0}}) {
    std::size_t found = 0;
    for (const Vertex& vertex : path.vertices) found += vertex.at == end ? 1 : 0;
    EXPECT_EQ(found, 1u);
  }
}

TEST(EllipsePath, IsTheSegmentBetweenTheOutermostPointsOfAFlatEllipse) {
  const Path full = pathOf({{1.0, 1.0}, {5.0, 0.0}, {0.0, 4e-6}});
  ASSERT_EQ(full.vertices.size(), 2u);
  EXPECT_FALSE(full.closed);
  EXPECT_NEAR(length(full), 10.0, 1e-9);
  EXPECT_EQ(pathOf({{1.0, 1.0}, {5.0, 0.0}, {0.0, 6e-6}}, {.tolerance = 0.001, .resolution = 1e-6})
                .closed,
            true);
  // From 60 to 300 degrees, through the left end, but not that on the right.
  const Path part = pathOf({{0.0, 0.0}, {10.0, 0.0}, {0.0, 0.0}, 60.0, 240.0});
  ASSERT_EQ(part.vertices.size(), 2u);
  expectNear(bounds(part).low, {-10.0, 0.0});
  expectNear(bounds(part).high, {5.0, 0.0});
  // Neither end of the axis: the ends themselves.
  const Path inner = pathOf({{0.0, 0.0}, {0.0, 0.0}, {0.0, 10.0}, -30.0, 60.0});
  expectNear(inner.vertices[0].at, {0.0, -5.0});
  expectNear(inner.vertices[1].at, {0.0, 5.0});
  // Both axes along one line.
  const Path along = pathOf({{0.0, 0.0}, {3.0, 3.0}, {4.0, 4.0}});
  EXPECT_NEAR(length(along), 10.0 * std::numbers::sqrt2, 1e-9);
}

TEST(EllipticArc, RaisesItsEndAboveItsStart) {
  const auto sweep = [](double start, double end) {
    return ellipticArc({}, {2.0, 0.0}, {0.0, 1.0}, start, end).sweep;
  };
  EXPECT_NEAR(sweep(0.0, 0.5 * std::numbers::pi), 90.0, 1e-12);
  EXPECT_NEAR(sweep(std::numbers::pi, 0.5 * std::numbers::pi), 270.0, 1e-12);
  EXPECT_NEAR(sweep(1.0 + 3.0 * kTurn, 2.0), 180.0 / std::numbers::pi, 1e-9);
  EXPECT_EQ(sweep(0.0, kTurn), 360.0);
  EXPECT_EQ(sweep(0.0, 6.283185307), 360.0);
  EXPECT_LT(sweep(0.0, 6.28318530), 360.0);
  EXPECT_NEAR(sweep(0.0, 6.28318530), 359.9999996, 1e-7);
  EXPECT_EQ(sweep(1.0, 1.0), 360.0);
  EXPECT_EQ(sweep(0.0, 3.0 * kTurn), 360.0);
}

TEST(EllipseBounds, AreThoseOfItsPoints) {
  std::mt19937 random(10);
  std::uniform_real_distribution<double> number(-20.0, 20.0);
  std::uniform_real_distribution<double> angle(0.0, 360.0);
  for (int i = 0; i < 50; ++i) {
    const Ellipse ellipse{{number(random), number(random)},
                          {number(random), number(random)},
                          {number(random), number(random)},
                          angle(random),
                          angle(random)};
    Box expected;
    for (int k = 0; k <= 2000; ++k) {
      expected.add(ellipse.at(ellipse.start + ellipse.sweep * k / 2000.0));
    }
    expectNear(bounds(ellipse).low, expected.low, 1e-4);
    expectNear(bounds(ellipse).high, expected.high, 1e-4);
  }
}

TEST(EllipsePath, OfHostileNumbersIsEmptyOrShort) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double numbers[] = {0.0, 1.0, -1e300, 1e99, 1e-320, infinity, std::nan("")};
  const CurveSettings settings{.tolerance = 0.001, .resolution = 1e-6, .maxVertices = 500};
  for (const double x : numbers) {
    for (const double y : numbers) {
      for (const double sweep : {360.0, 1e-300, 0.0, -5.0, infinity, std::nan("")}) {
        for (const double start : {0.0, 1e300, 1e99, std::nan("")}) {
          const Ellipse ellipse{{0.0, 0.0}, {x, 1.0}, {1.0, y}, start, sweep};
          const CurvePath result = ellipsePath(ellipse, settings);
          EXPECT_LT(result.path.vertices.size(), 600u);
          EXPECT_EQ(result.path.vertices.empty(), result.report.unusable);
          for (const Vertex& vertex : result.path.vertices) EXPECT_TRUE(usable(vertex.at));
          bounds(ellipse);
        }
      }
    }
  }
  EXPECT_EQ(length(pathOf(circle({1.0, 1.0}, 0.0))), 0.0);
}

/// Points by shared turns are the ellipse's, however narrow the parts are.
TEST(EllipsePath, TinySweepsTakeFewVertices) {
  for (const double offset : {0.0, 1e6}) {
    for (const double degrees : {1e-4, 1e-6, 1e-8, 1e-10, 3e-12, 1e-12, 1e-13}) {
      Ellipse ellipse = whole(2e6, 1e6);
      ellipse.centre = {offset, -offset};
      ellipse.start = 33.0;
      ellipse.sweep = degrees;
      const CurvePath found = ellipsePath(ellipse, kFine);
      EXPECT_LE(found.path.vertices.size(), 20U) << offset << " " << degrees;
    }
  }
}

}  // namespace
}  // namespace quillon::geometry
