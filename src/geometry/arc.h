#pragma once

#include <utility>

#include "geometry/box.h"
#include "geometry/point.h"

namespace quillon::geometry {

/// A line or an arc. The curve is the angle that it turns through on its way, in degrees in
/// -360..360, both excluded: counter-clockwise when positive, 0 for a line. An arc whose ends are
/// the same is that one point.
///
/// The functions below neither fail nor throw: ends and curves that are not finite give results
/// that are not finite either. They lose no digits with arcs that are all but straight.
struct Arc {
  Point start;
  Point end;
  double curve = 0.0;

  bool operator==(const Arc&) const = default;
};

/// The curve of a bulge, which is the tangent of a quarter of the angle: within -360..360 degrees
/// even for the largest. Bulges below 1e-9 and those that are not finite are straight.
double curveOfBulge(double bulge);

/// The arc around a centre from one direction to another, counter-clockwise, in degrees. The same
/// direction again is a full turn, with a curve of 360: not an Arc as paths have them. A negative
/// radius counts as a positive one.
Arc arcAround(Point centre, double radius, double startDegrees, double endDegrees);

/// From end to start on the same way.
Arc reversed(const Arc& arc);
/// Both halves; the point between them is the same to the bit.
std::pair<Arc, Arc> halves(const Arc& arc);

/// The distance from start to end.
double chord(const Arc& arc);
/// How far the middle of the arc is from the middle of its chord.
double sagitta(const Arc& arc);
/// Whether the arc may as well be a line where points closer than the resolution are the same: its
/// sagitta is below half of that.
bool isStraight(const Arc& arc, double resolution);
/// Infinite for a line.
double radius(const Arc& arc);
/// Only of arcs, not of lines.
Point centre(const Arc& arc);
double length(const Arc& arc);
/// The point after a part of the way, 0..1; the ends are exact.
Point pointAt(const Arc& arc, double fraction);
/// The direction of the way there, a unit vector; (0 0) where start and end are the same.
Point tangentAt(const Arc& arc, double fraction);
Box bounds(const Arc& arc);

/// Distances of many points to one arc.
class ArcDistance {
 public:
  explicit ArcDistance(const Arc& arc);
  /// How far the point is from the nearest one of the arc.
  double operator()(Point p) const;

 private:
  Arc arc_;
  Point startTangent_;
  Point endTangent_;
  Point outward_;     ///< at the start, a unit vector
  double curvature_;  ///< 1 / radius
};

}  // namespace quillon::geometry
