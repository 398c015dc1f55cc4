#include "exact/held_layer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "exact/held_segments.h"

namespace quillon::testing {
namespace {

using exact::HeldLayer;
using exact::HeldSegment;
using exact::SegmentList;

TEST(HeldSegment, KeepsLineAndLookApart) {
  const std::uint64_t line = (std::uint64_t{1} << 36) - 2;
  HeldSegment segment({1, 2}, {3, 4}, line, HeldSegment::kMostLooks - 1);
  EXPECT_EQ(segment.line(), line);
  EXPECT_EQ(segment.look(), HeldSegment::kMostLooks - 1);
  EXPECT_FALSE(segment.isDropped());
  segment.drop();
  EXPECT_TRUE(segment.isDropped());
  EXPECT_EQ(segment.line(), line);
  EXPECT_EQ(segment.look(), HeldSegment::kMostLooks - 1);
}

TEST(HeldSegment, TellsOfLinesPastItsRoomTheLastOne) {
  const HeldSegment segment({}, {}, ~std::uint64_t{0}, 7);
  EXPECT_EQ(segment.line(), (std::uint64_t{1} << 36) - 1);
  EXPECT_EQ(segment.look(), 7U);
  EXPECT_FALSE(segment.isDropped());
}

TEST(SegmentList, HasCurvesWhereThereAreArcs) {
  SegmentList list;
  for (int i = 0; i < 2000; ++i) {
    list.add({{0.0, 0.0}, {1.0, double(i)}, 0, 0}, i == 700 ? 90.0 : 0.0);
  }
  ASSERT_EQ(list.size(), 2000U);
  for (std::size_t i = 0; i < list.size(); ++i) {
    EXPECT_EQ(list.curve(i), i == 700 ? 90.0 : 0.0) << i;
    EXPECT_EQ(list.edge(i).to.y, static_cast<double>(i));
  }
  list.setEdge(3, {{5, 5}, {6, 6}, -45.0});
  list.setEdge(700, {{5, 5}, {6, 6}, 0.0});
  EXPECT_EQ(list.edge(3), (geometry::Edge{{5, 5}, {6, 6}, -45.0}));
  EXPECT_EQ(list.edge(700), (geometry::Edge{{5, 5}, {6, 6}, 0.0}));
  EXPECT_EQ(list.curve(4), 0.0);
}

/// A chain and a segment are held alike where they are the same line.
TEST(HeldLayer, HoldsSegmentsAndChainsOfOneEdgeAlike) {
  exact::Looks looks;
  HeldLayer layer(20, looks);
  const exact::Origin origin{20, "LINE", "0", 9};
  exact::Chain chain;
  chain.path = {{{{1, 2}, 30.0}, {{3, 4}}}, false};
  layer.hold(origin, exact::Chain(chain));
  layer.hold(origin, exact::Segment{{}, {1, 2}, {3, 4}, 30.0});
  ASSERT_EQ(layer.segments().size(), 2U);
  EXPECT_EQ(layer.shapes().size(), 0U);
  EXPECT_EQ(layer.segments()[0].look(), layer.segments()[1].look());
  EXPECT_EQ(layer.segments().edge(0), layer.segments().edge(1));
  EXPECT_EQ(layer.openCount(), 2U);
  EXPECT_EQ(layer.endsBox(), (geometry::Box{{1, 2}, {3, 4}}));
  exact::Chain back;
  layer.toChain(1, back);
  EXPECT_EQ(back.path, chain.path);
}

TEST(HeldLayer, WalksInTheOrderOfTheDrawing) {
  exact::Looks looks;
  HeldLayer layer(20, looks);
  const exact::Origin origin{20, "LINE", "0", 9};
  const exact::Segment segment{{}, {0, 0}, {1, 0}};
  layer.hold(origin, exact::Dot{{0, 0}, 1.0});
  for (int i = 0; i < 3; ++i) layer.hold(origin, segment);
  layer.hold(origin, exact::Dot{{0, 0}, 2.0});
  layer.dropSegment(1);
  EXPECT_EQ(layer.openCount(), 2U);
  layer.replaceSegment(0, exact::Dot{{0, 0}, 3.0});
  layer.settle();
  std::string order;
  const auto note = [&order](char kind, std::size_t i) {
    order += kind + std::to_string(i) + ' ';
    return order.size() < 12;
  };
  layer.inOrder([&](std::size_t i, const HeldSegment&) { return note('s', i); },
                [&](std::size_t i) { return note('d', i); });
  EXPECT_EQ(order, "d0 d2 s2 d1 ");
}

}  // namespace
}  // namespace quillon::testing
