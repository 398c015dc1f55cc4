// The three-point arc.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "base/run_time_error.h"
#include "classic/curves.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::expectPoints;
using testing::kRangeNote;
using testing::layoutOf;
using testing::ScriptCapture;

constexpr double kHalf = 0.5;
const double kHalfRoot3 = std::sqrt(0.75);

struct Arc {
  Arc(double cx, double cy, double r, double startAngle, double endAngle,
      const Settings& settings = {}, base::Unit unit = base::Unit::Mm)
      : capture({.unit = unit}, settings) {
    writeArc(capture.context, cx, cy, r, startAngle, endAngle, 7);
    script = capture.take();
    count = capture.script.commandCount();
  }

  ScriptCapture capture;
  std::string script;
  std::uint64_t count = 0;
};

TEST(WriteArc, WritesStartDiameterPointAndEndWithoutALayerLine) {
  const Arc arc(10.0, 20.0, 2.0, 0.0, 90.0);
  EXPECT_EQ(arc.script,
            "Arc CCW 0.00 (12.0000000 20.0000000) (8.0000000 20.0000000) "
            "(10.0000000 22.0000000);\n");
  EXPECT_EQ(arc.count, 1U);
}

TEST(WriteArc, PutsTheDiameterPointOppositeTheStart) {
  const Arc arc(10.0, 20.0, 2.0, 30.0, 300.0);
  EXPECT_EQ(layoutOf(arc.script), "Arc CCW 0.00 P P P;\n");
  expectPoints(arc.script, {{10 + 2 * kHalfRoot3, 20 + 2 * kHalf},
                            {10 - 2 * kHalfRoot3, 20 - 2 * kHalf},
                            {10 + 2 * kHalf, 20 - 2 * kHalfRoot3}});
}

TEST(WriteArc, TakesAnglesBeyondOneTurnAndBelowZero) {
  const Arc arc(10.0, 20.0, 2.0, 390.0, -60.0);
  expectPoints(arc.script, {{10 + 2 * kHalfRoot3, 20 + 2 * kHalf},
                            {10 - 2 * kHalfRoot3, 20 - 2 * kHalf},
                            {10 + 2 * kHalf, 20 - 2 * kHalfRoot3}});
}

TEST(WriteArc, IsWrittenAlsoWhenItsEndIsItsStart) {
  const Arc arc(10.0, 20.0, 2.0, 0.0, 360.0);
  EXPECT_EQ(layoutOf(arc.script), "Arc CCW 0.00 P P P;\n");
  expectPoints(arc.script, {{12, 20}, {8, 20}, {12, 20}});
}

TEST(WriteArc, AddsTheOffsets) {
  ScriptCapture capture({.form = eagle::PointForm::FromMark, .offsetX = 100.0, .offsetY = 200.0});
  writeArc(capture.context, 10.0, 20.0, 2.0, 0.0, 90.0, 7);
  EXPECT_EQ(capture.take(),
            "Arc CCW 0.00 (R112.0000000 220.0000000) (R108.0000000 220.0000000) "
            "(R110.0000000 222.0000000);\n");
}

// Each point's x is compared with its own y, so points on the diagonal count as near.
TEST(WriteArc, WritesNothingWhenStartAndEndLieOnTheDiagonal) {
  const Arc arc(0.0, 0.0, 5.0, 45.0, 225.0);
  EXPECT_EQ(arc.script, "");
  EXPECT_EQ(arc.count, 0U);
}

TEST(WriteArc, BecomesAWireWhenStartAndDiameterPointLieOnTheDiagonal) {
  const double diagonal = 5.0 * std::sqrt(0.5);
  const Arc arc(0.0, 0.0, 5.0, 45.0, 90.0);
  EXPECT_EQ(layoutOf(arc.script), "Wire  0.00 P P;\n");
  expectPoints(arc.script, {{diagonal, diagonal}, {0, 5}});
  EXPECT_EQ(arc.count, 1U);
}

TEST(WriteArc, BecomesAWireWhenDiameterPointAndEndLieOnTheDiagonal) {
  // Start (1, -1), opposite (1, 1), end (0, 0).
  const Arc arc(1.0, 0.0, 1.0, 270.0, 180.0);
  EXPECT_EQ(layoutOf(arc.script), "Wire  0.00 P P;\n");
  expectPoints(arc.script, {{1, -1}, {0, 0}});
  EXPECT_EQ(arc.count, 1U);
}

TEST(WriteArc, StaysAnArcWhenOnlyOnePointLiesOnTheDiagonal) {
  // Start (1, 1), opposite (1, -1), end (2, 0).
  const Arc arc(1.0, 0.0, 1.0, 90.0, 0.0);
  EXPECT_EQ(layoutOf(arc.script), "Arc CCW 0.00 P P P;\n");
}

