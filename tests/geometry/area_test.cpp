#include "geometry/area.h"

#include <gtest/gtest.h>

#include <numbers>

#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

TEST(SignedArea, CountsSegmentsOfCircles) {
  EXPECT_DOUBLE_EQ(signedArea(rectangle(1, 1, 3, 4)), 6.0);
  EXPECT_DOUBLE_EQ(signedArea(reversed(rectangle(1, 1, 3, 4))), -6.0);
  EXPECT_NEAR(signedArea(circlePath({1e4, 5}, 2)), 4 * std::numbers::pi, 1e-11);
  // A square of 2 with a half circle bulging in at the bottom, and one bulging out at the top.
  EXPECT_NEAR(signedArea(closedPath({{{0, 0}, -180.0}, {{2, 0}}, {{2, 2}, 180.0}, {{0, 2}}})), 4.0,
              1e-14);
}

TEST(SignedArea, IsSmoothWhereArcsAreAlmostStraight) {
  const auto lens = [](double curve) {
    return signedArea(closedPath({{{0, 0}, curve}, {{10, 0}}}));
  };
  EXPECT_NEAR(lens(0.0572) / lens(0.0574), 0.0572 / 0.0574, 1e-6);
  EXPECT_NEAR(lens(1e-9), 100 * radiansOf(1e-9) / 12, 1e-20);
}

TEST(ReversedPath, KeepsTheFirstVertexAndTurnsCurves) {
  EXPECT_EQ(reversed(closedPath({{{0, 0}, 10}, {{1, 0}, 20}, {{1, 1}, 30}})),
            closedPath({{{0, 0}, -30}, {{1, 1}, -20}, {{1, 0}, -10}}));
  EXPECT_EQ(reversed(openPath({{{0, 0}, 10}, {{1, 0}, 20}, {{1, 1}, 30}})),
            openPath({{{1, 1}, -20}, {{1, 0}, -10}, {{0, 0}, 0}}));
}

TEST(Bounds, ReachToTheSummitsOfArcs) {
  const Box box = boundsOf(closedPath({{{0, 0}, 180}, {{2, 0}}}));
  EXPECT_NEAR(box.low.y, -1.0, 1e-15);
  EXPECT_EQ(box.high.y, 0.0);
  EXPECT_EQ(box.high.x, 2.0);
}

TEST(Flattened, StaysWithinTheTolerance) {
  for (const double tolerance : {1.0, 0.1, 0.001}) {
    const Path ring = circlePath({0, 0}, 10);
    const Path flat = flattened(ring, tolerance);
    double worst = 0.0;
    for (std::size_t i = 0; i < edgeCount(flat); ++i) {
      EXPECT_EQ(flat.vertices[i].curve, 0.0);
      worst = std::max(worst, 10.0 - norm(pointAt(edgeAt(flat, i), 0.5)));
    }
    EXPECT_LE(worst, tolerance * 1.0001);
    EXPECT_GE(worst, tolerance * 0.3);
  }
  EXPECT_LE(flattened(circlePath({0, 0}, 1), 0.0).vertices.size(), 20000U);
  EXPECT_EQ(flattened(rectangle(0, 0, 1, 1), 0.1), rectangle(0, 0, 1, 1));
}

TEST(WithoutShortEdges, KeepsTheCurveThatLeadsOn) {
  EXPECT_EQ(
      withoutShortEdges(
          closedPath({{{0, 0}, 5}, {{1e-6, 0}, 10}, {{1, 0}}, {{1, 1}, 7}, {{0, 1e-6}}}), 1e-5),
      closedPath({{{0, 0}, 10}, {{1, 0}}, {{1, 1}, 7}}));
  EXPECT_EQ(withoutShortEdges(openPath({{{0, 0}}, {{1, 0}}, {{1, 1e-6}}}), 1e-5),
            openPath({{{0, 0}}, {{1, 1e-6}}}));
}

TEST(Locate, CountsVerticesOnce) {
  const Path diamond = closedPath({{{0, -1}}, {{1, 0}}, {{0, 1}}, {{-1, 0}}});
  EXPECT_EQ(locate(diamond, {0, 0}), Location::inside);
  EXPECT_EQ(locate(diamond, {0, -2}), Location::outside);
  EXPECT_EQ(locate(diamond, {0, 2}), Location::outside);
  EXPECT_EQ(locate(diamond, {0.5, 0.5}), Location::border);
  EXPECT_EQ(locate(diamond, {-1, 0}), Location::border);
  EXPECT_EQ(locate(diamond, {-1, -1}), Location::outside);
}

