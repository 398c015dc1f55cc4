#include "exact/annotations.h"

#include <gtest/gtest.h>

#include "exact_drawing.h"
#include "exact_item.h"

namespace quillon::testing {
namespace {

constexpr std::string_view kColourOff = "-7";

/// A block "*D1" with a line from (1 2) to (5 2) on layer 0.
DxfBuilder withDimensionBlock() {
  DxfBuilder dxf;
  dxf.beginBlock("*D1")
      .entity("LINE", {{8, "0"}, {10, "1"}, {20, "2"}, {11, "5"}, {21, "2"}})
      .endBlock();
  return dxf;
}

/// An arrow block: a line of a unit behind the tip.
DxfBuilder withArrowBlock() {
  DxfBuilder dxf;
  dxf.tableEntry("BLOCK_RECORD", "_Mine", {{5, "1F"}});
  dxf.beginBlock("_MINE")
      .entity("LINE", {{8, "0"}, {10, "-1"}, {20, "0"}, {11, "0"}, {21, "0"}})
      .endBlock();
  return dxf;
}

/// From (0 0) to (20 0), 10 above them, without a text.
DxfBuilder& linearDimension(DxfBuilder& dxf, std::string_view layer = "0") {
  return dxf.entity("DIMENSION", {{8, layer},
                                  {10, "20"},
                                  {20, "10"},
                                  {13, "0"},
                                  {23, "0"},
                                  {14, "20"},
                                  {24, "0"},
                                  {70, "0"},
                                  {1, " "}});
}

TEST(ExactDimensionBlocks, TheBlockIsDrawnWhereItIsAndNotMovedByGroupTen) {
  DxfBuilder dxf = withDimensionBlock();
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*d1"}, {10, "50"}, {20, "50"}, {70, "32"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (1 2) (5 2) as it is\n");
}

TEST(ExactDimensionBlocks, GroupTwelveMovesTheBlockAndItsBasePointIsSubtracted) {
  DxfBuilder dxf;
  dxf.beginBlock("*D1", "1", "1")
      .entity("LINE", {{8, "0"}, {10, "1"}, {20, "2"}, {11, "5"}, {21, "2"}})
      .endBlock();
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}, {12, "10"}, {22, "20"}, {70, "32"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (10 21) (14 21) as it is\n");
}

TEST(ExactDimensionBlocks, GroupTwelveIsInObjectCoordinates) {
  DxfBuilder dxf = withDimensionBlock();
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}, {12, "10"}, {22, "0"}, {230, "-1"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (-9 2) (-5 2) as it is\n");
}

TEST(ExactDimensionBlocks, LayerZeroInThemIsTheDimensionsLayer) {
  LayersOfTest layers;
  layers.numbers["DIMS"] = 51;
  DxfBuilder dxf = withDimensionBlock();
  dxf.entity("DIMENSION", {{8, "Dims"}, {2, "*D1"}});
  EXPECT_EQ(ExactDrawing(dxf, {}, layers).shapes(), "51 wire 0 (1 2) (5 2) as it is\n");
}

TEST(ExactDimensionBlocks, MissingAndEmptyBlocksAreReplacedByTheDimensionsPoints) {
  const std::string expected = "7 wire 0 (0 10) (20 10) as it is\n";
  for (const std::string_view block : {"LOST", "EMPTY", "FULL"}) {
    DxfBuilder dxf;
    dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "0"}, {75, "1"}, {76, "1"}});
    dxf.beginBlock("EMPTY").endBlock();
    dxf.beginBlock("FULL").entity("POINT", {{8, "0"}, {10, "9"}, {20, "9"}}).endBlock();
    dxf.entity("DIMENSION", {{8, "0"},
                             {2, block},
                             {10, "20"},
                             {20, "10"},
                             {13, "0"},
                             {23, "0"},
                             {14, "20"},
                             {24, "0"},
                             {1, " "}});
    EXPECT_EQ(ExactDrawing(dxf).shapes(), block == "FULL" ? "7 dot 0.1 (9 9)\n" : expected);
  }
}

TEST(ExactDimensionBlocks, RareKindsAreDrawnByTheirBlockOrNamed) {
  for (const std::string kind : {"ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"}) {
    DxfBuilder dxf = withDimensionBlock();
    dxf.entity(kind, {{8, "0"}, {2, "*D1"}, {10, "50"}, {20, "50"}});
    EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (1 2) (5 2) as it is\n");
    const ExactDrawing without(oneEntity(kind, {{10, "50"}, {20, "50"}}));
    EXPECT_EQ(without.shapes(), "");
    EXPECT_EQ(without.losses(), "dimension-without-block " + kind + " 1 line 7\n");
  }
}

