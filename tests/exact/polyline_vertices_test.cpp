#include "exact_drawing.h"

namespace quillon::testing {
namespace {

/// A POLYLINE, its vertices, and the SEQEND after them.
DxfBuilder vertexPolyline(Groups header, std::initializer_list<Groups> vertices) {
  DxfBuilder dxf;
  const auto add = [&dxf](std::string_view name, Groups groups) {
    GroupPairs all = {{8, "0"}};
    all.insert(all.end(), groups.begin(), groups.end());
    dxf.entity(name, all);
  };
  add("POLYLINE", header);
  for (const Groups vertex : vertices) add("VERTEX", vertex);
  dxf.entity("SEQEND", {{8, "0"}});
  return dxf;
}

std::string shapesOfVertices(Groups header, std::initializer_list<Groups> vertices) {
  return ExactDrawing(vertexPolyline(header, vertices)).shapes();
}

TEST(ExactVertexPolylines, AFlatOneIsAChainWithTheBulgesOfItsVertices) {
  EXPECT_EQ(shapesOfVertices({{66, "1"}, {70, "0"}}, {{{10, "0"}, {20, "0"}},
                                                      {{10, "4"}, {20, "0"}, {42, "1"}},
                                                      {{10, "4"}, {20, "3"}}}),
            "7 wire 0 (0 0) (4 0) +180 (4 3)\n");
}

TEST(ExactVertexPolylines, AClosedOneEndsOnItsFirstVertex) {
  EXPECT_EQ(
      shapesOfVertices({{70, "1"}}, {{{10, "0"}, {20, "0"}}, {{10, "4"}, {20, "0"}, {42, "-1"}}}),
      "7 wire 0 (0 0) (4 0) -180 (0 0)\n");
}

TEST(ExactVertexPolylines, ThePlaneIsThatOfThePolylineAndNotOfItsVertices) {
  EXPECT_EQ(
      shapesOfVertices({{30, "3"}, {210, "1"}, {220, "0"}, {230, "0"}},
                       {{{10, "2"}, {20, "5"}, {30, "99"}}, {{10, "7"}, {20, "9"}, {230, "-1"}}}),
      "7 wire 0 (3 2) (3 7)\n");
}

TEST(ExactVertexPolylines, OneThatIsNotEndedIsDrawnAllTheSame) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {70, "0"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "0"}, {20, "0"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "1"}, {20, "0"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (1 0)\n");
}

TEST(ExactVertexPolylines, OneVertexOrNoneIsNothingAndNamed) {
  DxfBuilder dxf = vertexPolyline({{70, "1"}}, {{{10, "1"}, {20, "1"}}});
  dxf.entity("POLYLINE", {{8, "0"}, {70, "0"}});
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "one-vertex POLYLINE 2 line 7\n");
}

TEST(ExactVertexPolylines, ItIsDrawnInEachReferenceOfItsBlock) {
  DxfBuilder dxf;
  dxf.beginBlock("B");
  dxf.entity("POLYLINE", {{8, "0"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "0"}, {20, "0"}, {42, "1"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "2"}, {20, "0"}});
  dxf.endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "1"}, {20, "0"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "9"}, {20, "0"}, {41, "-1"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (1 0) +180 (3 0)\n"
            "7 wire 0 (9 0) -180 (7 0)\n");
}

TEST(ExactVertexPolylines, VerticesOfAHiddenOneAreNotDrawnEither) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {60, "1"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "0"}, {20, "0"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "1"}, {20, "0"}});
  dxf.entity("SEQEND", {{8, "0"}});
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "invisible POLYLINE 1 line 7\n");
}

// Fitted ones.

TEST(ExactVertexPolylines, ASplineIsDrawnThroughItsFittedVerticesWithoutItsFrame) {
  EXPECT_EQ(shapesOfVertices({{70, "4"}}, {{{10, "0"}, {20, "0"}, {70, "16"}},
                                           {{10, "0"}, {20, "0"}, {70, "8"}},
                                           {{10, "1"}, {20, "1"}, {70, "8"}},
                                           {{10, "2"}, {20, "5"}, {70, "16"}},
                                           {{10, "3"}, {20, "0"}, {70, "8"}}}),
            "7 wire 0 (0 0) (1 1) (3 0)\n");
}

