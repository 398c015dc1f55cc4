#pragma once

#include "geometry/point.h"

namespace quillon::geometry {

/// Pi as all scripts have been calculated with; not the nearest double.
inline constexpr double kPi = 3.14159265358979;
inline constexpr double kTwoPi = 6.28318530717958;
inline constexpr double kDegreesPerRadian = 180.0 / kPi;
inline double radians(double degrees) { return degrees * kPi / 180.0; }

/// Direction of a vector in 0..2π: the arc tangent of y / x, corrected by quadrant; (0, 0) gives 0.
double polarAngle(double x, double y);

/// A point rotated about the origin by `rotation` radians, via polar coordinates.
Point rotatePoint(double x, double y, double rotation);

/// An angle in degrees reduced to -360..360 by whole turns (720 gives 360).
double normaliseAngle(double degrees);

}  // namespace quillon::geometry
