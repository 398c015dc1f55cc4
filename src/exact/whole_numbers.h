#pragma once

#include <algorithm>

namespace quillon::exact {

/// A whole number such as flags, a count or an index. A drawing may have any number in its place:
/// one that does not fit is cut to 31 bits, and what is no number is 0.
inline int cutInteger(double number) {
  constexpr double kMost = 2147483647.0;
  return number == number ? static_cast<int>(std::clamp(number, -kMost, kMost)) : 0;
}

}  // namespace quillon::exact
