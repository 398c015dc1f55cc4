#include "exact/dimension_drawing.h"

#include "exact_drawing.h"
#include "exact_item.h"

namespace quillon::testing {
namespace {

/// Extension lines begin 1 away and end 2 beyond; texts are 2.5 high; no arrows.
DxfBuilder dimensionDrawing(const GroupPairs& groups) {
  DxfBuilder dxf = oneEntity("DIMENSION", groups);
  dxf.tableEntry("DIMSTYLE", "STANDARD",
                 {{41, "0"}, {42, "1"}, {44, "2"}, {140, "2.5"}, {147, "1"}, {271, "2"}});
  return dxf;
}

/// With a blank as their text, which is none.
GroupPairs withoutText(GroupPairs groups) {
  groups.push_back({1, " "});
  return groups;
}

/// Everything but the text.
std::string dimensionShapes(const GroupPairs& groups) {
  return ExactDrawing(dimensionDrawing(withoutText(groups))).shapes();
}

/// The text of a dimension: "20.00 at (10 12) R0".
std::string dimensionTextOf(const GroupPairs& groups) {
  std::string result;
  withItems(dimensionDrawing(groups), [&](const exact::Item& item, exact::Canvas& canvas) {
    const exact::DimensionValues values = exact::readDimension(item, canvas);
    const exact::DimensionStyle style = exact::readDimensionStyle(item, canvas);
    const auto figure = exact::dimensionFigure(values, style);
    if (!figure || values.hasNoText) return;
    const exact::ParagraphText text = exact::dimensionParagraph(values, *figure, style);
    result = text.content + " at (" + shortNumber(text.at.x) + " " + shortNumber(text.at.y) +
             ") R" + shortNumber(text.angle);
  });
  return result;
}

GroupPairs linearGroups(const GroupPairs& more = {}) {
  GroupPairs groups = {{10, "20"}, {20, "10"}, {13, "0"}, {23, "0"},
                       {14, "20"}, {24, "0"},  {70, "0"}, {50, "0"}};
  groups.insert(groups.end(), more.begin(), more.end());
  return groups;
}

TEST(ExactDimensions, ALinearOneHasTwoExtensionLinesAndOneBetween) {
  EXPECT_EQ(dimensionShapes(linearGroups()),
            "7 wire 0 (0 1) (0 12) as it is\n"
            "7 wire 0 (20 1) (20 12) as it is\n"
            "7 wire 0 (0 10) (20 10) as it is\n");
  EXPECT_EQ(dimensionTextOf(linearGroups({{11, "10"}, {21, "12"}})), "20.00 at (10 12) R0");
}

TEST(ExactDimensions, ALinearOneMeasuresAlongItsAngleAlone) {
  const GroupPairs vertical = {{10, "-10"}, {20, "0"},  {11, "-12"}, {21, "10"}, {13, "0"},
                               {23, "0"},   {14, "-5"}, {24, "20"},  {70, "32"}, {50, "90"}};
  EXPECT_EQ(dimensionShapes(vertical),
            "7 wire 0 (-1 0) (-12 0) as it is\n"
            "7 wire 0 (-6 20) (-12 20) as it is\n"
            "7 wire 0 (-10 0) (-10 20) as it is\n");
  EXPECT_EQ(dimensionTextOf(vertical), "20.00 at (-12 10) R90");
}

TEST(ExactDimensions, AnAlignedOneRunsAlongItsPoints) {
  const GroupPairs aligned = {{10, "22"}, {20, "46"}, {11, "7"},  {21, "26"}, {13, "0"},
                              {23, "0"},  {14, "30"}, {24, "40"}, {70, "33"}};
  EXPECT_EQ(dimensionShapes(aligned),
            "7 wire 0 (-0.8 0.6) (-9.6 7.2) as it is\n"
            "7 wire 0 (29.2 40.6) (20.4 47.2) as it is\n"
            "7 wire 0 (-8 6) (22 46) as it is\n");
  EXPECT_EQ(dimensionTextOf(aligned), "50.00 at (7 26) R53.130102");
}

TEST(ExactDimensions, ArrowsPointOutwardsAtBothEnds) {
  EXPECT_EQ(
      dimensionShapes(linearGroups(
          {{1001, "ACAD"}, {1000, "DSTYLE"}, {1002, "{"}, {1070, "41"}, {1040, "3"}, {1002, "}"}})),
      "7 wire 0 (0 1) (0 12) as it is\n"
      "7 wire 0 (20 1) (20 12) as it is\n"
      "7 wire 0 (0 10) (20 10) as it is\n"
      "7 area (0 10) (3 9.5) (3 10.5) (0 10)\n"
      "7 area (20 10) (17 10.5) (17 9.5) (20 10)\n");
}

TEST(ExactDimensions, ObliqueExtensionLinesMoveTheDimensionLine) {
  EXPECT_EQ(dimensionShapes(linearGroups({{52, "45"}})),
            "7 wire 0 (0.707107 0.707107) (11.414214 11.414214) as it is\n"
            "7 wire 0 (20.707107 0.707107) (31.414214 11.414214) as it is\n"
            "7 wire 0 (10 10) (30 10) as it is\n");
}

TEST(ExactDimensions, ExtensionLinesCanBeHiddenOrTooShort) {
  DxfBuilder hidden = oneEntity("DIMENSION", withoutText(linearGroups()));
  hidden.tableEntry("DIMSTYLE", "STANDARD", {{41, "0"}, {42, "1"}, {44, "2"}, {75, "1"}});
  EXPECT_EQ(ExactDrawing(hidden).shapes(),
            "7 wire 0 (20 1) (20 12) as it is\n7 wire 0 (0 10) (20 10) as it is\n");
  DxfBuilder shortOnes = oneEntity("DIMENSION", withoutText(linearGroups()));
  shortOnes.tableEntry("DIMSTYLE", "STANDARD", {{41, "0"}, {42, "13"}, {44, "2"}, {76, "1"}});
  EXPECT_EQ(ExactDrawing(shortOnes).shapes(), "7 wire 0 (0 10) (20 10) as it is\n");
}

TEST(ExactDimensions, TicksReplaceArrowsWhereTheyHaveASize) {
  DxfBuilder dxf = oneEntity("DIMENSION", withoutText(linearGroups()));
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}, {75, "1"}, {76, "1"}, {142, "2"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 10) (20 10) as it is\n"
            "7 wire 0 (2 12) (-2 8) as it is\n"
            "7 wire 0 (18 8) (22 12) as it is\n");
}

