// Lines with dash emulation.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "classic/layouts.h"
#include "classic/lines.h"
#include "support/infinity.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::countOf;
using testing::expectPoints;
using testing::kDot;
using testing::kInfinity;
using testing::kLayerLine;
using testing::kRangeNote;
using testing::kWire;
using testing::layoutOf;
using testing::ScriptCapture;

/// A dashed line on layer 7, with the pattern's dash lengths.
struct DashedLine {
  DashedLine(Point start, Point end, const DashPattern& pattern, double ltScale = 1.0,
             double width = 0.0)
      : at(start) {
    capture.context.settings.ltScale = ltScale;
    writeLine(capture.context, at.x, at.y, end.x, end.y, 7, &pattern, width);
    script = capture.take();
    count = capture.script.commandCount();
  }

  ScriptCapture capture;
  Point at;  ///< where the start point has moved
  std::string script;
  std::uint64_t count = 0;
};

TEST(DashedLine, WritesOneLayerLineAndAWireForEveryDash) {
  const DashedLine line({0.0, 0.0}, {10.0, 0.0}, {3.0, -2.0});
  EXPECT_EQ(line.script,
            "Layer  7 ;\n"
            "Wire 0.0000000 (0.0000000 0.0000000) (3.0000000 0.0000000);\n"
            "Wire 0.0000000 (5.0000000 0.0000000) (8.0000000 0.0000000);\n");
  EXPECT_EQ(line.count, 3U);
}

TEST(DashedLine, ClipsTheLastDashAtTheEndOfTheLine) {
  const DashedLine line({0.0, 0.0}, {7.0, 0.0}, {3.0, -2.0});
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kWire + kWire);
  expectPoints(line.script, {{0, 0}, {3, 0}, {5, 0}, {7, 0}});
}

TEST(DashedLine, WritesADashThatJustFitsInFull) {
  const DashedLine line({0.0, 0.0}, {8.0, 0.0}, {3.0, -2.0});
  expectPoints(line.script, {{0, 0}, {3, 0}, {5, 0}, {8, 0}});
}

TEST(DashedLine, RunsAlongTheDirectionOfTheLine) {
  // Length 5, direction (0.6, 0.8).
  const DashedLine line({1.0, 1.0}, {4.0, 5.0}, {2.0, -1.0, 0.5, -1.0});
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kWire + kWire + kWire);
  expectPoints(line.script, {{1, 1}, {2.2, 2.6}, {2.8, 3.4}, {3.1, 3.8}, {3.7, 4.6}, {4, 5}});
}

TEST(DashedLine, RunsBackwardsWithALineThatPointsLeftAndDown) {
  const DashedLine line({-1.0, -1.0}, {-4.0, -5.0}, {2.0, -1.0});
  expectPoints(line.script, {{-1, -1}, {-2.2, -2.6}, {-2.8, -3.4}, {-4, -5}});
}

TEST(DashedLine, StartsWithAGapWhenThePatternDoes) {
  const DashedLine line({0.0, 0.0}, {10.0, 0.0}, {-2.0, 3.0});
  expectPoints(line.script, {{2, 0}, {5, 0}, {7, 0}, {10, 0}});
}

TEST(DashedLine, MultipliesEveryDashByTheLineTypeScale) {
  const DashedLine line({0.0, 0.0}, {20.0, 0.0}, {3.0, -2.0}, 2.0);
  expectPoints(line.script, {{0, 0}, {6, 0}, {10, 0}, {16, 0}});
}

TEST(DashedLine, IsOneWireWhenTheDrawingGivesNoLineTypeScale) {
  const DashedLine line({0.0, 0.0}, {20.0, 0.0}, {3.0, -2.0}, dxf::kNotGiven);
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kWire);
  expectPoints(line.script, {{0, 0}, {20, 0}});
}

TEST(DashedLine, WritesTheWidthOfEveryDashWithoutItsSign) {
  const DashedLine line({0.0, 0.0}, {7.0, 0.0}, {3.0, -2.0}, 1.0, -0.25);
  EXPECT_EQ(layoutOf(line.script), "Layer  7 ;\nWire 0.2500000 P P;\nWire 0.2500000 P P;\n");
}

