#include <gtest/gtest.h>

#include "exact_drawing.h"

namespace quillon::testing {
namespace {

using Entities = std::vector<std::pair<std::string_view, GroupPairs>>;

/// What a block shows of its entities whose x axis is the world's y axis, its y axis is seen as
/// -0.8 x, and its z axis as 0.6 x.
ExactDrawing obliqueBlock(const Entities& entities, DxfBuilder dxf = {}) {
  dxf.beginBlock("B");
  for (auto [kind, groups] : entities) {
    groups.insert(groups.begin(), {8, "0"});
    dxf.entity(kind, groups);
  }
  dxf.endBlock();
  dxf.entity("INSERT",
             {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}, {210, "0.6"}, {220, "0"}, {230, "0.8"}});
  return ExactDrawing(dxf);
}

/// A VERTEX with more groups than its place.
std::pair<std::string_view, GroupPairs> corner(std::string_view x, std::string_view y,
                                               std::string_view z, const GroupPairs& more = {}) {
  GroupPairs groups = {{10, x}, {20, y}, {30, z}};
  groups.insert(groups.end(), more.begin(), more.end());
  return {"VERTEX", groups};
}

/// Four corners in space, those of a mesh of two rows, or of a polyface.
Entities withCorners(const GroupPairs& polyline, const GroupPairs& ofEach = {}) {
  return {{"POLYLINE", polyline},
          corner("0", "0", "5", ofEach),
          corner("4", "0", "5", ofEach),
          corner("0", "3", "5", ofEach),
          corner("4", "3", "10", ofEach)};
}

TEST(ExactHeights, FlatPolylinesInAnObliqueBlockAreSeenWithTheirs) {
  const Entities flat = {{"POLYLINE", {{66, "1"}, {70, "0"}, {30, "5"}}},
                         corner("0", "0", "5"),
                         corner("4", "0", "5"),
                         corner("4", "3", "5")};
  EXPECT_EQ(obliqueBlock(flat).shapes(), "7 wire 0 (3 0) (3 4) (0.6 4)\n");
  // Its own plane is the block's from behind, 5 in front of it.
  Entities behind = flat;
  behind[0].second.insert(behind[0].second.end(), {{210, "0"}, {220, "0"}, {230, "-1"}});
  EXPECT_EQ(obliqueBlock(behind).shapes(), "7 wire 0 (-3 0) (-3 -4) (-5.4 -4)\n");
}

TEST(ExactHeights, PolylinesInSpaceAndMeshesInAnObliqueBlockAreSeenWithTheirs) {
  EXPECT_EQ(obliqueBlock(withCorners({{66, "1"}, {70, "8"}}, {{70, "32"}})).shapes(),
            "7 wire 0 (3 0) (3 4) (0.6 0) (3.6 4)\n");
  const ExactDrawing mesh =
      obliqueBlock(withCorners({{66, "1"}, {70, "16"}, {71, "2"}, {72, "2"}}, {{70, "64"}}));
  EXPECT_EQ(mesh.shapes(),
            "7 wire 0 (3 0) (3 4)\n"
            "7 wire 0 (0.6 0) (3.6 4)\n"
            "7 wire 0 (3 0) (0.6 0)\n"
            "7 wire 0 (3 4) (3.6 4)\n");
  EXPECT_EQ(mesh.losses(), "");
  Entities faces = withCorners({{66, "1"}, {70, "64"}}, {{70, "192"}});
  faces.push_back(corner("0", "0", "0", {{70, "128"}, {71, "1"}, {72, "2"}, {73, "4"}}));
  EXPECT_EQ(obliqueBlock(faces).shapes(),
            "7 wire 0 (3 0) (3 4)\n"
            "7 wire 0 (3 4) (3.6 4)\n"
            "7 wire 0 (3.6 4) (3 0)\n");
}

TEST(ExactHeights, FacesInAnObliqueBlockAreSeenWithThoseOfTheirCorners) {
  const GroupPairs triangle = {{10, "0"}, {20, "0"}, {30, "5"}, {11, "4"}, {21, "0"},
                               {31, "5"}, {12, "4"}, {22, "3"}, {32, "10"}};
  EXPECT_EQ(obliqueBlock({{"3DFACE", triangle}}).shapes(),
            "7 wire 0 (3 0) (3 4)\n"
            "7 wire 0 (3 4) (3.6 4)\n"
            "7 wire 0 (3.6 4) (3 0)\n");
  // Above its third corner, the fourth one is another.
  GroupPairs upright = triangle;
  upright.insert(upright.end(), {{13, "4"}, {23, "3"}, {33, "15"}});
  EXPECT_EQ(obliqueBlock({{"3DFACE", upright}}).shapes(),
            "7 wire 0 (3 0) (3 4)\n"
            "7 wire 0 (3 4) (3.6 4)\n"
            "7 wire 0 (3.6 4) (6.6 4)\n"
            "7 wire 0 (6.6 4) (3 0)\n");
}

TEST(ExactHeights, MeshCagesInAnObliqueBlockAreSeenWithThoseOfTheirCorners) {
  const GroupPairs cage = {{100, "AcDbSubDMesh"},
                           {91, "0"},
                           {92, "3"},
                           {10, "0"},
                           {20, "0"},
                           {30, "5"},
                           {10, "4"},
                           {20, "0"},
                           {30, "5"},
                           {10, "4"},
                           {20, "3"},
                           {30, "10"},
                           {93, "4"},
                           {90, "3"},
                           {90, "0"},
                           {90, "1"},
                           {90, "2"},
                           {94, "0"}};
  EXPECT_EQ(obliqueBlock({{"MESH", cage}}).shapes(),
            "7 wire 0 (3 0) (3 4)\n"
            "7 wire 0 (3 4) (3.6 4)\n"
            "7 wire 0 (3.6 4) (3 0)\n");
}

TEST(ExactHeights, LeadersInAnObliqueBlockAreSeenWithTheirs) {
  DxfBuilder style;
  style.tableEntry("DIMSTYLE", "STANDARD", {{41, "3"}});
  const GroupPairs flat = {{71, "1"},  {10, "0"}, {20, "0"}, {30, "5"},
                           {10, "12"}, {20, "0"}, {30, "5"}};
  EXPECT_EQ(obliqueBlock({{"LEADER", flat}}, style).shapes(),
            "7 wire 0 (3 0) (3 12) as it is\n"
            "7 area (3 0) (3.4 3) (2.6 3) (3 0)\n");
  const GroupPairs rising = {{71, "0"}, {10, "0"}, {20, "0"}, {30, "5"},
                             {10, "4"}, {20, "3"}, {30, "10"}};
  EXPECT_EQ(obliqueBlock({{"LEADER", rising}}).shapes(), "7 wire 0 (3 0) (3.6 4) as it is\n");
}

TEST(ExactHeights, MultiLeadersTablesAndTolerancesInAnObliqueBlockAreSeenWithTheirs) {
  const GroupPairs leader = {{300, "CONTEXT_DATA{"},
                             {10, "0"},
                             {20, "0"},
                             {30, "5"},
                             {140, "0"},
                             {302, "LEADER{"},
                             {290, "0"},
                             {304, "LEADER_LINE{"},
                             {10, "0"},
                             {20, "0"},
                             {30, "5"},
                             {10, "4"},
                             {20, "0"},
                             {30, "5"},
                             {305, "}"},
                             {303, "}"},
                             {301, "}"},
                             {170, "1"}};
  EXPECT_EQ(obliqueBlock({{"MULTILEADER", leader}}).shapes(), "7 wire 0 (3 0) (3 4) as it is\n");

  DxfBuilder style;
  style.tableEntry("DIMSTYLE", "STANDARD", {{140, "2"}});
  const GroupPairs frame = {{3, "STANDARD"}, {10, "1"}, {20, "0"}, {30, "5"}, {11, "1"}, {1, "x"}};
  GroupPairs onGround = frame;
  onGround[3].second = "0";
  EXPECT_EQ(obliqueBlock({{"TOLERANCE", frame}}, style).shapes(),
            "7 text 'x' 1.6 R90 bottom left (3.8 1)\n");
  EXPECT_EQ(obliqueBlock({{"TOLERANCE", onGround}}, style).shapes(),
            "7 text 'x' 1.6 R90 bottom left (0.8 1)\n");

  DxfBuilder cells;
  cells.beginBlock("*T1")
      .entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "4"}, {21, "0"}})
      .endBlock();
  const GroupPairs table = {{2, "*T1"}, {10, "1"}, {20, "0"}, {30, "5"}, {11, "1"}, {21, "0"}};
  EXPECT_EQ(obliqueBlock({{"ACAD_TABLE", table}}, cells).shapes(),
            "7 wire 0 (3 1) (3 5) as it is\n");
}

