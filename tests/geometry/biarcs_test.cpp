#include "geometry/biarcs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "geometry/degrees.h"
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

/// A waving line of a length of 100.
CurveSample wave(double t, Side) {
  return {{t, 10.0 * std::sin(t / 5.0)}, {1.0, 2.0 * std::cos(t / 5.0)}};
}

TEST(BiarcBetween, IsTheArcItselfWhereThatIsOne) {
  // A quarter of a circle: both halves of it.
  const auto biarc = biarcBetween({1.0, 0.0}, {0.0, 1.0}, {0.0, 1.0}, {-1.0, 0.0});
  ASSERT_TRUE(biarc);
  EXPECT_NEAR(biarc->first.curve, 45.0, 1e-12);
  EXPECT_NEAR(biarc->second.curve, 45.0, 1e-12);
  expectNear(biarc->first.end, {std::numbers::sqrt2 / 2.0, std::numbers::sqrt2 / 2.0});
}

TEST(BiarcBetween, IsAnSBetweenEqualDirections) {
  // Up by 2 while going right by 4, level at both ends: the joint is half way.
  const auto biarc = biarcBetween({0.0, 0.0}, {1.0, 0.0}, {4.0, 2.0}, {1.0, 0.0});
  ASSERT_TRUE(biarc);
  expectNear(biarc->first.end, {2.0, 1.0});
  EXPECT_NEAR(biarc->first.curve, -biarc->second.curve, 1e-12);
  EXPECT_NEAR(biarc->first.curve, 2.0 * std::atan2(1.0, 2.0) * 180.0 / std::numbers::pi, 1e-12);
}

TEST(BiarcBetween, IsALineWhereBothDirectionsFollowIt) {
  const auto biarc = biarcBetween({0.0, 0.0}, {0.6, 0.8}, {3.0, 4.0}, {0.6, 0.8});
  ASSERT_TRUE(biarc);
  expectNear(biarc->first.end, {1.5, 2.0});
  EXPECT_NEAR(biarc->first.curve, 0.0, 1e-13);
  EXPECT_NEAR(biarc->second.curve, 0.0, 1e-13);
}

TEST(BiarcBetween, TouchesItsDirectionsAndItself) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> number(-1.0, 1.0);
  int found = 0;
  for (int i = 0; i < 1000; ++i) {
    const Point start{number(random), number(random)};
    const Point end{number(random), number(random)};
    const Point from = unitVector(180.0 * number(random));
    const Point to = unitVector(180.0 * number(random));
    const auto biarc = biarcBetween(start, from, end, to);
    if (!biarc) continue;
    ++found;
    EXPECT_EQ(biarc->first.start, start);
    EXPECT_EQ(biarc->first.end, biarc->second.start);
    EXPECT_EQ(biarc->second.end, end);
    expectNear(tangentAt(biarc->first, 0.0), from, 1e-9);
    expectNear(tangentAt(biarc->second, 1.0), to, 1e-9);
    expectNear(tangentAt(biarc->first, 1.0), tangentAt(biarc->second, 0.0), 1e-7);
  }
  EXPECT_GT(found, 400);
}

TEST(BiarcBetween, RefusesWhatHasNone) {
  const Point right{1.0, 0.0};
  EXPECT_FALSE(biarcBetween({1.0, 1.0}, right, {1.0, 1.0}, right));   // no way to go
  EXPECT_FALSE(biarcBetween({0.0, 0.0}, {}, {1.0, 0.0}, right));      // no direction
  EXPECT_FALSE(biarcBetween({0.0, 0.0}, right, {-4.0, 0.1}, right));  // more than half a turn
  const double nan = std::nan("");
  EXPECT_FALSE(biarcBetween({nan, 0.0}, right, {1.0, 0.0}, right));
  EXPECT_FALSE(biarcBetween({0.0, 0.0}, {nan, nan}, {1.0, 0.0}, right));
}

TEST(AppendBiarcs, KeepsWithinTheToleranceOfTheCurve) {
  for (const double tolerance : {1.0, 0.1, 0.01, 0.001, 0.0001}) {
    Path path;
    const std::vector<double> cuts{0.0, 100.0};
    const CurveReport report =
        appendBiarcs(wave, cuts, {}, {.tolerance = tolerance, .resolution = 0.000003125}, path);
    EXPECT_EQ(report, CurveReport{});
    const DensePath dense(path);
    std::mt19937 random(6);
    std::uniform_real_distribution<double> parameter(0.0, 100.0);
    for (int i = 0; i < 1000; ++i) {
      EXPECT_LT(dense.distance(wave(parameter(random), Side::kAfter).at), tolerance);
    }
  }
}

