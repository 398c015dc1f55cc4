#pragma once

#include <algorithm>

namespace quillon::exact {

/// A whole number such as flags, a count or an index; one that does not fit is cut to 31 bits.
inline int cutInteger(double number) {
  constexpr double kMost = 2147483647.0;
  return static_cast<int>(std::clamp(number, -kMost, kMost));
}

}  // namespace quillon::exact
