#include "geometry/piece.h"

#include <cmath>
#include <cstddef>
#include <numbers>

#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// An arc of the same radius and sense between new ends, as far as it reaches.
double curveWithRadiusOf(const Edge& old, Point from, Point to) {
  if (old.curve == 0.0 || old.from == old.to) return old.curve;
  const double sine = norm(to - from) / (2.0 * circleOf(old).radius);
  if (!(sine <= 1.0)) return old.curve;
  double half = std::asin(sine);
  if (std::fabs(old.curve) > 180.0) half = std::numbers::pi - half;
  return std::copysign(degreesOf(2.0 * half), old.curve);
}

void moveEndsOf(Path& path, Point start, Point end) {
  auto& vertices = path.vertices;
  const std::size_t last = vertices.size() - 2;
  const Edge first = edgeAt(path, 0);
  const Edge final = edgeAt(path, last);
  vertices.front().at = start;
  vertices.back().at = end;
  vertices[0].curve = curveWithRadiusOf(first, vertices[0].at, vertices[1].at);
  vertices[last].curve = curveWithRadiusOf(final, vertices[last].at, vertices[last + 1].at);
}

/// An arc almost all round cannot be told by equal ends.
Path inHalves(const Edge& edge) {
  return {{{edge.from, edge.curve / 2}, {pointAt(edge, 0.5), edge.curve / 2}, {edge.to}}, false};
}

}  // namespace

void moveEnds(Piece& piece, Point start, Point end) {
  if (endOf(piece, 0) == start && endOf(piece, 1) == end) return;
  Edge* const edge = std::get_if<Edge>(&piece.shape);
  if (edge != nullptr && start != end) {
    *edge = {start, end, curveWithRadiusOf(*edge, start, end)};
    return;
  }
  if (edge != nullptr) piece.shape = inHalves(*edge);
  Path& path = *std::get_if<Path>(&piece.shape);
  if (start == end && path.vertices.size() == 2) path = inHalves(edgeAt(path, 0));
  moveEndsOf(path, start, end);
}

Path pathOf(const Piece& piece) {
  if (const Edge* const edge = std::get_if<Edge>(&piece.shape)) {
    return {{{edge->from, edge->curve}, {edge->to}}, false};
  }
  return *std::get_if<Path>(&piece.shape);
}

double lengthOf(const Piece& piece) {
  if (const Edge* const edge = std::get_if<Edge>(&piece.shape)) return lengthOf(*edge);
  const Path& path = *std::get_if<Path>(&piece.shape);
  double length = 0.0;
  for (std::size_t i = 0; i < edgeCount(path); ++i) length += lengthOf(edgeAt(path, i));
  return length;
}

}  // namespace quillon::geometry
