#include "exact_drawing.h"

namespace quillon::testing {
namespace {

using exact::LossRule;

const GroupPairs kQuadGroups = {{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"},
                                {12, "0"}, {22, "3"}, {13, "4"}, {23, "3"}};

GroupPairs withCornerGroup(GroupPairs groups, int code, std::string_view value) {
  groups.emplace_back(code, value);
  return groups;
}

std::string areaLosses(std::string_view kind, const GroupPairs& groups) {
  LayersOfTest layers;
  layers.numbers["0"] = 20;
  return ExactDrawing(oneEntity(kind, groups), {}, layers).losses();
}

TEST(ExactSolids, TheCornersComeInTheOrderOneTwoFourThree) {
  EXPECT_EQ(shapesOf("SOLID", kQuadGroups), "7 area (0 0) (4 0) (4 3) (0 3) (0 0)\n");
  EXPECT_EQ(shapesOf("TRACE", kQuadGroups), "7 area (0 0) (4 0) (4 3) (0 3) (0 0)\n");
}

TEST(ExactSolids, WithoutAFourthCornerItIsATriangle) {
  EXPECT_EQ(shapesOf("SOLID", {{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"}, {12, "4"}, {22, "3"}}),
            "7 area (0 0) (4 0) (4 3) (0 0)\n");
}

TEST(ExactSolids, AFourthCornerLikeTheThirdOneMakesATriangle) {
  EXPECT_EQ(
      shapesOf(
          "SOLID",
          {{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"}, {12, "4"}, {22, "3"}, {13, "4"}, {23, "3"}}),
      "7 area (0 0) (4 0) (4 3) (0 0)\n");
}

TEST(ExactSolids, ABowTieIsTwoTrianglesFromItsCrossing) {
  EXPECT_EQ(
      shapesOf(
          "SOLID",
          {{10, "0"}, {20, "0"}, {11, "2"}, {21, "2"}, {12, "0"}, {22, "2"}, {13, "2"}, {23, "0"}}),
      "7 area (0 0) (1 1) (0 2) (0 0)\n7 area (1 1) (2 2) (2 0) (1 1)\n");
  EXPECT_EQ(
      shapesOf(
          "SOLID",
          {{10, "0"}, {20, "0"}, {11, "2"}, {21, "0"}, {12, "2"}, {22, "2"}, {13, "0"}, {23, "2"}}),
      "7 area (0 0) (2 0) (1 1) (0 0)\n7 area (1 1) (0 2) (2 2) (1 1)\n");
}

TEST(ExactSolids, OneSeenFromBelowIsMirrored) {
  EXPECT_EQ(shapesOf("SOLID", withCornerGroup(kQuadGroups, 230, "-1")),
            "7 area (0 0) (-4 0) (-4 3) (0 3) (0 0)\n");
}

TEST(ExactSolids, OneWithoutAreaIsDroppedAndNamed) {
  const GroupPairs onALine = {{10, "0"}, {20, "0"}, {11, "4"}, {21, "4"},
                              {12, "1"}, {22, "1"}, {13, "3"}, {23, "3"}};
  EXPECT_EQ(shapesOf("SOLID", onALine), "");
  EXPECT_EQ(areaLosses("SOLID", onALine), "no-size SOLID 1 line 7\n");
  EXPECT_EQ(areaLosses("SOLID", {{10, "1"}, {20, "1"}, {11, "1"}, {21, "1"}, {12, "1"}, {22, "1"}}),
            "no-size SOLID 1 line 7\n");
}

TEST(ExactSolids, OneWithoutItsThirdCornerIsNamed) {
  const GroupPairs damaged = {{10, "0"}, {20, "0"}, {11, "4"}, {21, "4"}};
  EXPECT_EQ(shapesOf("SOLID", damaged), "");
  EXPECT_EQ(areaLosses("SOLID", damaged), "unusable-numbers SOLID 1 line 7\n");
}

TEST(ExactSolids, HugeNumbersAreNamed) {
  const GroupPairs huge = withCornerGroup(kQuadGroups, 12, "1e300");
  EXPECT_EQ(shapesOf("SOLID", huge), "");
  EXPECT_EQ(areaLosses("SOLID", huge), "unusable-numbers SOLID 1 line 7\n");
}

TEST(ExactSolids, WhereFillModeIsOffItsOutlineShows) {
  DxfBuilder dxf = oneEntity("SOLID", kQuadGroups);
  dxf.header("$FILLMODE", 70, "0");
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (4 0) (4 3) (0 3) (0 0) as it is\n");
  exact::Options options;
  options.fillAlways = true;
  EXPECT_EQ(ExactDrawing(dxf, options).shapes(), "7 area (0 0) (4 0) (4 3) (0 3) (0 0)\n");
}

TEST(ExactAreas, OneHintTellsThatFineFillsTakeManyStrokes) {
  DxfBuilder dxf = oneEntity("SOLID", kQuadGroups);
  dxf.entity("SOLID", withCornerGroup(kQuadGroups, 8, "0"))
      .entity("TRACE", withCornerGroup(kQuadGroups, 8, "0"));
  EXPECT_EQ(ExactDrawing(dxf).losses(), "fine-fill SOLID 1 line 7\n");
}

TEST(ExactAreas, TheHintIsForLayersThatAreFilledForProduction) {
  const auto hasHint = [](int layer, double fillWidth) {
    LayersOfTest layers;
    layers.numbers["0"] = layer;
    exact::Options options;
    options.fillWidth = fillWidth;
    const ExactDrawing drawing(oneEntity("SOLID", kQuadGroups), options, layers);
    return drawing.lossList().countOf(LossRule::FineFill) == 1;
  };
  for (const int layer : {1, 16, 21, 22, 25, 36}) EXPECT_TRUE(hasHint(layer, 0.0)) << layer;
  for (const int layer : {17, 20, 23, 24, 37, 116}) EXPECT_FALSE(hasHint(layer, 0.0)) << layer;
  EXPECT_FALSE(hasHint(1, 0.1));
}

TEST(ExactFaces, OnlyTheEdgesShow) {
  EXPECT_EQ(shapesOf("3DFACE", {{10, "0"},
                                {20, "0"},
                                {30, "5"},
                                {11, "4"},
                                {21, "0"},
                                {12, "4"},
                                {22, "3"},
                                {13, "0"},
                                {23, "3"},
                                {230, "-1"}}),
            "7 wire 0 (0 0) (4 0)\n7 wire 0 (4 0) (4 3)\n"
            "7 wire 0 (4 3) (0 3)\n7 wire 0 (0 3) (0 0)\n");
}

const GroupPairs kTriangleFace = {{8, "0"},  {10, "0"}, {20, "0"}, {11, "4"}, {21, "0"},
                                  {12, "4"}, {22, "3"}, {13, "4"}, {23, "3"}};

TEST(ExactFaces, AFourthCornerLikeTheThirdOneMakesATriangle) {
  EXPECT_EQ(shapesOf("3DFACE", kTriangleFace),
            "7 wire 0 (0 0) (4 0)\n7 wire 0 (4 0) (4 3)\n7 wire 0 (4 3) (0 0)\n");
}

TEST(ExactFaces, HiddenEdgesAreLeftOut) {
  // The second and the fourth edge.
  EXPECT_EQ(shapesOf("3DFACE", withCornerGroup(kTriangleFace, 70, "10")), "7 wire 0 (0 0) (4 0)\n");
  EXPECT_EQ(shapesOf("3DFACE", withCornerGroup(kTriangleFace, 70, "15")), "");
  EXPECT_EQ(areaLosses("3DFACE", withCornerGroup(kTriangleFace, 70, "15")), "");
}

/// Shares the edge from (4 3) to (0 0) with the triangle, in the other sense, but for rounding.
const GroupPairs kNeighbour = {{8, "0"},          {10, "0.00000001"}, {20, "0"}, {11, "4"},
                               {21, "3.0000001"}, {12, "0"},          {22, "3"}};

TEST(ExactFaces, EdgesOfFacesThatFollowEachOtherAreDrawnOnce) {
  DxfBuilder dxf;
  dxf.entity("3DFACE", kTriangleFace).entity("3DFACE", kNeighbour);
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0) (4 0)\n7 wire 0 (4 0) (4 3)\n7 wire 0 (4 3) (0 0)\n"
            "7 wire 0 (4 3) (0 3)\n7 wire 0 (0 3) (0 0)\n");
}

TEST(ExactFaces, AnEdgeHiddenInOneFaceShowsInTheNext) {
  DxfBuilder dxf;
  dxf.entity("3DFACE", withCornerGroup(kTriangleFace, 70, "8")).entity("3DFACE", kNeighbour);
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0) (4 0)\n7 wire 0 (4 0) (4 3)\n"
            "7 wire 0 (0 0) (4 3)\n7 wire 0 (4 3) (0 3)\n7 wire 0 (0 3) (0 0)\n");
}

std::size_t countOfWires(const std::string& shapes) {
  std::size_t count = 0;
  for (const char c : shapes) count += c == '\n' ? 1 : 0;
  return count;
}

TEST(ExactFaces, OtherEntitiesAndLayersBeginAnotherRun) {
  DxfBuilder between;
  between.entity("3DFACE", kTriangleFace)
      .entity("POINT", {{8, "0"}, {10, "0"}, {20, "0"}})
      .entity("3DFACE", kTriangleFace);
  const std::string shapes = ExactDrawing(between).shapes();
  EXPECT_EQ(shapes.find("(0 0) (4 0)\n"), 9U);
  EXPECT_NE(shapes.rfind("(0 0) (4 0)\n"), 9U);

  LayersOfTest layers;
  layers.numbers["OTHER"] = 21;
  DxfBuilder other;
  other.entity("3DFACE", kTriangleFace);
  GroupPairs groups = kTriangleFace;
  groups.front().second = "OTHER";
  other.entity("3DFACE", groups);
  EXPECT_EQ(countOfWires(ExactDrawing(other, {}, layers).shapes()), 6U);
}

TEST(ExactFaces, UprightEdgesShowNothing) {
  // A wall along x, seen from above.
  const GroupPairs wall = {{10, "0"}, {20, "0"}, {30, "0"}, {11, "4"}, {21, "0"}, {31, "0"},
                           {12, "4"}, {22, "0"}, {32, "3"}, {13, "0"}, {23, "0"}, {33, "3"}};
  EXPECT_EQ(shapesOf("3DFACE", wall), "7 wire 0 (0 0) (4 0)\n");
  EXPECT_EQ(areaLosses("3DFACE", wall), "");
}

TEST(ExactFaces, OneInASinglePointIsNamed) {
  EXPECT_EQ(
      areaLosses("3DFACE", {{10, "1"}, {20, "1"}, {11, "1"}, {21, "1"}, {12, "1"}, {22, "1"}}),
      "no-size 3DFACE 1 line 7\n");
}

TEST(ExactFaces, TheLineTypeDoesNotShow) {
  DxfBuilder dxf = oneEntity("3DFACE", withCornerGroup(kTriangleFace, 6, "DASHED"));
  dxf.dashes("DASHED", "0.2", {"0.1", "-0.1"});
  exact::Options options;
  options.lineTypes = exact::LineTypes::Dashes;
  EXPECT_EQ(countOfWires(ExactDrawing(dxf, options).shapes()), 3U);
}

}  // namespace
}  // namespace quillon::testing
