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
  EXPECT_EQ(ExactDrawing(dxf).losses(), "missing-block INSERT 1 line 7\n");
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

}  // namespace
}  // namespace quillon::testing
