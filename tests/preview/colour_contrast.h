#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "preview/palette.h"

namespace quillon::preview {

/// The luminance of a colour by the rules for accessible contents.
inline double luminance(Colour colour) {
  const auto linear = [](std::uint8_t part) {
    const double share = part / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

inline double contrast(Colour a, Colour b) {
  const double first = luminance(a);
  const double second = luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

}  // namespace quillon::preview
