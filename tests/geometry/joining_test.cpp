#include "geometry/joining.h"

#include <gtest/gtest.h>

#include <chrono>
#include <set>

#include "base/ranges.h"
#include "geometry/line_piece.h"
#include "geometry/path_arcs.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

using testing::linePiece;

Piece arc(Point from, Point to, double curve) { return {Edge{from, to, curve}, 0, 0, true}; }

TEST(JoinEnds, MovesToTheFirstLineOfThePoint) {
  std::vector<Piece> pieces = {arc({0, 0}, {1, 0.004}, 90), linePiece({1, 0}, {2, 0}),
                               linePiece({2.003, 0}, {3, 0})};
  const JoinedEnds joined = joinEnds(pieces, 0.01);
  EXPECT_EQ(endOf(pieces[0], 1), (Point{1, 0}));
  EXPECT_EQ(endOf(pieces[1], 0), (Point{1, 0}));
  EXPECT_EQ(endOf(pieces[2], 0), (Point{2, 0}));
  EXPECT_EQ(joined.moved, 2U);
  EXPECT_NEAR(joined.largestMove, 0.004, 1e-12);
  EXPECT_EQ(joined.points[1], joined.points[2]);
  EXPECT_EQ(joined.points[3], joined.points[4]);
  EXPECT_EQ(std::set(joined.points.begin(), joined.points.end()).size(), 4U);
}

TEST(JoinEnds, MovesToTheFirstArcWhereThereIsNoLine) {
  std::vector<Piece> pieces = {arc({0, 0}, {1, 0}, 90), arc({1.001, 0}, {2, 0}, 90)};
  joinEnds(pieces, 0.01);
  EXPECT_EQ(endOf(pieces[1], 0), (Point{1, 0}));
  EXPECT_EQ(pathOf(pieces[0]).vertices[0].curve, 90.0);
}

TEST(JoinEnds, KeepsTheRadiusOfAMovedArc) {
  for (const double curve : {-200.0, -90.0, 30.0, 120.0, 270.0}) {
    std::vector<Piece> pieces = {linePiece({0, 0}, {5, 5}), arc({5.003, 5.002}, {9, 5}, curve)};
    const double radius = circleOf({{5.003, 5.002}, {9, 5}, curve}).radius;
    joinEnds(pieces, 0.01);
    const Edge moved = edgeAt(pathOf(pieces[1]), 0);
    EXPECT_EQ(moved.from, (Point{5, 5}));
    EXPECT_NE(moved.curve, curve);
    EXPECT_NEAR(moved.curve, curve, 1.0);
    EXPECT_NEAR(circleOf(moved).radius, radius, 1e-9);
  }
}

TEST(JoinEnds, KeepsTheAngleWhereTheChordIsTooLong) {
  std::vector<Piece> pieces = {linePiece({-1, 0}, {0, 0}), arc({0.005, 0}, {2, 0}, 180)};
  joinEnds(pieces, 0.01);
  EXPECT_EQ(pathOf(pieces[1]).vertices[0], (Vertex{{0, 0}, 180}));
}

TEST(JoinEnds, KeepsTheAngleOfAHalfCircle) {
  // With the same radius, an end 9 um away moves the summit by 0.3 mm.
  for (const double missing : {0.009, 0.001, 1e-5, 1e-6, 1e-9}) {
    std::vector<Piece> pieces = {linePiece({5, -10 + missing}, {0, -10 + missing}),
                                 arc({0, 10}, {0, -10}, 180), linePiece({0, 10}, {5, 10})};
    joinEnds(pieces, 0.01);
    EXPECT_EQ(edgeAt(pathOf(pieces[1]), 0), (Edge{{0, 10}, {0, -10 + missing}, 180}));
  }
}

/// The largest distance from points of an edge to the path that it became.
double largestDistance(const Edge& edge, const Path& path) {
  double largest = 0.0;
  for (int i = 0; i <= 64; ++i) {
    double least = 1e9;
    for (std::size_t k = 0; k < edgeCount(path); ++k) {
      least = std::min(least, distanceTo(edgeAt(path, k), pointAt(edge, i / 64.0)));
    }
    largest = std::max(largest, least);
  }
  return largest;
}

