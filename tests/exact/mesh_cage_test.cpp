#include "exact_drawing.h"

namespace quillon::testing {
namespace {

/// A MESH with the corners of a square of 4 mm, and what follows them.
DxfBuilder meshSquare(std::string_view level, const GroupPairs& rest) {
  GroupPairs groups = {{92, "120"}, {100, "AcDbSubDMesh"},
                       {71, "2"},   {72, "0"},
                       {91, level}, {92, "4"},
                       {10, "0"},   {20, "0"},
                       {30, "9"},   {10, "4"},
                       {20, "0"},   {30, "9"},
                       {10, "4"},   {20, "4"},
                       {30, "9"},   {10, "0"},
                       {20, "4"},   {30, "9"}};
  groups.insert(groups.end(), rest.begin(), rest.end());
  return oneEntity("MESH", groups);
}

// Two triangles share the diagonal. Creases and overrides after the faces have codes 90 and 91 too.
TEST(ExactMeshCages, EachEdgeOfAFaceIsDrawnOnce) {
  const ExactDrawing drawing(meshSquare("0", {{93, "8"},
                                              {90, "3"},
                                              {90, "0"},
                                              {90, "1"},
                                              {90, "2"},
                                              {90, "3"},
                                              {90, "0"},
                                              {90, "2"},
                                              {90, "3"},
                                              {94, "1"},
                                              {90, "1"},
                                              {90, "3"},
                                              {95, "1"},
                                              {140, "0"},
                                              {90, "1"},
                                              {91, "3"},
                                              {92, "0"}}));
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (0 0) (4 0)\n"
            "7 wire 0 (4 0) (4 4)\n"
            "7 wire 0 (4 4) (0 0)\n"
            "7 wire 0 (4 4) (0 4)\n"
            "7 wire 0 (0 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactMeshCages, ThatItIsSmoothIsNamed) {
  const ExactDrawing drawing(meshSquare("2", {{93, "3"}, {90, "2"}, {90, "0"}, {90, "1"}}));
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (0 0) (4 0)\n");
  EXPECT_EQ(drawing.losses(), "subdivision-not-drawn MESH 1 line 7\n");
}

TEST(ExactMeshCages, FacesThatCannotBeRightAreNamed) {
  for (const GroupPairs& faces : {
           GroupPairs{{93, "1000000000"}, {90, "1000000000"}, {90, "0"}, {90, "1"}},
           GroupPairs{{93, "4"}, {90, "3"}, {90, "0"}, {90, "1"}, {90, "4"}},
           GroupPairs{{93, "4"}, {90, "3"}, {90, "0"}, {90, "1"}, {90, "-1"}},
           GroupPairs{{93, "4"}, {90, "2"}, {90, "0"}, {90, "1"}, {90, "-1e300"}},
       }) {
    const ExactDrawing drawing(meshSquare("0", faces));
    EXPECT_EQ(drawing.shapes(), "7 wire 0 (0 0) (4 0)\n");
    EXPECT_EQ(drawing.losses(), "damaged-entity MESH 1 line 7\n");
  }
}

TEST(ExactMeshCages, NoFacesAreNamed) {
  const ExactDrawing drawing(meshSquare("0", {}));
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "damaged-entity MESH 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
