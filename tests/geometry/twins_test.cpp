#include "geometry/twins.h"

#include <gtest/gtest.h>

#include "geometry/line_piece.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

using testing::linePiece;

std::vector<std::size_t> twinsWhenJoined(std::vector<Piece> pieces) {
  const JoinedEnds joined = joinEnds(pieces, 0.01);
  return twinsOf(pieces, joined, 0.0001);
}

using Indices = std::vector<std::size_t>;

TEST(TwinsOf, AreLaidUponOthersInEitherSense) {
  EXPECT_EQ(twinsWhenJoined({linePiece({0, 0}, {9, 0}), linePiece({0, 0.008}, {9, 0.008}),
                             linePiece({9, -0.008}, {0, -0.008}), linePiece({9, 0}, {9, 5})}),
            (Indices{1, 2}));
}

TEST(TwinsOf, AreOfOneLayerAndStyle) {
  EXPECT_EQ(twinsWhenJoined({linePiece({0, 0}, {9, 0}, 0, 1), linePiece({0, 0.008}, {9, 0}, 1, 1),
                             linePiece({0, 0.008}, {9, 0}, 0, 2)}),
            Indices{});
}

TEST(TwinsOf, AreArcsOfOneMiddle) {
  const auto arc = [](Point from, Point to, double curve) {
    return Piece{Edge{from, to, curve}, 0, 0, true};
  };
  EXPECT_EQ(twinsWhenJoined({arc({0, 0}, {9, 0}, 90), arc({0, 0}, {9, 0.001}, 90.0001),
                             arc({0, 0}, {9, 0.001}, 91), arc({9, 0.001}, {0, 0}, 90),
                             arc({9, 0.001}, {0, 0}, -90)}),
            (Indices{1, 4}));
}

TEST(TwinsOf, AreNoneWhereNothingMoved) {
  EXPECT_EQ(twinsWhenJoined({linePiece({0, 0}, {9, 0}), linePiece({0, 0}, {9, 0})}), Indices{});
}

TEST(TwinsOf, TakeLittleTimeBetweenTwoPoints) {
  std::vector<Piece> pieces;
  for (int i = 0; i < 50000; ++i) {
    pieces.push_back({Edge{{0, 0.001 * (i % 2)}, {9, 0}, 0.003 * i}, 0, 0, true});
  }
  EXPECT_LT(twinsWhenJoined(pieces).size(), 10U);
}

TEST(TwinsOf, SurviveHostilePieces) {
  std::vector<Piece> pieces;
  for (const Path& path : hostilePaths()) {
    pieces.push_back({path, 0, 0, false});
    for (std::size_t i = 0; i < edgeCount(path); ++i) {
      pieces.push_back({edgeAt(path, i), 0, 0, i % 2 == 0});
    }
  }
  for (const double tolerance : {0.01, 1e300, std::nan("")}) {
    std::vector<Piece> copy = pieces;
    const JoinedEnds joined = joinEnds(copy, tolerance);
    for (const std::size_t twin : twinsOf(copy, joined, 0.0001)) EXPECT_LT(twin, copy.size());
  }
}

}  // namespace
}  // namespace quillon::geometry