TEST(DashedLine, PutsADotWhereThePatternHasAZero) {
  const DashedLine line({0.0, 0.0}, {10.0, 0.0}, {3.0, -1.0, 0.0, -1.0});
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kWire + kDot + kWire + kDot);
  expectPoints(line.script, {{0, 0}, {3, 0}, {4, 0}, {4, 0.1}, {5, 0}, {8, 0}, {9, 0}, {9, 0.1}});
  EXPECT_EQ(line.count, 1U + 2U * 1U + 2U * 2U);
}

TEST(DashedLine, MovesToTheOriginAfterADotAtItsStart) {
  const DashedLine line({5.0, 5.0}, {15.0, 5.0}, {0.0, 3.0, -2.0});
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kDot + kWire + kDot + kWire + kDot);
  expectPoints(
      line.script,
      {{5, 5}, {5, 5.1}, {0, 0}, {3, 0}, {5, 0}, {5, 0.1}, {5, 0}, {8, 0}, {10, 0}, {10, 0.1}});
}

TEST(DashedLine, StaysWhereItIsAfterADotThatFollowsADash) {
  const DashedLine line({0.0, 0.0}, {4.0, 0.0}, {2.0, 0.0, -3.0});
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kWire + kDot);
  expectPoints(line.script, {{0, 0}, {2, 0}, {2, 0}, {2, 0.1}});
  EXPECT_DOUBLE_EQ(line.at.x, 5.0);
}

TEST(DashedLine, EndsWhenOnlyDotsAreLeft) {
  const DashedLine one({5.0, 5.0}, {15.0, 5.0}, {0.0});
  EXPECT_EQ(layoutOf(one.script), kLayerLine + kDot);
  expectPoints(one.script, {{5, 5}, {5, 5.1}});
  const DashedLine two({5.0, 5.0}, {15.0, 5.0}, {0.0, 0.0});
  EXPECT_EQ(layoutOf(two.script), kLayerLine + kDot + kDot);
  expectPoints(two.script, {{5, 5}, {5, 5.1}, {0, 0}, {0, 0.1}});
}

TEST(DashedLine, EndsWithoutGapsWhenItsLengthIsReached) {
  const DashedLine clipped({0.0, 0.0}, {10.0, 0.0}, {4.0});
  expectPoints(clipped.script, {{0, 0}, {4, 0}, {4, 0}, {8, 0}, {8, 0}, {10, 0}});
  const DashedLine exact({0.0, 0.0}, {10.0, 0.0}, {5.0});
  expectPoints(exact.script, {{0, 0}, {5, 0}, {5, 0}, {10, 0}});
  const DashedLine pair({0.0, 0.0}, {10.0, 0.0}, {4.0, 3.0});
  expectPoints(pair.script, {{0, 0}, {4, 0}, {4, 0}, {7, 0}, {7, 0}, {10, 0}});
}

TEST(DashedLine, WritesNoDashThatWasClippedToNothing) {
  // The gap ends exactly at the end of the line, leaving no length for the next dash.
  const DashedLine line({0.0, 0.0}, {10.0, 0.0}, {8.0, -2.0});
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kWire);
  expectPoints(line.script, {{0, 0}, {8, 0}});
  EXPECT_EQ(line.count, 2U);
}

TEST(DashedLine, WritesOnlyItsLayerWhenTheFirstGapIsLongerThanTheLine) {
  const DashedLine line({0.0, 0.0}, {10.0, 0.0}, {-100.0, 3.0});
  EXPECT_EQ(line.script, kLayerLine);
  EXPECT_EQ(line.count, 1U);
}

TEST(DashedLine, WritesOnlyItsLayerForAPatternWithoutDashes) {
  const DashedLine line({0.0, 0.0}, {10.0, 0.0}, {});
  EXPECT_EQ(line.script, kLayerLine);
  EXPECT_EQ(line.count, 1U);
}

TEST(DashedLine, MovesTheCallersStartPointToTheEndOfItsLastStep) {
  const DashedLine afterTheGap({0.0, 0.0}, {10.0, 0.0}, {3.0, -2.0});
  EXPECT_DOUBLE_EQ(afterTheGap.at.x, 12.0);
  EXPECT_DOUBLE_EQ(afterTheGap.at.y, 0.0);
  const DashedLine onTheEnd({1.0, 2.0}, {1.0, 12.0}, {4.0});
  EXPECT_DOUBLE_EQ(onTheEnd.at.x, 1.0);
  EXPECT_DOUBLE_EQ(onTheEnd.at.y, 12.0);
}

