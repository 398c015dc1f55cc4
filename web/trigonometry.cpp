// The C library's own functions would be off by an ulp in three results of a hundred, and scripts
// would differ from those of the program; these take their place wherever the engine calls them.
#include "geometry/rounded_trigonometry.h"

extern "C" {

double sin(double x) { return quillon::geometry::roundedSine(x); }
double cos(double x) { return quillon::geometry::roundedCosine(x); }
double atan(double x) { return quillon::geometry::roundedArcTangent(x); }
double atan2(double y, double x) { return quillon::geometry::roundedDirection(y, x); }
}
