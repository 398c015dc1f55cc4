#include "exact_drawing.h"

namespace quillon::testing {
namespace {

/// A point at (1 2) with this $PDMODE and $PDSIZE.
DxfBuilder onePoint(std::string_view mode, std::string_view size, const GroupPairs& more = {}) {
  GroupPairs groups = {{10, "1"}, {20, "2"}, {30, "5"}};
  groups.insert(groups.end(), more.begin(), more.end());
  DxfBuilder dxf = oneEntity("POINT", groups);
  dxf.header("$PDMODE", 70, mode).header("$PDSIZE", 40, size);
  return dxf;
}

std::string pointShapes(std::string_view mode, std::string_view size, const GroupPairs& more = {}) {
  return ExactDrawing(onePoint(mode, size, more)).shapes();
}

TEST(ExactPoints, APointIsADotUnlessTheDrawingSaysOtherwise) {
  EXPECT_EQ(shapesOf("POINT", {{10, "1"}, {20, "2"}}), "7 dot 0.1 (1 2)\n");
  EXPECT_EQ(pointShapes("0", "4"), "7 dot 0.1 (1 2)\n");
}

TEST(ExactPoints, AModeOfOneShowsNothing) {
  const ExactDrawing drawing(onePoint("1", "0"));
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactPoints, APlusReachesItsSizeEachWay) {
  EXPECT_EQ(pointShapes("2", "4"),
            "7 wire 0 (-3 2) (5 2) as it is\n7 wire 0 (1 -2) (1 6) as it is\n");
}

TEST(ExactPoints, ACrossReachesItsSizeEachWay) {
  EXPECT_EQ(pointShapes("3", "4"),
            "7 wire 0 (-3 -2) (5 6) as it is\n7 wire 0 (-3 6) (5 -2) as it is\n");
}

TEST(ExactPoints, ATickGoesUpByHalfItsSize) {
  EXPECT_EQ(pointShapes("4", "4"), "7 wire 0 (1 2) (1 4) as it is\n");
}

TEST(ExactPoints, ACircleHasTheSizeAsItsDiameter) {
  EXPECT_EQ(pointShapes("33", "4"), "7 wire 0 (-1 2) +180 (3 2) +180 (-1 2) as it is\n");
}

TEST(ExactPoints, ASquareHasTheSizeAsItsSide) {
  EXPECT_EQ(pointShapes("65", "4"), "7 wire 0 (-1 0) (3 0) (3 4) (-1 4) (-1 0) as it is\n");
}

TEST(ExactPoints, CircleAndSquareGoWithTheDot) {
  EXPECT_EQ(pointShapes("96", "4"),
            "7 dot 0.1 (1 2)\n"
            "7 wire 0 (-1 2) +180 (3 2) +180 (-1 2) as it is\n"
            "7 wire 0 (-1 0) (3 0) (3 4) (-1 4) (-1 0) as it is\n");
}

TEST(ExactPoints, GlyphsAreTurnedBackByTheirAngle) {
  EXPECT_EQ(pointShapes("4", "4", {{50, "90"}}), "7 wire 0 (1 2) (3 2) as it is\n");
}

TEST(ExactPoints, ASizeInSharesOfTheScreenIsAMillimetreAndNamed) {
  const ExactDrawing drawing(onePoint("4", "-5"));
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (1 2) (1 2.5) as it is\n");
  EXPECT_EQ(drawing.losses(), "point-size-unknown POINT 1 line 21\n");
}

TEST(ExactPoints, GlyphsHaveTheWidthOfPlainLinesAndTheScaleOfTheDrawing) {
  exact::Options options;
  options.lineWidth = 0.2;
  options.factor = 2.0;
  EXPECT_EQ(ExactDrawing(onePoint("4", "4"), options).shapes(),
            "7 wire 0.2 (2 4) (2 8) as it is\n");
}

TEST(ExactPoints, BlocksMoveGlyphsAndDoNotScaleThem) {
  DxfBuilder dxf;
  dxf.header("$PDMODE", 70, "4").header("$PDSIZE", 40, "4");
  dxf.beginBlock("B").entity("POINT", {{8, "0"}, {10, "1"}, {20, "0"}}).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "5"}, {20, "0"}, {41, "3"}, {42, "3"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (8 0) (8 2) as it is\n");
}

TEST(ExactPoints, DotsAndNothingCanBeChosen) {
  exact::Options options;
  options.points = exact::PointStyle::Dot;
  EXPECT_EQ(ExactDrawing(onePoint("34", "4"), options).shapes(), "7 dot 0.1 (1 2)\n");
  options.points = exact::PointStyle::None;
  EXPECT_EQ(ExactDrawing(onePoint("34", "4"), options).shapes(), "");
}

TEST(ExactPoints, PointsCanBeHolesInBoardsAndPackages) {
  exact::Options options;
  options.points = exact::PointStyle::Hole;
  options.pointDrill = 0.8;
  EXPECT_EQ(ExactDrawing(onePoint("3", "4"), options).shapes(), "7 hole 0.8 (1 2)\n");
  options.target = exact::Target::Package;
  EXPECT_EQ(ExactDrawing(onePoint("3", "4"), options).shapes(), "7 hole 0.8 (1 2)\n");
  options.target = exact::Target::Symbol;
  EXPECT_EQ(ExactDrawing(onePoint("4", "4"), options).shapes(), "7 wire 0 (1 2) (1 4) as it is\n");
}

TEST(ExactPoints, PointsThatAreNotWantedAreNamed) {
  exact::Options options;
  options.points = exact::PointStyle::None;
  const ExactDrawing drawing(onePoint("3", "4"), options);
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "point-left-out POINT 1 line 21\n");
  EXPECT_EQ(ExactDrawing(onePoint("1", "4"), options).losses(), "");
}

TEST(ExactPoints, ModesAndPlacesBeyondAllBoundsAreHarmless) {
  EXPECT_EQ(pointShapes("-7", "4"), "7 dot 0.1 (1 2)\n");
  EXPECT_EQ(pointShapes("1e300", "4"),
            "7 wire 0 (-1 2) +180 (3 2) +180 (-1 2) as it is\n"
            "7 wire 0 (-1 0) (3 0) (3 4) (-1 4) (-1 0) as it is\n");
  const ExactDrawing distant(oneEntity("POINT", {{10, "1e300"}, {20, "2"}}));
  EXPECT_EQ(distant.shapes(), "");
  EXPECT_EQ(distant.losses(), "unusable-numbers POINT 1 line 7\n");
}

TEST(ExactEndlessLines, ARayEndsAtItsStartAlone) {
  EXPECT_EQ(shapesOf("RAY", {{10, "1"}, {20, "2"}, {11, "0.6"}, {21, "0.8"}}),
            "7 ray (1 2) (0.6 0.8)\n");
}

TEST(ExactEndlessLines, AnXlineEndsNowhere) {
  EXPECT_EQ(shapesOf("XLINE", {{10, "1"}, {20, "2"}, {11, "0"}, {21, "-1"}}),
            "7 xline (1 2) (0 -1)\n");
}

TEST(ExactEndlessLines, BlocksTurnThem) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("RAY", {{8, "0"}, {10, "1"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "5"}, {20, "0"}, {50, "90"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 ray (5 1) (0 1)\n");
}

TEST(ExactEndlessLines, OneThatIsSeenFromItsEndIsNamed) {
  const ExactDrawing drawing(oneEntity("XLINE", {{10, "1"}, {20, "2"}, {31, "1"}}));
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "unusable-numbers XLINE 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
