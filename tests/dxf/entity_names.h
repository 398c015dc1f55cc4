#pragma once

#include <string>
#include <vector>

#include "support/read_drawing.h"

namespace quillon::testing {

/// The entities read, as kind and layer.
inline std::vector<std::string> entitiesOf(const ReadDrawing& read) {
  std::vector<std::string> names;
  for (const dxf::DxfEntity& entity : read.entities()) {
    names.emplace_back(dxf::entityName(entity.kind));
    if (entity.layer != nullptr) names.back().append(" ").append(entity.layer->name);
  }
  return names;
}

}  // namespace quillon::testing
