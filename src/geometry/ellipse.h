#pragma once

#include "geometry/affine.h"
#include "geometry/box.h"
#include "geometry/curve.h"

namespace quillon::geometry {

/// The points centre + u cos t + v sin t, for t from `start` on, over `sweep`. All circles, arcs
/// and ellipses are this, and so is what an affine map makes of them: u and v are any two vectors.
/// Counter-clockwise where v is to the left of u.
struct Ellipse {
  Point centre;
  Point u;
  Point v;
  double start = 0.0;    ///< degrees of the parameter t
  double sweep = 360.0;  ///< degrees, above 0; 360: the whole ellipse

  bool full() const { return sweep == 360.0; }
  Point at(double degrees) const;

  bool operator==(const Ellipse&) const = default;
};

/// A circle; a negative radius counts as a positive one.
Ellipse circle(Point centre, double radius);
/// The arc counter-clockwise between two directions in degrees; whole for equal ones.
Ellipse circularArc(Point centre, double radius, double startDegrees, double endDegrees);
/// An arc of an ellipse between two parameters in radians; an end that is not above the start is
/// raised by whole turns. Within 1e-9 of a full turn, or beyond, it is whole. `minor` is any second
/// half axis.
Ellipse ellipticArc(Point centre, Point major, Point minor, double startRadians, double endRadians);
/// The same curve with the parameter counted clockwise: from -start to -(start + sweep).
Ellipse clockwise(const Ellipse& ellipse);

Ellipse mapped(const Ellipse& ellipse, const Affine& map);

/// Whether it is a circle, of radius |u|, to a billionth of that or half of the resolution.
bool isCircle(const Ellipse& ellipse, double resolution);
/// Whether it is so thin (1 to a million) that only a segment is left of it, or less.
bool isFlat(const Ellipse& ellipse);
/// At least as long as the diagonal of the rectangle around the whole ellipse.
double mostDiagonal(const Ellipse& ellipse);
/// The rectangle around the part between start and start + sweep.
Box bounds(const Ellipse& ellipse);

/// The ellipse as a path from start to start + sweep, closed if it is whole. A circle is exact: its
/// ends are those of the ellipse; arcs of more than 359 degrees are cut in two, and a whole one is
/// two halves from its left, counter-clockwise. A flat ellipse is the segment between its outermost
/// points. Others are drawn by biarcs, cut at the ends of their axes. An ellipse with huge numbers
/// or such that are none gives an empty path; one of no size has no length either.
CurvePath ellipsePath(const Ellipse& ellipse, const CurveSettings& settings);

}  // namespace quillon::geometry
