#include "exact/area_inset.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "exact_drawing.h"
#include "geometry/area.h"
#include "geometry/vectors.h"

namespace quillon::testing {
namespace {

using exact::insetOfConvex;
using geometry::Path;
using geometry::Point;

std::string insetText(const Path& outline, double distance) {
  const auto inset = insetOfConvex(outline, distance);
  if (!inset) return "none";
  std::string text;
  for (const geometry::Vertex& vertex : inset->vertices) {
    text += "(" + shortNumber(vertex.at.x) + " " + shortNumber(vertex.at.y) + ")";
  }
  return text;
}

Path insetPolygon(std::initializer_list<Point> points) {
  Path path{{}, true};
  for (const Point& point : points) path.vertices.push_back({point, 0.0});
  return path;
}

TEST(ExactAreaInset, ARectangleShrinksFromAllSides) {
  EXPECT_EQ(insetText(insetPolygon({{0, 0}, {4, 0}, {4, 3}, {0, 3}}), 0.25),
            "(0.25 0.25)(3.75 0.25)(3.75 2.75)(0.25 2.75)");
}

TEST(ExactAreaInset, AnOutlineKeepsItsSense) {
  EXPECT_EQ(insetText(insetPolygon({{0, 0}, {0, 3}, {4, 3}, {4, 0}}), 0.25),
            "(0.25 0.25)(0.25 2.75)(3.75 2.75)(3.75 0.25)");
}

TEST(ExactAreaInset, ATriangleShrinksTowardsTheMiddleOfItsInnerCircle) {
  // Whose radius is 1.
  EXPECT_EQ(insetText(insetPolygon({{0, 0}, {3, 0}, {0, 4}}), 0.5), "(0.5 0.5)(2 0.5)(0.5 2.5)");
  EXPECT_EQ(insetText(insetPolygon({{0, 0}, {3, 0}, {0, 4}}), 1.01), "none");
}

TEST(ExactAreaInset, CornersOnAStraightEdgeAreNone) {
  EXPECT_EQ(insetText(insetPolygon({{2, 0}, {4, 0}, {4, 3}, {4, 4}, {0, 4}, {0, 0}}), 1.0),
            "(1 1)(3 1)(3 3)(1 3)");
}

TEST(ExactAreaInset, AnEdgeThatIsTooShortVanishes) {
  EXPECT_EQ(insetText(insetPolygon({{0, 0}, {10, 0}, {10, 9.99}, {9.99, 10}, {0, 10}}), 1.0),
            "(1 1)(9 1)(9 9)(1 9)");
}

TEST(ExactAreaInset, OutlinesThatAreNotConvexOrHaveCurvesHaveNone) {
  EXPECT_EQ(insetText(insetPolygon({{0, 0}, {4, 0}, {4, 4}, {2, 1}, {0, 4}}), 0.1), "none");
  Path curved = insetPolygon({{0, 0}, {4, 0}, {4, 3}});
  curved.vertices[1].curve = 20.0;
  EXPECT_EQ(insetText(curved, 0.1), "none");
}

TEST(ExactAreaInset, NothingIsLeftOfAnAreaThinnerThanTheEdge) {
  EXPECT_EQ(insetText(insetPolygon({{0, 0}, {4, 0}, {4, 0.4}, {0, 0.4}}), 0.25), "none");
}

/// Corners on an ellipse, counter-clockwise.
Path randomConvex(std::mt19937& random, std::size_t corners) {
  std::uniform_real_distribution<double> angle(0.0, 6.28);
  std::vector<double> angles;
  for (std::size_t i = 0; i < corners; ++i) angles.push_back(angle(random));
  std::sort(angles.begin(), angles.end());
  Path path{{}, true};
  for (const double a : angles) path.vertices.push_back({{10 * std::cos(a), 4 * std::sin(a)}});
  return path;
}

/// The least distance from the lines of the edges, negative outside.
double depthInConvex(const Path& outline, Point p) {
  double least = 1e9;
  for (std::size_t i = 0; i < outline.vertices.size(); ++i) {
    const Point from = outline.vertices[i].at;
    const Point to = outline.vertices[(i + 1) % outline.vertices.size()].at;
    least = std::min(least, geometry::cross(geometry::unit(to - from), p - from));
  }
  return least;
}

TEST(ExactAreaInset, EachCornerIsAtTheDistanceFromTheEdgesAndNoneIsMissing) {
  std::mt19937 random(7);
  int found = 0;
  for (int round = 0; round < 300; ++round) {
    const Path outline = randomConvex(random, 3 + static_cast<std::size_t>(round) % 9);
    const double distance = 0.1 + 0.5 * (round % 7);
    double deepest = 0.0;
    for (double x = -10.0; x < 10.0; x += 0.5) {
      for (double y = -4.0; y < 4.0; y += 0.5)
        deepest = std::max(deepest, depthInConvex(outline, {x, y}));
    }
    const auto inset = insetOfConvex(outline, distance);
    if (!inset) {
      EXPECT_LE(deepest, distance) << round;
      continue;
    }
    ++found;
    for (const geometry::Vertex& vertex : inset->vertices) {
      EXPECT_NEAR(depthInConvex(outline, vertex.at), distance, 1e-6) << round;
    }
    for (double x = -10.0; x < 10.0; x += 0.5) {
      for (double y = -4.0; y < 4.0; y += 0.5) {
        const double depth = depthInConvex(outline, {x, y});
        if (std::fabs(depth - distance) < 1e-6) continue;
        EXPECT_EQ(depth > distance, depthInConvex(*inset, {x, y}) > 0.0) << round;
      }
    }
  }
  EXPECT_GT(found, 75);
}

const GroupPairs kInsetRectangle = {{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"},
                                    {12, "0"}, {22, "3"}, {13, "4"}, {23, "3"}};

TEST(ExactFillWidth, ConvexAreasMakeRoomForTheEdge) {
  exact::Options options;
  options.fillWidth = 0.2;
  const ExactDrawing drawing(oneEntity("SOLID", kInsetRectangle), options);
  EXPECT_EQ(drawing.shapes(), "7 area (0.1 0.1) (3.9 0.1) (3.9 2.9) (0.1 2.9) (0.1 0.1)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactFillWidth, OtherAreasGrowAndAreNamedWithTheirGrowth) {
  exact::Options options;
  options.fillWidth = 0.2;
  const ExactDrawing drawing(
      oneEntity(
          "SOLID",
          {{10, "0"}, {20, "0"}, {11, "4"}, {21, "0"}, {12, "0"}, {22, "4"}, {13, "1"}, {23, "1"}}),
      options);
  EXPECT_EQ(drawing.shapes(), "7 area (0 0) (4 0) (1 1) (0 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "area-grown SOLID 1 line 7\n");
  EXPECT_DOUBLE_EQ(drawing.lossList().all().front().most, 0.1);
}

TEST(ExactFillWidth, AnAreaThinnerThanTheEdgeStaysAndIsNamed) {
  exact::Options options;
  options.fillWidth = 5.0;
  const ExactDrawing drawing(oneEntity("SOLID", kInsetRectangle), options);
  EXPECT_EQ(drawing.shapes(), "7 area (0 0) (4 0) (4 3) (0 3) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "area-grown SOLID 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