TEST(JoinEnds, MovesNoPointOfAnArcMuchFartherThanItsEnds) {
  for (const double curve :
       {1.0, 90.0, 160.0, 175.0, 179.9, 180.0, 180.1, 190.0, 225.0, 300.0, 340.0, 355.0, 359.9}) {
    for (const double radius : {0.05, 1.0, 10.0, 500.0}) {
      const Edge old = {unitVector(0) * radius, unitVector(curve) * radius, curve};
      if (distance(old.from, old.to) < 0.015) continue;
      for (int move = 0; move < 64; ++move) {
        const Point start = unitVector(45.0 * (move % 8)) * 0.009;
        const Point end = unitVector(45.0 * (move / 8)) * (move % 3 == 0 ? 0.0 : 1e-5);
        Piece piece = {old, 0, 0, true};
        moveEnds(piece, old.from + start, old.to + end);
        EXPECT_EQ(endOf(piece, 0), old.from + start);
        EXPECT_EQ(endOf(piece, 1), old.to + end);
        EXPECT_LT(largestDistance(old, pathOf(piece)), 0.03) << curve << " " << radius;
      }
    }
  }
}

TEST(JoinEnds, HoldsTheSummitOfAnArcAlmostAllRound) {
  // Between the ends alone, the summit would swing aside by 0.1 mm.
  const Edge old = {unitVector(5) * 10, unitVector(-5) * 10, 350};
  for (const bool isPath : {false, true}) {
    Piece piece = {old, 0, 0, true};
    if (isPath) piece.shape = openPath({{old.from, old.curve}, {old.to}, {{30, 0}}});
    moveEnds(piece, old.from + Point{0.009, 0}, endOf(piece, 1));
    const Path path = pathOf(piece);
    ASSERT_EQ(path.vertices.size(), isPath ? 4U : 3U);
    EXPECT_NEAR(distance(path.vertices[1].at, {-10, 0}), 0.0, 1e-12);
    EXPECT_EQ(path.vertices[2].at, old.to);
  }
}

TEST(JoinEnds, ClosesAnArcAlmostAllRound) {
  std::vector<Piece> pieces = {arc({1, 0}, {1, -0.001}, 359.9427)};
  const JoinedEnds joined = joinEnds(pieces, 0.01);
  EXPECT_EQ(joined.points[0], joined.points[1]);
  const Path path = pathOf(pieces[0]);
  ASSERT_EQ(path.vertices.size(), 3U);
  EXPECT_EQ(path.vertices[0].at, path.vertices[2].at);
  EXPECT_NEAR(path.vertices[1].at.x, -1.0, 0.01);
}

TEST(JoinEnds, KeepsLayersAndFarEndsApart) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {1, 0}), linePiece({1.002, 0}, {2, 0}),
                               linePiece({2.011, 0}, {3, 0})};
  pieces[1].layer = 1;
  pieces[2].layer = 1;
  const std::vector<Piece> before = pieces;
  EXPECT_EQ(joinEnds(pieces, 0.01).moved, 0U);
  EXPECT_EQ(pathOf(pieces[1]), pathOf(before[1]));
}

TEST(JoinEnds, LeavesShortPiecesThatMeetAlready) {
  // A curve of lines shorter than the tolerance.
  std::vector<Piece> pieces;
  for (int i = 0; i < 100; ++i) pieces.push_back(linePiece({i * 0.004, 0}, {(i + 1) * 0.004, 0}));
  EXPECT_EQ(joinEnds(pieces, 0.01).moved, 0U);
}

TEST(JoinEnds, JoinsEqualEndsAloneWithoutATolerance) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {1, -0.0}), linePiece({1, 0.0}, {2, 0}),
                               linePiece({2 + 1e-12, 0}, {3, 0})};
  const JoinedEnds joined = joinEnds(pieces, 0.0);
  EXPECT_EQ(joined.points[1], joined.points[2]);
  EXPECT_NE(joined.points[3], joined.points[4]);
  EXPECT_EQ(joined.moved, 0U);
}

TEST(ChainsOf, CloseASlotOfLinesAndArcs) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {4, 0}), linePiece({4, 2}, {0, 2}),
                               arc({4.001, 0}, {4.001, 2}, 180), arc({0, 0.001}, {0, 2}, -180)};
  const auto chains = chainsOf(pieces, joinEnds(pieces, 0.01));
  ASSERT_EQ(chains.size(), 1U);
  EXPECT_EQ(chains[0].pieces, (std::vector<std::size_t>{0, 2, 1, 3}));
  EXPECT_TRUE(chains[0].path.closed);
  ASSERT_EQ(chains[0].path.vertices.size(), 4U);
  EXPECT_EQ(chains[0].path.vertices[0].at, (Point{0, 0}));
  EXPECT_NEAR(chains[0].path.vertices[1].curve, 180, 5);
  EXPECT_NEAR(chains[0].path.vertices[3].curve, 180, 5);
}

