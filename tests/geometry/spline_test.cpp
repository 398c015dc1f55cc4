#include "geometry/spline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "geometry/dense_path.h"
#include "geometry/expect_near.h"
#include "geometry/fine_settings.h"
#include "geometry/naive_spline.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"
#include "support/infinity.h"

namespace quillon::geometry {
namespace {

using testing::DensePath;
using testing::expectNear;
using testing::kFine;
using testing::kInfinity;
using testing::naiveBasis;

/// By the books: the sum of all points, each times its basis function and its weight.
Point naivePoint(const std::vector<Point>& points, const std::vector<double>& knots, int degree,
                 const std::vector<double>& weights, double t) {
  Point sum;
  double all = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double share = naiveBasis(knots, i, static_cast<std::size_t>(degree) + 1, t) * weights[i];
    sum = sum + points[i] * share;
    all += share;
  }
  return sum * (1.0 / all);
}

struct RandomSpline {
  explicit RandomSpline(unsigned seed, int itsDegree, std::size_t count, bool rational)
      : degree(itsDegree) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> coordinate(-50.0, 50.0);
    std::uniform_real_distribution<double> step(0.1, 3.0);
    for (std::size_t i = 0; i < count; ++i) {
      points.push_back({coordinate(random), coordinate(random)});
      weights.push_back(rational ? step(random) : 1.0);
    }
    knots.assign(static_cast<std::size_t>(degree) + 1, -2.0);
    while (knots.size() < count) knots.push_back(knots.back() + step(random));
    knots.insert(knots.end(), static_cast<std::size_t>(degree) + 1, knots.back() + step(random));
  }

  int degree;
  std::vector<Point> points;
  std::vector<double> knots;
  std::vector<double> weights;
};

TEST(Spline, AgreesWithThePlainRecursion) {
  for (int degree = 1; degree <= 7; ++degree) {
    const RandomSpline random(static_cast<unsigned>(degree), degree, 9, degree % 2 == 0);
    const Spline spline(degree, random.points, random.knots, random.weights);
    EXPECT_EQ(spline.faults(), SplineFaults{});
    EXPECT_EQ(spline.degree(), degree);
    for (int i = 0; i < 200; ++i) {
      const double t = spline.first() + (spline.last() - spline.first()) * i / 200.0;
      expectNear(spline.sample(t, Side::kAfter).at,
                 naivePoint(random.points, random.knots, degree, random.weights, t), 1e-9);
    }
    expectNear(spline.sample(spline.first(), Side::kAfter).at, random.points.front());
    expectNear(spline.sample(spline.last(), Side::kBefore).at, random.points.back());
  }
}

TEST(Spline, HasTheDerivativeOfItsPoints) {
  for (int degree = 2; degree <= 6; ++degree) {
    const RandomSpline random(static_cast<unsigned>(20 + degree), degree, 9, degree % 2 == 0);
    const Spline spline(degree, random.points, random.knots, random.weights);
    constexpr double kStep = 1e-6;
    for (int i = 1; i < 100; ++i) {
      const double t = spline.first() + (spline.last() - spline.first()) * i / 100.0;
      const Point before = spline.sample(t - kStep, Side::kAfter).at;
      const Point after = spline.sample(t + kStep, Side::kAfter).at;
      expectNear(spline.sample(t, Side::kAfter).derivative, (after - before) * (0.5 / kStep), 1e-2);
    }
  }
}

TEST(Spline, OfDegreeThreeWithFourPointsIsABezierCurve) {
  const Spline spline(3, {{0.0, 0.0}, {0.0, 4.0}, {4.0, 4.0}, {4.0, 0.0}},
                      {0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0});
  const CurveSample half = spline.sample(0.5, Side::kAfter);
  expectNear(half.at, {2.0, 3.0});
  expectNear(half.derivative, {6.0, 0.0});
  expectNear(spline.sample(0.0, Side::kAfter).derivative, {0.0, 12.0});
  expectNear(spline.sample(1.0, Side::kBefore).derivative, {0.0, -12.0});
}

TEST(Spline, OfWeightsIsACircleToTheLastDigits) {
  // A quarter of the unit circle, the usual way.
  const Spline spline(2, {{1.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}}, {0.0, 0.0, 0.0, 1.0, 1.0, 1.0},
                      {1.0, std::numbers::sqrt2 / 2.0, 1.0});
  for (int i = 0; i <= 100; ++i) {
    const CurveSample sample = spline.sample(i / 100.0, Side::kAfter);
    EXPECT_NEAR(norm(sample.at), 1.0, 1e-14);
    EXPECT_NEAR(dot(sample.at, sample.derivative), 0.0, 1e-13);
  }
  const Path path = splinePath(spline, kFine).path;
  EXPECT_EQ(path.vertices.size(), 3u);
  EXPECT_NEAR(path.vertices[0].curve, 45.0, 1e-10);
}