TEST(DashedLine, IsOneWireWhenItHasNoLength) {
  const DashedLine line({3.0, 4.0}, {3.0, 4.0}, {1.0, -1.0});
  EXPECT_EQ(line.script,
            kLayerLine + "Wire 0.0000000 (3.0000000 4.0000000) (3.0000000 4.0000000);\n");
  EXPECT_EQ(line.count, 2U);
}

TEST(DashedLine, NotesTheRangeAfterEveryDashThatExceedsIt) {
  const DashedLine line({830.0, 0.0}, {845.0, 0.0}, {4.0, -1.0});
  EXPECT_EQ(layoutOf(line.script),
            kLayerLine + kWire + kWire + std::string(kRangeNote) + kWire + std::string(kRangeNote));
  EXPECT_EQ(line.count, 1U + 3U + 2U);
}

TEST(DashedLine, NotesNothingForAGapOutOfRange) {
  const DashedLine line({837.0, 0.0}, {845.0, 0.0}, {1.0, -100.0});
  EXPECT_EQ(layoutOf(line.script), kLayerLine + kWire);
}

TEST(DashedLine, WritesNothingOnALayerThatIsNotConverted) {
  ScriptCapture capture;
  capture.context.settings.ltScale = 1.0;
  const DashPattern pattern = {1.0, -1.0};
  Point at{1.0, 2.0};
  writeLine(capture.context, at.x, at.y, 9.0, 2.0, 999, &pattern, 0.0);
  EXPECT_EQ(capture.take(), "");
  EXPECT_EQ(at, (Point{1.0, 2.0}));
  EXPECT_EQ(capture.script.commandCount(), 0U);
}

/// The fault that ends a dashed line; BadGroupCode means none.
base::Fault faultOf(Point start, Point end, const DashPattern& pattern, double ltScale) {
  try {
    const DashedLine line(start, end, pattern, ltScale);
  } catch (const base::RunTimeError& error) {
    return error.fault();
  }
  return base::Fault::BadGroupCode;
}

TEST(DashedLine, IsAnErrorWhenItsLengthIsNotFinite) {
  const DashPattern pattern = {1.0, -1.0};
  EXPECT_EQ(faultOf({0, 0}, {kInfinity, 0}, pattern, 1.0), base::Fault::BadDashLength);
  EXPECT_EQ(faultOf({0, 0}, {1e200, 0}, pattern, 1.0), base::Fault::BadDashLength);
  EXPECT_EQ(faultOf({-kInfinity, 0}, {-kInfinity, 0}, pattern, 1.0), base::Fault::BadDashLength);
}

TEST(DashedLine, IsAnErrorWhenAStepIsNotFinite) {
  EXPECT_EQ(faultOf({0, 0}, {10, 0}, {1.0, -kInfinity}, 1.0), base::Fault::BadDashLength);
  EXPECT_EQ(faultOf({0, 0}, {10, 0}, {1.0, -1e308}, 1e10), base::Fault::BadDashLength);
}

TEST(DashedLine, StopsSoonAfterACancel) {
  ScriptCapture capture;
  capture.context.settings.ltScale = 1.0;
  capture.monitor.cancelWhen = [&capture] { return capture.script.commandCount() > 1'000; };
  const DashPattern pattern = {0.001, -0.001};
  Point at{0.0, 0.0};
  writeLine(capture.context, at.x, at.y, 800.0, 0.0, 7, &pattern, 0.0);
  const std::size_t wires = countOf("Wire", capture.take());
  EXPECT_GE(wires, 1'000U);
  EXPECT_LT(wires, 1'100U) << "of 400,000";
}

TEST(CancelPoll, StaysCancelledAndAsksNoMore) {
  testing::TestMonitor monitor;
  bool cancel = false;
  monitor.cancelWhen = [&cancel] { return cancel; };
  rules::CancelPoll cancelled(monitor);
  for (int i = 0; i < 1'000; ++i) EXPECT_FALSE(cancelled());
  EXPECT_GT(monitor.polls, 0U);
  cancel = true;
  int steps = 0;
  while (!cancelled() && steps < 1'000) ++steps;
  EXPECT_LT(steps, 100);
  const std::uint64_t polls = monitor.polls;
  cancel = false;
  for (int i = 0; i < 1'000; ++i) EXPECT_TRUE(cancelled());
  EXPECT_EQ(monitor.polls, polls);
}

}  // namespace
}  // namespace quillon::classic
