#include "geometry/monotone_piece.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace quillon::geometry {
namespace {

MonotonePiece pieceOf(const Edge& edge) {
  const bool forward = edge.from.x != edge.to.x ? edge.from.x < edge.to.x : edge.from.y < edge.to.y;
  const Edge right = forward ? edge : reversed(edge);
  MonotonePiece piece{.left = right.from, .right = right.to, .forward = forward};
  if (right.from.x != right.to.x && right.curve != 0.0) {
    const double half = radiansOf(right.curve) / 2.0;
    piece.sine = std::sin(half);
    piece.cosine = std::cos(half);
  }
  return piece;
}

bool isEndOf(const MonotonePiece& piece, Point p) { return p == piece.left || p == piece.right; }

/// Gathers on which sides of `b` points of `a` lie.
class Sides {
 public:
  Sides(bool neighbours, double tolerance) : neighbours_(neighbours), tolerance_(tolerance) {}

  /// `sign` is 1 when `b` is the piece that is compared with, else -1.
  void add(const MonotonePiece& of, Point p, int sign) {
    if (p.x < of.left.x || p.x > of.right.x) return;
    if (neighbours_ && isEndOf(of, p)) return;
    const int side = sign * of.sideOf(p, tolerance_);
    above_ = above_ || side >= 0;
    below_ = below_ || side <= 0;
  }
  bool met() const { return above_ && below_; }

 private:
  bool neighbours_;
  double tolerance_;
  bool above_ = false;
  bool below_ = false;
};

/// Where the distance between an arc and another piece may be the smallest between their ends.
void addExtremes(const MonotonePiece& arc, const MonotonePiece& other, int sign, Sides& sides) {
  if (arc.isStraight()) return;
  const Point chord = other.right - other.left;
  Point along = chord;
  if (!other.isStraight()) {
    along = leftOf(circleOf(other.asEdge()).centre - circleOf(arc.asEdge()).centre);
  }
  const double length = norm(along);
  if (length == 0.0) {
    // Circles with the same centre are everywhere at the same distance.
    sides.add(other, pointAt(arc.asEdge(), 0.5), sign);
    return;
  }
  for (const Point p : arc.pointsAlong(along * (1.0 / length))) sides.add(other, p, sign);
}

}  // namespace

int MonotonePiece::sideOf(Point p, double tolerance) const {
  if (left.x == right.x) {
    if (p.y > right.y + tolerance) return 1;
    return p.y < left.y - tolerance ? -1 : 0;
  }
  // The circle goes on beyond the piece: above a lower half and below an upper one.
  if (sine < 0.0 && p.y < std::min(left.y, right.y) - tolerance) return -1;
  if (sine > 0.0 && p.y > std::max(left.y, right.y) + tolerance) return 1;
  // Zero where the piece is seen under the angle that all points of its circle (or line) have;
  // near it, the distance times the chord.
  const Point toLeft = left - p;
  const Point toRight = right - p;
  const double value = cross(toLeft, toRight) * cosine - dot(toLeft, toRight) * sine;
  const double rounding =
      8.0 * std::numeric_limits<double>::epsilon() * norm(toLeft) * norm(toRight);
  if (std::fabs(value) <= tolerance * norm(right - left) + rounding) return 0;
  return value > 0.0 ? 1 : -1;
}

std::vector<Point> MonotonePiece::pointsAlong(Point direction) const {
  const Edge whole = asEdge();
  std::vector<Point> points;
  for (const double fraction :
       fractionsWithDirection(whole, std::atan2(direction.y, direction.x))) {
    points.push_back(pointAt(whole, fraction));
  }
  return points;
}

Edge MonotonePiece::asEdge() const {
  return {left, right, degreesOf(2.0 * std::atan2(sine, cosine))};
}

std::vector<MonotonePiece> monotonePieces(const Edge& edge) {
  std::vector<MonotonePiece> pieces;
  if (edge.from == edge.to) return pieces;
  double from = 0.0;
  std::vector<double> stops = fractionsWithDirection(edge, std::numbers::pi / 2.0);
  stops.push_back(1.0);
  Point start = edge.from;
  for (const double to : stops) {
    const Edge part{start, pointAt(edge, to), edge.curve * (to - from)};
    if (part.from == part.to) continue;
    pieces.push_back(pieceOf(part));
    from = to;
    start = part.to;
  }
  return pieces;
}

void addMonotonePieces(const Path& path, std::size_t ring, std::vector<MonotonePiece>& pieces) {
  for (std::size_t i = 0; i < edgeCount(path); ++i) {
    for (MonotonePiece& piece : monotonePieces(edgeAt(path, i))) {
      piece.ring = ring;
      piece.edge = i;
      pieces.push_back(piece);
    }
  }
}

bool meet(const MonotonePiece& a, const MonotonePiece& b, bool neighbours, double tolerance) {
  if (a.right.x < b.left.x || b.right.x < a.left.x) return false;
  if (a.isStraight() && b.isStraight() && a.left == b.left && a.right == b.right) return true;
  Sides sides(neighbours, tolerance);
  sides.add(b, a.left, 1);
  sides.add(b, a.right, 1);
  sides.add(a, b.left, -1);
  sides.add(a, b.right, -1);
  addExtremes(a, b, 1, sides);
  addExtremes(b, a, -1, sides);
  return sides.met();
}

}  // namespace quillon::geometry
