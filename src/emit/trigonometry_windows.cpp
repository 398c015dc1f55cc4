#include "emit/rounded_trigonometry.h"
#include "emit/trigonometry.h"

namespace quillon::emit {

double sine(double x) { return roundedSine(x); }

double cosine(double x) { return roundedCosine(x); }

double arcTangent(double x) { return roundedArcTangent(x); }

}  // namespace quillon::emit
