#pragma once

#include "geometry/curve.h"

namespace quillon::testing {

inline constexpr geometry::CurveSettings kFine{.tolerance = 0.001, .resolution = 0.000003125};

}  // namespace quillon::testing
