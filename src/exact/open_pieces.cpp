#include "exact/open_pieces.h"

#include <algorithm>
#include <utility>

namespace quillon::exact {

const Chain* OpenPieces::openChain(std::size_t shape) const {
  const Chain* const chain = layer_.shapes()[shape].chain();
  return chain != nullptr && chain->cleanable && !chain->path.closed ? chain : nullptr;
}

bool OpenPieces::hasClosed() const {
  bool hasClosed = false;
  layer_.inOrder(
      [&](std::size_t i) {
        const Look& look = layer_.lookOf(layer_.segments()[i]);
        hasClosed = look.cleanable && look.isCircle;
        return !hasClosed;
      },
      [&](std::size_t i) {
        const Chain* const chain = layer_.shapes()[i].chain();
        hasClosed = chain != nullptr && chain->cleanable && chain->path.closed;
        return !hasClosed;
      });
  return hasClosed;
}

geometry::Piece OpenPieces::take(const Place& place) {
  if (place.isShape) {
    Chain& chain = *layer_.shapes()[place.index].chain();
    return {std::move(chain.path), 0, layer_.penOf(chain), chain.isArc};
  }
  const HeldSegment& segment = layer_.segments()[place.index];
  const Look& look = layer_.lookOf(segment);
  return {{{{segment.from, segment.curve}, {segment.to}}, false}, 0, look.pen, look.isArc};
}

Chain& OpenPieces::chainAt(const Place& place) {
  if (place.isShape) return *layer_.shapes()[place.index].chain();
  Chain chain;
  layer_.toChain(layer_.segments()[place.index], chain);
  layer_.replaceSegment(place.index, std::move(chain));
  return *layer_.shapes().back().chain();
}

void OpenPieces::drop(const Place& place) {
  if (place.isShape) return layer_.shapes()[place.index].drop();
  layer_.segments()[place.index].isDropped = true;
}

std::vector<std::uint64_t> OpenPieces::linesOfPieces() const {
  std::vector<std::uint64_t> lines;
  forEach([&](const Place& place, Point, Point) {
    lines.push_back(place.isShape ? layer_.shapes()[place.index].origin.line
                                  : layer_.segments()[place.index].line);
  });
  return lines;
}

/// Of ends that are one point, only the first one.
std::vector<geometry::PieceEnd> OpenPieces::endsOfPieces(const Meeting& meeting,
                                                         const geometry::JoinedEnds& joined) const {
  std::vector<std::uint32_t> counts(joined.pointCount, 0);
  const auto isUsable = [&](std::size_t i) {
    return meeting.pieces[i].path.vertices.size() > 1 && geometry::isUsable(meeting.pieces[i].path);
  };
  for (std::size_t i = 0; i < meeting.pieces.size(); ++i) {
    if (!isUsable(i)) continue;
    for (const std::size_t end : {2 * i, 2 * i + 1}) ++counts[joined.points[end]];
  }
  std::vector<geometry::PieceEnd> ends;
  std::vector<bool> isTold(joined.pointCount, false);
  std::size_t next = 0;
  forEach([&](const Place& place, Point start, Point end) {
    const std::size_t index = 2 * place.order;
    if (next == meeting.places.size() || meeting.places[next].order != place.order) {
      ends.push_back({start, index, true});
      ends.push_back({end, index + 1, true});
      return;
    }
    const std::size_t piece = next++;
    if (!isUsable(piece)) return;
    const auto& vertices = meeting.pieces[piece].path.vertices;
    for (const std::size_t side : {std::size_t{0}, std::size_t{1}}) {
      const std::size_t point = joined.points[2 * piece + side];
      if (isTold[point]) continue;
      isTold[point] = true;
      ends.push_back(
          {side == 0 ? vertices.front().at : vertices.back().at, index + side, counts[point] == 1});
    }
  });
  return ends;
}

void OpenPieces::noteGaps(const Meeting& meeting, const geometry::JoinedEnds& joined,
                          std::vector<OpenEnd>& gaps) const {
  const std::vector<geometry::Gap> found = geometry::gapsBetween(endsOfPieces(meeting, joined), stop_);
  if (stop_()) return;
  const std::vector<std::uint64_t> lines = linesOfPieces();
  gaps.reserve(gaps.size() + found.size());
  for (const geometry::Gap& gap : found) {
    OpenEnd end{layer_.number(), gap.end.at, lines[gap.end.piece]};
    if (gap.next) {
      end.hasNext = true;
      end.next = gap.next->at;
      end.nextLine = lines[gap.next->piece];
      end.distance = gap.distance;
    }
    gaps.push_back(end);
  }
}

}  // namespace quillon::exact
