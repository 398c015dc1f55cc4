#pragma once

#include <cstddef>

#include "geometry/affine.h"
#include "geometry/arc.h"
#include "geometry/box.h"
#include "geometry/path.h"

namespace quillon::geometry {

// What can be asked of a path, and done to it. Each takes time in proportion to its vertices.
// Lengths are in the unit of the coordinates.

/// How many lines and arcs a path has.
inline std::size_t arcCount(const Path& path) {
  const std::size_t count = path.vertices.size();
  return path.closed || count == 0 ? count : count - 1;
}

/// One of them; index below arcCount().
inline Arc arcAt(const Path& path, std::size_t index) {
  const Vertex& start = path.vertices[index];
  const std::size_t next = index + 1 < path.vertices.size() ? index + 1 : 0;
  return {start.at, path.vertices[next].at, start.curve};
}

/// The length of all lines and arcs.
double length(const Path& path);
/// The rectangle around all lines and arcs; empty for a path without vertices.
Box bounds(const Path& path);
/// Adds that rectangle to a box.
void extend(Box& box, const Path& path);
/// Whether arcs between points within `points`, which turn by up to `mostCurve` to either side, all
/// lie within a box, told from that alone; false where it is not enough.
bool areSurelyWithin(const Box& points, double mostCurve, const Box& box);
/// Whether an arc lies within a box, told by the disc over its chord, which arcs of half a turn do
/// not leave; false where that is not enough to tell.
bool isSurelyWithin(const Arc& arc, const Box& box);

/// Makes the path run the other way. A closed one keeps its first vertex.
void reverse(Path& path);

/// Whether circles up to this radius stay circles under a map: to a billionth of their radius, or
/// to half of the resolution.
bool keepsCircles(const Affine& map, double radius, double resolution);

/// Maps the path if its arcs stay arcs; else leaves it as it is and returns false. Arcs turn the
/// other way under a map that mirrors.
bool transform(Path& path, const Affine& map, double resolution);

/// Adds a path to the end of an open one: with a line, or, where its start is within the resolution
/// of that end, from the end that is there.
void append(Path& path, const Path& tail, double resolution);

/// Cuts arcs of more than 359 degrees in two at their middle.
void splitWideArcs(Path& path);

/// Makes lines of the arcs that may as well be lines; see isStraight().
void straightenFlatArcs(Path& path, double resolution);

/// Leaves out vertices that are closer to their predecessor than the resolution, so that no two in
/// a row are the same point. The ends of an open path, and the first vertex of a closed one, stay
/// where they are. An arc that leaves its point and comes back to it is cut in two instead. A path
/// without length has one vertex afterwards.
void dropClosePoints(Path& path, double resolution);

/// Drops close points, straightens flat arcs and splits wide ones, one after the other; it takes
/// little time where there are none.
void tidy(Path& path, double resolution);

/// Closes an open path of two vertices or more whose ends are closer to each other than the
/// resolution: it then ends on its first vertex. A path without length is left as it is.
void closeWhereEndsMeet(Path& path, double resolution);

}  // namespace quillon::geometry
