#pragma once

#include <string_view>

#include "exact/canvas.h"

namespace quillon::exact {

/// What a text style says about letters that EAGLE draws its own way.
struct TextStyle {
  double widthFactor = 1.0;
  double oblique = 0.0;  ///< degrees
  bool isVertical = false;
};

/// The style of this name in any case; the defaults for one that the drawing does not have.
TextStyle textStyle(std::string_view name, const Canvas& canvas);

}  // namespace quillon::exact