TEST(ExactVertexPolylines, ACurveIsDrawnThroughAllItsVertices) {
  EXPECT_EQ(shapesOfVertices({{70, "2"}}, {{{10, "0"}, {20, "0"}, {42, "1"}},
                                           {{10, "2"}, {20, "0"}, {70, "1"}, {42, "-1"}},
                                           {{10, "4"}, {20, "0"}}}),
            "7 wire 0 (0 0) +180 (2 0) -180 (4 0)\n");
}

// In space.

TEST(ExactVertexPolylines, OneInSpaceIsSeenFromAboveWithoutBulgesWidthsAndPlane) {
  EXPECT_EQ(shapesOfVertices({{70, "9"}, {30, "5"}, {40, "2"}, {41, "2"}, {230, "-1"}},
                             {{{10, "0"}, {20, "0"}, {30, "7"}, {42, "1"}, {70, "32"}},
                              {{10, "2"}, {20, "0"}, {30, "8"}, {40, "3"}, {41, "3"}, {70, "32"}},
                              {{10, "2"}, {20, "1"}, {30, "9"}, {70, "32"}}}),
            "7 wire 0 (0 0) (2 0) (2 1) (0 0)\n");
}

// Meshes: the rows, then the columns.

TEST(ExactMeshes, ANetHasLinesAlongBothDirections) {
  EXPECT_EQ(shapesOfVertices({{70, "16"}, {71, "2"}, {72, "3"}},
                             {{{10, "0"}, {20, "0"}, {70, "64"}},
                              {{10, "1"}, {20, "0"}, {30, "5"}, {70, "64"}},
                              {{10, "2"}, {20, "0"}, {70, "64"}},
                              {{10, "0"}, {20, "1"}, {70, "64"}},
                              {{10, "1"}, {20, "1"}, {70, "64"}},
                              {{10, "2"}, {20, "1"}, {70, "64"}}}),
            "7 wire 0 (0 0) (1 0) (2 0)\n"
            "7 wire 0 (0 1) (1 1) (2 1)\n"
            "7 wire 0 (0 0) (0 1)\n"
            "7 wire 0 (1 0) (1 1)\n"
            "7 wire 0 (2 0) (2 1)\n");
}

TEST(ExactMeshes, ANetIsClosedInTheDirectionsOfItsFlags) {
  const auto shapes = [](std::string_view flags) {
    return shapesOfVertices({{70, flags}, {71, "3"}, {72, "3"}},
                            {{{10, "0"}, {20, "0"}, {70, "64"}},
                             {{10, "1"}, {20, "0"}, {70, "64"}},
                             {{10, "2"}, {20, "1"}, {70, "64"}},
                             {{10, "0"}, {20, "3"}, {70, "64"}},
                             {{10, "1"}, {20, "3"}, {70, "64"}},
                             {{10, "2"}, {20, "4"}, {70, "64"}},
                             {{10, "0"}, {20, "6"}, {70, "64"}},
                             {{10, "1"}, {20, "7"}, {70, "64"}},
                             {{10, "2"}, {20, "7"}, {70, "64"}}});
  };
  // The first index counts rows, so that closing it closes the columns.
  EXPECT_EQ(shapes("17"),
            "7 wire 0 (0 0) (1 0) (2 1)\n"
            "7 wire 0 (0 3) (1 3) (2 4)\n"
            "7 wire 0 (0 6) (1 7) (2 7)\n"
            "7 wire 0 (0 0) (0 3) (0 6) (0 0)\n"
            "7 wire 0 (1 0) (1 3) (1 7) (1 0)\n"
            "7 wire 0 (2 1) (2 4) (2 7) (2 1)\n");
  EXPECT_EQ(shapes("48"),
            "7 wire 0 (0 0) (1 0) (2 1) (0 0)\n"
            "7 wire 0 (0 3) (1 3) (2 4) (0 3)\n"
            "7 wire 0 (0 6) (1 7) (2 7) (0 6)\n"
            "7 wire 0 (0 0) (0 3) (0 6)\n"
            "7 wire 0 (1 0) (1 3) (1 7)\n"
            "7 wire 0 (2 1) (2 4) (2 7)\n");
}