TEST(ExactDimensionBlocks, OnLayersThatAreOffOnlyWhatIsOnOthersShows) {
  DxfBuilder dxf;
  dxf.layer("DARK", {{70, "0"}, {62, kColourOff}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.beginBlock("*D1")
      .entity("LINE", {{8, "0"}, {10, "1"}, {20, "2"}, {11, "5"}, {21, "2"}})
      .entity("LINE", {{8, "OTHER"}, {10, "1"}, {20, "3"}, {11, "5"}, {21, "3"}})
      .endBlock();
  dxf.entity("DIMENSION", {{8, "DARK"}, {2, "*D1"}});
  linearDimension(dxf, "DARK");
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (1 3) (5 3) as it is\n");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::LayerOff), 2U);
  exact::Options all;
  all.hiddenLayers = true;
  EXPECT_NE(ExactDrawing(dxf, all).shapes().find("(0 10) (20 10)"), std::string::npos);
}

TEST(ExactDimensionBlocks, LayersThatAreNotConvertedGetNoLinesOfDimensions) {
  DxfBuilder dxf;
  linearDimension(dxf, "NOWHERE");
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "");
  EXPECT_EQ(ExactDrawing(dxf).losses(), "");
}

TEST(ExactArrows, BothArrowsOfADimensionCanBeABlock) {
  DxfBuilder dxf = withArrowBlock();
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}, {75, "1"}, {76, "1"}, {342, "1F"}});
  linearDimension(dxf);
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (0 10) (20 10) as it is\n"
            "7 wire 0 (17 10) (20 10) as it is\n"
            "7 wire 0 (3 10) (0 10) as it is\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactArrows, TheArrowsOfADimensionCanDiffer) {
  DxfBuilder dxf = withArrowBlock();
  dxf.tableEntry("BLOCK_RECORD", "_None", {{5, "2A"}});
  dxf.tableEntry("DIMSTYLE", "STANDARD",
                 {{41, "3"}, {75, "1"}, {76, "1"}, {173, "1"}, {343, "1F"}, {344, "2A"}});
  linearDimension(dxf);
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 10) (20 10) as it is\n7 wire 0 (3 10) (0 10) as it is\n");
}

TEST(ExactArrows, ABlockWithinAnotherOfTheSameDimensionIsDrawnInBoth) {
  DxfBuilder dxf = withArrowBlock();
  dxf.tableEntry("BLOCK_RECORD", "_Pair", {{5, "2A"}});
  dxf.beginBlock("_PAIR")
      .entity("INSERT", {{8, "0"}, {2, "_MINE"}, {10, "0"}, {20, "0"}})
      .endBlock();
  dxf.tableEntry("DIMSTYLE", "STANDARD",
                 {{41, "3"}, {75, "1"}, {76, "1"}, {173, "1"}, {343, "1F"}, {344, "2A"}});
  linearDimension(dxf);
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (0 10) (20 10) as it is\n"
            "7 wire 0 (17 10) (20 10) as it is\n"
            "7 wire 0 (3 10) (0 10) as it is\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactArrows, AMissingBlockIsATriangleAndNamed) {
  DxfBuilder dxf;
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{5, "mine"}, {41, "3"}, {75, "1"}, {76, "1"}});
  linearDimension(dxf);
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (0 10) (20 10) as it is\n"
            "7 area (0 10) (3 9.5) (3 10.5) (0 10)\n"
            "7 area (20 10) (17 10.5) (17 9.5) (20 10)\n");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::ArrowReplaced), 1U);
}

GroupPairs leaderGroups(const GroupPairs& more = {}) {
  GroupPairs groups = {{10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}, {10, "15"}, {20, "5"}};
  groups.insert(groups.end(), more.begin(), more.end());
  return groups;
}

DxfBuilder oneLeader(const GroupPairs& more) {
  DxfBuilder dxf = oneEntity("LEADER", leaderGroups(more));
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}});
  return dxf;
}

TEST(ExactLeaders, ALeaderIsAChainWithAnArrowAtItsStart) {
  EXPECT_EQ(ExactDrawing(oneLeader({{71, "1"}})).shapes(),
            "7 wire 0 (0 0) (10 0) (15 5) as it is\n"
            "7 area (0 0) (3 -0.5) (3 0.5) (0 0)\n");
}

TEST(ExactLeaders, TheArrowCanBeLeftOut) {
  EXPECT_EQ(ExactDrawing(oneLeader({{71, "0"}})).shapes(),
            "7 wire 0 (0 0) (10 0) (15 5) as it is\n");
}

