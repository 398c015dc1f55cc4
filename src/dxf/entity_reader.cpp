#include "dxf/entity_reader.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>

namespace quillon::dxf {
namespace {

constexpr std::size_t kVertexBulgeSlot = 4;
constexpr std::size_t kBlockNameSlot = 0;

}  // namespace

GroupCursor EntityReader::groups(const DxfEntity& entity) const {
  return GroupCursor(LineCursor({entity.groups, entity.groupsEnd}, drawing_.lineEnds));
}

void EntityReader::readEntity(const EntitySlots& stored, DxfEntity& entity) {
  const SlotLayout& layout = slotLayout(stored.kind);
  entity.kind = stored.kind;
  entity.slotCount = layout.slotCount;
  entity.groups = stored.groups;
  entity.groupsEnd = stored.groupsEnd;
  entity.sideIndex = stored.sideIndex;
  entity.layer = nullptr;
  entity.values.fill({});
  if (layout.slotCount == 0) return;

  for (std::uint32_t rest = stored.filled; rest != 0; rest &= rest - 1) {
    const auto slot = static_cast<std::size_t>(std::countr_zero(rest));
    entity.values[slot] = stored.values[slot];
  }
  finishKind(entity);

  entity.layer = &layerLineType(entity.values[layout.layer]);
  entity.values[layout.layer] = entity.layer->name;
  std::string_view& lineType = entity.values[layout.lineType];
  lineType = lineType.empty() ? entity.layer->lineType : upperName(lineType);
}

void EntityReader::finishKind(DxfEntity& entity) {
  switch (entity.kind) {
    case EntityKind::Vertex: {
      // A bulge too small to show is stored as a plain zero: intended.
      constexpr double kSmallestBulge = 1e-6;
      std::string_view& bulge = entity.values[kVertexBulgeSlot];
      if (std::fabs(numberValue(bulge)) < kSmallestBulge) bulge = "0";
      break;
    }
    case EntityKind::Insert:
    case EntityKind::Dimension:
      entity.values[kBlockNameSlot] = upperName(entity.values[kBlockNameSlot]);
      break;
    default:
      break;
  }
}

const LayerUse& EntityReader::layerLineType(std::string_view layerName) {
  if (lastLayer_ != nullptr && layerName == lastLayerName_) return *lastLayer_;
  auto place = layers_.find(layerName);
  if (place == layers_.end()) {
    LayerUse use;
    use.name = drawing_.arena.keep(upperCase(layerName, drawing_.encoding));
    use.number = layers_.size();
    if (LayerRec* const record = drawing_.findLayer(use.name)) {
      record->used = true;
      use.lineType = record->values[1];
    }
    place = layers_.emplace(drawing_.arena.keep(std::string(layerName)), use).first;
  }
  lastLayerName_ = place->first;
  lastLayer_ = &place->second;
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
    const std::string_view upper = arena.keep(upperCase(name, drawing_.encoding));
    place = upperNames_.emplace(arena.keep(std::string(name)), upper).first;
  }
  return place->second;
}

}  // namespace quillon::dxf
