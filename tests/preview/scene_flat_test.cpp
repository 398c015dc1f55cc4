#include "preview/scene_flat.h"

#include "preview/scene_parts.h"

namespace quillon::preview {
namespace {

using geometry::Arc;
using geometry::Point;

std::vector<Point> flat(const Arc& arc, double tolerance,
                        const geometry::Box& nearby = everywhere()) {
  std::vector<Point> points{arc.start};
  flatten(arc, tolerance, nearby, points);
  return points;
}

TEST(Flatten, KeepsWithinTheToleranceOfTheArc) {
  for (const double curve : {5.0, -90.0, 180.0, 300.0, -359.0}) {
    for (const double tolerance : {1.0, 1e-2, 1e-5}) {
      const Arc arc{{3.0, 4.0}, {13.0, -1.0}, curve};
      const std::vector<Point> points = flat(arc, tolerance);
      EXPECT_EQ(points.back(), arc.end);
      const geometry::ArcDistance distance(arc);
      for (std::size_t i = 1; i < points.size(); ++i) {
        EXPECT_LE(distance(points[i]), 1e-9) << curve;
        EXPECT_LE(distance(geometry::middle(points[i - 1], points[i])), tolerance * 1.01) << curve;
      }
    }
  }
}

TEST(Flatten, CostsLittleWhereAnArcIsElsewhere) {
  const Arc arc{{0.0, 0.0}, {1e6, 0.0}, 180.0};
  const geometry::Box nearby{{-1.0, -1.0}, {1.0, 1.0}};
  const std::vector<Point> points = flat(arc, 1e-6, nearby);
  EXPECT_LT(points.size(), 3000U);
  const geometry::ArcDistance distance(arc);
  for (std::size_t i = 1; i < points.size(); ++i) {
    geometry::Box box;
    box.add(points[i - 1]);
    box.add(points[i]);
    if (!touch(box, nearby)) continue;
    EXPECT_LE(distance(geometry::middle(points[i - 1], points[i])), 1.1e-6);
  }
}

TEST(Flatten, ACircleComesBackToItsStart) {
  std::vector<Point> points;
  flatten(SceneCircle{{10.0, 20.0}, 5.0, 0.0F, true}, 0.01, everywhere(), points);
  EXPECT_EQ(points.front(), points.back());
  for (const Point point : points) {
    EXPECT_NEAR(geometry::distance(point, {10.0, 20.0}), 5.0, 1e-9);
  }
}

TEST(Flatten, AnAreaIsOneLoopWithItsCurves) {
  const SceneCorner corners[] = {{{0.0, 0.0}, 0.0F}, {{10.0, 0.0}, 180.0F}, {{10.0, 10.0}, 0.0F}};
  std::vector<Point> points;
  flatten(corners, 0.01, everywhere(), points);
  EXPECT_EQ(points.front(), (Point{0.0, 0.0}));
  EXPECT_EQ(points.back(), (Point{10.0, 10.0}));
  geometry::Box box;
  for (const Point point : points) box.add(point);
  EXPECT_NEAR(box.high.x, 15.0, 0.02);
}

}  // namespace
}  // namespace quillon::preview