TEST(Spline, TakesKnotsThatAreNotClampedAndCloses) {
  // A periodic spline: the first three points again at the end.
  const std::vector<Point> points{{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0},
                                  {0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}};
  std::vector<double> knots;
  for (int i = 0; i < 11; ++i) knots.push_back(i);
  const Spline spline(3, points, knots);
  EXPECT_EQ(spline.first(), 3.0);
  EXPECT_EQ(spline.last(), 7.0);
  const CurvePath result = splinePath(spline, kFine);
  EXPECT_EQ(result.report, CurveReport{});
  EXPECT_TRUE(result.path.closed);
  // It begins at (P0 + 4 P1 + P2) / 6.
  expectNear(result.path.vertices.front().at, {50.0 / 6.0, 10.0 / 6.0});
}

TEST(Spline, KeepsItsKinks) {
  // Two cubics that meet at (10 10) at a right angle.
  const Spline spline(
      3, {{0.0, 0.0}, {0.0, 5.0}, {5.0, 10.0}, {10.0, 10.0}, {10.0, 5.0}, {15.0, 0.0}, {20.0, 0.0}},
      {0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 2.0, 2.0, 2.0, 2.0});
  EXPECT_EQ(spline.cuts(), (std::vector<double>{0.0, 1.0, 2.0}));
  expectNear(unit(spline.sample(1.0, Side::kBefore).derivative), {1.0, 0.0});
  expectNear(unit(spline.sample(1.0, Side::kAfter).derivative), {0.0, -1.0});
  const Path path = splinePath(spline, kFine).path;
  std::size_t kinks = 0;
  for (std::size_t i = 1; i < arcCount(path); ++i) {
    const Point before = tangentAt(arcAt(path, i - 1), 1.0);
    const Point after = tangentAt(arcAt(path, i), 0.0);
    if (dot(before, after) > 0.999) continue;
    expectNear(path.vertices[i].at, {10.0, 10.0});
    ++kinks;
  }
  EXPECT_EQ(kinks, 1u);
}

