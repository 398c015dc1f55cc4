#include <cmath>

#include "geometry/trigonometry.h"

namespace quillon::geometry {

double sine(double x) { return std::sin(x); }

double cosine(double x) { return std::cos(x); }

double arcTangent(double x) { return std::atan(x); }

}  // namespace quillon::geometry
