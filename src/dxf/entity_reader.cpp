#include "dxf/entity_reader.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

namespace quillon::dxf {
namespace {

constexpr std::size_t kVertexBulgeSlot = 3;
constexpr std::size_t kBlockNameSlot = 0;

}  // namespace

GroupReplay EntityReader::groups(const DxfEntity& entity) const {
  const char* const rest = entity.split.empty() ? entity.groups : entity.afterSplit;
  return {entity.split, LineCursor({rest, entity.groupsEnd}, drawing_.lineEnds)};
}

void EntityReader::complete(DxfEntity& entity) {
  const SlotLayout& layout = slotLayout(entity.kind);
  entity.layer = nullptr;
  if (layout.slotCount == 0) return;
  finishKind(entity);
  entity.layer = &layerLineType(entity.value(layout.layer));
  entity.setValue(layout.layer, entity.layer->name);
  const std::string_view lineType = entity.value(layout.lineType);
  entity.setValue(layout.lineType, lineType.empty() ? entity.layer->lineType : upperName(lineType));
}

void EntityReader::finishKind(DxfEntity& entity) {
  switch (entity.kind) {
    case EntityKind::Vertex: {
      // A bulge too small to show is stored as exactly 0; kept so that scripts stay the same.
      constexpr double kSmallestBulge = 1e-6;
      if (std::fabs(entity.number(kVertexBulgeSlot)) < kSmallestBulge) {
        entity.setValue(kVertexBulgeSlot, "0");
      }
      break;
    }
    case EntityKind::Insert:
    case EntityKind::Dimension:
      entity.setValue(kBlockNameSlot, upperName(entity.value(kBlockNameSlot)));
      break;
    default:
      break;
  }
}

const LayerUse& EntityReader::layerLineType(std::string_view layerName) {
  const auto characterAt = [layerName](std::size_t i) -> std::size_t {
    return static_cast<unsigned char>(layerName[i]);
  };
  const std::size_t size = layerName.size();
  const std::size_t bits =
      size == 0 ? 0 : size * 5 + characterAt(size - 1) + 11 * characterAt(size / 2);
  RecentLayer& recent = recentLayers_[bits % recentLayers_.size()];
  if (recent.use != nullptr && layerName == recent.name) return *recent.use;
  auto place = layers_.find(layerName);
  if (place == layers_.end()) {
    LayerUse use;
    use.name = drawing_.arena.keep(base::upperCase(layerName, drawing_.encoding));
    use.number = layers_.size();
    use.isZero = use.name == "0";
    if (const LayerRec* const record = drawing_.findLayer(use.name)) {
      use.lineType = record->lineType;
      use.isOff = base::numberValue(record->colour) < 0.0;
      use.isFrozen = base::isOddNumber(record->flags);
    }
    place = layers_.emplace(drawing_.arena.keep(layerName), use).first;
  }
  recent = {place->first, &place->second};
  return place->second;
}

std::string_view EntityReader::upperName(std::string_view name) {
  const auto needsWork = [](char c) {
    return (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
  };
  if (std::none_of(name.begin(), name.end(), needsWork)) return name;
  auto place = upperNames_.find(name);
  if (place == upperNames_.end()) {
    TextArena& arena = drawing_.arena;
    const std::string_view upper = arena.keep(base::upperCase(name, drawing_.encoding));
    place = upperNames_.emplace(arena.keep(name), upper).first;
  }
  return place->second;
}

}  // namespace quillon::dxf