TEST(ChainsOf, KeepTheSenseOfTheirFirstPiece) {
  std::vector<Piece> pieces = {linePiece({2, 0}, {1, 0}), linePiece({2, 0}, {3, 0}),
                               arc({0, 0}, {1, 0}, 40)};
  const auto chains = chainsOf(pieces, joinEnds(pieces, 0.01));
  ASSERT_EQ(chains.size(), 1U);
  EXPECT_EQ(chains[0].path, openPath({{{3, 0}}, {{2, 0}}, {{1, 0}, -40}, {{0, 0}}}));
  EXPECT_EQ(chains[0].pieces, (std::vector<std::size_t>{1, 0, 2}));
}

TEST(ChainsOf, EndWhereThreeMeet) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {1, 0}), linePiece({1, 0}, {2, 0}),
                               linePiece({1, 0}, {1, 1}), linePiece({1, 1}, {5, 5})};
  const auto chains = chainsOf(pieces, joinEnds(pieces, 0.01));
  ASSERT_EQ(chains.size(), 3U);
  EXPECT_EQ(chains[2].pieces, (std::vector<std::size_t>{2, 3}));
}

TEST(ChainsOf, AreOfOneStyle) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {1, 0}, 0, 1), linePiece({1, 0}, {2, 0}, 0, 1),
                               linePiece({1, 0}, {1, 1}, 0, 2)};
  const auto chains = chainsOf(pieces, joinEnds(pieces, 0.01));
  ASSERT_EQ(chains.size(), 2U);
  EXPECT_EQ(chains[0].path, openPath({{{0, 0}}, {{1, 0}}, {{2, 0}}}));
}

TEST(ChainsOf, LeaveClosedPiecesAlone) {
  std::vector<Piece> pieces = {{rectangle(0, 0, 1, 1), 0, 0, false}, linePiece({0, 0}, {-1, 0})};
  const auto chains = chainsOf(pieces, joinEnds(pieces, 0.01));
  ASSERT_EQ(chains.size(), 2U);
  EXPECT_EQ(chains[0].path, rectangle(0, 0, 1, 1));
}

TEST(ChainsOf, HaveAllPiecesOnce) {
  std::mt19937 random(29);
  std::uniform_int_distribution<int> step(0, 12);
  std::uniform_real_distribution<double> noise(-0.002, 0.002);
  std::vector<Piece> pieces;
  const auto point = [&] {
    return Point{step(random) + noise(random), step(random) + noise(random)};
  };
  for (int i = 0; i < 150; ++i) {
    pieces.push_back(i % 3 == 0 ? arc(point(), point(), 60) : linePiece(point(), point()));
  }
  const auto chains = chainsOf(pieces, joinEnds(pieces, 0.01));
  std::vector<std::size_t> all;
  double length = 0.0;
  for (const Chain& chain : chains) {
    all.insert(all.end(), chain.pieces.begin(), chain.pieces.end());
    for (std::size_t i = 0; i < edgeCount(chain.path); ++i)
      length += lengthOf(edgeAt(chain.path, i));
  }
  base::ranges::sort(all);
  ASSERT_EQ(all.size(), pieces.size());
  EXPECT_EQ(base::ranges::adjacent_find(all), all.end());
  for (const Piece& piece : pieces) length -= lengthOf(piece);
  EXPECT_NEAR(length, 0.0, 1e-6);
  EXPECT_LT(chains.size(), pieces.size());
}

TEST(ChainsOf, TakeLittleTimeForManyEnds) {
  std::vector<Piece> pieces;
  for (int i = 0; i < 50000; ++i) {
    // Each second one first, and never quite exactly.
    const double x = i < 25000 ? 2 * i : 2 * (i - 25000) + 1;
    pieces.push_back(linePiece({x, 0.001}, {x + 1, 0}));
  }
  const auto start = std::chrono::steady_clock::now();
  const auto chains = chainsOf(pieces, joinEnds(pieces, 0.01));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  EXPECT_EQ(chains.size(), 1U);
}

TEST(ChainsOf, TakeLittleTimeForManyEndsInOneCell) {
  std::vector<Piece> pieces;
  for (int i = 0; i < 50000; ++i) pieces.push_back(linePiece({i * 1e-9, 0}, {i * 1e-9, 1e-8 * i}));
  EXPECT_FALSE(chainsOf(pieces, joinEnds(pieces, 0.01)).empty());
}

TEST(ChainsOf, SurviveHostilePaths) {
  std::vector<Piece> pieces;
  for (const Path& path : hostilePaths()) {
    for (const bool isArc : {false, true}) pieces.push_back({path, 0, 0, isArc});
  }
  for (const double tolerance : {0.01, 0.0, -1.0, 1e300, 1e-300, std::nan("")}) {
    std::vector<Piece> copy = pieces;
    std::size_t found = 0;
    for (const Chain& chain : chainsOf(copy, joinEnds(copy, tolerance)))
      found += chain.pieces.size();
    EXPECT_EQ(found, pieces.size());
  }
}

}  // namespace
}  // namespace quillon::geometry
