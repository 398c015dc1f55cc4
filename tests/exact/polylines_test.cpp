#include "exact_drawing.h"

namespace quillon::testing {
namespace {

// Polylines without a width, and how they are read.

TEST(ExactPolylines, AnOpenOneIsAChainFromItsFirstVertexToItsLast) {
  EXPECT_EQ(
      shapesOf(
          "LWPOLYLINE",
          {{90, "3"}, {70, "0"}, {10, "0"}, {20, "0"}, {10, "4"}, {20, "0"}, {10, "4"}, {20, "3"}}),
      "7 wire 0 (0 0) (4 0) (4 3)\n");
}

TEST(ExactPolylines, AClosedOneIsItsBorderAndEndsWithTheBulgeOfItsLastVertex) {
  EXPECT_EQ(
      shapesOf("LWPOLYLINE", {{70, "1"}, {10, "0"}, {20, "0"}, {10, "4"}, {20, "0"}, {42, "1"}}),
      "7 wire 0 (0 0) (4 0) +180 (0 0)\n");
}

TEST(ExactPolylines, ACircleOfTwoHalvesStaysAChain) {
  EXPECT_EQ(shapesOf("LWPOLYLINE",
                     {{70, "1"}, {10, "0"}, {20, "0"}, {42, "1"}, {10, "4"}, {20, "0"}, {42, "1"}}),
            "7 wire 0 (0 0) +180 (4 0) +180 (0 0)\n");
}

TEST(ExactPolylines, BulgesKeepTheirSign) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "-1"}, {10, "2"}, {20, "0"}}),
            "7 wire 0 (0 0) -180 (2 0)\n");
}

TEST(ExactPolylines, BulgesTurnRoundUnderAMirroring) {
  EXPECT_EQ(
      shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "1"}, {10, "2"}, {20, "0"}, {230, "-1"}}),
      "7 wire 0 (0 0) -180 (-2 0)\n");
}

// The angle of a bulge of 458.365 is 359.5 degrees.
TEST(ExactPolylines, AnArcOfMoreThan359DegreesIsSplitAtItsMiddle) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "458.365"}, {10, "1"}, {20, "0"}}),
            "7 wire 0 (0 0) +179.75 (0.5 -229.1825) +179.75 (1 0)\n");
}

// Half of EAGLE's step is 0.0000015625 mm; the sagitta is the bulge times half of the chord.
TEST(ExactPolylines, ABulgeThatCannotBeSeenIsStraight) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "3e-6"}, {10, "1"}, {20, "0"}}),
            "7 wire 0 (0 0) (1 0)\n");
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "4e-6"}, {10, "1"}, {20, "0"}}),
            "7 wire 0 (0 0) +0.000917 (1 0)\n");
  EXPECT_EQ(
      shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "9e-10"}, {10, "100000"}, {20, "0"}}),
      "7 wire 0 (0 0) (100000 0)\n");
}

TEST(ExactPolylines, PointsThatAreTheSameForEagleAreWrittenOnce) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{10, "0"},
                                    {20, "0"},
                                    {10, "0.000001"},
                                    {20, "0"},
                                    {10, "5"},
                                    {20, "0"},
                                    {10, "5"},
                                    {20, "0"}}),
            "7 wire 0 (0 0) (5 0)\n");
}

TEST(ExactPolylines, OneVertexIsNothingAndNamed) {
  const ExactDrawing drawing(oneEntity("LWPOLYLINE", {{70, "1"}, {10, "1"}, {20, "2"}}));
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "one-vertex LWPOLYLINE 1 line 7\n");
  EXPECT_EQ(drawing.lossList().all()[0].at, (geometry::Point{1, 2}));
}

TEST(ExactPolylines, NoVertexIsNothingAndNamed) {
  const ExactDrawing drawing(oneEntity("LWPOLYLINE", {{90, "1000000000"}, {70, "1"}}));
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "one-vertex LWPOLYLINE 1 line 7\n");
}

TEST(ExactPolylines, VerticesAtOnePointAreNothingAndNamed) {
  for (const std::string_view width : {"0", "1"}) {
    const ExactDrawing drawing(oneEntity(
        "LWPOLYLINE", {{43, width}, {10, "1"}, {20, "2"}, {10, "1"}, {20, "2"}, {42, "1"}}));
    EXPECT_EQ(drawing.shapes(), "");
    EXPECT_EQ(drawing.losses(), "zero-length LWPOLYLINE 1 line 7\n");
  }
}