TEST(AppendBiarcs, NeedsArcsByTheCubeRootOfTheTolerance) {
  const auto count = [](double tolerance) {
    Path path;
    const std::vector<double> cuts{0.0, 100.0};
    appendBiarcs(wave, cuts, {}, {.tolerance = tolerance, .resolution = 1e-9}, path);
    return static_cast<double>(path.vertices.size() - 1);
  };
  EXPECT_NEAR(count(1e-6) / count(1e-3), 10.0, 2.5);
}

TEST(AppendBiarcs, StartsAndEndsOnTheCurve) {
  Path path;
  const std::vector<double> cuts{0.0, 50.0, 100.0};
  appendBiarcs(wave, cuts, {}, kFine, path);
  EXPECT_EQ(path.vertices.front().at, wave(0.0, Side::kAfter).at);
  EXPECT_EQ(path.vertices.back().at, wave(100.0, Side::kBefore).at);
  EXPECT_EQ(path.vertices.back().curve, 0.0);
  EXPECT_FALSE(path.closed);
}

TEST(AppendBiarcs, DrawsOneLineForWhatIsOne) {
  const Curve line = [](double t, Side) -> CurveSample { return {{t * t, 2.0 * t * t}, {}}; };
  Path path;
  const std::vector<double> cuts{0.0, 3.0};
  EXPECT_EQ(appendBiarcs(line, cuts, {}, kFine, path), CurveReport{});
  EXPECT_EQ(path, (Path{{{{0.0, 0.0}, 0.0}, {{9.0, 18.0}, 0.0}}, false}));
}

TEST(AppendBiarcs, GoesOnFromTheEndOfThePath) {
  const Curve line = [](double t, Side) -> CurveSample { return {{t, 0.0}, {1.0, 0.0}}; };
  const std::vector<double> cuts{0.0, 3.0};
  Path nearby{{{{0.0, 1e-6}, 0.0}}, false};
  EXPECT_EQ(appendBiarcs(line, cuts, {}, kFine, nearby), CurveReport{});
  EXPECT_EQ(nearby, (Path{{{{0.0, 1e-6}, 0.0}, {{3.0, 0.0}, 0.0}}, false}));
  Path distant{{{{0.0, 1.0}, 30.0}}, false};
  EXPECT_EQ(appendBiarcs(line, cuts, {}, kFine, distant), CurveReport{});
  EXPECT_EQ(distant, (Path{{{{0.0, 1.0}, 0.0}, {{0.0, 0.0}, 0.0}, {{3.0, 0.0}, 0.0}}, false}));
}

TEST(AppendBiarcs, KeepsKinksAtCuts) {
  const Curve roof = [](double t, Side side) -> CurveSample {
    const bool falling = t > 1.0 || (t == 1.0 && side == Side::kAfter);
    return {{t, falling ? 2.0 - t : t}, {1.0, falling ? -1.0 : 1.0}};
  };
  Path path;
  const std::vector<double> cuts{0.0, 1.0, 2.0};
  appendBiarcs(roof, cuts, {}, kFine, path);
  EXPECT_EQ(path, (Path{{{{0.0, 0.0}, 0.0}, {{1.0, 1.0}, 0.0}, {{2.0, 0.0}, 0.0}}, false}));
}

TEST(AppendBiarcs, BridgesJumpsAndTells) {
  const Curve step = [](double t, Side side) -> CurveSample {
    const bool high = t > 1.0 || (t == 1.0 && side == Side::kAfter);
    return {{t, high ? 5.0 : 0.0}, {1.0, 0.0}};
  };
  Path path;
  const std::vector<double> cuts{0.0, 1.0, 2.0};
  EXPECT_EQ(appendBiarcs(step, cuts, {}, kFine, path), (CurveReport{.gap = true}));
  EXPECT_EQ(
      path,
      (Path{{{{0.0, 0.0}, 0.0}, {{1.0, 0.0}, 0.0}, {{1.0, 5.0}, 0.0}, {{2.0, 5.0}, 0.0}}, false}));
}

TEST(AppendBiarcs, GetsOverPointsWithoutDirection) {
  // A cusp at 0, where the derivative is 0.
  const Curve cusp = [](double t, Side) -> CurveSample {
    return {{t * t * t, t * t}, {3.0 * t * t, 2.0 * t}};
  };
  for (const std::vector<double>& cuts :
       {std::vector<double>{-1.0, 1.0}, {-1.0, 0.7}, {0.0, 1.0}}) {
    Path path;
    EXPECT_EQ(appendBiarcs(cusp, cuts, {}, kFine, path), CurveReport{});
    EXPECT_LT(path.vertices.size(), 150u);
    const DensePath dense(path);
    for (double t = cuts.front(); t < cuts.back(); t += 0.001) {
      EXPECT_LT(dense.distance(cusp(t, Side::kAfter).at), kFine.tolerance);
    }
  }
}