TEST(Locate, KnowsBothSidesOfArcs) {
  // Three quarters of a circle and a corner at the centre.
  const Path pie = closedPath({{{0, 0}}, {{1, 0}, 270}, {{0, -1}}});
  EXPECT_EQ(locate(pie, {-0.7, -0.7}), Location::inside);
  EXPECT_EQ(locate(pie, {-0.71, -0.71}), Location::outside);
  EXPECT_EQ(locate(pie, {0.1, -0.1}), Location::outside);
  EXPECT_EQ(locate(pie, {0.1, 0.1}), Location::inside);
  EXPECT_EQ(locate(pie, {0.5, 0.0}), Location::border);
}

TEST(Locate, AgreesWithDistancesFromACentre) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> coordinate(-3, 3);
  const std::vector<Path> rings = {circlePath({0, 0}, 2), reversed(circlePath({0.5, 0}, 1))};
  const PointLocator locator(rings);
  for (int i = 0; i < 2000; ++i) {
    const Point p{coordinate(random), coordinate(random)};
    const bool inside = (norm(p) < 2) != (norm(p - Point{0.5, 0}) < 1);
    EXPECT_EQ(locator.locate(p), inside ? Location::inside : Location::outside);
  }
}

TEST(RingsAt, AreThoseThatContainAPointAndThoseThroughIt) {
  const std::vector<Path> rings = {rectangle(0, 0, 10, 10), rectangle(20, 0, 30, 10),
                                   circlePath({5, 5}, 2)};
  const PointLocator locator(rings);
  EXPECT_EQ(locator.ringsAt({5, 5}).around, (std::vector<std::size_t>{0, 2}));
  EXPECT_TRUE(locator.ringsAt({5, 5}).through.empty());
  EXPECT_EQ(locator.ringsAt({3, 5}).around, (std::vector<std::size_t>{0}));
  EXPECT_EQ(locator.ringsAt({3, 5}).through, (std::vector<std::size_t>{2}));
}

TEST(CrossesItself, KnowsSimpleOutlines) {
  EXPECT_FALSE(crossesItself(rectangle(0, 0, 1, 1)));
  EXPECT_FALSE(crossesItself(circlePath({0, 0}, 1)));
  EXPECT_FALSE(crossesItself(closedPath({{{0, 0}}, {{1, 0}, 270}, {{0, -1}}})));
  // A crescent: two arcs between the same ends.
  EXPECT_FALSE(crossesItself(closedPath({{{0, 0}, 180}, {{2, 0}, -90}})));
  // Tangential joints of a slot.
  EXPECT_FALSE(crossesItself(closedPath({{{0, 0}}, {{4, 0}, 180}, {{4, 2}}, {{0, 2}, 180}})));
  // Vertices in one line.
  EXPECT_FALSE(crossesItself(closedPath({{{0, 0}}, {{1, 0}}, {{2, 0}}, {{3, 0}}, {{0, 3}}})));
}

TEST(CrossesItself, FindsCrossingsAndTouches) {
  EXPECT_TRUE(crossesItself(closedPath({{{0, 0}}, {{1, 1}}, {{1, 0}}, {{0, 1}}})));  // bow tie
  // A corner on another edge, and on another corner.
  EXPECT_TRUE(crossesItself(closedPath({{{0, 0}}, {{4, 0}}, {{4, 4}}, {{2, 0}}, {{0, 4}}})));
  EXPECT_TRUE(
      crossesItself(closedPath({{{0, 0}}, {{2, 1}}, {{4, 0}}, {{4, 4}}, {{2, 1}}, {{0, 4}}})));
  // Back on itself: lines, and arcs of one circle.
  EXPECT_TRUE(crossesItself(closedPath({{{0, 0}}, {{2, 0}}, {{1, 0}}, {{1, 5}}})));
  EXPECT_TRUE(crossesItself(closedPath({{{0, 0}}, {{1, 0}}})));
  EXPECT_TRUE(crossesItself(closedPath(
      {{{1, 0}, 90}, {{0, 1}, -45}, {{0.7071067811865476, 0.7071067811865476}}, {{3, 3}}})));
  // An arc bulging through the side opposite, and only touching it.
  EXPECT_TRUE(crossesItself(closedPath({{{0, 0}, -180}, {{2, 0}}, {{2, 0.9}}, {{0, 0.9}}})));
  EXPECT_TRUE(crossesItself(closedPath({{{0, 0}, -180}, {{2, 0}}, {{2, 1}}, {{0, 1}}})));
  EXPECT_FALSE(crossesItself(closedPath({{{0, 0}, -180}, {{2, 0}}, {{2, 1.001}}, {{0, 1.001}}})));
  EXPECT_TRUE(
      crossesItself(closedPath({{{0, 0}, -180}, {{2, 0}}, {{2, 1.001}}, {{0, 1.001}}}), 0.01));
  // Neighbours that share a corner and cross a second time.
  EXPECT_TRUE(crossesItself(closedPath({{{0, 0}, 180}, {{2, 0}}, {{1, -3}}})));
}