TEST(ExactMeshes, ASmoothNetIsThatOfItsFittedPoints) {
  EXPECT_EQ(shapesOfVertices({{70, "20"}, {71, "2"}, {72, "1"}, {73, "2"}, {74, "2"}},
                             {{{10, "0"}, {20, "0"}, {70, "80"}},
                              {{10, "9"}, {20, "9"}, {70, "80"}},
                              {{10, "0"}, {20, "0"}, {70, "72"}},
                              {{10, "1"}, {20, "0"}, {70, "72"}},
                              {{10, "0"}, {20, "1"}, {70, "72"}},
                              {{10, "1"}, {20, "1"}, {70, "72"}}}),
            "7 wire 0 (0 0) (1 0)\n"
            "7 wire 0 (0 1) (1 1)\n"
            "7 wire 0 (0 0) (0 1)\n"
            "7 wire 0 (1 0) (1 1)\n");
}

TEST(ExactMeshes, CountsThatCannotBeRightAreNamed) {
  for (const auto& [rows, columns] : std::initializer_list<std::pair<const char*, const char*>>{
           {"1000000000", "1000000000"}, {"1e300", "1e300"}, {"-5", "2"}, {"0", "0"}, {"2", "2"}}) {
    const ExactDrawing drawing(vertexPolyline({{70, "16"}, {71, rows}, {72, columns}},
                                              {{{10, "0"}, {20, "0"}, {70, "64"}},
                                               {{10, "1"}, {20, "0"}, {70, "64"}},
                                               {{10, "1"}, {20, "1"}, {70, "64"}}}));
    EXPECT_EQ(drawing.shapes(), "") << rows;
    EXPECT_EQ(drawing.losses(), "damaged-entity POLYLINE 1 line 7\n") << rows;
  }
}

// Faces: points, and the corners of each face by their numbers.

TEST(ExactMeshes, EdgesOfFacesAreDrawnOnceUnlessTheyAreHidden) {
  const ExactDrawing drawing(
      vertexPolyline({{70, "64"}, {71, "4"}, {72, "2"}},
                     {{{10, "0"}, {20, "0"}, {70, "192"}},
                      {{10, "4"}, {20, "0"}, {70, "192"}},
                      {{10, "4"}, {20, "4"}, {70, "192"}},
                      {{10, "0"}, {20, "4"}, {70, "192"}},
                      {{70, "128"}, {71, "1"}, {72, "2"}, {73, "3"}},
                      {{70, "128"}, {71, "1"}, {72, "3"}, {73, "-4"}, {74, "0"}}}));
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (0 0) (4 0)\n"
            "7 wire 0 (4 0) (4 4)\n"
            "7 wire 0 (4 4) (0 0)\n"
            "7 wire 0 (4 4) (0 4)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactMeshes, AnEdgeHiddenInOneFaceIsDrawnForTheOther) {
  EXPECT_EQ(shapesOfVertices({{70, "64"}}, {{{10, "0"}, {20, "0"}, {70, "192"}},
                                            {{10, "4"}, {20, "0"}, {70, "192"}},
                                            {{70, "128"}, {71, "-1"}, {72, "-2"}},
                                            {{70, "128"}, {71, "2"}, {72, "1"}}}),
            "7 wire 0 (4 0) (0 0)\n");
}

TEST(ExactMeshes, FacesWithNumbersOfNoPointAreNamed) {
  const ExactDrawing drawing(
      vertexPolyline({{70, "64"}}, {{{10, "0"}, {20, "0"}, {70, "192"}},
                                    {{10, "4"}, {20, "0"}, {70, "192"}},
                                    {{70, "128"}, {71, "1"}, {72, "2"}, {73, "3"}},
                                    {{70, "128"}, {71, "1000000000"}, {72, "-1e300"}}}));
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (0 0) (4 0)\n");
  EXPECT_EQ(drawing.losses(), "damaged-entity POLYLINE 1 line 7\n");
}

TEST(ExactMeshes, WiresHaveNoWidthWherePolylinesAreToHaveNone) {
  const DxfBuilder dxf = vertexPolyline({{70, "64"}}, {{{10, "0"}, {20, "0"}, {70, "192"}},
                                                       {{10, "4"}, {20, "0"}, {70, "192"}},
                                                       {{70, "128"}, {71, "1"}, {72, "2"}}});
  exact::Options options;
  options.lineWidth = 0.5;
  EXPECT_EQ(ExactDrawing(dxf, options).shapes(), "7 wire 0.5 (0 0) (4 0)\n");
  options.widthless = true;
  EXPECT_EQ(ExactDrawing(dxf, options).shapes(), "7 wire 0 (0 0) (4 0)\n");
}

}  // namespace
}  // namespace quillon::testing
