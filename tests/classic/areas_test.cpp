#include "classic/areas.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
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

std::string solid(const std::array<Point, 4>& corners) {
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
  ScriptCapture capture({}, {.fillWidth = 0.25});
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
  EXPECT_NE(solid({Point{0, 0}, {0, 1}, {0, 2}, {0, 3}}), "") << "in y";
  EXPECT_NE(solid({Point{0, 0}, {1, 0}, {2, 0}, {3, 0}}), "") << "in x";
}

TEST(WriteSolid, ComparesCornersToTheLastBit) {
  const Point nearlyC{1.0, std::nextafter(1.0, 2.0)};
  EXPECT_EQ(solid({kA, kB, kC, nearlyC}), "Layer  3 ;\nPolygon 0.0000000 " + kTextA + " " + kTextB +
                                              kTextC + kTextC + kTextA + ";\n");
}

TEST(WriteSolid, IsFollowedByTheRangeNote) {
  ScriptCapture capture;
  writeSolid(capture.context, {kA, Point{900, 0}, {900, 900}, kD}, 3);
  EXPECT_TRUE(capture.take().ends_with(";\n" + std::string(kRangeNote)));
  EXPECT_EQ(capture.script.commandCount(), 3U);
}

}  // namespace
}  // namespace quillon::classic
