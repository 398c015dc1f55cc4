#include "geometry/gaps.h"

#include <gtest/gtest.h>

#include <random>

#include "base/ranges.h"
#include "geometry/line_piece.h"
#include "geometry/path_arcs.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

using testing::linePiece;

std::vector<Gap> gapsAfterJoining(std::vector<Piece>& pieces, double tolerance) {
  const JoinedEnds joined = joinEnds(pieces, tolerance);
  return gapsBetween(endsLeft(pieces, joined), {});
}

TEST(Gaps, TellsEndsLeftAloneNearestFirst) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {10, 0}), linePiece({10, 0}, {10, 10}),
                               linePiece({10, 10.2}, {0, 10}), linePiece({0, 9}, {0, 0})};
  const auto gaps = gapsAfterJoining(pieces, 0.01);
  ASSERT_EQ(gaps.size(), 4U);
  EXPECT_EQ(gaps[0].end, (Gap::End{1, {10, 10}}));
  EXPECT_EQ(gaps[0].next, (Gap::End{2, {10, 10.2}}));
  EXPECT_NEAR(gaps[0].distance, 0.2, 1e-12);
  EXPECT_EQ(gaps[1].end.piece, 2U);
  EXPECT_EQ(gaps[2].end, (Gap::End{2, {0, 10}}));
  EXPECT_EQ(gaps[2].next, (Gap::End{3, {0, 9}}));
  EXPECT_EQ(gaps[2].distance, 1.0);
}

TEST(Gaps, ClosedPiecesHaveNone) {
  const Piece closed{rectangle(3, 3, 4, 4)};
  std::vector<Piece> pieces = {linePiece({0, 0}, {10, 0}), closed};
  EXPECT_EQ(gapsAfterJoining(pieces, 0.01).size(), 2U);
}

TEST(Gaps, TellsTheFirstOfEquallyNearEnds) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {0, 50})};
  for (const double x : {1.0, -1.0}) pieces.push_back(linePiece({x, 0}, {20 * x, 0}));
  const auto gaps = gapsAfterJoining(pieces, 0.01);
  const auto start = base::ranges::find_if(gaps, [](const Gap& gap) {
    return gap.end == Gap::End{0, {0, 0}};
  });
  ASSERT_NE(start, gaps.end());
  EXPECT_EQ(start->next, (Gap::End{1, {1, 0}}));
}

TEST(Gaps, FindsNoneInAClosedChain) {
  std::vector<Piece> pieces = {linePiece({0, 0}, {10, 0}), linePiece({10, 0}, {5, 5}),
                               linePiece({5, 5}, {0, 0})};
  EXPECT_TRUE(gapsAfterJoining(pieces, 0.01).empty());
}

TEST(Gaps, AgreesWithAllPairs) {
  std::mt19937 random(31);
  std::uniform_real_distribution<double> coordinate(0, 100);
  std::vector<Piece> pieces;
  std::vector<Point> ends;
  for (int i = 0; i < 300; ++i) {
    for (int k = 0; k < 2; ++k) ends.push_back({coordinate(random), coordinate(random)});
    pieces.push_back(linePiece(ends[ends.size() - 2], ends.back()));
  }
  const auto gaps = gapsAfterJoining(pieces, 0.0);
  ASSERT_EQ(gaps.size(), 600U);
  for (const Gap& gap : gaps) {
    double nearest = 1e9;
    for (const Point p : ends) {
      if (p != gap.end.at) nearest = std::min(nearest, norm(p - gap.end.at));
    }
    EXPECT_EQ(gap.distance, nearest);
  }
  EXPECT_TRUE(base::ranges::is_sorted(gaps, {}, &Gap::distance));
}

TEST(Gaps, SurvivesHostilePaths) {
  std::vector<Piece> pieces;
  for (const Path& path : hostilePaths()) pieces.push_back({path, 0, 0, false});
  EXPECT_LE(gapsAfterJoining(pieces, 0.01).size(), 2 * pieces.size());
  EXPECT_TRUE(gapsBetween(endsLeft({}, {}), {}).empty());
}

TEST(Gaps, TheNearestOnesAreTheFirstOfAll) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0.0, 100.0);
  std::vector<PieceEnd> ends;
  for (std::size_t i = 0; i < 5000; ++i) {
    ends.push_back({{place(random), place(random)}, i, i % 3 != 0});
  }
  const std::vector<Gap> all = gapsBetween(ends, {});
  for (const std::size_t most : {std::size_t{1}, std::size_t{20}, std::size_t{3000}}) {
    EXPECT_EQ(nearestGaps(ends, 0.0, most, {}),
              std::vector<Gap>(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(most)));
  }
  EXPECT_EQ(nearestGaps(ends, 0.0, 10000, {}), all);
}

TEST(Gaps, TheNearestOnesOfEndsInARowAreFound) {
  std::vector<PieceEnd> ends;
  for (std::size_t i = 0; i < 2000; ++i) ends.push_back({{double(i), 0.0}, i, true});
  EXPECT_EQ(nearestGaps(ends, 0.01, 5, {}).size(), 5U);
}

}  // namespace
}  // namespace quillon::geometry
