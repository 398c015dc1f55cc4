#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "dxf/drawing.h"
#include "dxf/group_cursor.h"

namespace quillon::dxf {

/// What the reader knows of a layer by the name that an entity gives.
struct LayerUse {
  std::string_view name;      ///< upper-cased
  std::string_view lineType;  ///< as the layer table holds it; "" when the layer is not in it
  std::size_t number = 0;     ///< dense, from 0 in order of first use
};

/// One entity with its values: views into the drawing.
struct DxfEntity {
  EntityKind kind = EntityKind::None;
  std::size_t slotCount = 0;
  std::array<std::string_view, kMaxSlots> values;
  /// The entity's layer; null only for SEQEND, which has no slots.
  const LayerUse* layer = nullptr;
  /// Index of the vertex list or the spline data, else 0.
  std::uint64_t sideIndex = 0;
  /// Where the entity's groups stand in the text, and for kinds with a side record their end.
  const char* groups = nullptr;
  const char* groupsEnd = nullptr;

  /// The text of a slot; "" for a slot whose group is absent.
  std::string_view value(std::size_t slot) const {
    return slot < kMaxSlots ? values[slot] : std::string_view{};
  }
  /// The number in a slot; 0 for an absent one.
  double number(std::size_t slot) const { return numberValue(value(slot)); }
};

/// Reads entities out of a drawing's text and remembers what it found out about names, so that
/// every name is upper-cased and looked up once.
class EntityReader {
 public:
  explicit EntityReader(Drawing& drawing) : drawing_(drawing) {}

  Drawing& drawing() { return drawing_; }

  /// Completes a stored entity: absent slots are "", layer and line type get their final form.
  void readEntity(const EntitySlots& stored, DxfEntity& entity);

  /// The groups of an entity that was read and whose kind has a side record.
  GroupCursor groups(const DxfEntity& entity) const;

  /// Looks an entity's layer up in the layer table and marks it as used there.
  const LayerUse& layerLineType(std::string_view layerName);

  /// A name in upper case: kept, or the name itself where that does not change it.
  std::string_view upperName(std::string_view name);

 private:
  void finishKind(DxfEntity& entity);

  Drawing& drawing_;
  std::unordered_map<std::string_view, LayerUse> layers_;
  std::unordered_map<std::string_view, std::string_view> upperNames_;
  std::string_view lastLayerName_;
  const LayerUse* lastLayer_ = nullptr;
};

}  // namespace quillon::dxf
