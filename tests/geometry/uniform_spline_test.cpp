#include "geometry/uniform_spline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "geometry/naive_spline.h"
#include "geometry/path_samples.h"
#include "support/infinity.h"

namespace quillon::geometry {
namespace {

using testing::naiveBasis;
using testing::naiveSpline;
using testing::openUniformKnots;

std::vector<Point> evaluate(UniformSplines& splines, const std::vector<Point>& controlPoints,
                            std::size_t order, std::size_t samples) {
  std::vector<Point> points;
  splines.evaluate(controlPoints, order, samples, [&points](Point point) {
    points.push_back(point);
    return true;
  });
  return points;
}

std::vector<Point> evaluate(const std::vector<Point>& controlPoints, std::size_t order,
                            std::size_t samples) {
  UniformSplines splines;
  return evaluate(splines, controlPoints, order, samples);
}

void expectSame(const std::vector<Point>& points, const std::vector<Point>& expected) {
  ASSERT_EQ(points.size(), expected.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(points[i].x, expected[i].x, 1e-9) << i;
    EXPECT_NEAR(points[i].y, expected[i].y, 1e-9) << i;
  }
}

/// The order and number of samples for a spline with this many control points.
struct SplineCase {
  std::size_t count;
  std::size_t order;
};

TEST(UniformSplines, AgreesWithThePlainRecursion) {
  for (const auto& [count, order] :
       {SplineCase{2, 2}, {3, 3}, {4, 4}, {6, 6}, {9, 9}, {14, 14}, {15, 7}, {21, 7}, {40, 7}}) {
    const std::vector<Point> controlPoints = randomPoints(count, 100.0);
    const std::size_t samples = (count - 1) * 10;
    expectSame(evaluate(controlPoints, order, samples), naiveSpline(controlPoints, order, samples));
  }
}

TEST(UniformSplines, AgreesWithThePlainRecursionForOrdersBelowTheNumberOfPoints) {
  for (std::size_t order = 2; order <= 7; ++order) {
    for (std::size_t count = order; count <= 12; ++count) {
      const std::vector<Point> controlPoints = randomPoints(count, 100.0);
      expectSame(evaluate(controlPoints, order, 37), naiveSpline(controlPoints, order, 37));
    }
  }
}

TEST(UniformSplines, GivesTheNumberOfSamplesAskedFor) {
  for (const std::size_t samples : {2U, 3U, 10U, 199U}) {
    EXPECT_EQ(evaluate(randomPoints(5, 100.0), 4, samples).size(), samples);
  }
}

TEST(UniformSplines, StartsAndEndsExactlyOnTheFirstAndLastControlPoint) {
  for (const auto& [count, order] : {SplineCase{2, 2}, {6, 6}, {14, 14}, {15, 7}, {100, 7}}) {
    const std::vector<Point> controlPoints = randomPoints(count, 100.0);
    const std::vector<Point> points = evaluate(controlPoints, order, (count - 1) * 10);
    EXPECT_EQ(points.front().x, controlPoints.front().x);
    EXPECT_EQ(points.front().y, controlPoints.front().y);
    EXPECT_EQ(points.back().x, controlPoints.back().x);
    EXPECT_EQ(points.back().y, controlPoints.back().y);
  }
}

TEST(UniformSplines, OfTwoPointsRunsEvenlyAlongTheLine) {
  const std::vector<Point> points = evaluate({{1, 2}, {10, 20}}, 2, 10);
  ASSERT_EQ(points.size(), 10U);
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_NEAR(points[i].x, 1.0 + static_cast<double>(i), 1e-12);
    EXPECT_NEAR(points[i].y, 2.0 + 2.0 * static_cast<double>(i), 1e-12);
  }
}

TEST(UniformSplines, OfThreePointsIsAParabola) {
  // (1-t)^2 A + 2t(1-t) B + t^2 C
  const std::vector<Point> points = evaluate({{0, 0}, {1, 2}, {2, 0}}, 3, 5);
  const double y[] = {0.0, 0.75, 1.0, 0.75, 0.0};
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_NEAR(points[i].x, 0.5 * static_cast<double>(i), 1e-12);
    EXPECT_NEAR(points[i].y, y[i], 1e-12);
  }
}

TEST(UniformSplines, OfOrderTwoRunsThroughEveryControlPoint) {
  const std::vector<Point> controlPoints = {{0, 0}, {5, 1}, {5, 9}, {-3, 4}};
  const std::vector<Point> points = evaluate(controlPoints, 2, 7);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(points[2 * i].x, controlPoints[i].x, 1e-12);
    EXPECT_NEAR(points[2 * i].y, controlPoints[i].y, 1e-12);
  }
  EXPECT_NEAR(points[3].x, 5.0, 1e-12);
  EXPECT_NEAR(points[3].y, 5.0, 1e-12);
}

