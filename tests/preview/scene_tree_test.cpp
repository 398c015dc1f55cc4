#include "preview/scene_tree.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>
#include <vector>

namespace quillon::preview {
namespace {

using geometry::Box;
using geometry::Point;

std::vector<std::uint32_t> placesIn(const SceneTree& tree, const Box& box) {
  std::vector<std::uint32_t> places;
  tree.visit(box, [&](std::size_t first, std::size_t end) {
    for (std::size_t i = first; i < end; ++i) places.push_back(static_cast<std::uint32_t>(i));
    return true;
  });
  return places;
}

TEST(SceneTree, ThingsInOnePointKeepTheirOrder) {
  std::vector<std::uint32_t> all(100);
  std::iota(all.begin(), all.end(), 0U);
  for (const double side : {0.0, 5e-324, 1e-310, 1e-300}) {
    const Point at{3.0, -7.0};
    const auto boxOf = [&](std::size_t i) {
      return i % 2 == 0 ? Box{at, at} : Box{{0.0, -side}, {side, 0.0}};
    };
    const auto sameBox = [&](std::size_t) { return Box{at, at}; };
    SceneTree tree;
    EXPECT_EQ(tree.build(all.size(), sameBox, {}), all);
    EXPECT_EQ(placesIn(tree, {at, at}), all);
    EXPECT_TRUE(placesIn(tree, {{3.1, -7.0}, {4.0, 0.0}}).empty());
    EXPECT_EQ(tree.build(all.size(), boxOf, {}).size(), all.size());
    const auto tinyBox = [&](std::size_t) { return Box{{0.0, -side}, {side, 0.0}}; };
    EXPECT_EQ(tree.build(all.size(), tinyBox, {}), all);
  }
}

TEST(SceneTree, NeighboursComeTogether) {
  SceneTree tree;
  const auto boxOf = [](std::size_t i) {
    const double x = i % 2 == 0 ? 0.0 : 1000.0;
    const double y = static_cast<double>(i);
    return Box{{x, y}, {x + 1.0, y + 1.0}};
  };
  const std::vector<std::uint32_t> order = tree.build(64, boxOf, {});
  ASSERT_EQ(order.size(), 64U);
  for (const std::uint32_t place : placesIn(tree, {{0.0, 0.0}, {1.0, 64.0}})) {
    EXPECT_EQ(order[place] % 2, 0U);
  }
}

}  // namespace
}  // namespace quillon::preview
