#include "geometry/joining.h"

#include <algorithm>
#include <tuple>

#include "base/ranges.h"
#include "geometry/no_index.h"

namespace quillon::geometry {
namespace {

/// The end that each end goes on in, if any.
std::vector<std::size_t> partnersOf(std::span<const Piece> pieces, const JoinedEnds& ends) {
  std::vector<std::size_t> order(ends.points.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  const auto key = [&](std::size_t end) {
    const Piece& piece = pieces[end / 2];
    return std::tuple(ends.points[end], piece.layer, piece.style);
  };
  base::ranges::sort(order, [&](std::size_t a, std::size_t b) {
    return std::tuple(key(a), a) < std::tuple(key(b), b);
  });
  std::vector<std::size_t> partners(order.size(), kNoIndex);
  for (std::size_t first = 0; first < order.size();) {
    std::size_t last = first + 1;
    while (last < order.size() && key(order[last]) == key(order[first])) ++last;
    if (last - first == 2) {
      partners[order[first]] = order[first + 1];
      partners[order[first + 1]] = order[first];
    }
    first = last;
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

std::vector<Chain> chainsOf(std::span<const Piece> pieces, const JoinedEnds& ends) {
  const std::vector<std::size_t> partners = partnersOf(pieces, ends);
  std::vector<bool> used(pieces.size(), false);
  std::vector<Chain> chains;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
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