TEST(Spline, OfDegreeOneIsItsPolygon) {
  const std::vector<Point> points{{0.0, 0.0}, {3.0, 1.0}, {2.0, 7.0}, {9.0, 9.0}};
  const Path path = splinePath(Spline(1, points, {0.0, 0.0, 1.0, 4.0, 5.0, 5.0}), kFine).path;
  ASSERT_EQ(path.vertices.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(path.vertices[i], (Vertex{points[i], 0.0}));
}

TEST(Spline, BridgesTheJumpOfTooManyEqualKnots) {
  const Spline spline(2, {{0.0, 0.0}, {1.0, 0.0}, {2.0, 0.0}, {5.0, 5.0}, {6.0, 5.0}, {7.0, 5.0}},
                      {0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 2.0, 2.0, 2.0});
  const CurvePath result = splinePath(spline, kFine);
  EXPECT_EQ(result.report, (CurveReport{.gap = true}));
  EXPECT_EQ(result.path.vertices.size(), 4u);
}

TEST(SplinePath, KeepsWithinTheToleranceOfTheRecursion) {
  for (unsigned seed = 0; seed < 6; ++seed) {
    const int degree = 2 + static_cast<int>(seed % 4);
    const RandomSpline random(40 + seed, degree, 8, seed % 2 == 1);
    const Spline spline(degree, random.points, random.knots, random.weights);
    const CurvePath result = splinePath(spline, kFine);
    EXPECT_EQ(result.report, CurveReport{});
    const DensePath dense(result.path);
    std::mt19937 parameters(seed);
    std::uniform_real_distribution<double> parameter(spline.first(), spline.last());
    for (int i = 0; i < 1000; ++i) {
      const Point point =
          naivePoint(random.points, random.knots, degree, random.weights, parameter(parameters));
      EXPECT_LT(dense.distance(point), kFine.tolerance);
    }
    EXPECT_EQ(result.path.vertices.front().at, random.points.front());
    expectNear(result.path.vertices.back().at, random.points.back());
  }
}

TEST(SplinePath, NeedsFewArcs) {
  // Three spans over a length of about 100.
  const Spline spline(
      3, {{0.0, 0.0}, {15.0, 20.0}, {35.0, -20.0}, {55.0, 20.0}, {75.0, -20.0}, {90.0, 0.0}},
      {0.0, 0.0, 0.0, 0.0, 1.0, 2.0, 3.0, 3.0, 3.0, 3.0});
  EXPECT_LE(splinePath(spline, kFine).path.vertices.size() - 1, 119u);
}

TEST(SplinePath, SeesAllSpansHoweverUnequal) {
  // A bump of a thousandth of the range.
  const Spline spline(
      2,
      {{0.0, 0.0}, {25.0, 0.0}, {50.0, 0.0}, {51.0, 8.0}, {52.0, 0.0}, {75.0, 0.0}, {100.0, 0.0}},
      {0.0, 0.0, 0.0, 0.4301, 0.4302, 0.4303, 0.4304, 1.0, 1.0, 1.0});
  const Path path = splinePath(spline, kFine).path;
  EXPECT_NEAR(bounds(path).high.y, bounds(spline).high.y, 0.002);
  EXPECT_GT(bounds(path).high.y, 4.0);
}

TEST(SplinePath, TakesTimeInProportionToItsPoints) {
  std::vector<Point> points;
  for (int i = 0; i < 20'000; ++i) points.push_back({i * 1.0, 3.0 * std::sin(i * 0.7)});
  const Spline spline(3, points, {});
  const CurvePath result = splinePath(spline, {.tolerance = 0.01, .resolution = 1e-6});
  EXPECT_FALSE(result.report.coarse);
  EXPECT_FALSE(result.report.limitReached);
  EXPECT_LT(result.path.vertices.size(), 20u * points.size());
  EXPECT_EQ(spline.cuts().size(), 1u + (points.size() - 3 + 7) / 8);
}

TEST(Spline, MakesUniformKnotsOfThoseThatAreNone) {
  const std::vector<Point> points{{0.0, 0.0}, {1.0, 3.0}, {4.0, 3.0}, {5.0, 0.0}, {9.0, 1.0}};
  const Spline expected(3, points, {0.0, 0.0, 0.0, 0.0, 1.0, 2.0, 2.0, 2.0, 2.0});
  EXPECT_EQ(expected.faults(), SplineFaults{});
  const double nan = std::nan("");
  for (const std::vector<double>& knots :
       {std::vector<double>{},
        {0.0, 1.0, 2.0},
        {0.0, 0.0, 0.0, 0.0, 1.0, 2.0, 2.0, 2.0, 2.0, 2.0},
        {0.0, 0.0, 0.0, 0.0, 3.0, 2.0, 2.0, 2.0, 2.0},
        {0.0, 0.0, 0.0, 0.0, nan, 2.0, 2.0, 2.0, 2.0},
        {0.0, 0.0, 0.0, 0.0, 1.0, 2.0, 2.0, 2.0, kInfinity},
        {1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0},
        {-1e300, -1e300, -1e300, -1e300, 0.0, 1e300, 1e300, 1e300, 1e300},
        {9.0, 8.0, 7.0, 6.0, 5.0, 4.0, 3.0, 2.0, 1.0}}) {
    const Spline spline(3, points, knots);
    EXPECT_EQ(spline.faults(), (SplineFaults{.knots = true}));
    for (double t = 0.0; t <= 2.0; t += 0.125) {
      EXPECT_EQ(spline.sample(t, Side::kAfter).at, expected.sample(t, Side::kAfter).at);
    }
  }
}

TEST(Spline, TakesKnotsThatDifferByRoundingAsEqual) {
  const std::vector<Point> points{{0.0, 0.0}, {1.0, 3.0}, {4.0, 3.0}, {5.0, 0.0},
                                  {9.0, 1.0}, {9.0, 5.0}, {8.0, 8.0}};
  const Spline spline(
      3, points,
      {0.0, 0.0, 0.0, 0.0, 0.5, 0.4999999999, 0.5000000001, 1.0, 1.0, 1.0, 0.9999999999});
  EXPECT_EQ(spline.faults(), SplineFaults{});
  EXPECT_EQ(spline.cuts(), (std::vector<double>{0.0, 0.5, 1.0}));
}

TEST(Spline, LowersADegreeThatIsTooHighForItsPoints) {
  const std::vector<Point> points{{0.0, 0.0}, {2.0, 4.0}, {4.0, 0.0}};
  const Spline spline(5, points, {0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0});
  EXPECT_EQ(spline.degree(), 2);
  EXPECT_TRUE(spline.faults().degree);
  EXPECT_TRUE(spline.faults().knots);
  expectNear(spline.sample(0.5, Side::kAfter).at, {2.0, 2.0});
  EXPECT_EQ(Spline(3, {{0.0, 0.0}, {2.0, 4.0}}, {}).degree(), 1);
  for (const int degree : {0, -7, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(Spline(degree, points, {}).degree(), 2);
    EXPECT_TRUE(Spline(degree, points, {}).faults().degree);
  }
  const std::vector<Point> many(100, {1.0, 1.0});
  EXPECT_EQ(Spline(std::numeric_limits<int>::max(), many, {}).degree(), Spline::kMaxDegree);
}

TEST(Spline, IgnoresWeightsThatAreNone) {
  const std::vector<Point> points{{0.0, 0.0}, {2.0, 4.0}, {4.0, 0.0}};
  const std::vector<double> knots{0.0, 0.0, 0.0, 1.0, 1.0, 1.0};
  const Point plain = Spline(2, points, knots).sample(0.3, Side::kAfter).at;
  const Spline equal(2, points, knots, {7.0, 7.0, 7.0});
  EXPECT_EQ(equal.faults(), SplineFaults{});
  EXPECT_EQ(equal.sample(0.3, Side::kAfter).at, plain);
  for (const std::vector<double>& weights : {std::vector<double>{1.0, 2.0},
                                             {1.0, 2.0, 3.0, 4.0},
                                             {1.0, 0.0, 1.0},
                                             {1.0, -1.0, 1.0},
                                             {1.0, std::nan(""), 1.0},
                                             {1.0, kInfinity, 1.0},
                                             {1e-300, 1.0, 1.0},
                                             {1e300, 1.0, 1.0}}) {
    const Spline spline(2, points, knots, weights);
    EXPECT_EQ(spline.faults(), (SplineFaults{.weights = true}));
    EXPECT_EQ(spline.sample(0.3, Side::kAfter).at, plain);
  }
}

TEST(Spline, IsNotUsableWithoutPoints) {
  for (const std::vector<Point>& points : {std::vector<Point>{},
                                           {{1.0, 1.0}},
                                           {{0.0, 0.0}, {std::nan(""), 0.0}},
                                           {{0.0, 0.0}, {0.0, kInfinity}},
                                           {{0.0, 0.0}, {1e300, 0.0}}}) {
    const Spline spline(3, points, {0.0, 1.0});
    EXPECT_FALSE(spline.usable());
    const CurvePath result = splinePath(spline, kFine);
    EXPECT_TRUE(result.path.vertices.empty());
    EXPECT_TRUE(result.report.unusable);
    EXPECT_TRUE(bounds(spline).empty());
  }
}

TEST(Spline, TakesParametersBeyondItsRange) {
  const Spline spline(2, {{0.0, 0.0}, {2.0, 4.0}, {4.0, 0.0}}, {});
  for (const double t : {-1.0, -kInfinity, std::nan("")}) {
    for (const Side side : {Side::kBefore, Side::kAfter}) {
      EXPECT_EQ(spline.sample(t, side).at, (Point{0.0, 0.0}));
      EXPECT_EQ(spline.sample(-t, Side::kAfter).at,
                std::isnan(t) ? (Point{0.0, 0.0}) : (Point{4.0, 0.0}));
    }
  }
}

TEST(SplinePath, EndsSoonWithHostileNumbers) {
  std::mt19937 random(11);
  const double numbers[] = {0.0, 1.0, -1.0, 1e99, -1e99, 1e-320, 1e-99, 1.0 + 1e-9, 3.0};
  const auto number = [&] { return numbers[random() % std::size(numbers)]; };
  const CurveSettings settings{.tolerance = 0.001, .resolution = 1e-6, .maxVertices = 200};
  for (int i = 0; i < 2000; ++i) {
    const int degree = static_cast<int>(random() % 6);
    std::vector<Point> points(2 + random() % 8);
    for (Point& point : points) point = {number(), number()};
    std::vector<double> knots(points.size() + static_cast<std::size_t>(degree) + 1);
    for (double& knot : knots) knot = number();
    std::sort(knots.begin(), knots.end());
    std::vector<double> weights(points.size());
    for (double& weight : weights) weight = std::fabs(number());
    const CurvePath result = splinePath(Spline(degree, points, knots, weights), settings);
    EXPECT_LT(result.path.vertices.size(), 300u);
    for (const Vertex& vertex : result.path.vertices) {
      EXPECT_TRUE(usable(vertex.at));
      EXPECT_LT(std::fabs(vertex.curve), 180.0);
    }
  }
}

}  // namespace
}  // namespace quillon::geometry
