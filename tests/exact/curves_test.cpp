#include <gtest/gtest.h>

#include "exact_drawing.h"

namespace quillon::testing {
namespace {

TEST(ExactCurves, ALineRunsFromEndToEnd) {
  EXPECT_EQ(shapesOf("LINE", {{10, "1"}, {20, "2"}, {30, "9"}, {11, "4"}, {21, "6"}}),
            "7 wire 0 (1 2) (4 6)\n");
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
