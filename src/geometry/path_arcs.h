#pragma once

#include <cstddef>
#include <vector>

#include "geometry/box.h"
#include "geometry/degrees.h"
#include "geometry/path.h"
#include "geometry/point.h"

namespace quillon::geometry {

/// By an angle in radians, counter-clockwise.
Point turned(Point v, double radians);
/// A line or an arc by its two ends. Nothing here needs the centre, so that arcs that are almost
/// straight are as exact as any other.
struct Edge {
  Point from;
  Point to;
  double curve = 0.0;  ///< degrees, as that of a Vertex

  bool operator==(const Edge&) const = default;
};

struct Circle {
  Point centre;
  double radius = 0.0;
};

std::size_t edgeCount(const Path& path);
/// The edge that starts at a vertex; `index` is below edgeCount().
Edge edgeAt(const Path& path, std::size_t index);
Edge reversed(const Edge& edge);
/// All vertices are usable(), and all curves are in ]-360, 360[.
bool isUsable(const Path& path);

/// The circle that an arc is part of; `edge.curve` is not 0.
Circle circleOf(const Edge& edge);
/// The point at a fraction 0..1 of the edge's length; its ends bit for bit.
Point pointAt(const Edge& edge, double fraction);
/// The part between two fractions, backwards when `first` is the larger one.
Edge partOf(const Edge& edge, double first, double last);
double lengthOf(const Edge& edge);
/// The largest distance between the edge and its chord.
double sagittaOf(const Edge& edge);
/// The unit vector in which the edge runs at a fraction of its length; (0 0) for no length.
Point directionAt(const Edge& edge, double fraction);
/// The fraction at which a point that lies on the edge does so, cut to 0..1.
double fractionOf(const Edge& edge, Point on);
/// Fractions inside of the edge, ascending, at which it runs at `direction` (radians) or against
/// it.
std::vector<double> fractionsWithDirection(const Edge& edge, double direction);
/// Fractions, ascending, at which the edge passes from one side of a line to the other. The line
/// counts as part of its left side, so that each path crosses it an even number of times.
std::vector<double> fractionsOnLine(const Edge& edge, Point on, Point direction);
Box boundsOf(const Edge& edge);
/// The distance between a point and the nearest point of the edge.
double distanceTo(const Edge& edge, Point p);

}  // namespace quillon::geometry