TEST(WriteArc, StaysAnArcWhenItIsTinyButOffTheDiagonal) {
  const Arc arc(10.0, 20.0, 0.0001, 0.0, 90.0);
  EXPECT_EQ(layoutOf(arc.script), "Arc CCW 0.00 P P P;\n");
}

TEST(WriteArc, JudgesNearnessInTheUnitOfTheScript) {
  // All points are within 0.1 of the diagonal: near in mic only.
  EXPECT_EQ(Arc(5.0, 5.0, 0.1, 0.0, 90.0, {}, base::Unit::Mic).script, "");
  for (const base::Unit unit : {base::Unit::Mm, base::Unit::Mil, base::Unit::Inch}) {
    EXPECT_EQ(layoutOf(Arc(5.0, 5.0, 0.1, 0.0, 90.0, {}, unit).script), "Arc CCW 0.00 P P P;\n")
        << base::unitRecord(unit).word;
  }
}

TEST(WriteArc, OutOfRangeStaysAnArcWithANoteWithoutTheRangeCheck) {
  const Arc arc(838.0, 0.0, 2.0, 180.0, 90.0);
  EXPECT_EQ(layoutOf(arc.script), "Arc CCW 0.00 P P P;\n" + std::string(kRangeNote));
  expectPoints(arc.script, {{836, 0}, {840, 0}, {838, 2}});
  EXPECT_EQ(arc.count, 2U);
}

TEST(WriteArc, BecomesAWireWhenItsDiameterPointIsOutOfRange) {
  const Arc arc(838.0, 0.0, 2.0, 180.0, 90.0, {.arcRangeCheck = true});
  EXPECT_EQ(arc.script, "Wire 0.00 (836.0000000 0.0000000) (838.0000000 2.0000000);\n");
  EXPECT_EQ(arc.count, 1U);
}

TEST(WriteArc, NotesTheRangeOfAWireInPlaceOfAnArc) {
  const Arc arc(838.0, 0.0, 2.0, 180.0, 300.0, {.arcRangeCheck = true});
  EXPECT_EQ(layoutOf(arc.script), "Wire 0.00 P P;\n" + std::string(kRangeNote));
  EXPECT_EQ(arc.count, 2U);
  EXPECT_TRUE(arc.capture.script.rangeWarning());
}

TEST(WriteArc, StaysAnArcWhenOnlyItsEndsAreOutOfRange) {
  const Arc arc(838.0, 0.0, 2.0, 0.0, 90.0, {.arcRangeCheck = true});
  EXPECT_EQ(layoutOf(arc.script), "Arc CCW 0.00 P P P;\n" + std::string(kRangeNote));
  expectPoints(arc.script, {{840, 0}, {836, 0}, {838, 2}});
}

TEST(WriteArc, LooksAtTheRangeAfterTheOffset) {
  ScriptCapture capture({.offsetX = 838.0}, {.arcRangeCheck = true});
  writeArc(capture.context, 0.0, 0.0, 2.0, 180.0, 90.0, 7);
  EXPECT_EQ(layoutOf(capture.take()), "Wire 0.00 P P;\n");
}

TEST(WriteArc, JudgesNearnessBeforeTheRange) {
  // Start and diameter point on the diagonal, the diameter point out of range.
  const double side = std::sqrt(0.5) * 100.0;
  const Arc arc(800.0, 800.0, 100.0, 225.0, 270.0, {.arcRangeCheck = true});
  EXPECT_EQ(layoutOf(arc.script), "Wire  0.00 P P;\n");
  expectPoints(arc.script, {{800 - side, 800 - side}, {800, 700}});
}

TEST(WriteArc, WritesNothingOnALayerThatIsNotConverted) {
  ScriptCapture capture;
  writeArc(capture.context, 10.0, 20.0, 2.0, 0.0, 90.0, 999);
  EXPECT_EQ(capture.take(), "");
  EXPECT_EQ(capture.script.commandCount(), 0U);
}

TEST(WriteArc, RefusesNumbersThatAreNotFinite) {
  ScriptCapture capture;
  EXPECT_THROW(writeArc(capture.context, 0.0, 0.0, HUGE_VAL, 10.0, 90.0, 7), base::RunTimeError);
  EXPECT_THROW(writeArc(capture.context, HUGE_VAL, 0.0, 1.0, 10.0, 90.0, 7), base::RunTimeError);
  EXPECT_THROW(writeArc(capture.context, 0.0, 0.0, 1.0, HUGE_VAL, 90.0, 7), base::RunTimeError);
}

}  // namespace
}  // namespace quillon::classic
