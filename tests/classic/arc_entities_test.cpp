// ARC entities under a placement.
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
using testing::kLayerLine;
using testing::kLayerWire;
using testing::kRangeNote;
using testing::layoutOf;
using testing::repeated;
using testing::ScriptCapture;

/// An arc as the drawing has it.
struct ArcShape {
  double cx = 0.0;
  double cy = 0.0;
  double r = 0.0;
  double startAngle = 0.0;
  double endAngle = 0.0;
};

struct PlacedArc {
  explicit PlacedArc(const ArcShape& shape, const Placement& placement = {},
                     const Settings& settings = {}, int layer = 7)
      : capture({}, settings) {
    writeArcEntity(capture.context, shape.cx, shape.cy, shape.r, shape.startAngle, shape.endAngle,
                   placement, layer, nullptr);
    script = capture.take();
    count = capture.script.commandCount();
  }

  ScriptCapture capture;
  std::string script;
  std::uint64_t count = 0;
};

/// Start, diameter point and end of an arc.
std::vector<Point> arcPoints(double cx, double cy, double r, double startAngle, double endAngle) {
  const auto at = [&](double degrees) {
    const double angle = degrees * std::acos(-1.0) / 180.0;
    return Point{cx + r * std::cos(angle), cy + r * std::sin(angle)};
  };
  return {at(startAngle), at(startAngle + 180.0), at(endAngle)};
}

TEST(ArcEntity, WritesItsLayerAndAnArc) {
  const PlacedArc arc({10, 20, 2, 0, 90});
  EXPECT_EQ(arc.script,
            "Layer  7 ;\n"
            "Arc CCW 0.00 (12.0000000 20.0000000) (8.0000000 20.0000000) "
            "(10.0000000 22.0000000);\n");
  EXPECT_EQ(arc.count, 2U);
}

TEST(ArcEntity, BringsItsAnglesBackByWholeTurns) {
  const PlacedArc arc({10, 20, 2, 750, -400});
  EXPECT_EQ(layoutOf(arc.script), kLayerLine + kArc);
  expectPoints(arc.script, arcPoints(10, 20, 2, 30, -40));
}

TEST(ArcEntity, TakesAWholeTurnAfterAnotherAngleAsTurn) {
  const PlacedArc arc({10, 20, 2, 0, 720});
  EXPECT_EQ(layoutOf(arc.script), kLayerLine + kArc) << "0 and 360 are not equal";
  expectPoints(arc.script, {{12, 20}, {8, 20}, {12, 20}});
}

TEST(ArcEntity, IsScaledTurnedAndMoved) {
  // Centre (3, 1) scaled to (6, 2), rotated to (-2, 6), moved to (8, 26).
  const PlacedArc arc({3, 1, 2, 0, 45},
                      {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 2, .rotation = kPi / 2});
  expectPoints(arc.script, arcPoints(8, 26, 4, 90, 135));
}

TEST(ArcEntity, UnderANegativeScaleSwapsAndMirrorsItsAngles) {
  // 20..80 becomes 100..160; then the radius is negative, which rotates every point by half a
  // circle.
  const PlacedArc arc({3, 1, 2, 20, 80}, {.scaleX = -1, .scaleY = -1});
  EXPECT_EQ(layoutOf(arc.script), kLayerLine + kArc);
  expectPoints(arc.script, arcPoints(-3, -1, -2, 100, 160));
}

TEST(ArcEntity, IsMirroredBeforeItIsTurned) {
  const PlacedArc arc({3, 1, 2, 20, 80}, {.scaleX = -1, .scaleY = -1, .rotation = kPi / 6});
  const double c = std::sqrt(0.75);
  expectPoints(arc.script, arcPoints(-3 * c + 0.5, -1.5 - c, -2, 130, 190));
}

TEST(ArcEntity, WithEqualAnglesIsAFullCircle) {
  const PlacedArc arc({1, 2, 3, 30, 30});
  EXPECT_EQ(arc.script,
            "Layer  7 ;\nLayer  7 ;\nCircle (1.0000000 2.0000000) (1.0000000 5.0000000);\n");
  EXPECT_EQ(arc.count, 3U);
}

TEST(ArcEntity, WithAnglesEqualAfterWholeTurnsIsAFullCircle) {
  EXPECT_EQ(layoutOf(PlacedArc({1, 2, 3, 30, 390}).script),
            kLayerLine + kLayerLine + "Circle P P;\n");
  EXPECT_EQ(layoutOf(PlacedArc({1, 2, 3, 360, 720}).script),
            kLayerLine + kLayerLine + "Circle P P;\n");
}

TEST(ArcEntity, PlacesAFullCircleOnceMore) {
  // Centre (1, 2) placed at (12, 24), then at (34, 68); radius 3, 6, 12.
  const PlacedArc scaled({1, 2, 3, 30, 30}, {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 2});
  EXPECT_EQ(layoutOf(scaled.script), kLayerLine + kLayerLine + "Circle P P;\n");
  expectPoints(scaled.script, {{34, 68}, {34, 80}});
  // Centre (1, 0) rotated to (0, 1), moved to (5, 1), rotated to (-1, 5), moved to (4, 5).
  const PlacedArc turned({1, 0, 1, 30, 30}, {.dx = 5, .rotation = kPi / 2});
  expectPoints(turned.script, {{4, 5}, {4, 6}});
}

TEST(ArcEntity, ClockwiseSwapsStartAndEnd) {
  const PlacedArc arc({10, 20, 2, 20, 80}, {}, {.angDir = 1.0});
  EXPECT_EQ(layoutOf(arc.script), kLayerLine + kArc);
  expectPoints(arc.script, arcPoints(10, 20, 2, 80, 20));
}

