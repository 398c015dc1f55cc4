#include <cmath>
#include <numbers>
#include <string>

#include "hatch_groups.h"

namespace quillon::testing {
namespace {

ExactDrawing drawnEdges(const GroupPairs& edges, const GroupPairs& after = {},
                        const exact::Options& options = {}) {
  LayersOfTest layers;
  layers.numbers["0"] = 20;
  return ExactDrawing(oneEntity("HATCH", hatchHead() + edgeLoop() + edges + hatchTail() + after),
                      options, layers);
}

TEST(ExactHatchEdges, LinesFollowEachOther) {
  EXPECT_EQ(drawnEdges(lineEdge("0", "0", "4", "0") + lineEdge("4", "0", "4", "4") +
                       lineEdge("4", "4", "0", "0"))
                .shapes(),
            "20 area (0 0) (4 0) (4 4) (0 0)\n");
}

TEST(ExactHatchEdges, AnEdgeWhoseEndMeetsTheLastPointIsWalkedBackwards) {
  const ExactDrawing drawing = drawnEdges(
      lineEdge("0", "0", "4", "0") + lineEdge("4", "4", "4", "0") + lineEdge("0", "0", "4", "4"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, TheFirstEdgeMayBeBackwards) {
  const ExactDrawing drawing = drawnEdges(
      lineEdge("4", "0", "0", "0") + lineEdge("4", "0", "4", "4") + lineEdge("4", "4", "0", "0"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, AGapIsClosedByALineAndNamed) {
  const ExactDrawing drawing = drawnEdges(
      lineEdge("0", "0", "4", "0") + lineEdge("4", "1", "4", "4") + lineEdge("4", "4", "0", "0"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 1) (4 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "hatch-gap-closed HATCH 1 line 7\n");
  EXPECT_DOUBLE_EQ(drawing.lossList().all().front().most, 1.0);
}

TEST(ExactHatchEdges, ALoopThatDoesNotCloseIsClosedByALineAndNamed) {
  const ExactDrawing drawing =
      drawnEdges(lineEdge("0", "0", "4", "0") + lineEdge("4", "0", "4", "4"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "hatch-gap-closed HATCH 1 line 7\n");
}

TEST(ExactHatchEdges, EndsWithinTheToleranceAreOnePoint) {
  const GroupPairs edges = lineEdge("0", "0", "4", "0.009") + lineEdge("4", "0", "4", "4") +
                           lineEdge("4", "4", "0", "0.009");
  const ExactDrawing drawing = drawnEdges(edges);
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "");
  exact::Options options;
  options.joinTolerance = 0.001;
  EXPECT_EQ(drawnEdges(edges, {}, options).losses(), "hatch-gap-closed HATCH 2 line 7\n");
}

TEST(ExactHatchEdges, AtAnArcTheEndOfTheLineGivesWay) {
  const ExactDrawing drawing =
      drawnEdges(lineEdge("-5.001", "0", "4.999", "0.002") + arcEdge("0", "0", "5", "0", "180"));
  EXPECT_EQ(drawing.shapes(), "20 area (-5 0) (5 0) +90 (0 5) +90 (-5 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, ArcsAreCounterClockwiseBetweenTheirAngles) {
  EXPECT_EQ(drawnEdges(arcEdge("0", "0", "5", "0", "90") + lineEdge("0", "5", "0", "0") +
                       lineEdge("0", "0", "5", "0"))
                .shapes(),
            "20 area (5 0) +90 (0 5) (0 0) (5 0)\n");
}

TEST(ExactHatchEdges, ClockwiseArcsCountTheirAnglesClockwise) {
  // From 90 degrees down to 0.
  const ExactDrawing drawing =
      drawnEdges(arcEdge("0", "0", "5", "270", "360", "0") + lineEdge("5", "0", "0", "0") +
                 lineEdge("0", "0", "0", "5"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 5) (0 0) (5 0) +90 (0 5)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, ArcsMayBeWalkedBackwards) {
  const ExactDrawing drawing =
      drawnEdges(lineEdge("0", "0", "0", "5") + arcEdge("0", "0", "5", "0", "90") +
                 lineEdge("5", "0", "0", "0"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (5 0) +90 (0 5) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, ArcsSeenFromBelowAreMirrored) {
  EXPECT_EQ(drawnEdges(arcEdge("0", "0", "5", "0", "90") + lineEdge("0", "5", "0", "0") +
                           lineEdge("0", "0", "5", "0"),
                       {{230, "-1"}})
                .shapes(),
            "20 area (-5 0) (0 0) (0 5) +90 (-5 0)\n");
}

TEST(ExactHatchEdges, AWholeCircleIsALoopOfItsOwn) {
  // Two circles in one list of edges: a ring.
  const ExactDrawing drawing =
      drawnEdges(arcEdge("0", "0", "5", "0", "360") + arcEdge("0", "0", "3", "0", "360"));
  EXPECT_EQ(areasIn(drawing.shapes()).size(), 1U);
  EXPECT_NEAR(filledIn(drawing.shapes()), std::numbers::pi * 16.0, 0.01);
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, OneListMayHoldSeveralLoops) {
  const GroupPairs first =
      lineEdge("0", "0", "4", "0") + lineEdge("4", "0", "4", "4") + lineEdge("4", "4", "0", "0");
  const GroupPairs second = lineEdge("10", "0", "14", "0") + lineEdge("14", "0", "14", "4") +
                            lineEdge("14", "4", "10", "0");
  const ExactDrawing drawing = drawnEdges(first + second);
  EXPECT_EQ(drawing.shapes(),
            "20 area (0 0) (4 0) (4 4) (0 0)\n20 area (10 0) (14 0) (14 4) (10 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

GroupPairs ellipseEdge(std::string_view start, std::string_view end,
                       std::string_view counterClockwise) {
  return {{72, "3"},   {10, "0"}, {20, "0"},
          {11, "10"},  {21, "0"}, {40, "0.5"},
          {50, start}, {51, end}, {73, counterClockwise}};
}

TEST(ExactHatchEdges, EllipsesRunBetweenTheirAngles) {
  const std::string shapes = drawnEdges(ellipseEdge("0", "90", "1") + lineEdge("0", "5", "0", "0") +
                                        lineEdge("0", "0", "10", "0"))
                                 .shapes();
  EXPECT_EQ(shapes.substr(0, 15), "20 area (10 0) ");
  EXPECT_NEAR(filledIn(shapes), std::numbers::pi * 50.0 / 4.0, 0.01);
}

TEST(ExactHatchEdges, ClockwiseEllipsesCountTheirAnglesClockwise) {
  // From 90 degrees down to 0.
  const ExactDrawing drawing =
      drawnEdges(ellipseEdge("270", "360", "0") + lineEdge("10", "0", "0", "0") +
                 lineEdge("0", "0", "0", "5"));
  EXPECT_EQ(drawing.shapes().substr(0, 20), "20 area (0 5) (0 0) ");
  EXPECT_NEAR(filledIn(drawing.shapes()), std::numbers::pi * 50.0 / 4.0, 0.01);
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, AnglesOfEllipsesAreAsSeenFromTheirCentre) {
  // At 45 degrees x and y are the same; the parameter is that whose tangent is 2.
  const ExactDrawing drawing =
      drawnEdges(ellipseEdge("0", "45", "1") + lineEdge("4.472136", "4.472136", "0", "0") +
                 lineEdge("0", "0", "10", "0"));
  EXPECT_NEAR(filledIn(drawing.shapes()), 25.0 * std::atan(2.0), 0.01);
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, AnEllipseMayBeTheWholeLoop) {
  EXPECT_NEAR(filledIn(drawnEdges(ellipseEdge("0", "360", "1")).shapes()), std::numbers::pi * 50.0,
              0.05);
}

TEST(ExactHatchEdges, SplinesHaveTheirKnotsAndWeights) {
  // A quarter of a circle.
  const GroupPairs quarter = {
      {72, "4"}, {94, "2"}, {73, "1"}, {74, "0"}, {95, "6"}, {96, "3"},
      {40, "0"}, {40, "0"}, {40, "0"}, {40, "1"}, {40, "1"}, {40, "1"},
      {10, "5"}, {20, "0"}, {42, "1"}, {10, "5"}, {20, "5"}, {42, "0.7071067811865476"},
      {10, "0"}, {20, "5"}, {42, "1"}, {97, "0"}};
  const ExactDrawing drawing =
      drawnEdges(quarter + lineEdge("0", "5", "0", "0") + lineEdge("0", "0", "5", "0"));
  EXPECT_NEAR(filledIn(drawing.shapes()), std::numbers::pi * 25.0 / 4.0, 0.01);
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, SplinesThroughPointsNeedNothingElse) {
  const GroupPairs through = {{72, "4"}, {94, "3"}, {97, "2"}, {11, "0"},
                              {21, "0"}, {11, "4"}, {21, "0"}};
  const ExactDrawing drawing =
      drawnEdges(through + lineEdge("4", "0", "4", "4") + lineEdge("4", "4", "0", "0"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatchEdges, UnequalScalesMakeEllipsesOfCircles) {
  DxfBuilder dxf;
  dxf.beginBlock("B");
  GroupPairs groups = {{8, "0"}};
  dxf.entity("HATCH",
             groups + hatchHead() + edgeLoop() + arcEdge("0", "0", "5", "0", "360") + hatchTail());
  dxf.endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}, {41, "2"}, {42, "1"}});
  EXPECT_NEAR(filledIn(ExactDrawing(dxf).shapes()), std::numbers::pi * 50.0, 0.05);
}

TEST(ExactHatchEdgesHostile, EdgesWithoutValuesAreNamedAndLeftOut) {
  const GroupPairs bare = {{72, "1"}, {72, "2"}, {72, "3"}, {72, "4"},
                           {72, "9"}, {72, "1"}, {10, "3"}};
  const ExactDrawing drawing =
      drawnEdges(bare + lineEdge("0", "0", "4", "0") + lineEdge("4", "0", "4", "4") +
                 lineEdge("4", "4", "0", "0"));
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "unusable-numbers HATCH 4 line 7\ndamaged-entity HATCH 2 line 7\n");
}

TEST(ExactHatchEdgesHostile, ValuesBeforeTheFirstEdgeAreNothing) {
  const GroupPairs lost = {{10, "1"}, {20, "2"}, {40, "3"}, {42, "4"}, {51, "5"}};
  EXPECT_EQ(drawnEdges(lost + lineEdge("0", "0", "4", "0") + lineEdge("4", "0", "4", "4") +
                       lineEdge("4", "4", "0", "0"))
                .shapes(),
            "20 area (0 0) (4 0) (4 4) (0 0)\n");
}

TEST(ExactHatchEdgesHostile, ArcsWithoutSizeAreLeftOut) {
  EXPECT_EQ(drawnEdges(arcEdge("0", "0", "0", "0", "90") + lineEdge("0", "0", "4", "0") +
                       lineEdge("4", "0", "4", "4") + lineEdge("4", "4", "0", "0"))
                .shapes(),
            "20 area (0 0) (4 0) (4 4) (0 0)\n");
}

void appendLineEdge(std::string& text, double x, double y, double toX, double toY) {
  text += "72\n1\n10\n" + std::to_string(x) + "\n20\n" + std::to_string(y) + "\n11\n" +
          std::to_string(toX) + "\n21\n" + std::to_string(toY) + "\n";
}

TEST(ExactHatchEdgesHostile, ALoopOfVeryManyEdgesIsFilled) {
  // A comb of teeth 1 high and 1 wide at their feet.
  constexpr int kTeeth = 50000;
  std::string text =
      "0\nSECTION\n2\nENTITIES\n0\nHATCH\n8\n0\n100\nAcDbHatch\n70\n1\n91\n1\n92\n1\n93\n7\n";
  for (int i = 0; i < kTeeth; ++i) {
    appendLineEdge(text, i, 0, i + 0.5, 1);
    appendLineEdge(text, i + 0.5, 1, i + 1, 0);
  }
  appendLineEdge(text, kTeeth, 0, kTeeth, -1);
  appendLineEdge(text, kTeeth, -1, 0, -1);
  appendLineEdge(text, 0, -1, 0, 0);
  text += "75\n0\n0\nENDSEC\n0\nEOF\n";
  const std::string shapes = ExactDrawing(text).shapes();
  ASSERT_EQ(areasIn(shapes).size(), 1U);
  EXPECT_EQ(areasIn(shapes).front().vertices.size(), 2U * kTeeth + 3U);
  EXPECT_NEAR(filledIn(shapes), 1.5 * kTeeth, 1.0);
}

}  // namespace
}  // namespace quillon::testing
