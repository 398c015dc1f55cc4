#pragma once

#include <string_view>

#include "dxf/entity_values.h"

namespace quillon::dxf {

// The values of what is placed as a whole, by name: texts and references to blocks.

/// TEXT, ATTRIB, ATTDEF and MTEXT.
struct TextValues {
  Position at;
  double height;
  double angle;
  std::string_view content;
};
inline TextValues textOf(const DxfEntity& entity) {
  return {positionAt(entity, 0), entity.number(2), entity.number(3), entity.value(4)};
}

struct InsertValues {
  std::string_view block;
  Position at;
  double scaleX;  ///< absent: 1
  double scaleY;  ///< absent: 1
  double angle;
};
inline InsertValues insertOf(const DxfEntity& entity) {
  const auto scale = [&entity](std::size_t slot) {
    return entity.value(slot).empty() ? 1.0 : entity.number(slot);
  };
  return {entity.value(0), positionAt(entity, 1), scale(3), scale(4), entity.number(5)};
}

struct DimensionValues {
  std::string_view block;
  Position definition;
};
inline DimensionValues dimensionOf(const DxfEntity& entity) {
  return {entity.value(0), positionAt(entity, 1)};
}

}  // namespace quillon::dxf