TEST(ArcEntity, SwapsForADirectionOfExactlyOneOnly) {
  const PlacedArc arc({10, 20, 2, 20, 80}, {}, {.angDir = 0.5});
  expectPoints(arc.script, arcPoints(10, 20, 2, 20, 80));
}

TEST(ArcEntity, ClockwiseUnderANegativeScaleSwapsTwice) {
  const PlacedArc arc({3, 1, 2, 20, 80}, {.scaleX = -1, .scaleY = -1}, {.angDir = 1.0});
  expectPoints(arc.script, arcPoints(-3, -1, -2, 160, 100));
}

TEST(ArcEntity, WritesNothingOnALayerThatIsNotConverted) {
  for (const Placement& placement : {Placement{}, Placement{.scaleX = 2, .scaleY = 1}}) {
    const PlacedArc arc({10, 20, 2, 0, 90}, placement, {}, 999);
    EXPECT_EQ(arc.script, "");
    EXPECT_EQ(arc.count, 0U);
  }
}

TEST(ArcEntity, WithAScaleOfZeroInXWritesNothing) {
  const PlacedArc arc({10, 20, 2, 0, 90}, {.scaleX = 0, .scaleY = 1});
  EXPECT_EQ(arc.script, "");
  EXPECT_EQ(arc.count, 0U);
}

TEST(ArcEntity, UnderUnequalScalesIsAChainOfLines) {
  // 90 degrees of the ellipse with half axes 10 and 5 make 32 pieces.
  const PlacedArc arc({3, 4, 5, 0, 90}, {.dx = 100, .dy = 200, .scaleX = 2, .scaleY = 1});
  EXPECT_EQ(layoutOf(arc.script), kLayerLine + repeated(kLayerWire, 32));
  EXPECT_EQ(arc.count, 1U + 2U * 32U);
  std::vector<Point> points;
  for (int i = 0; i < 32; ++i) {
    for (const int end : {i, i + 1}) {
      const double t = end * std::acos(-1.0) / 64.0;
      points.push_back({106 + 10 * std::cos(t), 204 + 5 * std::sin(t)});
    }
  }
  expectPoints(arc.script, points);
}

/// The first and the last point of a script.
std::vector<Point> endsOf(const std::string& script) {
  const std::vector<Point> points = testing::pointsOf(script);
  return {points.front(), points.back()};
}

void expectEnds(const std::string& script, Point first, Point last) {
  const std::vector<Point> ends = endsOf(script);
  EXPECT_NEAR(ends[0].x, first.x, testing::kScriptTolerance);
  EXPECT_NEAR(ends[0].y, first.y, testing::kScriptTolerance);
  EXPECT_NEAR(ends[1].x, last.x, testing::kScriptTolerance);
  EXPECT_NEAR(ends[1].y, last.y, testing::kScriptTolerance);
}

TEST(ArcEntity, UnderUnequalScalesIsTurnedAsAWhole) {
  // Half axes 10 and 5; (10, 0) and (0, 5) about the centre (6, 4), all rotated by 90 degrees.
  const PlacedArc arc({3, 4, 5, 0, 90}, {.scaleX = 2, .scaleY = 1, .rotation = kPi / 2});
  expectEnds(arc.script, {-4, 16}, {-9, 6});
}

TEST(ArcEntity, UnderUnequalScalesIsMirroredByANegativeScale) {
  const PlacedArc inX({3, 4, 5, 0, 90}, {.scaleX = -2, .scaleY = 1});
  expectEnds(inX.script, {-16, 4}, {-6, 9});
  const PlacedArc inY({3, 4, 5, 0, 90}, {.scaleX = 2, .scaleY = -1});
  expectEnds(inY.script, {16, -4}, {6, -9});
}

TEST(ArcEntity, UnderUnequalScalesTakesTheOtherPartWhenClockwise) {
  // From 90 degrees on to 360.
  const PlacedArc arc({3, 4, 5, 0, 90}, {.scaleX = 2, .scaleY = 1}, {.angDir = 1.0});
  EXPECT_EQ(layoutOf(arc.script), kLayerLine + repeated(kLayerWire, 96));
  expectEnds(arc.script, {6, 9}, {16, 4});
}

TEST(ArcEntity, UnderUnequalScalesBringsItsAnglesBackByWholeTurns) {
  const PlacedArc arc({3, 4, 5, 720 + 360, 450}, {.scaleX = 2, .scaleY = 1});
  EXPECT_EQ(testing::countOf("Wire", arc.script), 32U) << "from 360, a turn back, to 90";
  expectEnds(arc.script, {16, 4}, {6, 9});
}

TEST(ArcEntity, WithAScaleOfZeroInYIsAFlatChain) {
  const PlacedArc arc({3, 4, 5, 0, 90}, {.scaleX = 2, .scaleY = 0});
  expectEnds(arc.script, {16, 0}, {6, 0});
}

TEST(ArcEntity, IsFollowedByTheRangeNote) {
  const PlacedArc arc({838, 0, 2, 0, 90});
  EXPECT_EQ(layoutOf(arc.script), kLayerLine + kArc + std::string(kRangeNote));
  EXPECT_EQ(arc.count, 3U);
}

TEST(ArcEntity, WithAnAngleThatIsNotFiniteIsAnError) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_THROW(PlacedArc({1, 2, 3, infinity, 90}), base::RunTimeError);
  EXPECT_THROW(PlacedArc({1, 2, 3, 0, infinity}), base::RunTimeError);
}

}  // namespace
}  // namespace quillon::classic
