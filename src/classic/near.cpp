#include "classic/near.h"

#include <cmath>

namespace quillon::classic {
namespace {

double toleranceOf(base::Unit unit) {
  switch (unit) {
    case base::Unit::Mic:
      return 1.0;
    case base::Unit::Mm:
      return 0.03937;
    case base::Unit::Mil:
      return 0.001;
    case base::Unit::Inch:
      return 0.00003937;
    default:
      return 0.0;
  }
}

}  // namespace

bool pointsNear(double a, double b, double c, double d, int mode, base::Unit unit) {
  double u = std::fabs(a - b);
  double v = std::fabs(c - d);
  if (mode == 1) {
    u /= 2.0;
    v /= 2.0;
  }
  return std::sqrt(u * u + v * v) < toleranceOf(unit);
}

}  // namespace quillon::classic
