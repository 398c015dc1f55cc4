#include "exact/layers.h"

#include "base/number_text.h"
#include "dxf/group_cursor.h"
#include "exact/whole_numbers.h"

namespace quillon::exact {

const Layer& Layers::search(std::string_view upperName) {
  const auto found = index_.find(upperName);
  if (found != index_.end()) return *recent_.keep(upperName, found->second);
  layers_.push_back(make(upperName));
  Layer& layer = layers_.back();
  layer.use.number = layers_.size() - 1;
  layer.number = numbers_.layerNumber(layer.use);
  layer.hasAreas = numbers_.hasAreas(layer.use);
  index_.emplace(upperName, &layer);
  return layer;
}

Layer Layers::make(std::string_view upperName) const {
  constexpr int kFrozen = 1;
  Layer layer;
  layer.use.name = upperName;
  const dxf::LineRange range = drawing_.tableEntries.find("LAYER", upperName);
  if (range.begin == nullptr) return layer;
  dxf::GroupCursor groups(dxf::LineCursor(range, drawing_.lineEnds));
  for (dxf::Group group; groups.next(group);) {
    const double number = base::numberValue(group.value);
    if (group.code == 62) layer.isOff = number < 0.0;
    if (group.code == 70) layer.isFrozen = (cutInteger(number) & kFrozen) != 0;
    if (group.code == 370) layer.lineWeight = cutInteger(number);
    if (group.code == 6) layer.use.lineType = group.value;
  }
  return layer;
}

}  // namespace quillon::exact
