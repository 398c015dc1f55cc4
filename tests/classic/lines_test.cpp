// Continuous lines and points.
#include "classic/lines.h"

#include <gtest/gtest.h>

#include <string>

#include "base/run_time_error.h"
#include "support/infinity.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::kInfinity;
using testing::kRangeNote;
using testing::ScriptCapture;

/// A continuous line.
void line(ScriptCapture& capture, double x1, double y1, double x2, double y2, int layer,
          double width) {
  writeLine(capture.context, x1, y1, x2, y2, layer, nullptr, width);
}

TEST(WriteLine, WritesTheLayerAndOneWire) {
  ScriptCapture capture;
  line(capture, 0.0, 0.0, 10.0, 5.0, 20, 0.254);
  EXPECT_EQ(capture.take(),
            "Layer  20 ;\nWire 0.2540000 (0.0000000 0.0000000) (10.0000000 5.0000000);\n");
  EXPECT_EQ(capture.script.commandCount(), 2U);
}

TEST(WriteLine, WritesTheWidthWithoutItsSign) {
  ScriptCapture capture;
  line(capture, 1.0, 2.0, 3.0, 4.0, 1, -0.5);
  EXPECT_EQ(capture.take(),
            "Layer  1 ;\nWire 0.5000000 (1.0000000 2.0000000) (3.0000000 4.0000000);\n");
}

TEST(WriteLine, AddsTheOffsetsToBothEnds) {
  ScriptCapture capture({.form = eagle::PointForm::FromMark, .offsetX = 100.0, .offsetY = 200.0});
  line(capture, 1.0, 2.0, 3.0, 4.0, 1, 0.0);
  EXPECT_EQ(capture.take(),
            "Layer  1 ;\n"
            "Wire 0.0000000 (R101.0000000 202.0000000) (R103.0000000 204.0000000);\n");
}

TEST(WriteLine, IsFollowedByTheRangeNote) {
  ScriptCapture capture;
  line(capture, 0.0, 0.0, 900.0, 0.0, 1, 0.0);
  EXPECT_EQ(capture.take(),
            "Layer  1 ;\nWire 0.0000000 (0.0000000 0.0000000) (900.0000000 0.0000000);\n" +
                std::string(kRangeNote));
  EXPECT_EQ(capture.script.commandCount(), 3U);
  EXPECT_TRUE(capture.script.rangeWarning());
}

TEST(WriteLine, WritesNothingOnALayerThatIsNotConverted) {
  ScriptCapture capture;
  line(capture, 0.0, 0.0, 900.0, 0.0, 999, 0.0);
  EXPECT_EQ(capture.take(), "");
  EXPECT_EQ(capture.script.commandCount(), 0U);
  EXPECT_FALSE(capture.script.rangeWarning());
}

TEST(WriteLine, LeavesTheCallersStartPointWhereItIsWithoutDashes) {
  ScriptCapture capture;
  double x = 1.0;
  double y = 2.0;
  writeLine(capture.context, x, y, 5.0, 6.0, 1, nullptr, 0.0);
  EXPECT_EQ(x, 1.0);
  EXPECT_EQ(y, 2.0);
}

TEST(WriteLine, RefusesNumbersThatAreNotFinite) {
  ScriptCapture capture;
  EXPECT_THROW(line(capture, 0.0, kInfinity, 1.0, 1.0, 1, 0.0), base::RunTimeError);
  EXPECT_THROW(line(capture, 0.0, 0.0, -kInfinity, 1.0, 1, 0.0), base::RunTimeError);
  EXPECT_THROW(line(capture, 0.0, 0.0, 1.0, 1.0, 1, kInfinity), base::RunTimeError);
}

TEST(WriteLine, WritesALineWithoutLengthAsOneWire) {
  ScriptCapture capture;
  line(capture, 3.0, 4.0, 3.0, 4.0, 1, 0.0);
  EXPECT_EQ(capture.take(),
            "Layer  1 ;\nWire 0.0000000 (3.0000000 4.0000000) (3.0000000 4.0000000);\n");
}

/// The point of a unit at (10, 20) when the drawing sets no size.
std::string pointIn(base::Unit unit) {
  ScriptCapture capture({.unit = unit});
  writePoint(capture.context, 10.0, 20.0, 5);
  return capture.take();
}

TEST(WritePoint, HasARadiusOfTheUnitWhenTheDrawingGivesNoSize) {
  const std::string start = "Layer  5 ;\nCircle 0.0 (10.0000000 20.0000000) ";
  EXPECT_EQ(pointIn(base::Unit::Mic), start + "(10.0000000 120.0000000);\n");
  EXPECT_EQ(pointIn(base::Unit::Mm), start + "(10.0000000 20.1000000);\n");
  EXPECT_EQ(pointIn(base::Unit::Mil), start + "(10.0000000 20.3940000);\n");
  EXPECT_EQ(pointIn(base::Unit::Inch), start + "(10.0000000 20.0039400);\n");
}

TEST(WritePoint, HasHalfTheSizeThatTheDrawingGivesAsRadiusInEveryUnit) {
  for (int index = 0; index < base::kUnitCount; ++index) {
    const base::Unit unit = base::unitAt(index);
    ScriptCapture capture({.unit = unit}, {.pointSize = 3.0});
    writePoint(capture.context, 10.0, 20.0, 5);
    EXPECT_EQ(capture.take(),
              "Layer  5 ;\nCircle 0.0 (10.0000000 20.0000000) (10.0000000 21.5000000);\n");
  }
}

TEST(WritePoint, CountsTheLayerAndTheCircle) {
  ScriptCapture capture;
  writePoint(capture.context, 1.0, 2.0, 5);
  EXPECT_EQ(capture.script.commandCount(), 2U);
}

TEST(WritePoint, IsFollowedByTheRangeNoteWhenItsTopLeavesTheRange) {
  ScriptCapture capture;
  writePoint(capture.context, 0.0, 838.8, 5);
  EXPECT_EQ(capture.take(),
            "Layer  5 ;\nCircle 0.0 (0.0000000 838.8000000) (0.0000000 838.9000000);\n" +
                std::string(kRangeNote));
  EXPECT_EQ(capture.script.commandCount(), 3U);
}

TEST(WritePoint, WritesNothingOnALayerThatIsNotConverted) {
  ScriptCapture capture;
  writePoint(capture.context, 1.0, 2.0, 999);
  EXPECT_EQ(capture.take(), "");
  EXPECT_EQ(capture.script.commandCount(), 0U);
}

}  // namespace
}  // namespace quillon::classic