// An edge of 5 mm that is seen 4 mm long: its breaks are at 0.2 and 0.6 of it.
TEST(ExactHeights, MultilinesInAnObliqueBlockAreSeenWithTheirs) {
  const GroupPairs flat = {{2, "STANDARD"}, {71, "0"}, {11, "0"}, {21, "0"}, {31, "5"}, {12, "1"},
                           {22, "0"},       {32, "0"}, {13, "0"}, {23, "1"}, {33, "0"}, {74, "2"},
                           {41, "1"},       {41, "0"}, {75, "0"}, {11, "4"}, {21, "0"}, {31, "5"},
                           {12, "1"},       {22, "0"}, {32, "0"}, {13, "0"}, {23, "0"}, {33, "1"},
                           {74, "2"},       {41, "1"}, {41, "0"}, {75, "0"}};
  EXPECT_EQ(obliqueBlock({{"MLINE", flat}}).shapes(), "7 wire 0 (2.2 0) (3.6 4)\n");
  const GroupPairs broken = {{2, "STANDARD"}, {71, "0"}, {11, "0"},   {21, "0"}, {31, "5"},
                             {12, "0.8"},     {22, "0"}, {32, "0.6"}, {13, "0"}, {23, "1"},
                             {33, "0"},       {74, "4"}, {41, "0"},   {41, "0"}, {41, "1"},
                             {41, "3"},       {75, "0"}, {11, "4"},   {21, "0"}, {31, "8"},
                             {12, "0.8"},     {22, "0"}, {32, "0.6"}, {13, "0"}, {23, "1"},
                             {33, "0"},       {74, "2"}, {41, "0"},   {41, "0"}, {75, "0"}};
  EXPECT_EQ(obliqueBlock({{"MLINE", broken}}).shapes(),
            "7 wire 0 (3 0) (3.36 0.8)\n7 wire 0 (4.08 2.4) (4.8 4)\n");
}

