#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "geometry/path.h"
#include "support/infinity.h"

namespace quillon::geometry {

inline Path closedPath(std::vector<Vertex> vertices) { return {std::move(vertices), true}; }
inline Path openPath(std::vector<Vertex> vertices) { return {std::move(vertices), false}; }

inline Path rectangle(double left, double low, double right, double high) {
  return closedPath({{{left, low}}, {{right, low}}, {{right, high}}, {{left, high}}});
}

/// Counter-clockwise, of two arcs from left to right and back.
inline Path circlePath(Point centre, double radius) {
  return closedPath(
      {{{centre.x - radius, centre.y}, 180.0}, {{centre.x + radius, centre.y}, 180.0}});
}

/// Corners on a circle in turn, the nearest at 60 % of the radius, with arcs of up to 40 degrees.
inline Path randomStar(std::mt19937& random, Point centre, double radius, int corners) {
  std::uniform_real_distribution<double> share(0.6, 0.9);
  std::uniform_real_distribution<double> curve(-40.0, 40.0);
  std::uniform_real_distribution<double> turn(0.0, 2.0 * std::numbers::pi);
  Path star{.vertices = {}, .closed = true};
  const double first = turn(random);
  for (int i = 0; i < corners; ++i) {
    const double angle = first + 2.0 * std::numbers::pi * i / corners;
    const double distance = radius * share(random);
    star.vertices.push_back(
        {{centre.x + distance * std::cos(angle), centre.y + distance * std::sin(angle)},
         corners < 6 ? 0.0 : curve(random) * 6.0 / corners});
  }
  return star;
}

/// Points up to `reach` from both axes, always the same for a count.
inline std::vector<Point> randomPoints(std::size_t count, double reach) {
  std::mt19937 random(static_cast<unsigned>(count));
  std::uniform_real_distribution<double> coordinate(-reach, reach);
  std::vector<Point> points(count);
  for (Point& point : points) point = {coordinate(random), coordinate(random)};
  return points;
}

/// What files may hold in the place of sensible outlines.
inline std::vector<Path> hostilePaths() {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  std::vector<Path> paths = {
      {},
      closedPath({}),
      closedPath({{{1, 1}}}),
      closedPath({{{1, 1}, 180.0}}),
      closedPath({{{1, 1}}, {{1, 1}}, {{1, 1}}, {{1, 1}}}),
      closedPath({{{0, 0}}, {{1, 0}}}),
      closedPath({{{0, 0}, 90.0}, {{1, 0}, -90.0}}),
      closedPath({{{0, 0}}, {{1, 0}}, {{2, 0}}, {{1, 0}}}),
      closedPath({{{kNaN, 0}}, {{1, 0}}, {{1, 1}}}),
      closedPath({{{testing::kInfinity, 0}}, {{1, 0}}, {{1, 1}}}),
      closedPath({{{0, 0}, kNaN}, {{1, 0}, 20.0}, {{1, 1}}}),
      closedPath({{{0, 0}, testing::kInfinity}, {{1, 0}}, {{1, 1}}}),
      closedPath({{{0, 0}, 360.0}, {{1, 0}}, {{1, 1}}}),
      closedPath({{{0, 0}, 359.9999999}, {{1e-9, 0}, -359.9999999}, {{1, 1}}}),
      closedPath({{{-1e300, 0}}, {{1e300, 0}}, {{0, 1e300}}}),
      closedPath({{{-1e99, 0}, 170.0}, {{1e99, 0}}, {{0, 1e99}}}),
      closedPath({{{0, 0}, 1e-300}, {{1, 0}, 5e-324}, {{1, 1}}}),
      closedPath({{{0, 0}}, {{1e-300, 0}}, {{1e-300, 1e-300}}}),
      closedPath({{{1e15, 1e15}, 1e-9}, {{1e15 + 1, 1e15}, -1e-9}, {{1e15, 1e15 + 1}}}),
  };
  for (std::size_t i = paths.size(); i-- > 0;) {
    paths.push_back(paths[i]);
    paths.back().closed = !paths.back().closed;
  }
  return paths;
}

}  // namespace quillon::geometry
