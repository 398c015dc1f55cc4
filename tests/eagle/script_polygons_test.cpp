// Polygons written corner by corner.
#include <gtest/gtest.h>

#include <string>

#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::eagle {
namespace {

using testing::kRangeNote;
using testing::ScriptCapture;

constexpr Point kA{0.0, 0.0};
constexpr Point kB{1.0, 0.0};
constexpr Point kC{1.0, 1.0};
constexpr Point kD{0.0, 1.0};
const std::string kTextA = "(0.0000000 0.0000000)";
const std::string kTextB = "(1.0000000 0.0000000)";
const std::string kTextC = "(1.0000000 1.0000000)";
const std::string kTextD = "(0.0000000 1.0000000)";

class ScriptPolygon : public ::testing::Test {
 protected:
  void open(Point first, Point second, double width = 0.0) {
    capture.commands.layer(3);
    capture.commands.openPolygon({width, 1, first, second});
  }

  ScriptCapture capture;
};

TEST_F(ScriptPolygon, WritesVerticesOnContinuedLines) {
  open(kA, kB);
  capture.commands.addToPolygon(kC);
  capture.commands.addToPolygon(kD);
  capture.commands.closePolygon();
  EXPECT_EQ(capture.take(), "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB + "\\\n" +
                                kTextC + "\\\n" + kTextD + kTextD + ";\n");
}

TEST_F(ScriptPolygon, EndsItsContinuedLinesWithCrLf) {
  open(kA, kB);
  capture.commands.addToPolygon(kC);
  capture.commands.closePolygon();
  capture.script.flush();
  EXPECT_EQ(capture.sink.text, "Layer  3 ;\r\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB +
                                   "\\\r\n" + kTextC + kTextC + ";\r\n");
}

TEST_F(ScriptPolygon, LeavesItsLineUnfinishedUntilItIsClosed) {
  open(kA, kB);
  EXPECT_EQ(capture.take(), "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB);
  capture.commands.addToPolygon(kC);
  EXPECT_EQ(capture.take(), "\\\n" + kTextC);
  capture.commands.closePolygon();
  EXPECT_EQ(capture.take(), kTextC + ";\n");
}

TEST_F(ScriptPolygon, CountsTwoForOpeningAndOneForEveryFurtherStep) {
  open(kA, kB);
  EXPECT_EQ(capture.script.commandCount(), 2U);
  capture.commands.addToPolygon(kC);
  EXPECT_EQ(capture.script.commandCount(), 3U);
  capture.commands.addToPolygon(kD);
  EXPECT_EQ(capture.script.commandCount(), 4U);
  capture.commands.closePolygon();
  EXPECT_EQ(capture.script.commandCount(), 5U);
}

TEST_F(ScriptPolygon, WritesEqualFirstVerticesOnce) {
  open(kA, kA);
  capture.commands.addToPolygon(kB);
  capture.commands.closePolygon();
  EXPECT_EQ(capture.take(),
            "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " \\\n" + kTextB + kTextB + ";\n");
}

TEST_F(ScriptPolygon, LeavesOutAVertexEqualToTheLastOne) {
  open(kA, kB);
  capture.commands.addToPolygon(kB);
  EXPECT_EQ(capture.script.commandCount(), 2U);
  capture.commands.addToPolygon(kC);
  capture.commands.addToPolygon(kC);
  capture.commands.addToPolygon(kB);
  capture.commands.closePolygon();
  EXPECT_EQ(capture.take(), "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB + "\\\n" +
                                kTextC + "\\\n" + kTextB + kTextB + ";\n");
  EXPECT_EQ(capture.script.commandCount(), 5U);
}

TEST_F(ScriptPolygon, WritesAVertexThatDiffersInOneCoordinate) {
  open(kA, kB);
  capture.commands.addToPolygon({1.0, 2.0});
  capture.commands.addToPolygon({4.0, 2.0});
  capture.commands.closePolygon();
  EXPECT_EQ(testing::countOf("\\\n", capture.take()), 2U);
}

TEST_F(ScriptPolygon, WritesTheFillWidth) {
  open(kA, kB, 0.5);
  EXPECT_TRUE(capture.take().starts_with("Layer  3 ;\nPolygon 0.5000000 '1' ("));
}

TEST_F(ScriptPolygon, NotesTheRangeWhenItIsClosed) {
  open(kA, {900.0, 0.0});
  capture.commands.addToPolygon(kC);
  EXPECT_EQ(testing::countOf("#", capture.take()), 0U);
  capture.commands.closePolygon();
  EXPECT_EQ(capture.take(), kTextC + ";\n" + std::string(kRangeNote));
  EXPECT_EQ(capture.script.commandCount(), 5U);
}

}  // namespace
}  // namespace quillon::eagle