// Seen along x, the plane's own axes are y and z; its elevation is x.
TEST(ExactPolylines, ThePlaneOfTheVerticesCounts) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{38, "3"},
                                    {10, "2"},
                                    {20, "5"},
                                    {10, "7"},
                                    {20, "9"},
                                    {210, "1"},
                                    {220, "0"},
                                    {230, "0"}}),
            "7 wire 0 (3 2) (3 7)\n");
}

TEST(ExactPolylines, EndsThatMeetInAnOpenOneStayEnds) {
  EXPECT_EQ(
      shapesOf(
          "LWPOLYLINE",
          {{10, "0"}, {20, "0"}, {10, "4"}, {20, "0"}, {10, "4"}, {20, "3"}, {10, "0"}, {20, "0"}}),
      "7 wire 0 (0 0) (4 0) (4 3) (0 0)\n");
}

TEST(ExactPolylines, TheWidthOfLinesIsTheirsUnlessTheyAreToHaveNone) {
  const GroupPairs groups = {{43, "1"}, {10, "0"}, {20, "0"}, {10, "9"}, {20, "0"}};
  exact::Options options;
  options.lineWidth = 0.25;
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {10, "9"}, {20, "0"}}, options),
            "7 wire 0.25 (0 0) (9 0)\n");
  options.widthless = true;
  EXPECT_EQ(shapesOf("LWPOLYLINE", groups, options), "7 wire 0 (0 0) (9 0)\n");
  options.lineWidth = 0.0;
  const ExactDrawing drawing(oneEntity("LWPOLYLINE", groups), options);
  EXPECT_EQ(drawing.losses(), "");
}

// Dashes of 1 mm and gaps of 1 mm.

DxfBuilder dashedCorner(std::string_view flags) {
  DxfBuilder dxf;
  dxf.dashes("DASHED", "2", {"1", "-1"});
  dxf.entity("LWPOLYLINE", {{8, "0"},
                            {6, "DASHED"},
                            {70, flags},
                            {10, "0"},
                            {20, "0"},
                            {10, "3"},
                            {20, "0"},
                            {10, "3"},
                            {20, "3"}});
  return dxf;
}

TEST(ExactPolylines, EachEdgeBeginsAndEndsWithADash) {
  exact::Options options;
  options.lineTypes = exact::LineTypes::Dashes;
  EXPECT_EQ(ExactDrawing(dashedCorner("0"), options).shapes(),
            "7 wire 0 (0 0) (1 0) as it is\n"
            "7 wire 0 (2 0) (3 0) (3 1) as it is\n"
            "7 wire 0 (3 2) (3 3) as it is\n");
}

TEST(ExactPolylines, DashesRunAlongTheWholeWhereItSaysSo) {
  exact::Options options;
  options.lineTypes = exact::LineTypes::Dashes;
  EXPECT_EQ(ExactDrawing(dashedCorner("128"), options).shapes(),
            "7 wire 0 (0 0) (1.5 0) as it is\n"
            "7 wire 0 (2.5 0) (3 0) (3 0.5) as it is\n"
            "7 wire 0 (3 1.5) (3 3) as it is\n");
}

// Closed polylines as areas.

GroupPairs closedSquare() {
  return {{70, "1"}, {10, "0"}, {20, "0"}, {10, "4"}, {20, "0"},
          {10, "4"}, {20, "4"}, {10, "0"}, {20, "4"}};
}

