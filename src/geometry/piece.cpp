#include "geometry/piece.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>

#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// An arc is still the same where its middle moves this many times as far as its ends, at most.
constexpr double kMostMoved = 3.0;

/// An arc of the same radius and sense between new ends, as far as it reaches.
std::optional<double> curveWithRadiusOf(const Edge& old, Point from, Point to) {
  const double sine = norm(to - from) / (2.0 * circleOf(old).radius);
  if (!(sine <= 1.0)) return std::nullopt;
  double half = std::asin(sine);
  if (std::fabs(old.curve) > 180.0) half = std::numbers::pi - half;
  return std::copysign(degreesOf(2.0 * half), old.curve);
}

/// An arc of the same radius, or else of the same angle, between new ends. With the same radius, a
/// chord hardly shorter than the diameter is that of an arc much flatter than a half circle. An arc
/// almost all round would swing about with both: nothing then.
std::optional<double> curveBetween(const Edge& old, Point from, Point to) {
  const Point start = from - old.from;
  const Point end = to - old.to;
  const bool stays = start == Point{} && end == Point{};
  if (stays || old.curve == 0.0 || old.from == old.to) return old.curve;
  const double most = kMostMoved * std::max(norm(start), norm(end));
  // How far the middles move, by way of the moves alone, which are exact where arcs are large.
  const double bulge = tangentOf(old.curve / 4.0);
  const Point withAngle = middle(start, end) - leftOf(end - start) * (0.5 * bulge);
  if (const auto curve = curveWithRadiusOf(old, from, to)) {
    const double rise = 0.5 * (tangentOf(*curve / 4.0) - bulge);
    if (norm(withAngle - leftOf(to - from) * rise) <= most) return curve;
  }
  if (norm(withAngle) <= most) return old.curve;
  return std::nullopt;
}

/// Moves the ends of an edge, which becomes two where its middle would not stay.
void moveEdge(Path& path, std::size_t index, Point from, Point to) {
  auto& vertices = path.vertices;
  const Edge old = edgeAt(path, index);
  const std::optional<double> curve = curveBetween(old, from, to);
  vertices[index].at = from;
  vertices[index + 1].at = to;
  if (curve) {
    vertices[index].curve = *curve;
    return;
  }
  const double half = old.curve / 2.0;
  const Point still = pointAt(old, 0.5);
  vertices[index].curve = curveBetween({old.from, still, half}, from, still).value_or(half);
  const double second = curveBetween({still, old.to, half}, still, to).value_or(half);
  vertices.insert(vertices.begin() + static_cast<std::ptrdiff_t>(index) + 1, {still, second});
}

void moveEndsOf(Path& path, Point start, Point end) {
  const std::size_t last = path.vertices.size() - 2;
  if (last == 0) return moveEdge(path, 0, start, end);
  moveEdge(path, last, path.vertices[last].at, end);
  moveEdge(path, 0, start, path.vertices[1].at);
}

/// An arc almost all round cannot be told by equal ends.
Path inHalves(const Edge& edge) {
  return {{{edge.from, edge.curve / 2}, {pointAt(edge, 0.5), edge.curve / 2}, {edge.to}}, false};
}

}  // namespace

void moveEnds(Piece& piece, Point start, Point end) {
  if (endOf(piece, 0) == start && endOf(piece, 1) == end) return;
  if (Edge* const edge = std::get_if<Edge>(&piece.shape)) {
    const auto curve = start == end ? std::nullopt : curveBetween(*edge, start, end);
    if (curve) {
      *edge = {start, end, *curve};
      return;
    }
    piece.shape = inHalves(*edge);
  }
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
