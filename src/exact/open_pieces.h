#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "exact/held_layer.h"
#include "exact/outlines.h"
#include "geometry/end_grid.h"
#include "geometry/gaps.h"
#include "geometry/path_arcs.h"
#include "geometry/stop_check.h"

namespace quillon::exact {

/// The lines, arcs and open polylines of a layer, whose ends may have been meant to meet others.
class OpenPieces {
 public:
  /// Where a piece is held.
  struct Place {
    std::size_t index = 0;
    bool isShape = false;   ///< else a segment
    std::size_t order = 0;  ///< among all pieces, in the order of the drawing
  };
  /// Those that have become one point, and where they are held, in the order of the drawing.
  struct Meeting {
    std::vector<geometry::Piece> pieces;
    std::vector<Place> places;
  };

  OpenPieces(HeldLayer& layer, const geometry::StopCheck& stop) : layer_(layer), stop_(stop) {}

  /// Calls function(place, start, end) in the order of the drawing. False where it was stopped.
  template <typename Function>
  bool forEach(Function&& function) const;

  /// Whether some outline is closed already.
  bool hasClosed() const;

  /// The piece, with the path of its shape, which has to be put back into chainAt().
  geometry::Piece take(const Place& place);
  /// The chain at a place; it is the shape that a segment becomes.
  Chain& chainAt(const Place& place);
  void drop(const Place& place);

  /// What is known of the ends when their gaps are looked for.
  struct EndsKnown {
    std::size_t pieces = 0;  ///< all of the layer
    double reach = 0.0;      ///< ends that are so near to others are of meeting pieces
    double tolerance = 0.0;  ///< within which ends were joined
  };
  /// Adds what nearestGaps() tells about the ends of all pieces, and returns how many gaps there
  /// are. `meeting` are those that may have met others.
  std::size_t noteGaps(const Meeting& meeting, const geometry::JoinedEnds& joined,
                       const EndsKnown& known, std::size_t most, std::vector<OpenEnd>& gaps) const;

 private:
  const Chain* openChain(std::size_t shape) const;
  std::uint64_t lineOf(const Place& place) const;
  std::vector<std::uint64_t> linesOfPieces() const;
  std::vector<geometry::PieceEnd> endsOfPieces(const Meeting& meeting,
                                               std::vector<geometry::PieceEnd> met) const;
  template <typename LineOf>
  void tell(const std::vector<geometry::Gap>& found, const LineOf& lineOfPiece,
            std::vector<OpenEnd>& gaps) const;

  HeldLayer& layer_;
  const geometry::StopCheck& stop_;
};

template <typename Function>
bool OpenPieces::forEach(Function&& function) const {
  constexpr std::size_t kPiecesPerCheck = 64;
  std::size_t order = 0;
  bool stopped = false;
  const auto visit = [&](std::size_t index, bool isShape, const Point& start, const Point& end) {
    stopped = order % kPiecesPerCheck == 0 && stop_();
    if (!stopped) function(Place{index, isShape, order++}, start, end);
    return !stopped;
  };
  layer_.inOrder(
      [&](std::size_t i, const HeldSegment& segment) {
        const Look& look = layer_.lookOf(segment);
        if (!look.cleanable || look.isCircle) return true;
        return visit(i, false, segment.from, segment.to);
      },
      [&](std::size_t i) {
        const Chain* const chain = openChain(i);
        if (chain == nullptr) return true;
        // There are none where the path has been taken.
        const auto& vertices = chain->path.vertices;
        if (vertices.empty()) return visit(i, true, {}, {});
        return visit(i, true, vertices.front().at, vertices.back().at);
      });
  return !stopped;
}

}  // namespace quillon::exact