TEST(ExactPolylines, ClosedOnesAreAreasWhereTheUserWantsThem) {
  exact::Options options;
  options.closedAsAreas = true;
  EXPECT_EQ(shapesOf("LWPOLYLINE", closedSquare(), options),
            "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  GroupPairs open = closedSquare();
  open[0].second = "0";
  EXPECT_EQ(shapesOf("LWPOLYLINE", open, options), "7 wire 0 (0 0) (4 0) (4 4) (0 4)\n");
  GroupPairs wide = closedSquare();
  wide.insert(wide.begin(), {43, "1"});
  EXPECT_EQ(shapesOf("LWPOLYLINE", wide, options), "7 wire 1 (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  options.widthless = true;
  EXPECT_EQ(shapesOf("LWPOLYLINE", wide, options), "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
}

TEST(ExactPolylines, ClosedOnesOfSomeLayersAreAreas) {
  GroupPairs square = closedSquare();
  square.insert(square.begin(), {8, "0"});
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("LWPOLYLINE", square).endBlock();
  square[0].second = "Logo";
  dxf.entity("LWPOLYLINE", square);
  square[0].second = "OUTLINE";
  dxf.entity("LWPOLYLINE", square);
  for (const char* layer : {"LOGO", "OUTLINE"}) {
    dxf.entity("INSERT", {{8, layer}, {2, "B"}, {10, "100"}, {20, "0"}});
  }
  LayersOfTest layers;
  layers.areas = {"LOGO"};
  EXPECT_EQ(ExactDrawing(dxf, {}, layers).shapes(),
            "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n"
            "7 wire 0 (0 0) (4 0) (4 4) (0 4) (0 0)\n"
            "7 area (100 0) (104 0) (104 4) (100 4) (100 0)\n"
            "7 wire 0 (100 0) (104 0) (104 4) (100 4) (100 0)\n");
}

TEST(ExactPolylines, AClosedOneThatEnclosesNothingStaysALine) {
  exact::Options options;
  options.closedAsAreas = true;
  EXPECT_EQ(shapesOf("LWPOLYLINE",
                     {{70, "1"}, {10, "1"}, {20, "1"}, {10, "3"}, {20, "3"}, {10, "2"}, {20, "2"}},
                     options),
            "7 wire 0 (1 1) (3 3) (2 2) (1 1)\n");
}

TEST(ExactPolylines, AreasThatAreNotToBeFilledAreTheirBorders) {
  exact::Options options;
  options.closedAsAreas = true;
  DxfBuilder dxf = oneEntity("LWPOLYLINE", closedSquare());
  dxf.header("$FILLMODE", 70, "0");
  EXPECT_EQ(ExactDrawing(dxf, options).shapes(),
            "7 wire 0 (0 0) (4 0) (4 4) (0 4) (0 0) as it is\n");
}

// What no CAD program writes.

TEST(ExactPolylines, HugeBulgesGiveArcsThatEagleCanTake) {
  const ExactDrawing drawing(
      oneEntity("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "100000"}, {10, "1"}, {20, "0"}}));
  // 180 degrees less 2 of the bulge's inverse
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (0 0) +179.998854 (0.5 -50000) +179.998854 (1 0)\n");
  const ExactDrawing huge(
      oneEntity("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, "1e300"}, {10, "1"}, {20, "0"}}));
  EXPECT_EQ(huge.shapes().substr(0, 23), "7 wire 0 (0 0) +180 (0.");
}

TEST(ExactPolylines, BulgesThatAreNoNumbersAreStraight) {
  for (const std::string_view bulge : {"1e999", "-1e999", "nan", "x", ""}) {
    EXPECT_EQ(shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {42, bulge}, {10, "1"}, {20, "0"}}),
              "7 wire 0 (0 0) (1 0)\n")
        << bulge;
  }
}

TEST(ExactPolylines, HugeNumbersAreNotDrawnButNamed) {
  for (const GroupPairs& groups :
       {GroupPairs{{10, "0"}, {20, "1e999"}, {10, "1"}, {20, "0"}},
        GroupPairs{{43, "1"}, {10, "0"}, {20, "1e200"}, {10, "1"}, {20, "0"}},
        GroupPairs{{43, "1e999"}, {10, "0"}, {20, "0"}, {10, "1"}, {20, "0"}},
        GroupPairs{{10, "0"}, {20, "0"}, {40, "1"}, {41, "1e300"}, {10, "1"}, {20, "0"}}}) {
    const ExactDrawing drawing(oneEntity("LWPOLYLINE", groups));
    EXPECT_EQ(drawing.shapes(), "");
    EXPECT_EQ(drawing.losses(), "unusable-numbers LWPOLYLINE 1 line 7\n");
  }
}

TEST(ExactPolylines, GroupsOfAVertexBeforeAnyVertexMeanNothing) {
  EXPECT_EQ(
      shapesOf(
          "LWPOLYLINE",
          {{20, "5"}, {40, "1"}, {41, "1"}, {42, "1"}, {10, "0"}, {20, "0"}, {10, "1"}, {20, "0"}}),
      "7 wire 0 (0 0) (1 0)\n");
}

TEST(ExactPolylines, FlagsThatDoNotFitDoNoHarm) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", {{70, "-1e300"}, {10, "0"}, {20, "0"}, {10, "1"}, {20, "0"}}),
            "7 wire 0 (0 0) (1 0) (0 0)\n");
}

}  // namespace
}  // namespace quillon::testing
