// Arcs and circles with dash emulation.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "classic/curves.h"
#include "classic/layouts.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::expectPoints;
using testing::kArc;
using testing::kDot;
using testing::kLayerLine;
using testing::kLayerWire;
using testing::layoutOf;
using testing::repeated;
using testing::ScriptCapture;

/// With this radius a dash of length 1 is one degree.
constexpr double kRadius = 180.0 / 3.14159265358979;
constexpr double kCx = 10.0;
constexpr double kCy = 30.0;

Settings dashed(double ltScale = 1.0, double angDir = 0.0) {
  return {.dotted = true, .angDir = angDir, .ltScale = ltScale};
}

struct Written {
  std::string script;
  std::uint64_t count = 0;
};

Written arc(double startAngle, double endAngle, const DashPattern& pattern,
            const Settings& settings = dashed(), const Placement& placement = {},
            double r = kRadius) {
  ScriptCapture capture({}, settings);
  writeArcEntity(capture.context, kCx, kCy, r, startAngle, endAngle, placement, 7, &pattern);
  return {capture.take(), capture.script.commandCount()};
}

Written circle(const DashPattern& pattern, const Settings& settings = dashed(),
               const Placement& placement = {}, double r = kRadius, int layer = 7) {
  ScriptCapture capture({}, settings);
  writeCircle(capture.context, kCx, kCy, r, placement, layer, &pattern);
  return {capture.take(), capture.script.commandCount()};
}

struct Piece {
  double startAngle;
  double endAngle;
};

/// Checks the arcs of a script (and nothing else with points) by their angles.
void expectPieces(const std::string& script, const std::vector<Piece>& pieces, double cx = kCx,
                  double cy = kCy, double r = kRadius) {
  std::vector<Point> points;
  for (const auto& [startAngle, endAngle] : pieces) {
    for (const double degrees : {startAngle, startAngle + 180.0, endAngle}) {
      const double angle = degrees * std::acos(-1.0) / 180.0;
      points.push_back({cx + r * std::cos(angle), cy + r * std::sin(angle)});
    }
  }
  expectPoints(script, points);
}

TEST(DashedArc, WritesOneLayerLineAndAnArcForEveryDash) {
  const Written written = arc(0.0, 90.0, {20.0, -10.0});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + repeated(kArc, 3));
  expectPieces(written.script, {{0, 20}, {30, 50}, {60, 80}});
  EXPECT_EQ(written.count, 4U);
}

TEST(DashedArc, CutsTheLastDashAtItsEnd) {
  const Written written = arc(0.0, 90.0, {40.0, -10.0});
  expectPieces(written.script, {{0, 40}, {50, 90}});
  const Written cut = arc(0.0, 75.0, {40.0, -10.0});
  expectPieces(cut.script, {{0, 40}, {50, 75}});
}

TEST(DashedArc, CutsAGapAtItsEnd) {
  const Written written = arc(0.0, 90.0, {20.0, -500.0});
  expectPieces(written.script, {{0, 20}});
}

TEST(DashedArc, MultipliesEveryDashByTheLineTypeScale) {
  const Written written = arc(0.0, 90.0, {20.0, -10.0}, dashed(2.0));
  expectPieces(written.script, {{0, 40}, {60, 90}});
}

TEST(DashedArc, MeasuresDashesAlongItsCircle) {
  const Written written = arc(0.0, 90.0, {40.0, -20.0}, dashed(), {}, 2.0 * kRadius);
  expectPieces(written.script, {{0, 20}, {30, 50}, {60, 80}}, kCx, kCy, 2.0 * kRadius);
}

TEST(DashedArc, DoesNotScaleItsDashesWithItsPlacement) {
  const Written written = arc(0.0, 90.0, {40.0, -20.0}, dashed(), {.scaleX = 2, .scaleY = 2});
  expectPieces(written.script, {{0, 20}, {30, 50}, {60, 80}}, 2 * kCx, 2 * kCy, 2 * kRadius);
}

TEST(DashedArc, PutsItsDotsAtItsCentre) {
  const Written written = arc(0.0, 90.0, {20.0, -10.0, 0.0, -10.0});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + kArc + kDot + kArc + kDot + kArc);
  const std::vector<Point> points = testing::pointsOf(written.script);
  ASSERT_EQ(points.size(), 13U);
  for (const std::size_t dot : {3U, 8U}) {
    EXPECT_EQ(points[dot], (Point{kCx, kCy}));
    EXPECT_EQ(points[dot + 1], (Point{kCx, 30.1}));
  }
  EXPECT_EQ(written.count, 1U + 3U + 2U * 2U);
}

TEST(DashedArc, PutsItsDotsAtItsPlacedCentre) {
  const Written written =
      arc(0.0, 90.0, {0.0}, dashed(), {.dx = 1, .dy = 2, .scaleX = 2, .scaleY = 2});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + kDot);
  expectPoints(written.script, {{21, 62}, {21, 62.1}});
}

TEST(DashedArc, EndsAfterAPassOfDotsAlone) {
  const Written written = arc(0.0, 90.0, {0.0, 0.0, 0.0});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + repeated(kDot, 3));
}

TEST(DashedArc, StartsWithAGapWhenThePatternDoes) {
  const Written written = arc(10.0, 90.0, {-30.0, 20.0});
  expectPieces(written.script, {{40, 60}});
}

TEST(DashedArc, EndsAtItsEndWithoutGaps) {
  const Written written = arc(0.0, 90.0, {40.0, 30.0});
  expectPieces(written.script, {{0, 40}, {40, 70}, {70, 90}});
}

TEST(DashedArc, WritesOnlyItsLayerForAPatternWithoutDashes) {
  EXPECT_EQ(arc(0.0, 90.0, {}).script, kLayerLine);
}

