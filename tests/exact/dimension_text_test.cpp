#include "exact/dimension_text.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::testing {
namespace {

using exact::Measured;

std::string lengthTextOf(double length, const exact::DimensionNumbers& numbers) {
  return exact::measureText(length, Measured::Length, numbers);
}

TEST(ExactMeasures, LengthsHaveTheStylesDecimals) {
  EXPECT_EQ(lengthTextOf(12.5, {}), "12.5000");
  EXPECT_EQ(lengthTextOf(12.345, {.decimals = 1}), "12.3");
  EXPECT_EQ(lengthTextOf(12.345, {.decimals = 0}), "12");
  EXPECT_EQ(lengthTextOf(12.345, {.decimals = -7}), "12");
  EXPECT_EQ(lengthTextOf(0.1, {.decimals = 900}), "0.10000000");
}

TEST(ExactMeasures, ZerosBeforeAndAtTheEndCanBeLeftOut) {
  EXPECT_EQ(lengthTextOf(12.5, {.zeros = 8}), "12.5");
  EXPECT_EQ(lengthTextOf(12.0, {.zeros = 8}), "12");
  EXPECT_EQ(lengthTextOf(0.5, {.zeros = 4}), ".5000");
  EXPECT_EQ(lengthTextOf(0.5, {.zeros = 12}), ".5");
  EXPECT_EQ(lengthTextOf(0.0, {.zeros = 12}), "0");
  EXPECT_EQ(lengthTextOf(100.0, {.decimals = 0, .zeros = 8}), "100");
}

TEST(ExactMeasures, TheFactorAndTheRoundingOfTheStyleCount) {
  EXPECT_EQ(lengthTextOf(2.0, {.factor = 25.4, .decimals = 1}), "50.8");
  EXPECT_EQ(lengthTextOf(12.3, {.rounding = 0.5, .decimals = 2}), "12.50");
  EXPECT_EQ(lengthTextOf(12.3, {.rounding = 1e-320, .decimals = 2}), "12.30");
}

TEST(ExactMeasures, TheDecimalPointIsThatOfTheStyle) {
  EXPECT_EQ(lengthTextOf(12.5, {.decimals = 2, .zeros = 8, .decimalPoint = ','}), "12,5");
}

TEST(ExactMeasures, RadiiDiametersAndAnglesHaveTheirSigns) {
  const exact::DimensionNumbers numbers{.decimals = 1};
  EXPECT_EQ(exact::measureText(5.0, Measured::Radius, numbers), "R5.0");
  EXPECT_EQ(exact::measureText(5.0, Measured::Diameter, numbers), "%%c5.0");
  EXPECT_EQ(exact::measureText(45.25, Measured::Angle, numbers), "45%%d");
}

TEST(ExactMeasures, AnglesHaveDecimalsOfTheirOwnAndNoFactor) {
  EXPECT_EQ(exact::measureText(45.25, Measured::Angle, {.factor = 2.0, .angleDecimals = 2}),
            "45.25%%d");
  EXPECT_EQ(exact::measureText(45.5, Measured::Angle, {.decimals = 3, .angleDecimals = -1}),
            "45.500%%d");
  EXPECT_EQ(exact::measureText(45.5, Measured::Angle, {.angleDecimals = 3, .angleZeros = 2}),
            "45.5%%d");
}

TEST(ExactMeasures, TheStylesTextSurroundsTheMeasureOrFollowsIt) {
  EXPECT_EQ(lengthTextOf(2.0, {.decimals = 0, .around = "M<>x1"}), "M2x1");
  EXPECT_EQ(lengthTextOf(2.0, {.decimals = 0, .around = " mm"}), "2 mm");
  EXPECT_EQ(exact::measureText(5.0, Measured::Radius, {.decimals = 0, .around = "(<>)"}), "(R5)");
}

TEST(ExactMeasures, HugeOnesAreNoMeasures) {
  EXPECT_EQ(lengthTextOf(1e100, {.decimals = 0}).size(), 101U);
  EXPECT_EQ(lengthTextOf(1e99, {.factor = 1e99, .decimals = 0}), "0");
}

TEST(ExactDimensionTexts, TheMeasureStandsWhereItsMarkIs) {
  EXPECT_EQ(exact::dimensionText("", "12"), "12");
  EXPECT_EQ(exact::dimensionText("<>", "12"), "12");
  EXPECT_EQ(exact::dimensionText("2x <> \\Pdeep", "12"), "2x 12 \\Pdeep");
  EXPECT_EQ(exact::dimensionText("abc", "12"), "abc");
}

TEST(ExactDimensionTexts, AlternateUnitsAreLeftOut) {
  EXPECT_EQ(exact::dimensionText("<>[]", "12"), "12");
  EXPECT_EQ(exact::dimensionText("[] a [] b", "12"), " a  b");
}

TEST(ExactDimensionTexts, OnlyTheFirstMarkIsReplacedSoThatTextsStayShort) {
  EXPECT_EQ(exact::dimensionText("<> <>", "12"), "12 <>");
  EXPECT_EQ(exact::dimensionText("<>", "<>"), "<>");
}

}  // namespace
}  // namespace quillon::testing
