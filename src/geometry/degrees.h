#pragma once

#include <numbers>

#include "geometry/point.h"

namespace quillon::geometry {

// Angles in degrees, which are exact for quarter turns, where radians are not.

constexpr double degreesOf(double radians) { return radians * (180.0 / std::numbers::pi); }
constexpr double radiansOf(double degrees) { return degrees * (std::numbers::pi / 180.0); }

/// The unit vector in this direction, (cosine sine); exact for multiples of 90 degrees, and the
/// same for angles that are whole turns apart. Angles that are not finite give NaN.
Point unitVector(double degrees);

/// The tangent of -90..90 degrees, both excluded.
double tangentOf(double degrees);

/// The direction of a vector in -180..180 degrees; (0 0) gives 0, and what is not finite may give
/// NaN.
double directionOf(Point vector);

/// How far it is from one direction to another counter-clockwise: above 0, at most 360 degrees. The
/// same direction again is a full turn. NaN where one of them is not finite.
double sweepBetween(double startDegrees, double endDegrees);

}  // namespace quillon::geometry
