#include <gtest/gtest.h>

#include "exact_drawing.h"

namespace quillon::testing {
namespace {

DxfBuilder withLineBlock(std::string_view layer = "0") {
  DxfBuilder dxf;
  dxf.beginBlock("B", "1", "0")
      .entity("LINE", {{8, layer}, {10, "1"}, {20, "0"}, {11, "2"}, {21, "0"}})
      .endBlock();
  return dxf;
}

TEST(ExactBlocks, TheBasePointTurnsAndScalesWithTheContent) {
  DxfBuilder dxf = withLineBlock();
  dxf.entity("INSERT",
             {{8, "0"}, {2, "b"}, {10, "5"}, {20, "5"}, {41, "2"}, {42, "2"}, {50, "90"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (5 5) (5 7)\n");
}

TEST(ExactBlocks, ArrayStepsAreTurnedAndNotScaled) {
  DxfBuilder dxf = withLineBlock();
  dxf.entity(
      "INSERT",
      {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}, {41, "2"}, {50, "90"}, {70, "2"}, {44, "10"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (0 2)\n7 wire 0 (0 10) (0 12)\n");
}

// The block's x axis is the world's y axis, its y axis is seen as -0.8 x, its z axis as 0.6 x.
TEST(ExactBlocks, WithinAnObliqueBlockHeightsMoveWhatIsSeen) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE",
              {{8, "0"}, {10, "0"}, {20, "0"}, {30, "5"}, {11, "10"}, {21, "0"}, {31, "10"}})
      .entity(
          "LWPOLYLINE",
          {{8, "0"}, {90, "2"}, {70, "0"}, {38, "5"}, {10, "0"}, {20, "1"}, {10, "4"}, {20, "1"}})
      .endBlock()
      .entity("INSERT", {{8, "0"},
                         {2, "B"},
                         {10, "0"},
                         {20, "0"},
                         {43, "2"},
                         {210, "0.6"},
                         {220, "0"},
                         {230, "0.8"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (6 0) (12 10)\n"
            "7 wire 0 (5.2 0) (5.2 4)\n");
}

/// What such a block shows of an entity.
std::string seenObliquely(std::string_view kind, const GroupPairs& groups) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity(kind, groups).endBlock();
  dxf.entity("INSERT",
             {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}, {210, "0.6"}, {220, "0"}, {230, "0.8"}});
  return ExactDrawing(dxf).shapes();
}

TEST(ExactBlocks, HeightsOfPointsSplinesAndEndlessLinesMoveThemInAnObliqueBlock) {
  EXPECT_EQ(seenObliquely("POINT", {{8, "0"}, {10, "10"}, {20, "0"}, {30, "5"}}),
            "7 dot 0.1 (3 10)\n");
  EXPECT_EQ(seenObliquely("SPLINE", {{8, "0"},
                                     {71, "1"},
                                     {40, "0"},
                                     {40, "0"},
                                     {40, "1"},
                                     {40, "1"},
                                     {10, "0"},
                                     {20, "0"},
                                     {30, "5"},
                                     {10, "10"},
                                     {20, "0"},
                                     {30, "10"}}),
            "7 wire 0 (3 0) (6 10)\n");
  EXPECT_EQ(
      seenObliquely("XLINE",
                    {{8, "0"}, {10, "10"}, {20, "0"}, {30, "5"}, {11, "0"}, {21, "0"}, {31, "1"}}),
      "7 xline (3 10) (0.6 0)\n");
}

TEST(ExactBlocks, EllipsesInAnObliqueBlockAreSeenWithTheHeightsOfTheirAxes) {
  const auto ends = [](const GroupPairs& axes) {
    GroupPairs groups = {{8, "0"},
                         {10, "10"},
                         {20, "0"},
                         {30, "5"},
                         {40, "0.5"},
                         {41, "0"},
                         {42, "1.570796326794897"}};
    groups.insert(groups.end(), axes.begin(), axes.end());
    const std::string shape = seenObliquely("ELLIPSE", groups);
    const std::size_t first = shape.find('(');
    return shape.substr(first, shape.find(')') - first + 1) + shape.substr(shape.rfind('('));
  };
  EXPECT_EQ(ends({{11, "2"}, {21, "0"}, {31, "0"}}), "(3 12)(2.2 10)\n");
  EXPECT_EQ(ends({{11, "0"}, {21, "0"}, {31, "2"}, {210, "0"}, {220, "1"}, {230, "0"}}),
            "(4.2 10)(3 11)\n");
}

TEST(ExactBlocks, ParagraphsInAnObliqueBlockAreSeenWithTheirHeights) {
  const GroupPairs text = {{8, "0"},  {10, "10"}, {20, "0"}, {30, "5"},
                           {40, "1"}, {71, "7"},  {1, "x"}};
  EXPECT_EQ(seenObliquely("MTEXT", text), "7 text 'x' 0.8 R90 bottom left (2.76 10)\n");
  GroupPairs rising = text;
  rising.insert(rising.end(),
                {{11, "0"}, {21, "0"}, {31, "1"}, {210, "0"}, {220, "1"}, {230, "0"}});
  EXPECT_EQ(seenObliquely("MTEXT", rising), "7 text 'x' 1 R0 bottom left (3 10.3)\n");
}

TEST(ExactBlocks, AttributesOfAnArrayAreDrawnOnceWhereTheyStand) {
  DxfBuilder dxf = withLineBlock();
  dxf.entity("INSERT", {{8, "0"}, {66, "1"}, {2, "B"}, {10, "0"}, {20, "0"}, {70, "2"}, {44, "10"}})
      .entity("ATTRIB", {{8, "0"}, {10, "3"}, {20, "4"}, {40, "1"}, {1, "R7"}, {2, "NAME"}})
      .entity("SEQEND", {{8, "0"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0) (1 0)\n7 wire 0 (10 0) (11 0)\n"
            "7 text 'R7' 1 R0 bottom left (3 4)\n");
}

// The nested block is shown 0.6 * (20 + 3 - 1) to the right; seen from below, its heights count
// down.
TEST(ExactBlocks, HeightsOfNestedBlocksAndOfBasePointsCountToo) {
  DxfBuilder dxf;
  dxf.beginBlock("INNER", "0", "0\n30\n1")
      .entity("CIRCLE", {{8, "0"}, {10, "0"}, {20, "0"}, {30, "-3"}, {40, "1"}})
      .endBlock()
      .beginBlock("OUTER")
      .entity("INSERT", {{8, "0"}, {2, "INNER"}, {10, "0"}, {20, "0"}, {30, "-20"}, {230, "-1"}})
      .endBlock();
  dxf.entity(
      "INSERT",
      {{8, "0"}, {2, "OUTER"}, {10, "0"}, {20, "0"}, {210, "0.6"}, {220, "0"}, {230, "0.8"}});
  const std::string shapes = ExactDrawing(dxf).shapes();
  EXPECT_NE(shapes.find("(14.4 1)"), std::string::npos) << shapes;
}

TEST(ExactBlocks, LayerZeroTakesTheLayerOfTheReference) {
  LayersOfTest layers;
  layers.numbers["OUTLINE"] = 20;
  DxfBuilder dxf = withLineBlock();
  dxf.entity("INSERT", {{8, "outline"}, {2, "B"}, {10, "0"}, {20, "0"}});
  EXPECT_EQ(ExactDrawing(dxf, {}, layers).shapes(), "20 wire 0 (0 0) (1 0)\n");
}

TEST(ExactBlocks, AMissingBlockIsNamed) {
  DxfBuilder dxf;
  dxf.entity("INSERT", {{8, "0"}, {2, "NONE"}, {10, "0"}, {20, "0"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "other"}, {10, "0"}, {20, "0"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "None"}, {10, "5"}, {20, "0"}});
  EXPECT_EQ(ExactDrawing(dxf).losses(),
            "missing-block INSERT NONE 2 line 7\n"
            "missing-block INSERT OTHER 1 line 17\n");
}

TEST(ExactBlocks, AnotherDrawingIsNamedByItsPath) {
  DxfBuilder dxf;
  dxf.reference("FRAME", "C:\\parts\\Frame.dwg");
  dxf.entity("INSERT", {{8, "0"}, {2, "FRAME"}, {10, "0"}, {20, "0"}});
  const ExactDrawing drawing(dxf);
  ASSERT_EQ(drawing.lossList().all().size(), 1U);
  EXPECT_EQ(drawing.lossList().all()[0].rule, exact::LossRule::ExternalReference);
  EXPECT_EQ(drawing.lossList().all()[0].name, "C:\\parts\\Frame.dwg");
}

TEST(ExactBlocks, ABlockInsideItselfIsNamedAndNotExpanded) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .entity("INSERT", {{8, "0"}, {2, "B"}, {10, "5"}, {20, "5"}})
      .endBlock()
      .entity("INSERT", {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}});
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (0 0) (1 0)\n");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::BlockInItself), 1U);
}

TEST(ExactVisibility, WhatIsOnAFrozenLayerVanishesWithItsContent) {
  DxfBuilder dxf = withLineBlock("OTHER");
  dxf.layer("ICE", {{70, "1"}, {62, "7"}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.entity("INSERT", {{8, "ICE"}, {2, "B"}, {10, "0"}, {20, "0"}});
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::LayerFrozen), 1U);
}

TEST(ExactVisibility, AReferenceOnALayerThatIsOffShowsWhatIsOnOthers) {
  DxfBuilder dxf = withLineBlock("OTHER");
  dxf.layer("DARK", {{70, "0"}, {62, "-7"}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.entity("INSERT", {{8, "DARK"}, {2, "B"}, {10, "0"}, {20, "0"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (1 0)\n");
}

TEST(ExactVisibility, UnknownKindsAreNamedWithTheirLine) {
  DxfBuilder dxf;
  dxf.entity("BODY", {{8, "0"}, {1, "x"}}).entity("BODY", {{8, "0"}, {1, "y"}});
  EXPECT_EQ(ExactDrawing(dxf).losses(), "unknown-kind BODY 2 line 7\n");
}

TEST(ExactTranslator, EntitiesWithoutALayerAreOnLayerZero) {
  LayersOfTest layers;
  layers.numbers = {{"0", 46}, {"A", 21}};
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("LINE", {{10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}}).endBlock();
  dxf.entity("LINE", {{10, "0"}, {20, "0"}, {11, "2"}, {21, "0"}});
  dxf.entity("LINE", {{8, ""}, {10, "0"}, {20, "0"}, {11, "3"}, {21, "0"}});
  dxf.entity("INSERT", {{8, "A"}, {2, "B"}, {10, "0"}, {20, "5"}});
  EXPECT_EQ(ExactDrawing(dxf, {}, layers).shapes(),
            "46 wire 0 (0 0) (2 0)\n46 wire 0 (0 0) (3 0)\n21 wire 0 (0 5) (1 5)\n");
}

}  // namespace
}  // namespace quillon::testing
