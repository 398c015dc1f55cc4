#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/monotone_piece.h"
#include "geometry/path.h"
#include "geometry/path_arcs.h"
#include "geometry/stabbing_tree.h"

namespace quillon::geometry {

// Paths whose coordinates are not finite, are beyond 1e100, or whose curves are not in ]-360, 360[
// have no area, no inside and no bounds, and count as crossing themselves.

/// The area that a closed path encloses, arcs included, in square units of the path; negative when
/// the path runs clockwise. An open path counts as if closed by a line.
double signedArea(const Path& path);
bool isCounterClockwise(const Path& path);
/// The same outline the other way round, from the same first vertex.
Path reversed(const Path& path);

/// The smallest rectangle around all edges; Box::nothing() for a path without any.
Box boundsOf(const Path& path);

/// Lines alone, whose distance from the arcs is at most `tolerance` (units of the path, above 0).
/// The path's own vertices stay; an arc becomes 10,000 lines at most.
Path flattened(const Path& path, double tolerance);
/// The same without edges shorter than `length`, which must not be negative: of vertices closer to
/// the one before, only that is kept, except that an open path keeps its last point.
Path withoutShortEdges(const Path& path, double length);

enum class Location { outside, inside, border };

/// Where points lie, by the even-odd rule, in the area of one closed path or of several together.
/// Made once for many points: each costs the edges above and below it alone that are of paths which
/// reach to its height.
class PointLocator {
 public:
  /// The paths may be forgotten afterwards.
  explicit PointLocator(std::span<const Path> paths);

  Location locate(Point p) const;
  /// The paths about a point, by their indices, ascending.
  struct Rings {
    std::vector<std::size_t> around;   ///< that contain it
    std::vector<std::size_t> through;  ///< on whose border it lies, within rounding
  };
  Rings ringsAt(Point p) const;

 private:
  std::vector<MonotonePiece> pieces_;
  StabbingTree tree_;
};

/// For one point of one path.
Location locate(const Path& path, Point p);

/// Edges of closed paths cross or touch, other than in the vertex that two edges share: each path
/// itself and all of them together. Exact up to rounding; with a tolerance also where vertices come
/// that close to an edge above or below them. Time n log n for n edges.
bool crossOrTouch(std::span<const Path> paths, double tolerance = 0.0);
bool crossesItself(const Path& path, double tolerance = 0.0);

}  // namespace quillon::geometry