/// Between the x axis from 2 to 10 and the y axis from 3 to 4, with the arc at this place.
GroupPairs angleBetweenLines(std::string_view x, std::string_view y) {
  return {{10, "0"}, {20, "3"}, {13, "2"}, {23, "0"}, {14, "10"}, {24, "0"},
          {15, "0"}, {25, "4"}, {16, x},   {26, y},   {70, "2"}};
}

TEST(ExactDimensions, AnAngleIsAnArcAroundWhereItsLinesMeet) {
  EXPECT_EQ(dimensionShapes(angleBetweenLines("3", "4")),
            "7 wire 0 (0 5) (0 7) as it is\n"
            "7 wire 0 (5 0) +90 (0 5) as it is\n");
  EXPECT_EQ(dimensionTextOf(angleBetweenLines("3", "4")).substr(0, 5), "90%%d");
}

TEST(ExactDimensions, TheArcsPlaceDecidesWhichAngleOfTwoLinesIsMeant) {
  EXPECT_EQ(dimensionShapes(angleBetweenLines("-3", "4")),
            "7 wire 0 (-1 0) (-7 0) as it is\n"
            "7 wire 0 (0 5) (0 7) as it is\n"
            "7 wire 0 (0 5) +90 (-5 0) as it is\n");
}

TEST(ExactDimensions, AnAngleByPointsCanBeMoreThanHalfATurn) {
  const GroupPairs groups = {{10, "0"}, {20, "-5"}, {11, "0"}, {21, "-7"}, {13, "2"}, {23, "0"},
                             {14, "0"}, {24, "2"},  {15, "0"}, {25, "0"},  {70, "5"}};
  EXPECT_EQ(dimensionShapes(groups),
            "7 wire 0 (3 0) (7 0) as it is\n"
            "7 wire 0 (0 3) (0 7) as it is\n"
            "7 wire 0 (0 5) +270 (5 0) as it is\n");
  EXPECT_EQ(dimensionTextOf(groups), "270%%d at (0 -7) R0");
}

TEST(ExactDimensions, ArrowsOfAnAnglePointAlongItsArc) {
  GroupPairs groups = {{10, "5"}, {20, "0"}, {13, "2"}, {23, "-2"}, {14, "2"},
                       {24, "2"}, {15, "0"}, {25, "0"}, {70, "5"}};
  DxfBuilder dxf = oneEntity("DIMENSION", withoutText(groups));
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}, {75, "1"}, {76, "1"}});
  // At 45 degrees: the tip at 5 * 0.7071; the base 3 back along the tangent, 0.5 to each side.
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (3.535534 -3.535534) +90 (3.535534 3.535534) as it is\n"
            "7 area (3.535534 -3.535534) (6.010408 -1.767767) (5.303301 -1.06066) "
            "(3.535534 -3.535534)\n"
            "7 area (3.535534 3.535534) (5.303301 1.06066) (6.010408 1.767767) "
            "(3.535534 3.535534)\n");
}

