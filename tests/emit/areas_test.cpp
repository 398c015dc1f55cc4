#include "emit/areas.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

#include "emit/script_points.h"
#include "support/script_capture.h"

namespace quillon::emit {
namespace {

using testing::kRangeNote;
using testing::ScriptCapture;

constexpr Corner kA{0.0, 0.0};
constexpr Corner kB{1.0, 0.0};
constexpr Corner kC{1.0, 1.0};
constexpr Corner kD{0.0, 1.0};
const std::string kTextA = "(0.0000000 0.0000000)";
const std::string kTextB = "(1.0000000 0.0000000)";
const std::string kTextC = "(1.0000000 1.0000000)";
const std::string kTextD = "(0.0000000 1.0000000)";

std::string solid(const std::array<Corner, 4>& corners) {
  ScriptCapture capture;
  writeSolid(capture.context, corners, 3);
  return capture.take();
}

TEST(WriteSolid, WritesFourCornersAndTheFirstOnceMoreWithoutBlanksBetween) {
  EXPECT_EQ(solid({kA, kB, kC, kD}),
            "Layer  3 ;\n"
            "Polygon 0.0000000 (0.0000000 0.0000000) (1.0000000 0.0000000)(1.0000000 1.0000000)"
            "(0.0000000 1.0000000)(0.0000000 0.0000000);\n");
}

TEST(WriteSolid, CountsTheLayerAndThePolygon) {
  ScriptCapture capture;
  writeSolid(capture.context, {kA, kB, kC, kD}, 3);
  EXPECT_EQ(capture.script.commandCount(), 2U);
}

TEST(WriteSolid, WritesTheFillWidth) {
  ScriptCapture capture({.unit = 1, .relativeCoords = 0}, {.fillWidth = 0.25});
  writeSolid(capture.context, {kA, kB, kC, kD}, 3);
  EXPECT_TRUE(capture.take().starts_with("Layer  3 ;\nPolygon 0.2500000 (0.0000000 0.0000000) ("));
}

TEST(WriteSolid, KeepsTheOrderOfTheCorners) {
  EXPECT_EQ(solid({kA, kB, kD, kC}), "Layer  3 ;\nPolygon 0.0000000 " + kTextA + " " + kTextB +
                                         kTextD + kTextC + kTextA + ";\n");
}

TEST(WriteSolid, WritesNothingForATriangle) { EXPECT_EQ(solid({kA, kB, kC, kC}), ""); }

TEST(WriteSolid, WritesNothingWhenFewerThanThreeCornersChange) {
  EXPECT_EQ(solid({kA, kA, kA, kA}), "");
  EXPECT_EQ(solid({kA, kA, kB, kB}), "");
  EXPECT_EQ(solid({kA, kA, kB, kC}), "");
  EXPECT_EQ(solid({kA, kB, kB, kC}), "");
  EXPECT_EQ(solid({kA, kB, kB, kB}), "");
}

TEST(WriteSolid, CountsNothingWhenItWritesNothing) {
  ScriptCapture capture;
  writeSolid(capture.context, {kA, kB, kC, kC}, 3);
  writeSolid(capture.context, {kA, kB, kC, kD}, 999);
  EXPECT_EQ(capture.take(), "");
  EXPECT_EQ(capture.script.commandCount(), 0U);
}

TEST(WriteSolid, LeavesTheThirdCornerOutWhenItIsTheFirst) {
  EXPECT_EQ(solid({kA, kB, kA, kC}),
            "Layer  3 ;\nPolygon 0.0000000 " + kTextA + " " + kTextB + kTextC + kTextA + ";\n");
}

TEST(WriteSolid, LeavesTheFourthCornerOutWhenItIsTheSecond) {
  EXPECT_EQ(solid({kA, kB, kC, kB}),
            "Layer  3 ;\nPolygon 0.0000000 " + kTextA + " " + kTextB + kTextC + kTextA + ";\n");
}

TEST(WriteSolid, WritesAFourthCornerThatIsTheFirstOnlyOnce) {
  EXPECT_EQ(solid({kA, kB, kC, kA}),
            "Layer  3 ;\nPolygon 0.0000000 " + kTextA + " " + kTextB + kTextC + kTextA + ";\n");
}

TEST(WriteSolid, LeavesOutBothCornersThatTurnBack) {
  EXPECT_EQ(solid({kA, kB, kA, kB}),
            "Layer  3 ;\nPolygon 0.0000000 " + kTextA + " " + kTextB + kTextA + ";\n");
}

TEST(WriteSolid, TakesCornersThatDifferInOneCoordinateOnlyAsDifferent) {
  EXPECT_NE(solid({Corner{0, 0}, {0, 1}, {0, 2}, {0, 3}}), "") << "in y";
  EXPECT_NE(solid({Corner{0, 0}, {1, 0}, {2, 0}, {3, 0}}), "") << "in x";
}

TEST(WriteSolid, ComparesCornersToTheLastBit) {
  const Corner nearlyC{1.0, std::nextafter(1.0, 2.0)};
  EXPECT_EQ(solid({kA, kB, kC, nearlyC}), "Layer  3 ;\nPolygon 0.0000000 " + kTextA + " " + kTextB +
                                              kTextC + kTextC + kTextA + ";\n");
}

TEST(WriteSolid, IsFollowedByTheRangeNote) {
  ScriptCapture capture;
  writeSolid(capture.context, {kA, Corner{900, 0}, {900, 900}, kD}, 3);
  EXPECT_TRUE(capture.take().ends_with(";\n" + std::string(kRangeNote)));
  EXPECT_EQ(capture.script.commandCount(), 3U);
}

class WritePolygon : public ::testing::Test {
 protected:
  ScriptCapture capture;
  PolygonWriter polygon{capture.context};
};

TEST_F(WritePolygon, WritesVerticesOnContinuedLines) {
  polygon.open(kA, kB, 3);
  polygon.add(kC, 3);
  polygon.add(kD, 3);
  polygon.close(3);
  EXPECT_EQ(capture.take(), "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB + "\\\n" +
                                kTextC + "\\\n" + kTextD + kTextD + ";\n");
}

TEST_F(WritePolygon, EndsItsContinuedLinesWithCrLf) {
  polygon.open(kA, kB, 3);
  polygon.add(kC, 3);
  polygon.close(3);
  capture.script.flush();
  EXPECT_EQ(capture.sink.text, "Layer  3 ;\r\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB +
                                   "\\\r\n" + kTextC + kTextC + ";\r\n");
}

TEST_F(WritePolygon, LeavesItsLineUnfinishedUntilItIsClosed) {
  polygon.open(kA, kB, 3);
  EXPECT_EQ(capture.take(), "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB);
  polygon.add(kC, 3);
  EXPECT_EQ(capture.take(), "\\\n" + kTextC);
  polygon.close(3);
  EXPECT_EQ(capture.take(), kTextC + ";\n");
}

TEST_F(WritePolygon, CountsTwoForOpeningAndOneForEveryFurtherStep) {
  polygon.open(kA, kB, 3);
  EXPECT_EQ(capture.script.commandCount(), 2U);
  polygon.add(kC, 3);
  EXPECT_EQ(capture.script.commandCount(), 3U);
  polygon.add(kD, 3);
  EXPECT_EQ(capture.script.commandCount(), 4U);
  polygon.close(3);
  EXPECT_EQ(capture.script.commandCount(), 5U);
}

TEST_F(WritePolygon, WritesEqualFirstVerticesOnce) {
  polygon.open(kA, kA, 3);
  polygon.add(kB, 3);
  polygon.close(3);
  EXPECT_EQ(capture.take(),
            "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " \\\n" + kTextB + kTextB + ";\n");
}

TEST_F(WritePolygon, LeavesOutAVertexEqualToTheLastOne) {
  polygon.open(kA, kB, 3);
  polygon.add(kB, 3);
  EXPECT_EQ(capture.script.commandCount(), 2U);
  polygon.add(kC, 3);
  polygon.add(kC, 3);
  polygon.add(kB, 3);
  polygon.close(3);
  EXPECT_EQ(capture.take(), "Layer  3 ;\nPolygon 0.0000000 '1' " + kTextA + " " + kTextB + "\\\n" +
                                kTextC + "\\\n" + kTextB + kTextB + ";\n");
  EXPECT_EQ(capture.script.commandCount(), 5U);
}

TEST_F(WritePolygon, WritesAVertexThatDiffersInOneCoordinate) {
  polygon.open(kA, kB, 3);
  polygon.add({1.0, 2.0}, 3);
  polygon.add({4.0, 2.0}, 3);
  polygon.close(3);
  EXPECT_EQ(testing::countOf("\\\n", capture.take()), 2U);
}

TEST_F(WritePolygon, NumbersPolygonsFromOne) {
  for (int i = 1; i <= 11; ++i) {
    polygon.open(kA, kB, 3);
    polygon.close(3);
    EXPECT_EQ(testing::countOf(" '" + std::to_string(i) + "' (", capture.take()), 1U);
  }
}

TEST_F(WritePolygon, WritesTheFillWidth) {
  capture.settings.fillWidth = 0.5;
  polygon.open(kA, kB, 3);
  EXPECT_TRUE(capture.take().starts_with("Layer  3 ;\nPolygon 0.5000000 '1' ("));
}

TEST_F(WritePolygon, WritesAndNumbersNothingOnALayerThatIsNotConverted) {
  polygon.open(kA, kB, 999);
  polygon.add(kC, 999);
  polygon.close(999);
  EXPECT_EQ(capture.take(), "");
  EXPECT_EQ(capture.script.commandCount(), 0U);
  polygon.open(kA, kB, 3);
  EXPECT_TRUE(capture.take().starts_with("Layer  3 ;\nPolygon 0.0000000 '1' "));
}

TEST_F(WritePolygon, NotesTheRangeWhenItIsClosed) {
  polygon.open(kA, {900.0, 0.0}, 3);
  polygon.add(kC, 3);
  EXPECT_EQ(testing::countOf("#", capture.take()), 0U);
  polygon.close(3);
  EXPECT_EQ(capture.take(), kTextC + ";\n" + std::string(kRangeNote));
  EXPECT_EQ(capture.script.commandCount(), 5U);
}

}  // namespace
}  // namespace quillon::emit
