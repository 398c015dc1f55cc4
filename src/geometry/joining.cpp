#include "geometry/joining.h"

#include <span>
#include <utility>

#include "base/ranges.h"
#include "geometry/no_index.h"

namespace quillon::geometry {
namespace {

/// The ends at each point, in their order: those at point i are from first[i] to first[i + 1].
struct EndsAtPoints {
  std::vector<std::size_t> first;
  std::vector<std::size_t> ends;
};

EndsAtPoints endsAtPoints(const JoinedEnds& joined) {
  EndsAtPoints at{std::vector<std::size_t>(joined.pointCount + 1, 0),
                  std::vector<std::size_t>(joined.points.size())};
  for (const std::size_t point : joined.points) ++at.first[point];
  std::size_t next = 0;
  for (std::size_t& first : at.first) next += std::exchange(first, next);
  for (std::size_t end = 0; end < joined.points.size(); ++end) {
    at.ends[at.first[joined.points[end]]++] = end;
  }
  // Each has become that of the point after it.
  at.first.insert(at.first.begin(), 0);
  return at;
}

/// The end that each end goes on in, if any.
std::vector<std::size_t> partnersOf(std::span<const Piece> pieces, const JoinedEnds& joined) {
  EndsAtPoints at = endsAtPoints(joined);
  std::vector<std::size_t> partners(at.ends.size(), kNoIndex);
  const auto look = [&](std::size_t end) {
    return std::pair(pieces[end / 2].layer, pieces[end / 2].style);
  };
  for (std::size_t point = 0; point < joined.pointCount; ++point) {
    const std::span<std::size_t> ends =
        std::span(at.ends).subspan(at.first[point], at.first[point + 1] - at.first[point]);
    if (ends.size() > 2) base::ranges::stable_sort(ends, {}, look);
    for (std::size_t first = 0; first < ends.size();) {
      std::size_t last = first + 1;
      while (last < ends.size() && look(ends[last]) == look(ends[first])) ++last;
      if (last - first == 2) {
        partners[ends[first]] = ends[first + 1];
        partners[ends[first + 1]] = ends[first];
      }
      first = last;
    }
  }
  return partners;
}

/// Appends a piece that is entered by one of its ends, without the point at its other end.
void append(const Path& path, std::size_t enteredBy, std::vector<Vertex>& vertices) {
  const std::size_t count = path.vertices.size();
  if (enteredBy % 2 == 0) {
    vertices.insert(vertices.end(), path.vertices.begin(), path.vertices.end() - 1);
    return;
  }
  for (std::size_t i = count - 1; i > 0; --i) {
    vertices.push_back({path.vertices[i].at, -path.vertices[i - 1].curve});
  }
}

Chain chainFrom(std::span<const Piece> pieces, const std::vector<std::size_t>& partners,
                std::size_t start, bool closed) {
  Chain chain{.path = {.vertices = {}, .closed = closed}, .pieces = {}};
  std::size_t end = start;
  while (true) {
    append(pieces[end / 2].path, end, chain.path.vertices);
    chain.pieces.push_back(end / 2);
    const std::size_t next = partners[end ^ 1];
    if (next == kNoIndex || next == start) break;
    end = next;
  }
  if (!closed) {
    const auto& last = pieces[end / 2].path.vertices;
    chain.path.vertices.push_back({end % 2 == 0 ? last.back().at : last.front().at});
  }
  return chain;
}

}  // namespace

std::vector<Chain> chainsOf(std::span<const Piece> pieces, const JoinedEnds& ends,
                            const StopCheck& stop) {
  constexpr std::size_t kPiecesPerCheck = 64;
  const std::vector<std::size_t> partners = partnersOf(pieces, ends);
  std::vector<bool> used(pieces.size(), false);
  std::vector<Chain> chains;
  chains.reserve(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i % kPiecesPerCheck == 0 && stop()) return chains;
    if (used[i]) continue;
    if (pieces[i].path.closed || pieces[i].path.vertices.size() < 2) {
      chains.push_back({pieces[i].path, {i}});
      continue;
    }
    // Back to where the chain starts, or round to the same piece.
    std::size_t start = 2 * i;
    bool closed = false;
    while (partners[start] != kNoIndex && !closed) {
      start = partners[start] ^ 1;
      closed = start == 2 * i;
    }
    chains.push_back(chainFrom(pieces, partners, start, closed));
    for (const std::size_t piece : chains.back().pieces) used[piece] = true;
  }
  return chains;
}

}  // namespace quillon::geometry