TEST(ExactDimensions, ADiameterIsALineAcrossWithTwoArrows) {
  const GroupPairs groups = {{10, "0"},  {20, "0"}, {11, "5"}, {21, "1"},
                             {15, "10"}, {25, "0"}, {70, "3"}};
  EXPECT_EQ(dimensionShapes(groups), "7 wire 0 (0 0) (10 0) as it is\n");
  EXPECT_EQ(dimensionTextOf(groups), "%%c10.00 at (5 1) R0");
  DxfBuilder dxf = oneEntity("DIMENSION", withoutText(groups));
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0) (10 0) as it is\n"
            "7 area (10 0) (7 0.5) (7 -0.5) (10 0)\n"
            "7 area (0 0) (3 -0.5) (3 0.5) (0 0)\n");
}

TEST(ExactDimensions, ARadiusHasOneArrowAtTheCircle) {
  const GroupPairs groups = {{10, "0"},  {20, "0"}, {11, "5"}, {21, "1"},
                             {15, "10"}, {25, "0"}, {70, "4"}};
  EXPECT_EQ(dimensionTextOf(groups), "R10.00 at (5 1) R0");
  DxfBuilder dxf = oneEntity("DIMENSION", withoutText(groups));
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0) (10 0) as it is\n7 area (10 0) (7 0.5) (7 -0.5) (10 0)\n");
}

TEST(ExactDimensions, AnOrdinateMeasuresFromItsOriginAlongOneAxis) {
  const GroupPairs groups = {{10, "1"}, {20, "2"}, {11, "4"}, {21, "20"},
                             {13, "4"}, {23, "7"}, {14, "4"}, {24, "15"}};
  GroupPairs alongX = groups;
  alongX.push_back({70, "70"});
  EXPECT_EQ(dimensionShapes(alongX), "7 wire 0 (4 7) (4 15) as it is\n");
  EXPECT_EQ(dimensionTextOf(alongX), "3.00 at (4 20) R90");
  GroupPairs alongY = groups;
  alongY.push_back({70, "6"});
  EXPECT_EQ(dimensionTextOf(alongY), "5.00 at (4 20) R0");
}

TEST(ExactDimensions, AnOrdinateMeasuresAlongTurnedAxes) {
  EXPECT_EQ(dimensionTextOf({{10, "0"},
                             {20, "0"},
                             {11, "1"},
                             {21, "1"},
                             {13, "0"},
                             {23, "7"},
                             {14, "-5"},
                             {24, "7"},
                             {51, "270"},
                             {70, "70"}}),
            "7.00 at (1 1) R0");
}

TEST(ExactDimensions, TheTextIsReadableAlongItsLineOrHasItsOwnAngle) {
  EXPECT_EQ(dimensionTextOf(linearGroups({{11, "1"}, {21, "1"}, {50, "180"}})),
            "20.00 at (1 1) R0");
  EXPECT_EQ(dimensionTextOf(linearGroups({{11, "1"}, {21, "1"}, {53, "120"}})),
            "20.00 at (1 1) R120");
  const GroupPairs downwards = {{10, "0"}, {20, "0"}, {11, "1"},  {21, "1"}, {13, "0"},
                                {23, "0"}, {14, "0"}, {24, "-4"}, {70, "1"}};
  EXPECT_EQ(dimensionTextOf(downwards), "4.00 at (1 1) R90");
}

TEST(ExactDimensions, ATextWithoutAPlaceGoesAboveTheMiddleOfItsLine) {
  EXPECT_EQ(dimensionTextOf(linearGroups()), "20.00 at (10 12.25) R0");
  EXPECT_EQ(dimensionTextOf(linearGroups({{11, "0"}, {21, "0"}})), "20.00 at (10 12.25) R0");
  EXPECT_EQ(dimensionTextOf(linearGroups({{11, "0"}, {21, "0"}, {70, "128"}})),
            "20.00 at (0 0) R0");
}

TEST(ExactDimensions, AnOwnTextReplacesTheMeasureOrSurroundsIt) {
  const auto textOf = [](std::string_view own) {
    return dimensionTextOf(linearGroups({{11, "1"}, {21, "1"}, {1, own}}));
  };
  EXPECT_EQ(textOf("4x <> H7"), "4x 20.00 H7 at (1 1) R0");
  EXPECT_EQ(textOf("see note"), "see note at (1 1) R0");
  EXPECT_EQ(textOf(""), "20.00 at (1 1) R0");
  EXPECT_EQ(textOf(" "), "");
}

