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
      [&](std::size_t, const HeldSegment& segment) {
        const Look& look = layer_.lookOf(segment);
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
  const Look& look = layer_.lookOf(layer_.segments()[place.index]);
  return {layer_.segments().edge(place.index), 0, look.pen, look.isArc};
}

Chain& OpenPieces::chainAt(const Place& place) {
  if (place.isShape) return *layer_.shapes()[place.index].chain();
  Chain chain;
  layer_.toChain(place.index, chain);
  layer_.replaceSegment(place.index, std::move(chain));
  return *layer_.shapes().back().chain();
}

void OpenPieces::drop(const Place& place) {
  if (place.isShape) return layer_.shapes()[place.index].drop();
  layer_.dropSegment(place.index);
}

std::uint64_t OpenPieces::lineOf(const Place& place) const {
  return place.isShape ? layer_.shapes()[place.index].origin.line
                       : layer_.segments()[place.index].line();
}

std::vector<std::uint64_t> OpenPieces::linesOfPieces() const {
  std::vector<std::uint64_t> lines;
  forEach([&](const Place& place, Point, Point) { lines.push_back(lineOf(place)); });
  return lines;
}

namespace {

/// The ends of pieces that may have met others, by the order of these among all pieces.
std::vector<geometry::PieceEnd> endsThatMayHaveMet(const OpenPieces::Meeting& meeting,
                                                   const geometry::JoinedEnds& joined) {
  std::vector<geometry::PieceEnd> ends = geometry::endsLeft(meeting.pieces, joined);
  for (geometry::PieceEnd& end : ends) {
    end.index = 2 * meeting.places[end.index / 2].order + end.index % 2;
  }
  return ends;
}

std::size_t countAlone(const std::vector<geometry::PieceEnd>& ends) {
  return static_cast<std::size_t>(std::count_if(
      ends.begin(), ends.end(), [](const geometry::PieceEnd& end) { return end.isAlone; }));
}

/// Leaves as many gaps as are wanted; none where those that are told for sure are fewer.
void keepSure(std::vector<geometry::Gap>& gaps, double reach, std::size_t most) {
  const auto sure = std::count_if(gaps.begin(), gaps.end(), [reach](const geometry::Gap& gap) {
    return gap.next && gap.distance <= reach;
  });
  gaps.resize(static_cast<std::size_t>(sure) < most ? 0 : most);
}

}  // namespace

/// With those of all other pieces, which are alone.
std::vector<geometry::PieceEnd> OpenPieces::endsOfPieces(
    const Meeting& meeting, std::vector<geometry::PieceEnd> met) const {
  std::vector<geometry::PieceEnd> ends;
  std::size_t nextMeeting = 0;
  std::size_t nextMet = 0;
  forEach([&](const Place& place, Point start, Point end) {
    const std::size_t index = 2 * place.order;
    if (nextMeeting == meeting.places.size() || meeting.places[nextMeeting].order != place.order) {
      ends.push_back({start, index, true});
      ends.push_back({end, index + 1, true});
      return;
    }
    ++nextMeeting;
    while (nextMet < met.size() && met[nextMet].index <= index + 1) ends.push_back(met[nextMet++]);
  });
  return ends;
}

template <typename LineOf>
void OpenPieces::tell(const std::vector<geometry::Gap>& found, const LineOf& lineOfPiece,
                      std::vector<OpenEnd>& gaps) const {
  gaps.reserve(gaps.size() + found.size());
  for (const geometry::Gap& gap : found) {
    OpenEnd end{layer_.number(), gap.end.at, lineOfPiece(gap.end.piece)};
    if (gap.next) {
      end.hasNext = true;
      end.next = gap.next->at;
      end.nextLine = lineOfPiece(gap.next->piece);
      end.distance = gap.distance;
    }
    gaps.push_back(end);
  }
}

std::size_t OpenPieces::noteGaps(const Meeting& meeting, const geometry::JoinedEnds& joined,
                                 const EndsKnown& known, std::size_t most,
                                 std::vector<OpenEnd>& gaps) const {
  std::vector<geometry::PieceEnd> met = endsThatMayHaveMet(meeting, joined);
  const std::size_t count = countAlone(met) + 2 * (known.pieces - meeting.pieces.size());
  if (most < count) {
    std::vector<geometry::Gap> near = geometry::gapsBetween(met, stop_);
    keepSure(near, known.reach, most);
    const auto lineOfPiece = [&](std::size_t order) {
      return lineOf(*std::lower_bound(
          meeting.places.begin(), meeting.places.end(), order,
          [](const Place& place, std::size_t wanted) { return place.order < wanted; }));
    };
    tell(near, lineOfPiece, gaps);
    if (!near.empty() || most == 0) return count;
  }
  const std::vector<geometry::Gap> found =
      geometry::nearestGaps(endsOfPieces(meeting, std::move(met)), known.tolerance, most, stop_);
  if (stop_() || found.empty()) return count;
  const std::vector<std::uint64_t> lines = linesOfPieces();
  if (lines.size() < known.pieces) return count;  // stopped on the way
  tell(
      found, [&lines](std::size_t order) { return lines[order]; }, gaps);
  return count;
}

}  // namespace quillon::exact
