#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <variant>

#include "geometry/path_arcs.h"
#include "geometry/vectors.h"

namespace quillon::geometry {

/// A line, arc, polyline or the like, whose ends may have been meant to meet others.
struct Piece {
  std::variant<Edge, Path> shape;  ///< most are one edge, which needs no memory of its own
  std::uint32_t layer = 0;         ///< ends meet on the same layer alone
  std::uint32_t style = 0;         ///< chains are of one layer and one style, such as a width
  bool isArc = false;              ///< its ends give way to those of lines and polylines
};

/// False for closed pieces, and for those without an edge or that cannot be reckoned with.
bool hasEnds(const Piece& piece);
/// Of a piece that has ends: one with an even number is its start.
Point endOf(const Piece& piece, std::size_t end);
/// Of a piece that has ends: to where they move bit for bit. Arcs there keep their radius, or their
/// angle where the chord is too long for that, or where the arc would move much farther than its
/// ends; where it would so with both, it becomes two arcs that meet in its middle.
void moveEnds(Piece& piece, Point start, Point end);

Path pathOf(const Piece& piece);
double lengthOf(const Piece& piece);

inline bool hasEnds(const Piece& piece) {
  if (const Edge* const edge = std::get_if<Edge>(&piece.shape)) {
    return usable(edge->from) && usable(edge->to) && std::fabs(edge->curve) < 360.0;
  }
  const Path& path = *std::get_if<Path>(&piece.shape);
  return !path.closed && path.vertices.size() > 1 && isUsable(path);
}

inline Point endOf(const Piece& piece, std::size_t end) {
  if (const Edge* const edge = std::get_if<Edge>(&piece.shape)) {
    return end % 2 == 0 ? edge->from : edge->to;
  }
  const auto& vertices = std::get_if<Path>(&piece.shape)->vertices;
  return end % 2 == 0 ? vertices.front().at : vertices.back().at;
}

}  // namespace quillon::geometry