TEST(ExactDimensions, TextsKeepTheirAttachmentAndSpacing) {
  int found = 0;
  const GroupPairs groups = linearGroups({{71, "2"}, {41, "1.5"}, {72, "2"}, {3, "standard"}});
  DxfBuilder dxf = dimensionDrawing(groups);
  withItems(dxf, [&](const exact::Item& item, exact::Canvas& canvas) {
    const exact::DimensionValues values = exact::readDimension(item, canvas);
    const exact::DimensionStyle style = exact::readDimensionStyle(item, canvas);
    const exact::ParagraphText text =
        exact::dimensionParagraph(values, *exact::dimensionFigure(values, style), style);
    EXPECT_EQ(text.attachment, 2);
    EXPECT_EQ(text.lineSpacing, 1.5);
    EXPECT_TRUE(text.exactSpacing);
    EXPECT_EQ(text.height, 2.5);
    ++found;
  });
  EXPECT_EQ(found, 1);
}

TEST(ExactDimensions, SeenFromBelowTheyAreMirrored) {
  // World points 0 to -20 on the x axis are 0 to 20 in the coordinates of the dimension.
  EXPECT_EQ(dimensionShapes({{10, "-20"},
                             {20, "10"},
                             {13, "0"},
                             {23, "0"},
                             {14, "-20"},
                             {24, "0"},
                             {70, "0"},
                             {50, "0"},
                             {230, "-1"}}),
            "7 wire 0 (0 1) (0 12) as it is\n"
            "7 wire 0 (-20 1) (-20 12) as it is\n"
            "7 wire 0 (0 10) (-20 10) as it is\n");
}

TEST(ExactDimensions, InBlocksTheyMeasureWhatTheBlockSays) {
  DxfBuilder dxf;
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "0"}, {75, "1"}, {76, "1"}});
  dxf.beginBlock("B")
      .entity("DIMENSION", {{8, "0"},
                            {10, "20"},
                            {20, "10"},
                            {13, "0"},
                            {23, "0"},
                            {14, "20"},
                            {24, "0"},
                            {70, "0"},
                            {1, " "}})
      .endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}, {41, "2"}, {42, "2"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 20) (40 20) as it is\n");
}

TEST(ExactDimensions, WhatTheMeasureLacksIsNamed) {
  using Counts = std::pair<std::uint64_t, std::uint64_t>;
  const auto lossesOf = [](const GroupPairs& groups, Groups style) {
    DxfBuilder dxf = oneEntity("DIMENSION", groups);
    dxf.tableEntry("DIMSTYLE", "STANDARD", style);
    const ExactDrawing drawing(dxf);
    const exact::LossList& losses = drawing.lossList();
    return Counts(losses.countOf(exact::LossRule::DimensionUnits),
                  losses.countOf(exact::LossRule::DimensionTolerances));
  };
  EXPECT_EQ(lossesOf(linearGroups(), {{71, "1"}, {277, "4"}}), Counts(1, 1));
  EXPECT_EQ(lossesOf(linearGroups(), {{72, "1"}, {277, "2"}}), Counts(0, 1));
  EXPECT_EQ(lossesOf(linearGroups(), {{170, "1"}}), Counts(0, 1));
  EXPECT_EQ(lossesOf(angleBetweenLines("3", "4"), {{275, "3"}}), Counts(1, 0));
  EXPECT_EQ(lossesOf(linearGroups({{1, "see note"}}), {{71, "1"}, {277, "4"}}), Counts(0, 0));
}

TEST(ExactDimensions, TheTextIsDrawnAroundItsPlace) {
  // Capitals of 2.5 whose middle is the place.
  EXPECT_EQ(ExactDrawing(
                dimensionDrawing(
                    {{10, "0"}, {20, "0"}, {11, "5"}, {21, "4"}, {15, "10"}, {25, "0"}, {70, "4"}}))
                .shapes(),
            "7 wire 0 (0 0) (10 0) as it is\n"
            "7 text 'R10.00' 2.5 R0 bottom centre (5 2.75)\n");
}

TEST(ExactDimensions, WithoutPlaceOrSenseTheyAreNamed) {
  const auto lossOf = [](const GroupPairs& groups) {
    const ExactDrawing drawing(oneEntity("DIMENSION", groups));
    EXPECT_EQ(drawing.shapes(), "");
    return drawing.losses();
  };
  EXPECT_EQ(lossOf({{70, "1"}, {13, "5"}, {14, "5"}}), "no-size DIMENSION 1 line 7\n");
  EXPECT_EQ(lossOf({{70, "2"}, {13, "5"}, {14, "6"}, {15, "7"}}), "no-size DIMENSION 1 line 7\n");
  EXPECT_EQ(lossOf({{70, "5"}}), "no-size DIMENSION 1 line 7\n");
  EXPECT_EQ(lossOf({{70, "4"}}), "no-size DIMENSION 1 line 7\n");
  EXPECT_EQ(lossOf({{70, "7"}}), "dimension-without-block DIMENSION 1 line 7\n");
  EXPECT_EQ(lossOf({{70, "0"}, {13, "1e200"}}), "unusable-numbers DIMENSION 1 line 7\n");
  EXPECT_EQ(lossOf({{70, "0"}, {50, "1e999"}}), "unusable-numbers DIMENSION 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
