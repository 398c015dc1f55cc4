#pragma once

#include <cstddef>
#include <vector>

#include "geometry/path_arcs.h"

namespace quillon::geometry {

/// A part of an edge that runs from left to right without turning back: each upright line meets it
/// once. An upright edge is one piece, whose left end is the lower one.
struct MonotonePiece {
  Point left;
  Point right;
  double sine = 0.0;     ///< of half the angle that it turns by from left to right
  double cosine = 1.0;   ///< likewise
  bool forward = true;   ///< the edge runs from left to right
  std::size_t ring = 0;  ///< of the caller's paths
  std::size_t edge = 0;  ///< of the path

  /// 1 when a point between its ends (seen along x) is above it, -1 when below, 0 when it lies on
  /// it within a tolerance, or within rounding.
  int sideOf(Point p, double tolerance = 0.0) const;
  /// Its inner points at which it runs along a unit vector; none for straight pieces.
  std::vector<Point> pointsAlong(Point direction) const;
  bool isStraight() const { return sine == 0.0; }
  Edge asEdge() const;
};

/// The pieces of an edge in the order of the edge: one to three. None for an edge without length.
std::vector<MonotonePiece> monotonePieces(const Edge& edge);
/// The pieces of all edges of a path; `ring` is stored in each.
void addMonotonePieces(const Path& path, std::size_t ring, std::vector<MonotonePiece>& pieces);

/// Two pieces cross, touch or come within a tolerance of each other. With `neighbours`, ends that
/// both have bit for bit do not count.
bool meet(const MonotonePiece& a, const MonotonePiece& b, bool neighbours, double tolerance);

}  // namespace quillon::geometry