TEST(CrossOrTouch, ComparesPathsWithEachOther) {
  const auto meet = [](const Path& a, const Path& b) {
    return crossOrTouch(std::vector<Path>{a, b});
  };
  EXPECT_FALSE(meet(rectangle(0, 0, 10, 10), circlePath({5, 5}, 4.999)));
  EXPECT_TRUE(meet(rectangle(0, 0, 10, 10), circlePath({5, 5}, 5)));
  EXPECT_TRUE(meet(rectangle(0, 0, 10, 10), rectangle(5, 5, 15, 15)));
  EXPECT_TRUE(meet(rectangle(0, 0, 10, 10), rectangle(0, 0, 10, 10)));
  EXPECT_TRUE(meet(rectangle(0, 0, 10, 10), rectangle(10, 2, 12, 3)));
  EXPECT_FALSE(meet(rectangle(0, 0, 10, 10), rectangle(11, 0, 21, 10)));
}

bool segmentsCross(const Edge& a, const Edge& b) {
  const auto side = [](const Edge& edge, Point p) {
    return cross(edge.to - edge.from, p - edge.from) > 0;
  };
  return side(a, b.from) != side(a, b.to) && side(b, a.from) != side(b, a.to);
}

bool chordsCross(const Path& path, double tolerance) {
  const Path flat = flattened(path, tolerance);
  const std::size_t count = edgeCount(flat);
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i + 2; j < count; ++j) {
      if (i == 0 && j + 1 == count) continue;
      if (segmentsCross(edgeAt(flat, i), edgeAt(flat, j))) return true;
    }
  }
  return false;
}

TEST(CrossesItself, AgreesWithAllPairsOfChords) {
  std::mt19937 random(11);
  std::uniform_real_distribution<double> coordinate(0, 100);
  std::uniform_real_distribution<double> curve(-250, 250);
  int crossing = 0;
  for (int i = 0; i < 600; ++i) {
    Path path{.vertices = {}, .closed = true};
    for (int k = 0; k < 3 + i % 3; ++k) {
      path.vertices.push_back({{coordinate(random), coordinate(random)},
                               k % 2 == 0 ? curve(random) / (1 + i % 5) : 0.0});
    }
    bool crosses = chordsCross(path, 0.01);
    if (crosses != crossesItself(path)) crosses = chordsCross(path, 1e-5);
    crossing += crosses ? 1 : 0;
    EXPECT_EQ(crossesItself(path), crosses) << i;
  }
  EXPECT_GT(crossing, 100);
  EXPECT_LT(crossing, 500);
}

TEST(CrossesItself, TakesNoTimeForManyLongEdges) {
  // A comb of long slanted teeth, whose boxes all overlap.
  Path comb{.vertices = {}, .closed = true};
  for (int i = 0; i < 50000; ++i) {
    comb.vertices.push_back({{i * 1.0, 0}});
    comb.vertices.push_back({{i * 1.0 + 60000.5, 60000}});
  }
  comb.vertices.push_back({{120000, 0}});
  comb.vertices.push_back({{120000, -1}});
  comb.vertices.push_back({{0, -1}});
  EXPECT_FALSE(crossesItself(comb));
  comb.vertices[60000].at.y = -2;
  EXPECT_TRUE(crossesItself(comb));
}

TEST(Areas, SurviveHostilePaths) {
  for (const Path& path : hostilePaths()) {
    signedArea(path);
    boundsOf(path);
    crossesItself(path);
    locate(path, {0.5, 0.1});
    locate(path, {std::nan(""), 1e300});
    EXPECT_LE(flattened(path, 1e-300).vertices.size(), 60000U);
    EXPECT_EQ(flattened(path, std::nan("")).closed, path.closed);
    withoutShortEdges(path, 1e-4);
    if (!isUsable(path)) {
      EXPECT_EQ(signedArea(path), 0.0);
      EXPECT_TRUE(crossesItself(path));
      EXPECT_EQ(locate(path, {0.5, 0.1}), Location::outside);
    }
  }
  EXPECT_TRUE(crossesItself(closedPath({{{1, 1}}, {{1, 1}}, {{2, 1}}, {{1, 1}}})));
}

}  // namespace
}  // namespace quillon::geometry
