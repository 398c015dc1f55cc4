// CIRCLE entities under a placement.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "classic/curves.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::expectPoints;
using testing::kRangeNote;
using testing::layoutOf;
using testing::repeated;
using testing::ScriptCapture;

const std::string kLayout = "Layer  7 ;\nCircle P P;\n";

struct Circle {
  Circle(double cx, double cy, double r, const Placement& placement = {}, int layer = 7) {
    writeCircle(capture.context, cx, cy, r, placement, layer, nullptr);
    script = capture.take();
    count = capture.script.commandCount();
  }

  ScriptCapture capture;
  std::string script;
  std::uint64_t count = 0;
};

TEST(WriteCircle, WritesTheCentreAndThePointStraightAboveIt) {
  const Circle circle(1.0, 2.0, 3.0);
  EXPECT_EQ(circle.script, "Layer  7 ;\nCircle (1.0000000 2.0000000) (1.0000000 5.0000000);\n");
  EXPECT_EQ(circle.count, 2U);
}

TEST(WriteCircle, AddsTheOffsets) {
  ScriptCapture capture({.form = eagle::PointForm::FromMark, .offsetX = 10.0, .offsetY = 20.0});
  writeCircle(capture.context, 1.0, 2.0, 3.0, {}, 7, nullptr);
  EXPECT_EQ(capture.take(),
            "Layer  7 ;\nCircle (R11.0000000 22.0000000) (R11.0000000 25.0000000);\n");
}

TEST(WriteCircle, IsScaledTurnedAndMoved) {
  // (1, 2) scaled to (3, 6), rotated to (-6, 3), moved to (94, 203).
  const Circle circle(1.0, 2.0, 3.0,
                      {.dx = 100, .dy = 200, .scaleX = 3, .scaleY = 3, .rotation = kPi / 2});
  EXPECT_EQ(layoutOf(circle.script), kLayout);
  expectPoints(circle.script, {{94, 203}, {94, 212}});
}

TEST(WriteCircle, HasANegativeRadiusUnderANegativeScale) {
  const Circle circle(1.0, 2.0, 3.0, {.scaleX = -1, .scaleY = -1});
  expectPoints(circle.script, {{-1, -2}, {-1, -5}});
}

TEST(WriteCircle, IsAPointUnderScalesOfZero) {
  const Circle circle(1.0, 2.0, 3.0, {.dx = 5, .dy = 6, .scaleX = 0, .scaleY = 0});
  EXPECT_EQ(layoutOf(circle.script), kLayout);
  expectPoints(circle.script, {{5, 6}, {5, 6}});
}

TEST(WriteCircle, UnderUnequalScalesIsAChainOfLines) {
  const Circle circle(1.0, 2.0, 3.0, {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 4});
  EXPECT_EQ(layoutOf(circle.script), repeated("Layer  7 ;\nWire 0.0000000 P P;\n", 128));
  EXPECT_EQ(circle.count, 256U);
  std::vector<Point> points;
  for (int i = 0; i < 128; ++i) {
    for (const int end : {i, i + 1}) {
      const double t = end * std::acos(-1.0) / 64.0;
      points.push_back({12 + 6 * std::cos(t), 28 + 12 * std::sin(t)});
    }
  }
  expectPoints(circle.script, points);
}

TEST(WriteCircle, UnderUnequalScalesIsTurnedAsAWhole) {
  const Circle circle(1.0, 2.0, 3.0, {.scaleX = 2, .scaleY = 1, .rotation = kPi / 2});
  const std::vector<Point> points = testing::pointsOf(circle.script);
  // Centre (2, 2) rotated to (-2, 2); the half axis 6 of x points up.
  ASSERT_EQ(points.size(), 256U);
  EXPECT_NEAR(points[0].x, -2.0, testing::kScriptTolerance);
  EXPECT_NEAR(points[0].y, 8.0, testing::kScriptTolerance);
  EXPECT_NEAR(points[64].x, -5.0, testing::kScriptTolerance);
  EXPECT_NEAR(points[64].y, 2.0, testing::kScriptTolerance);
}

TEST(WriteCircle, WithAScaleOfZeroInXAloneWritesNothing) {
  const Circle circle(1.0, 2.0, 3.0, {.scaleX = 0, .scaleY = 1});
  EXPECT_EQ(circle.script, "");
  EXPECT_EQ(circle.count, 0U);
}

TEST(WriteCircle, IsFollowedByTheRangeNote) {
  const Circle circle(0.0, 838.0, 1.0);
  EXPECT_EQ(layoutOf(circle.script), kLayout + std::string(kRangeNote));
  EXPECT_EQ(circle.count, 3U);
}

TEST(WriteCircle, WritesNothingOnALayerThatIsNotConverted) {
  for (const Placement& placement : {Placement{}, Placement{.scaleX = 2, .scaleY = 1}}) {
    const Circle circle(1.0, 2.0, 3.0, placement, 999);
    EXPECT_EQ(circle.script, "");
    EXPECT_EQ(circle.count, 0U);
  }
}

TEST(WriteCircle, RefusesNumbersThatAreNotFinite) {
  EXPECT_THROW(Circle(HUGE_VAL, 2.0, 3.0), base::RunTimeError);
  EXPECT_THROW(Circle(1.0, 2.0, HUGE_VAL), base::RunTimeError);
}

}  // namespace
}  // namespace quillon::classic
