#pragma once

#include <cstddef>
#include <string_view>

#include "exact/canvas.h"

namespace quillon::exact {

/// What an INSERT says. Texts are views into the drawing.
struct InsertValues {
  std::string_view block;
  std::string_view dictionary;  ///< handle of what programs have attached to the entity, or ""
  Point at;
  double elevation = 0.0;
  double scaleX = 1.0;  ///< never 0, as the others
  double scaleY = 1.0;
  double scaleZ = 1.0;
  double angle = 0.0;       ///< degrees
  std::size_t columns = 1;  ///< at least 1, and no more than a drawing can have
  std::size_t rows = 1;
  double columnStep = 0.0;
  double rowStep = 0.0;
};

InsertValues readInsert(const Item& item, const Canvas& canvas);

}  // namespace quillon::exact