TEST(AppendBiarcs, SeesASpikeBetweenTheSamplesWhereItIsToldToLook) {
  const Curve spike = [](double t, Side) -> CurveSample {
    const double off = std::fabs(t - 0.53);
    return {{t, off < 0.005 ? 1.0 - off * 200.0 : 0.0}, {1.0, 0.0}};
  };
  const std::vector<double> cuts{0.0, 1.0};
  const std::vector<double> checks{0.53};
  Path blind;
  appendBiarcs(spike, cuts, {}, kFine, blind);
  EXPECT_EQ(bounds(blind).high.y, 0.0);
  Path told;
  appendBiarcs(spike, cuts, checks, kFine, told);
  EXPECT_NEAR(bounds(told).high.y, 1.0, 0.01);
}

TEST(AppendBiarcs, MakesLinesOfFlatArcs) {
  Path path;
  const std::vector<double> cuts{0.0, 100.0};
  const CurveSettings settings{.tolerance = 0.0001, .resolution = 0.0004};
  appendBiarcs(wave, cuts, {}, settings, path);
  std::size_t curved = 0;
  for (std::size_t i = 0; i < arcCount(path); ++i) {
    const Arc arc = arcAt(path, i);
    if (arc.curve == 0.0) continue;
    EXPECT_GE(sagitta(arc), 0.0002);
    ++curved;
  }
  EXPECT_GT(curved, 50u);
  EXPECT_LT(curved, arcCount(path));
}

TEST(AppendBiarcs, StopsAtTheLimitWithALineForEachPiece) {
  Path path;
  const std::vector<double> cuts{0.0, 50.0, 100.0};
  const CurveSettings settings{.tolerance = 1e-9, .resolution = 1e-12, .maxVertices = 100};
  EXPECT_EQ(appendBiarcs(wave, cuts, {}, settings, path), (CurveReport{.limitReached = true}));
  EXPECT_GE(path.vertices.size(), 100u);
  EXPECT_LE(path.vertices.size(), 130u);
  EXPECT_EQ(path.vertices.back().at, wave(100.0, Side::kBefore).at);
}

TEST(AppendBiarcs, EndsSoonWithHostileCurves) {
  const auto draw = [](const Curve& curve, const std::vector<double>& cuts) {
    Path path;
    std::size_t calls = 0;
    const Curve counted = [&](double t, Side side) {
      ++calls;
      return curve(t, side);
    };
    const CurveSettings settings{.tolerance = 0.001, .resolution = 1e-6, .maxVertices = 1000};
    const CurveReport report = appendBiarcs(counted, cuts, {}, settings, path);
    EXPECT_LT(calls, 50'000u);
    EXPECT_LT(path.vertices.size(), 1100u);
    for (const Vertex& vertex : path.vertices) EXPECT_TRUE(usable(vertex.at));
    return report;
  };
  std::mt19937 random(7);
  std::uniform_real_distribution<double> number(-1.0, 1.0);
  const double nan = std::nan("");
  const double infinity = std::numeric_limits<double>::infinity();
  const auto noise = [&](double, Side) -> CurveSample {
    return {{number(random), number(random)}, {number(random), number(random)}};
  };
  EXPECT_TRUE(draw(noise, {0.0, 1.0}).limitReached);
  EXPECT_TRUE(draw(
                  [&](double, Side) -> CurveSample {
                    return {{nan, 0.0}, {1.0, 0.0}};
                  },
                  {0.0, 1.0})
                  .unusable);
  EXPECT_TRUE(draw(
                  [&](double t, Side) -> CurveSample {
                    return {{1.0 / t, t}, {nan, infinity}};
                  },
                  {-1.0, 1.0})
                  .unusable);
  EXPECT_TRUE(draw(
                  [](double t, Side) -> CurveSample {
                    return {{1e300 * t, 0.0}, {1.0, 0.0}};
                  },
                  {0.0, 1.0})
                  .unusable);
  // Round and round, ever faster towards 0: as curved after each halving as before.
  const auto whirl = [](double t, Side) -> CurveSample {
    if (t == 0.0) return {{1.0, 0.0}, {}};
    const double angle = 10.0 * std::log(t);
    return {{std::cos(angle), std::sin(angle)}, {-std::sin(angle), std::cos(angle)}};
  };
  EXPECT_EQ(draw(whirl, {0.0, 1.0}), (CurveReport{.coarse = true}));
  EXPECT_EQ(draw(
                [](double, Side) -> CurveSample {
                  return {{1.0, 1.0}, {}};
                },
                {0.0, 0.0}),
            CurveReport{});
  EXPECT_EQ(draw(wave, {}), CurveReport{});
  EXPECT_EQ(draw(wave, {5.0}), CurveReport{});
}

}  // namespace
}  // namespace quillon::geometry
