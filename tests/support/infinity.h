#pragma once

#include <limits>

namespace quillon::testing {

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace quillon::testing
