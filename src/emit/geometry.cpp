#include "emit/geometry.h"

#include <cmath>

#include "emit/emit_context.h"
#include "emit/trigonometry.h"

namespace quillon::emit {

double polarAngle(double x, double y) {
  if (x == 0.0 && y == 0.0) return 0.0;
  if (x == 0.0) return y > 0.0 ? kPi / 2.0 : 3.0 * kPi / 2.0;
  if (y == 0.0) return x > 0.0 ? 0.0 : kPi;
  const double angle = arcTangent(y / x);
  if (x < 0.0) return angle + kPi;
  return y < 0.0 ? angle + kTwoPi : angle;
}

double rotateX(double x, double y, double rotation) {
  return std::sqrt(x * x + y * y) * cosine(polarAngle(x, y) + rotation);
}

double rotateY(double x, double y, double rotation) {
  return std::sqrt(x * x + y * y) * sine(polarAngle(x, y) + rotation);
}

double normaliseAngle(double degrees) {
  constexpr double kTurn = 360.0;
  if (!(std::fabs(degrees) > kTurn)) return degrees;
  const double rest = std::fmod(degrees, kTurn);
  return rest == 0.0 ? std::copysign(kTurn, degrees) : rest;
}

bool pointsNear(double a, double b, double c, double d, int mode, int unit) {
  double u = std::fabs(a - b);
  double v = std::fabs(c - d);
  if (mode == 1) {
    u /= 2.0;
    v /= 2.0;
  }
  const double distance = std::sqrt(u * u + v * v);
  switch (unit) {
    case 0:
      return distance < 1.0;
    case 1:
      return distance < 0.03937;
    case 2:
      return distance < 0.001;
    case 3:
      return distance < 0.00003937;
    default:
      return false;
  }
}

}  // namespace quillon::emit
