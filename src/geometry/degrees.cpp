#include "geometry/degrees.h"

#include <cmath>
#include <limits>

#include "geometry/trigonometry.h"

namespace quillon::geometry {

Point unitVector(double degrees) {
  if (!std::isfinite(degrees)) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    return {kNaN, kNaN};
  }
  // Both steps are exact: what is left lies within 45 degrees about a multiple of 90.
  const double inTurn = std::fmod(degrees, 360.0);
  const int quarters = static_cast<int>(std::floor(inTurn / 90.0 + 0.5));
  const double rest = radiansOf(inTurn - 90.0 * quarters);
  const Point v{cosine(rest), sine(rest)};
  switch (quarters & 3) {
    case 0:
      return v;
    case 1:
      return {-v.y, v.x};
    case 2:
      return {-v.x, -v.y};
    default:
      return {v.y, -v.x};
  }
}

double tangentOf(double degrees) {
  const Point v = unitVector(degrees);
  return v.y / v.x;
}

double directionOf(Point vector) {
  const double x = std::fabs(vector.x);
  const double y = std::fabs(vector.y);
  if (x == 0.0 && y == 0.0) return 0.0;
  // The quotient is at most 1, so that neither half loses digits.
  double angle = y <= x ? degreesOf(arcTangent(y / x)) : 90.0 - degreesOf(arcTangent(x / y));
  if (vector.x < 0.0) angle = 180.0 - angle;
  return vector.y < 0.0 ? -angle : angle;
}

double sweepBetween(double startDegrees, double endDegrees) {
  const double sweep = std::fmod(endDegrees - startDegrees, 360.0);
  return sweep <= 0.0 ? sweep + 360.0 : sweep;
}

}  // namespace quillon::geometry
