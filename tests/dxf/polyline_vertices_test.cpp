#include "dxf/polyline_vertices.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "dxf/polyline_values.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::Groups;
using testing::ReadDrawing;
using Vertices = std::vector<std::string>;

/// The vertices of a polyline as "x y startWidth endWidth bulge", "-" for empty values.
Vertices verticesOf(Groups groups, std::string_view kind = "LWPOLYLINE") {
  DxfBuilder dxf;
  dxf.entity(kind, groups);
  ReadDrawing read(dxf.text());
  const DxfEntity entity = read.entity(0);
  PolyVertexWalk walk(read.reader.groups(entity), lwPolylineOf(entity).width);
  Vertices vertices;
  for (PolyVertex vertex; walk.next(vertex);) {
    std::string text;
    for (const std::string_view part :
         {vertex.x, vertex.y, vertex.startWidth, vertex.endWidth, vertex.bulge}) {
      if (!text.empty()) text += ' ';
      text += part.empty() ? "-" : part;
    }
    vertices.push_back(text);
  }
  PolyVertex vertex;
  EXPECT_FALSE(walk.next(vertex));
  return vertices;
}

TEST(PolyVertices, ComeInFileOrderWithTheirOwnValues) {
  EXPECT_EQ(verticesOf({{90, "3"},
                        {70, "0"},
                        {10, "0.0"},
                        {20, "1.50"},
                        {40, "0.1"},
                        {41, "0.2"},
                        {42, "-1"},
                        {10, "2"},
                        {20, "3"},
                        {10, "4"},
                        {20, "5"},
                        {42, "0.5"}}),
            (Vertices{"0.0 1.50 0.1 0.2 -1", "2 3 - - -", "4 5 - - 0.5"}));
}

TEST(PolyVertices, WithoutWidthsHaveTheWidthOfThePolyline) {
  EXPECT_EQ(verticesOf({{43, "0.7"},
                        {10, "0"},
                        {20, "1"},
                        {10, "2"},
                        {20, "3"},
                        {40, "0.1"},
                        {10, "4"},
                        {20, "5"},
                        {41, "0.2"}}),
            (Vertices{"0 1 0.7 0.7 -", "2 3 0.1 0.7 -", "4 5 0.7 0.2 -"}));
}

TEST(PolyVertices, TakeTheWidthOfThePolylineWhereverItIs) {
  EXPECT_EQ(verticesOf({{10, "0"}, {20, "1"}, {10, "2"}, {20, "3"}, {43, "0.7"}, {43, "9"}}),
            (Vertices{"0 1 0.7 0.7 -", "2 3 0.7 0.7 -"}));
}

TEST(PolyVertices, WithoutXOrYAreLeftOut) {
  EXPECT_EQ(verticesOf({{10, "0"},
                        {10, "2"},
                        {20, "3"},
                        {10, "4"},
                        {10, ""},
                        {20, "5"},
                        {10, "6"},
                        {20, ""},
                        {10, "8"},
                        {20, "9"},
                        {10, "10"}}),
            (Vertices{"2 3 - - -", "8 9 - - -"}));
  EXPECT_EQ(verticesOf({{20, "1"}, {40, "1"}, {42, "1"}, {10, "2"}, {20, "3"}}),
            Vertices{"2 3 - - -"});
  EXPECT_EQ(verticesOf({{8, "0"}}), Vertices{});
}

TEST(PolyVertices, KeepTheLastOfRepeatedGroups) {
  EXPECT_EQ(verticesOf({{10, "0"},
                        {20, "1"},
                        {20, "2"},
                        {40, "3"},
                        {40, "4"},
                        {41, "5"},
                        {41, "6"},
                        {42, "7"},
                        {42, "8"}}),
            Vertices{"0 2 4 6 8"});
}

TEST(PolyVertices, OfAClosedPolylineEndWithOneMore) {
  EXPECT_EQ(verticesOf({{70, "1"},
                        {43, "0.7"},
                        {10, "0"},
                        {20, "1"},
                        {42, "9"},
                        {10, "2"},
                        {20, "3"},
                        {10, "4"},
                        {20, "5"},
                        {40, "0.1"},
                        {41, "0.2"},
                        {42, "0.5"}}),
            (Vertices{"0 1 0.7 0.7 9", "2 3 0.7 0.7 -", "4 5 0.1 0.2 0.5", "0 1 - 0.2 0.5"}));
}

TEST(PolyVertices, OfThreeCornersClosedAreFour) {
  const Vertices vertices =
      verticesOf({{70, "1"}, {10, "0"}, {20, "0"}, {10, "1"}, {20, "0"}, {10, "1"}, {20, "1"}});
  EXPECT_EQ(vertices, (Vertices{"0 0 - - -", "1 0 - - -", "1 1 - - -", "0 0 - - -"}));
}

TEST(PolyVertices, CloseForOddFlagsOnly) {
  struct Case {
    std::string_view flags;
    std::size_t count;
  };
  for (const auto& [flags, count] : {Case{"", 2},
                                     {"0", 2},
                                     {"128", 2},
                                     {"2", 2},
                                     {"flags", 2},
                                     {"1", 3},
                                     {"     1", 3},
                                     {"129", 3},
                                     {"3", 3},
                                     {"1.0", 3}}) {
    EXPECT_EQ(verticesOf({{70, flags}, {10, "0"}, {20, "1"}, {10, "2"}, {20, "3"}}).size(), count)
        << flags;
  }
}

TEST(PolyVertices, CloseByTheLastFlagsWhereverTheyAre) {
  EXPECT_EQ(verticesOf({{70, "0"}, {10, "0"}, {20, "1"}, {70, "1"}, {10, "2"}, {20, "3"}}).size(),
            3U);
  EXPECT_EQ(verticesOf({{70, "1"}, {10, "0"}, {20, "1"}, {10, "2"}, {20, "3"}, {70, "0"}}).size(),
            2U);
}

TEST(PolyVertices, CloseAtTheFirstCompleteVertexWithTheCurrentWidthAndBulge) {
  EXPECT_EQ(verticesOf({{70, "1"},
                        {10, "7"},
                        {10, "0"},
                        {20, "1"},
                        {10, "2"},
                        {20, "3"},
                        {42, "4"},
                        {10, "5"},
                        {41, "0.2"},
                        {42, "0.5"}}),
            (Vertices{"0 1 - - -", "2 3 - - 4", "0 1 - 0.2 0.5"}));
}

TEST(PolyVertices, OfAKindWithoutAClosedFlagNeverClose) {
  DxfBuilder dxf;
  dxf.entity("LEADER", {{70, "1"}, {10, "0"}, {20, "1"}, {10, "2"}, {20, "3"}});
  ReadDrawing read(dxf.text());
  PolyVertexWalk walk(read.reader.groups(read.entity(0)), {}, false);
  PolyVertex vertex;
  EXPECT_TRUE(walk.next(vertex));
  EXPECT_TRUE(walk.next(vertex));
  EXPECT_EQ(vertex.x, "2");
  EXPECT_FALSE(walk.next(vertex));
  EXPECT_FALSE(walk.next(vertex));
}

TEST(PolyVertices, OfALeaderFollowTheSameRules) {
  EXPECT_EQ(verticesOf({{3, "ISO"},
                        {40, "2.5"},
                        {10, "0"},
                        {20, "1"},
                        {30, "0"},
                        {10, "2"},
                        {20, "3"},
                        {40, "2.5"}},
                       "LEADER"),
            (Vertices{"0 1 - - -", "2 3 2.5 - -"}));
}

}  // namespace
}  // namespace quillon::dxf