TEST(ExactLeaders, LeadersHaveAnArrowBlockOfTheirOwn) {
  DxfBuilder dxf = withArrowBlock();
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}, {341, "1F"}});
  dxf.entity("LEADER", {{8, "0"}, {71, "1"}, {10, "0"}, {20, "0"}, {10, "0"}, {20, "8"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0) (0 8) as it is\n7 wire 0 (0 3) (0 0) as it is\n");
}

TEST(ExactLeaders, AStraightSplineIsALineWithAnArrowAlongIt) {
  DxfBuilder dxf =
      oneEntity("LEADER", {{71, "1"}, {72, "1"}, {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}});
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0) (10 0) as it is\n7 area (0 0) (3 -0.5) (3 0.5) (0 0)\n");
}

TEST(ExactLeaders, ASplineIsACurveFromItsFirstToItsLastPoint) {
  const std::string shapes = ExactDrawing(oneLeader({{71, "0"}, {72, "1"}})).shapes();
  EXPECT_EQ(shapes.substr(0, 15), "7 wire 0 (0 0) ");
  EXPECT_NE(shapes.find(" +"), std::string::npos);
  EXPECT_NE(shapes.find(" (15 5) as it is\n"), std::string::npos);
}

TEST(ExactLeaders, LeadersWithoutLengthAreNamed) {
  EXPECT_EQ(ExactDrawing(oneEntity("LEADER", {{71, "1"}})).losses(), "no-size LEADER 1 line 7\n");
  EXPECT_EQ(ExactDrawing(oneEntity("LEADER", {{10, "1"}, {20, "1"}})).losses(),
            "no-size LEADER 1 line 7\n");
  EXPECT_EQ(
      ExactDrawing(oneEntity("LEADER", {{10, "1"}, {20, "1"}, {10, "1"}, {20, "1"}})).losses(),
      "zero-length LEADER 1 line 7\n");
  EXPECT_EQ(
      ExactDrawing(oneEntity("LEADER", {{10, "1e200"}, {20, "1"}, {10, "1"}, {20, "1"}})).shapes(),
      "");
}

TEST(ExactTolerances, TheTextOfAToleranceHasNoFrame) {
  DxfBuilder dxf = oneEntity("TOLERANCE", {{3, "STANDARD"},
                                           {10, "1"},
                                           {20, "2"},
                                           {11, "0"},
                                           {21, "1"},
                                           {1, "{\\Fgdt;j}%%v0.05%%V%%vA"}});
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{140, "2.5"}});
  int found = 0;
  withItems(dxf, [&](const exact::Item& item, exact::Canvas& canvas) {
    const exact::ParagraphText text = exact::toleranceText(item, canvas);
    EXPECT_EQ(text.content, "{\\Fgdt;j} 0.05  A");
    EXPECT_EQ(text.at, (geometry::Point{1.0, 2.0}));
    EXPECT_EQ(text.height, 2.5);
    EXPECT_EQ(text.angle, 90.0);
    EXPECT_EQ(text.attachment, 4);
    ++found;
  });
  EXPECT_EQ(found, 1);
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(), "7 text 'j 0.05  A' 2.5 R90 bottom left (2.25 2)\n");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::ToleranceFrame), 1U);
}

TEST(ExactTables, ATableIsItsBlockTurnedByItsDirection) {
  DxfBuilder dxf;
  dxf.beginBlock("*T1", "1", "0")
      .entity("LINE", {{8, "0"}, {10, "1"}, {20, "0"}, {11, "3"}, {21, "0"}})
      .endBlock();
  dxf.entity("ACAD_TABLE", {{8, "0"},
                            {2, "*t1"},
                            {10, "5"},
                            {20, "6"},
                            {11, "0"},
                            {21, "2"},
                            {2, "a part of a long text"},
                            {10, "99"},
                            {11, "1"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (5 6) (5 8) as it is\n");
}

TEST(ExactTables, ATableSeenFromBelowIsMirrored) {
  DxfBuilder dxf;
  dxf.beginBlock("*T1")
      .entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "3"}, {21, "1"}})
      .endBlock();
  dxf.entity("ACAD_TABLE",
             {{8, "0"}, {2, "*T1"}, {10, "5"}, {20, "6"}, {11, "-1"}, {21, "0"}, {230, "-1"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (5 6) (2 7) as it is\n");
}

TEST(ExactTables, ATableWithoutItsBlockIsNamed) {
  EXPECT_EQ(ExactDrawing(oneEntity("ACAD_TABLE", {{2, "*T1"}})).losses(),
            "missing-block ACAD_TABLE *T1 1 line 7\n");
  EXPECT_EQ(ExactDrawing(oneEntity("ACAD_TABLE", {{10, "1"}})).losses(),
            "missing-block ACAD_TABLE 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
