#include "geometry/fit_spline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

#include "geometry/dense_path.h"
#include "geometry/expect_near.h"
#include "geometry/fine_settings.h"
#include "geometry/path_samples.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

using testing::DensePath;
using testing::expectNear;
using testing::kFine;

/// The second derivative by the length along the chords, from points close together.
Point bend(const FitSpline& spline, double t, double step, double chordLength) {
  const Point before = spline.sample(t - step).at;
  const Point at = spline.sample(t).at;
  const Point after = spline.sample(t + step).at;
  const double h = step * chordLength;
  return (before - at * 2.0 + after) * (1.0 / (h * h));
}

/// At each point within: the slopes and bends from both sides are equal.
void expectSmooth(const FitSpline& spline, const std::vector<Point>& points) {
  for (std::size_t i = 1; i + 1 < points.size(); ++i) {
    const double t = static_cast<double>(i);
    const double before = distance(points[i - 1], points[i]);
    const double after = distance(points[i], points[i + 1]);
    expectNear(spline.sample(t - 1e-9).derivative * (1.0 / before),
               spline.sample(t + 1e-9).derivative * (1.0 / after), 1e-6);
    expectNear(bend(spline, t - 2e-4, 1e-4, before), bend(spline, t + 2e-4, 1e-4, after), 1e-3);
  }
}

TEST(FitSpline, GoesThroughItsPointsSmoothly) {
  const std::vector<Point> points = randomPoints(9, 50.0);
  const FitSpline spline(points);
  EXPECT_EQ(spline.last(), 8.0);
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(spline.sample(static_cast<double>(i)).at, points[i]);
  }
  expectSmooth(spline, points);
}

TEST(FitSpline, IsNaturalAtEndsWithoutDirection) {
  const std::vector<Point> points = randomPoints(6, 50.0);
  const FitSpline spline(points);
  expectNear(bend(spline, 1e-4, 1e-4, distance(points[0], points[1])), {0.0, 0.0}, 1e-3);
  expectNear(bend(spline, 5.0 - 1e-4, 1e-4, distance(points[4], points[5])), {0.0, 0.0}, 1e-3);
}

TEST(FitSpline, OfThreePointsAsWorkedByHand) {
  // Chords of 5 and 5, slopes (m0 m1 m2): 2 m0 + m1 = 3 d0, m0 + 4 m1 + m2 = 3 (d0 + d1),
  // m1 + 2 m2 = 3 d1; so m1 = (d0 + d1) / 2.
  const FitSpline spline({{0.0, 0.0}, {3.0, 4.0}, {6.0, 0.0}});
  expectNear(spline.sample(1.0).derivative, {3.0, 0.0});
  expectNear(spline.sample(0.0).derivative, {3.0, 6.0});
  expectNear(spline.sample(2.0).derivative, {3.0, -6.0});
}

TEST(FitSpline, FollowsTheDirectionsOfItsEnds) {
  const std::vector<Point> points = randomPoints(5, 50.0);
  const FitSpline spline(
      points, {.startDirection = Point{0.0, 70.0}, .endDirection = Point{-0.003, 0.004}});
  expectNear(unit(spline.sample(0.0).derivative), {0.0, 1.0});
  expectNear(unit(spline.sample(4.0).derivative), {-0.6, 0.8});
  EXPECT_NEAR(norm(spline.sample(0.0).derivative), distance(points[0], points[1]), 1e-9);
  expectSmooth(spline, points);
}

TEST(FitSpline, IgnoresDirectionsThatAreNone) {
  const std::vector<Point> points = randomPoints(5, 50.0);
  const FitSpline natural(points);
  for (const Point none : {Point{0.0, 0.0}, {std::nan(""), 1.0}, {1e300, 0.0}}) {
    const FitSpline spline(points, {.startDirection = none, .endDirection = none});
    EXPECT_EQ(spline.sample(0.3).at, natural.sample(0.3).at);
  }
}

TEST(FitSpline, IsSmoothAllTheWayRoundWhenClosed) {
  std::vector<Point> points = randomPoints(7, 50.0);
  const FitSpline spline(points, {.closed = true});
  EXPECT_EQ(spline.last(), 7.0);
  points.push_back(points.front());
  expectSmooth(spline, points);
  EXPECT_EQ(spline.sample(0.0).at, spline.sample(7.0).at);
  const double first = distance(points[0], points[1]);
  const double last = distance(points[6], points[7]);
  expectNear(spline.sample(0.0).derivative * (1.0 / first),
             spline.sample(7.0).derivative * (1.0 / last));
  expectNear(bend(spline, 2e-4, 1e-4, first), bend(spline, 7.0 - 2e-4, 1e-4, last), 1e-3);
  // The first point given again at the end is no other curve.
  const FitSpline again(points, {.closed = true});
  EXPECT_EQ(again.sample(3.3).at, spline.sample(3.3).at);
  const Path path = fitSplinePath(spline, kFine).path;
  EXPECT_TRUE(path.closed);
  EXPECT_EQ(path.vertices.front().at, points.front());
}

