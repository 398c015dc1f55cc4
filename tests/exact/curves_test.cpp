#include <gtest/gtest.h>

#include "exact_drawing.h"

namespace quillon::testing {
namespace {

TEST(ExactCurves, ALineRunsFromEndToEnd) {
  EXPECT_EQ(shapesOf("LINE", {{10, "1"}, {20, "2"}, {30, "9"}, {11, "4"}, {21, "6"}}),
            "7 wire 0 (1 2) (4 6)\n");
}

TEST(ExactCurves, ALineWithoutLengthIsDroppedAndCounted) {
  for (const char* const end : {"4", "4.000003"}) {
    const ExactDrawing line(oneEntity("LINE", {{10, "4"}, {20, "6"}, {11, end}, {21, "6"}}));
    EXPECT_EQ(line.shapes(), "");
    EXPECT_EQ(line.losses(), "zero-length LINE 1 line 7\n");
  }
  EXPECT_EQ(shapesOf("LINE", {{10, "4"}, {20, "6"}, {11, "4.000004"}, {21, "6"}}),
            "7 wire 0 (4 6) (4.000004 6)\n");
}

TEST(ExactCurves, ForEagle4LinesCanBeLongerAndStillHaveNoLength) {
  exact::Options options;
  options.version = exact::Version::Eagle4;
  EXPECT_EQ(shapesOf("LINE", {{10, "4"}, {20, "6"}, {11, "4.00009"}, {21, "6"}}, options), "");
  EXPECT_EQ(shapesOf("LINE", {{10, "4"}, {20, "6"}, {11, "4.00011"}, {21, "6"}}, options),
            "7 wire 0 (4 6) (4.00011 6)\n");
}

TEST(ExactCurves, ALineWithoutLengthIsAHoleWherePointsAre) {
  exact::Options options;
  options.points = exact::PointStyle::Hole;
  options.pointDrill = 0.8;
  for (const char* const end : {"4", "4.000003"}) {
    EXPECT_EQ(shapesOf("LINE", {{10, "4"}, {20, "6"}, {11, end}, {21, "6"}}, options),
              "7 hole 0.8 (4 6)\n");
  }
  options.target = exact::Target::Schematic;
  const ExactDrawing line(oneEntity("LINE", {{10, "4"}, {20, "6"}, {11, "4"}, {21, "6"}}), options);
  EXPECT_EQ(line.shapes(), "");
  EXPECT_EQ(line.losses(), "zero-length LINE 1 line 7\n");
}

TEST(ExactCurves, AnArcRunsCounterClockwiseBetweenItsAngles) {
  EXPECT_EQ(shapesOf("ARC", {{10, "0"}, {20, "0"}, {40, "5"}, {50, "0"}, {51, "90"}}),
            "7 wire 0 (5 0) +90 (0 5)\n");
}

TEST(ExactCurves, AnArcSeenFromBelowRunsClockwise) {
  EXPECT_EQ(shapesOf("ARC", {{10, "0"}, {20, "0"}, {40, "5"}, {50, "0"}, {51, "90"}, {230, "-1"}}),
            "7 wire 0 (-5 0) -90 (0 5)\n");
}

TEST(ExactCurves, ACircleIsTwoHalvesFromItsLeft) {
  EXPECT_EQ(shapesOf("CIRCLE", {{10, "1"}, {20, "0"}, {40, "2"}}),
            "7 circle 0 (-1 0) +180 (3 0) +180 (-1 0)\n");
}

TEST(ExactCurves, WhatHasNoSizeIsNamed) {
  const ExactDrawing circle(oneEntity("CIRCLE", {{10, "1"}, {20, "0"}, {40, "0"}}));
  EXPECT_EQ(circle.shapes(), "");
  EXPECT_EQ(circle.losses(), "no-size CIRCLE 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
