#include "geometry/rounded_trigonometry.h"
#include "geometry/trigonometry.h"

namespace quillon::geometry {

double sine(double x) { return roundedSine(x); }

double cosine(double x) { return roundedCosine(x); }

double arcTangent(double x) { return roundedArcTangent(x); }

}  // namespace quillon::geometry
