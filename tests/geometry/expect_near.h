#pragma once

#include <gtest/gtest.h>

#include "geometry/point.h"

namespace quillon::testing {

inline void expectNear(geometry::Point p, geometry::Point expected, double tolerance = 1e-12) {
  EXPECT_NEAR(p.x, expected.x, tolerance);
  EXPECT_NEAR(p.y, expected.y, tolerance);
}

}  // namespace quillon::testing