TEST(DashedArc, IsWalkedOnThroughZeroWhenItsEndIsSmallerThanItsStart) {
  const Written written = arc(270.0, 90.0, {90.0, -45.0});
  expectPieces(written.script, {{270, 360}, {405, 450}});
}

TEST(DashedArc, ClockwiseIsWalkedFromItsEndToItsStart) {
  const Written written = arc(90.0, 270.0, {90.0, -45.0}, dashed(1.0, 1.0));
  expectPieces(written.script, {{270, 360}, {405, 450}});
}

TEST(DashedArc, IsWalkedFromItsTurnedStart) {
  const Written written = arc(0.0, 90.0, {20.0, -10.0}, dashed(), {.rotation = kPi / 2});
  expectPieces(written.script, {{90, 110}, {120, 140}, {150, 170}}, -kCy, kCx);
}

TEST(DashedArc, UnderANegativeScaleEndsAfterOnePass) {
  // The negative radius makes every step negative, so the walk makes no progress.
  const Written written = arc(0.0, 90.0, {20.0, -10.0}, dashed(), {.scaleX = -1, .scaleY = -1});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + kArc);
  expectPieces(written.script, {{90, 70}}, -kCx, -kCy, -kRadius);
}

TEST(DashedArc, WithoutARadiusHasNoDashes) {
  const Written written = arc(0.0, 90.0, {20.0, -10.0}, dashed(), {}, 0.0);
  EXPECT_EQ(layoutOf(written.script), kLayerLine + kArc);
  expectPoints(written.script, {{kCx, kCy}, {kCx, kCy}, {kCx, kCy}});
}

TEST(DashedArc, WithEqualAnglesIsADashedCircle) {
  const Written written = arc(30.0, 30.0, {100.0, -80.0});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + kLayerLine + kArc + kArc);
  expectPieces(written.script, {{0, 100}, {180, 280}});
}

TEST(DashedArc, UnderUnequalScalesHasDashesOnEveryPiece) {
  // Each piece of the chain restarts the pattern; the long gap ends it.
  const Written written = arc(0.0, 90.0, {0.1, -1000.0}, dashed(), {.scaleX = 2, .scaleY = 1});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + repeated(kLayerWire, 32));
  const std::vector<Point> points = testing::pointsOf(written.script);
  for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
    const double length = std::hypot(points[i + 1].x - points[i].x, points[i + 1].y - points[i].y);
    EXPECT_NEAR(length, 0.1, 3e-7);
  }
}

TEST(DashedArc, IsAnErrorWhenAStepIsNotFinite) {
  for (const auto& [ltScale, r] : {std::pair{1e308, kRadius}, {1.0, 1e-308}}) {
    try {
      arc(0.0, 90.0, {20.0, -10.0}, dashed(ltScale), {}, r);
      FAIL() << "walked an arc of radius " << r;
    } catch (const base::RunTimeError& error) {
      EXPECT_EQ(error.fault(), base::Fault::BadDashLength);
    }
  }
}

TEST(DashedArc, StopsSoonAfterACancel) {
  ScriptCapture capture({}, dashed());
  capture.monitor.cancelWhen = [&capture] { return capture.script.commandCount() > 1'000; };
  const DashPattern pattern = {0.001, -0.001};
  writeArcEntity(capture.context, kCx, kCy, kRadius, 0.0, 300.0, {}, 7, &pattern);
  const std::size_t arcs = testing::countOf("Arc", capture.take());
  EXPECT_GE(arcs, 1'000U);
  EXPECT_LT(arcs, 1'100U) << "of 150,000";
}

TEST(DashedCircle, WritesItsLayerAndIsWalkedFromZeroToAFullTurn) {
  const Written written = circle({100.0, -80.0});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + kArc + kArc);
  expectPieces(written.script, {{0, 100}, {180, 280}});
  EXPECT_EQ(written.count, 3U);
}

TEST(DashedCircle, CutsItsLastDashAtAFullTurn) {
  const Written written = circle({100.0, -50.0});
  expectPieces(written.script, {{0, 100}, {150, 250}, {300, 360}});
}

TEST(DashedCircle, IsWalkedFromZeroUnderARotationToo) {
  const Written written = circle({100.0, -80.0}, dashed(), {.dx = 5, .rotation = kPi / 2});
  expectPieces(written.script, {{0, 100}, {180, 280}}, 5 - kCy, kCx);
}

TEST(DashedCircle, PutsItsDotsAtItsCentre) {
  const Written written = circle({0.0, -360.0});
  EXPECT_EQ(layoutOf(written.script), kLayerLine + kDot);
  expectPoints(written.script, {{kCx, kCy}, {kCx, kCy + 0.1}});
  EXPECT_EQ(written.count, 3U);
}

TEST(DashedCircle, IsNotAffectedByTheDirectionOfAngles) {
  EXPECT_EQ(circle({100.0, -80.0}, dashed(1.0, 1.0)).script, circle({100.0, -80.0}).script);
}

TEST(DashedCircle, WithoutARadiusHasNoDashes) {
  const Written written = circle({20.0, -10.0}, dashed(), {}, 0.0);
  EXPECT_EQ(layoutOf(written.script), kLayerLine + "Circle P P;\n");
  expectPoints(written.script, {{kCx, kCy}, {kCx, kCy}});
}

TEST(DashedCircle, WritesNothingOnALayerThatIsNotConverted) {
  const Written written = circle({20.0, 0.0}, dashed(), {}, kRadius, 999);
  EXPECT_EQ(written.script, "");
  EXPECT_EQ(written.count, 0U);
}

}  // namespace
}  // namespace quillon::classic
