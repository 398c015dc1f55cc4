#pragma once

#include "base/units.h"

namespace quillon::classic {

/// Whether two points lie near each other, by the tolerance of the unit. Scripts depend on two
/// oddities: operands are paired first with second and third with fourth, whatever they stand for,
/// and the tolerances of mm and mil have changed places. Mode 1 halves both
/// distances. Without a unit nothing is near.
bool pointsNear(double a, double b, double c, double d, int mode, base::Unit unit);

}  // namespace quillon::classic
