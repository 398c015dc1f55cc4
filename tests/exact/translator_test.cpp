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