TEST(FitSpline, RoundsASquareAlikeAtAllCorners) {
  const FitSpline spline({{0.0, 0.0}, {2.0, 0.0}, {2.0, 2.0}, {0.0, 2.0}}, {.closed = true});
  for (int i = 0; i < 4; ++i) {
    const Point outward = spline.sample(i + 0.5).at - Point{1.0, 1.0};
    EXPECT_NEAR(norm(outward), norm(spline.sample(0.5).at - Point{1.0, 1.0}), 1e-12);
    EXPECT_NEAR(norm(spline.sample(i).derivative), norm(spline.sample(0.0).derivative), 1e-12);
  }
}

TEST(FitSpline, OfTwoPointsIsASegment) {
  const std::vector<Point> points{{1.0, 1.0}, {4.0, 5.0}};
  for (const FitEnds& ends :
       {FitEnds{}, FitEnds{.closed = true}, FitEnds{.startDirection = Point{1.0, 0.0}}}) {
    const CurvePath result = fitSplinePath(FitSpline(points, ends), kFine);
    EXPECT_EQ(result.report, CurveReport{});
    EXPECT_EQ(result.path, (Path{{{points[0], 0.0}, {points[1], 0.0}}, false}));
  }
}

TEST(FitSpline, LeavesOutPointsThatAreRepeated) {
  const FitSpline once({{0.0, 0.0}, {3.0, 4.0}, {6.0, 0.0}});
  const FitSpline twice({{0.0, 0.0}, {0.0, 0.0}, {3.0, 4.0}, {3.0, 4.0}, {6.0, 0.0}, {6.0, 0.0}});
  EXPECT_EQ(twice.last(), 2.0);
  EXPECT_EQ(twice.sample(0.7).at, once.sample(0.7).at);
}

TEST(FitSplinePath, KeepsWithinTheTolerance) {
  for (const bool closed : {false, true}) {
    const FitSpline spline(randomPoints(21, 50.0), {.closed = closed});
    const CurvePath result = fitSplinePath(spline, kFine);
    EXPECT_EQ(result.report, CurveReport{});
    const DensePath dense(result.path);
    std::mt19937 random(12);
    std::uniform_real_distribution<double> parameter(0.0, spline.last());
    for (int i = 0; i < 1000; ++i) {
      EXPECT_LT(dense.distance(spline.sample(parameter(random)).at), kFine.tolerance);
    }
    EXPECT_NEAR(bounds(result.path).diagonal(), bounds(spline).diagonal(), 0.2);
  }
}

TEST(FitSpline, IsNotUsableWithoutTwoPoints) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const std::vector<Point>& points : {std::vector<Point>{},
                                           {{1.0, 1.0}},
                                           {{1.0, 1.0}, {1.0, 1.0}},
                                           {{0.0, 0.0}, {std::nan(""), 1.0}, {2.0, 2.0}},
                                           {{0.0, 0.0}, {infinity, 1.0}},
                                           {{0.0, 0.0}, {1e300, 1.0}}}) {
    const FitSpline spline(points, {.closed = true});
    EXPECT_FALSE(spline.usable());
    EXPECT_TRUE(fitSplinePath(spline, kFine).report.unusable);
    EXPECT_TRUE(bounds(spline).empty());
  }
}

TEST(FitSplinePath, EndsSoonWithHostileNumbers) {
  std::mt19937 random(13);
  const double numbers[] = {0.0, 1.0, -1.0, 1e99, -1e99, 1e-320, 1e-99, 1.0 + 1e-9, 3.0};
  const auto number = [&] { return numbers[random() % std::size(numbers)]; };
  const CurveSettings settings{.tolerance = 0.001, .resolution = 1e-6, .maxVertices = 200};
  for (int i = 0; i < 1000; ++i) {
    std::vector<Point> points(random() % 8);
    for (Point& point : points) point = {number(), number()};
    FitEnds ends{.closed = random() % 2 == 0};
    if (random() % 2 == 0) ends.startDirection = Point{number(), number()};
    const CurvePath result = fitSplinePath(FitSpline(points, ends), settings);
    EXPECT_LT(result.path.vertices.size(), 300u);
    for (const Vertex& vertex : result.path.vertices) EXPECT_TRUE(usable(vertex.at));
  }
}

}  // namespace
}  // namespace quillon::geometry
