#include "geometry/twins.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <variant>

#include "geometry/hash_index.h"
#include "geometry/no_index.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

/// More edges between two points are no accident.
constexpr int kMostTwinsCompared = 64;

/// The pieces of one edge that begin and end where others have moved to.
std::vector<std::size_t> edgesWhereMoved(std::span<const Piece> pieces, const JoinedEnds& joined) {
  std::vector<bool> isMoved(joined.pointCount, false);
  for (const std::uint32_t piece : joined.movedPieces) {
    for (const std::size_t end : {2 * std::size_t{piece}, 2 * std::size_t{piece} + 1}) {
      isMoved[joined.points[end]] = true;
    }
  }
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const std::uint32_t start = joined.points[2 * i];
    if (start == kNoEnd || !isMoved[start] || !isMoved[joined.points[2 * i + 1]]) continue;
    if (std::holds_alternative<Edge>(pieces[i].shape)) found.push_back(i);
  }
  return found;
}

bool areTwins(const Piece& one, const Piece& other, double resolution) {
  const auto middleOf = [](const Piece& piece) {
    return pointAt(*std::get_if<Edge>(&piece.shape), 0.5);
  };
  return one.layer == other.layer && one.style == other.style &&
         distance(middleOf(one), middleOf(other)) <= resolution;
}

}  // namespace

std::vector<std::size_t> twinsOf(std::span<const Piece> pieces, const JoinedEnds& joined,
                                 double resolution) {
  std::vector<std::size_t> twins;
  if (joined.movedPieces.empty()) return twins;
  const std::vector<std::size_t> edges = edgesWhereMoved(pieces, joined);
  HashIndex lastBetween(edges.size());
  std::vector<std::size_t> before(edges.size(), kNoIndex);  // between the same two points
  const auto hasTwin = [&](std::size_t i, std::size_t other) {
    for (int left = kMostTwinsCompared; other != kNoIndex && left > 0; --left) {
      if (areTwins(pieces[edges[other]], pieces[edges[i]], resolution)) return true;
      other = before[other];
    }
    return false;
  };
  for (std::size_t i = 0; i < edges.size(); ++i) {
    const std::uint32_t* const ends = &joined.points[2 * edges[i]];
    const auto [low, high] = std::minmax(ends[0], ends[1]);
    std::size_t& last = lastBetween.at(mixedBits(std::uint64_t{high} << 32 | low));
    if (hasTwin(i, last)) {
      twins.push_back(edges[i]);
    } else {
      before[i] = std::exchange(last, i);
    }
  }
  return twins;
}

}  // namespace quillon::geometry
