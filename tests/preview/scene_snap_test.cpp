#include "preview/scene_snap.h"

#include "preview/scene_parts.h"

namespace quillon::preview {
namespace {

using geometry::Point;

struct NearestPlace : SceneTest {
  std::optional<Point> nearby(Point to, double reach = 1.0) const {
    return nearestPlace(*scene(), to, reach, [](int layer) { return layer != 99; });
  }
};

TEST_F(NearestPlace, IsAnEndOfALine) {
  line({0.0, 0.0}, {10.0, 0.0});
  EXPECT_EQ(nearby({9.5, 0.5}), (Point{10.0, 0.0}));
  EXPECT_EQ(nearby({0.2, -0.5}), (Point{0.0, 0.0}));
  EXPECT_EQ(nearby({5.0, 0.1}), std::nullopt);
  EXPECT_EQ(nearby({11.5, 0.0}), std::nullopt);
}

TEST_F(NearestPlace, IsTheCentreOfACircleOrAnArc) {
  recorder.circle({eagle::CircleKind::Ring, 0.1, {50.0, 50.0}, {70.0, 50.0}});
  line({0.0, 0.0}, {10.0, 0.0}, 180.0);
  EXPECT_EQ(nearby({50.3, 50.0}), (Point{50.0, 50.0}));
  const std::optional<Point> centre = nearby({5.1, 0.2});
  ASSERT_TRUE(centre.has_value());
  EXPECT_NEAR(centre->x, 5.0, 1e-9);
  EXPECT_NEAR(centre->y, 0.0, 1e-9);
}

TEST_F(NearestPlace, IsACornerOfAnArea) {
  square({20.0, 20.0}, 5.0);
  EXPECT_EQ(nearby({25.4, 25.4}), (Point{25.0, 25.0}));
}

TEST_F(NearestPlace, IsNotOnAHiddenLayer) {
  recorder.layer(99);
  line({0.0, 0.0}, {10.0, 0.0});
  EXPECT_EQ(nearby({0.1, 0.0}), std::nullopt);
}

}  // namespace
}  // namespace quillon::preview
