#include "geometry/joining.h"

#include <cstdint>
#include <span>
#include <tuple>
#include <utility>
#include <variant>

#include "base/ranges.h"

namespace quillon::geometry {
namespace {

/// What has to be the same of pieces in one chain.
struct Look {
  std::uint32_t layer;
  std::uint32_t style;

  bool operator==(const Look&) const = default;
  bool operator<(const Look& other) const {
    return layer != other.layer ? layer < other.layer : style < other.style;
  }
};

/// The end that each end goes on in, if any.
class Partners {
 public:
  Partners(std::span<const Piece> pieces, const JoinedEnds& joined)
      : joined_(joined), partners_(joined.points.size(), kNoEnd) {
    // Close together, where they are looked up in any order.
    looks_.reserve(pieces.size());
    for (const Piece& piece : pieces) looks_.push_back({piece.layer, piece.style});
    std::vector<std::uint32_t> crowded = pairEnds();
    base::ranges::sort(crowded, {}, [this](std::uint32_t end) {
      return std::tuple(joined_.points[end], lookOf(end), end);
    });
    pairCrowded(crowded);
  }

  std::uint32_t operator[](std::uint32_t end) const { return partners_[end]; }

 private:
  struct Pair {
    std::uint32_t first = kNoEnd;
    std::uint32_t second = kNoEnd;
    bool isCrowded = false;
  };

  const Look& lookOf(std::uint32_t end) const { return looks_[end / 2]; }

  void join(std::uint32_t a, std::uint32_t b) {
    partners_[a] = b;
    partners_[b] = a;
  }

  /// Joins the ends at points at which only two meet, and returns the others.
  std::vector<std::uint32_t> pairEnds() {
    std::vector<Pair> pairs(joined_.pointCount);
    bool isCrowded = false;
    for (std::uint32_t end = 0; end < joined_.points.size(); ++end) {
      if (joined_.points[end] == kNoEnd) continue;
      Pair& pair = pairs[joined_.points[end]];
      if (pair.first == kNoEnd) {
        pair.first = end;
      } else if (pair.second == kNoEnd) {
        pair.second = end;
      } else {
        pair.isCrowded = isCrowded = true;
      }
    }
    for (const Pair& pair : pairs) {
      if (pair.second == kNoEnd || pair.isCrowded) continue;
      if (lookOf(pair.first) == lookOf(pair.second)) join(pair.first, pair.second);
    }
    std::vector<std::uint32_t> crowded;
    for (std::uint32_t end = 0; isCrowded && end < joined_.points.size(); ++end) {
      const std::uint32_t point = joined_.points[end];
      if (point != kNoEnd && pairs[point].isCrowded) crowded.push_back(end);
    }
    return crowded;
  }

  /// Ends at one point with one look follow each other.
  void pairCrowded(const std::vector<std::uint32_t>& ends) {
    const auto areAlike = [&](std::uint32_t a, std::uint32_t b) {
      return joined_.points[a] == joined_.points[b] && lookOf(a) == lookOf(b);
    };
    for (std::size_t first = 0; first < ends.size();) {
      std::size_t last = first + 1;
      while (last < ends.size() && areAlike(ends[last], ends[first])) ++last;
      if (last - first == 2) join(ends[first], ends[first + 1]);
      first = last;
    }
  }

  const JoinedEnds& joined_;
  std::vector<Look> looks_;  ///< of each piece
  std::vector<std::uint32_t> partners_;
};

/// Appends a piece that is entered by one of its ends, without the point at its other end.
void append(const Piece& piece, std::uint32_t enteredBy, std::vector<Vertex>& vertices) {
  const bool isForward = enteredBy % 2 == 0;
  if (const Edge* const edge = std::get_if<Edge>(&piece.shape)) {
    vertices.push_back(isForward ? Vertex{edge->from, edge->curve}
                                 : Vertex{edge->to, -edge->curve});
    return;
  }
  const auto& own = std::get_if<Path>(&piece.shape)->vertices;
  if (isForward) {
    vertices.insert(vertices.end(), own.begin(), own.end() - 1);
    return;
  }
  for (std::size_t i = own.size() - 1; i > 0; --i) {
    vertices.push_back({own[i].at, -own[i - 1].curve});
  }
}

Chain chainFrom(std::span<const Piece> pieces, const Partners& partners, std::uint32_t start,
                bool closed) {
  Chain chain{.path = {.vertices = {}, .closed = closed}, .pieces = {}};
  std::uint32_t end = start;
  while (true) {
    append(pieces[end / 2], end, chain.path.vertices);
    chain.pieces.push_back(end / 2);
    const std::uint32_t next = partners[end ^ 1U];
    if (next == kNoEnd || next == start) break;
    end = next;
  }
  if (!closed) chain.path.vertices.push_back({endOf(pieces[end / 2], end ^ 1U)});
  return chain;
}

}  // namespace

std::vector<Chain> chainsOf(std::span<const Piece> pieces, const JoinedEnds& ends,
                            const StopCheck& stop) {
  constexpr std::size_t kPiecesPerLook = 64;
  const Partners partners(pieces, ends);
  std::vector<bool> used(pieces.size(), false);
  std::vector<Chain> chains;
  chains.reserve(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i % kPiecesPerLook == 0 && stop()) return chains;
    if (used[i]) continue;
    if (ends.points[2 * i] == kNoEnd) {
      chains.push_back({pathOf(pieces[i]), {i}});
      continue;
    }
    // Back to where the chain starts, or round to the same piece.
    const auto own = static_cast<std::uint32_t>(2 * i);
    std::uint32_t start = own;
    bool closed = false;
    while (partners[start] != kNoEnd && !closed) {
      start = partners[start] ^ 1U;
      closed = start == own;
    }
    chains.push_back(chainFrom(pieces, partners, start, closed));
    for (const std::size_t piece : chains.back().pieces) used[piece] = true;
  }
  return chains;
}

}  // namespace quillon::geometry