TEST(UniformSplines, StopsWhenItsVisitorSaysSo) {
  int visits = 0;
  UniformSplines().evaluate(randomPoints(5, 100.0), 4, 40,
                            [&visits](Point) { return ++visits < 7; });
  EXPECT_EQ(visits, 7);
}

/// The points as the basis gives them, without anything kept.
std::vector<Point> pointsByBasis(const std::vector<Point>& controlPoints, std::size_t order,
                                 std::size_t samples) {
  SplineBasis basis(controlPoints.size(), order);
  const double step = basis.lastKnot() / static_cast<double>(samples - 1);
  std::vector<Point> points;
  for (std::size_t i = 0; i < samples; ++i) {
    basis.evaluate(i + 1 == samples ? basis.lastKnot() : static_cast<double>(i) * step);
    Point point;
    for (std::size_t j = 0; j < order; ++j) {
      if (basis.values()[j] == 0.0) continue;
      point.x += basis.values()[j] * controlPoints[basis.first() + j].x;
      point.y += basis.values()[j] * controlPoints[basis.first() + j].y;
    }
    points.push_back(point);
  }
  return points;
}

TEST(UniformSplines, GiveTheSameToTheBitWhateverTheyHaveKept) {
  UniformSplines splines;
  for (int round = 0; round < 3; ++round) {
    for (std::size_t count = 2; count <= 40; ++count) {
      const std::size_t order = count <= 14 ? count : 7;
      const std::size_t samples = 10 * (count - 1);
      const std::vector<Point> controlPoints = randomPoints(count, 100.0);
      EXPECT_EQ(evaluate(splines, controlPoints, order, samples),
                pointsByBasis(controlPoints, order, samples))
          << count;
    }
  }
}

TEST(UniformSplines, KeepNothingForAnotherOrderOrNumberOfSamples) {
  UniformSplines splines;
  const std::vector<Point> controlPoints = randomPoints(9, 100.0);
  for (const std::size_t order : {4U, 5U, 9U, 4U}) {
    for (const std::size_t samples : {20U, 21U, 20U}) {
      EXPECT_EQ(evaluate(splines, controlPoints, order, samples),
                pointsByBasis(controlPoints, order, samples));
    }
  }
}

TEST(UniformSplines, LeaveOutPointsThatHaveNoShare) {
  UniformSplines splines;
  std::vector<Point> controlPoints = randomPoints(9, 100.0);
  controlPoints.back() = {testing::kInfinity, testing::kInfinity};
  const std::vector<Point> points = evaluate(splines, controlPoints, 3, 17);
  EXPECT_TRUE(std::isfinite(points.front().x));
  EXPECT_TRUE(std::isfinite(points[8].y));
  EXPECT_EQ(points.back().x, testing::kInfinity);
}

TEST(SplineBasis, RunsFromZeroToTheNumberOfItsSpans) {
  EXPECT_EQ(SplineBasis(2, 2).lastKnot(), 1.0);
  EXPECT_EQ(SplineBasis(6, 6).lastKnot(), 1.0);
  EXPECT_EQ(SplineBasis(21, 7).lastKnot(), 15.0);
}

TEST(SplineBasis, IsTheLastFunctionAloneAtTheLastKnot) {
  SplineBasis basis(9, 4);
  basis.evaluate(basis.lastKnot());
  EXPECT_EQ(basis.first(), 5U);
  EXPECT_EQ(basis.values(), (std::vector<double>{0.0, 0.0, 0.0, 1.0}));
}

TEST(SplineBasis, HoldsTheValuesOfThePlainRecursion) {
  constexpr std::size_t kCount = 10;
  for (std::size_t order = 2; order <= 7; ++order) {
    SplineBasis basis(kCount, order);
    const std::vector<double> knots = openUniformKnots(kCount, order);
    ASSERT_EQ(knots.size(), kCount + order);
    for (double t = 0.0; t < basis.lastKnot(); t += 0.125) {
      basis.evaluate(t);
      ASSERT_EQ(basis.values().size(), order);
      for (std::size_t i = 0; i < kCount; ++i) {
        const bool held = i >= basis.first() && i < basis.first() + order;
        const double value = held ? basis.values()[i - basis.first()] : 0.0;
        EXPECT_NEAR(value, naiveBasis(knots, i, order, t), 1e-12);
      }
    }
  }
}

}  // namespace
}  // namespace quillon::geometry
