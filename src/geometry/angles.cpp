#include "geometry/angles.h"

#include <cmath>

#include "geometry/trigonometry.h"

namespace quillon::geometry {

double polarAngle(double x, double y) {
  if (x == 0.0 && y == 0.0) return 0.0;
  if (x == 0.0) return y > 0.0 ? kPi / 2.0 : 3.0 * kPi / 2.0;
  if (y == 0.0) return x > 0.0 ? 0.0 : kPi;
  const double angle = arcTangent(y / x);
  if (x < 0.0) return angle + kPi;
  return y < 0.0 ? angle + kTwoPi : angle;
}

Point rotatePoint(double x, double y, double rotation) {
  const double length = std::sqrt(x * x + y * y);
  const double angle = polarAngle(x, y) + rotation;
  return {length * cosine(angle), length * sine(angle)};
}

double normaliseAngle(double degrees) {
  constexpr double kTurn = 360.0;
  if (!(std::fabs(degrees) > kTurn)) return degrees;
  const double rest = std::fmod(degrees, kTurn);
  return rest == 0.0 ? std::copysign(kTurn, degrees) : rest;
}

}  // namespace quillon::geometry
