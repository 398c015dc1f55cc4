#include "preview/differences_fills.h"

#include <gtest/gtest.h>

#include "support/timing.h"

namespace quillon::preview {
namespace {

using geometry::Point;

/// A comb with its back at the bottom, or with all of it lying on its side.
std::vector<Point> combOf(int teeth, double height, bool isLying) {
  std::vector<Point> points;
  const auto add = [&](double x, double y) {
    points.push_back(isLying ? Point{y, -x} : Point{x, y});
  };
  for (int i = 0; i < teeth; ++i) {
    add(2.0 * i, 1.0);
    add(2.0 * i, height);
    add(2.0 * i + 1.0, height);
    add(2.0 * i + 1.0, 1.0);
  }
  add(2.0 * teeth, 0.0);
  add(0.0, 0.0);
  return points;
}

TEST(DifferenceArea, ContainsWhatIsInTheTeethOfACombAlone) {
  for (const bool isLying : {false, true}) {
    const DifferenceArea area(combOf(100, 300.0, isLying), DifferenceKeys(0.01));
    std::uint64_t checks = 0;
    for (int i = 0; i < 100; ++i) {
      for (const double y : {1.5, 150.0, 299.0}) {
        const Point tooth{2.0 * i + 0.5, y};
        const Point gap{2.0 * i + 1.5, y};
        EXPECT_TRUE(area.contains(isLying ? Point{tooth.y, -tooth.x} : tooth, checks))
            << i << " " << y;
        EXPECT_FALSE(area.contains(isLying ? Point{gap.y, -gap.x} : gap, checks)) << i << " " << y;
      }
    }
  }
}

/// Each edge of the upright one is as high as all of it.
TEST(DifferenceArea, ManyTallEdgesCostLittleMoreThanLevelOnes) {
  constexpr int kTeeth = 4000;
  const auto secondsFor = [](bool isLying) {
    const std::vector<Point> points = combOf(kTeeth, 3e4, isLying);
    return testing::leastSeconds([&] { const DifferenceArea area(points, DifferenceKeys(0.01)); });
  };
  const double lying = secondsFor(true);
  EXPECT_LT(secondsFor(false), 10.0 * lying + 0.001);
}

}  // namespace
}  // namespace quillon::preview
