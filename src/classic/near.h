#pragma once

#include "base/units.h"

namespace quillon::classic {

/// Whether two points are close to each other, within the unit's tolerance. Two oddities are kept
/// so that scripts stay the same: operands are paired first with second and third with fourth,
/// whatever they mean, and the tolerances of mm and mil are swapped. Mode 1 halves both distances.
/// Without a unit the result is false.
bool pointsNear(double a, double b, double c, double d, int mode, base::Unit unit);

}  // namespace quillon::classic