TEST(ExactHeights, SplinesThroughPointsInAnObliqueBlockAreSeenWithTheirs) {
  EXPECT_EQ(obliqueBlock(
                {{"SPLINE",
                  {{71, "3"}, {11, "0"}, {21, "0"}, {31, "5"}, {11, "4"}, {21, "3"}, {31, "10"}}}})
                .shapes(),
            "7 wire 0 (3 0) (3.6 4)\n");
  // A curve keeps its shape at another height.
  const auto curve = [](std::string_view height) {
    return obliqueBlock({{"SPLINE",
                          {{71, "3"},
                           {11, "0"},
                           {21, "0"},
                           {31, height},
                           {11, "4"},
                           {21, "3"},
                           {31, height},
                           {11, "8"},
                           {21, "0"},
                           {31, height}}}})
        .shapes();
  };
  const auto anglesOf = [](const std::string& shape) {
    std::string angles;
    for (std::size_t at = 0; (at = shape.find_first_of("+-", at)) != std::string::npos; ++at) {
      if (shape[at - 1] == ' ') angles += shape.substr(at, shape.find(' ', at) - at) + " ";
    }
    return angles;
  };
  EXPECT_EQ(curve("5").substr(0, 15), "7 wire 0 (3 0) ");
  EXPECT_EQ(anglesOf(curve("5")), anglesOf(curve("0")));
}

}  // namespace
}  // namespace quillon::testing
