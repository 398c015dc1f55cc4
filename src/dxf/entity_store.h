#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "base/number_text.h"
#include "dxf/entity_kinds.h"

namespace quillon::dxf {

/// What the reader knows of a layer by the name that an entity gives.
struct LayerUse {
  std::string_view name;      ///< upper-cased
  std::string_view lineType;  ///< as the layer table holds it; "" when the layer is not in it
  std::size_t number = 0;     ///< dense, from 0 in order of first use
};

/// One entity: the texts of its slots as they stand in the drawing, and after
/// EntityReader::complete() in their final form.
struct DxfEntity {
  EntityKind kind = EntityKind::None;
  const char* groups = nullptr;  ///< the entity's first group in the text
  /// Only for the kinds with a side record (vertex list or spline data): end of the line that ended
  /// the groups, and the number of the record.
  const char* groupsEnd = nullptr;
  std::uint64_t sideIndex = 0;
  std::uint32_t filled = 0;                        ///< bit n: slot n has a text
  std::array<std::string_view, kMaxSlots> values;  ///< valid where filled
  /// The entity's layer, once complete; null for SEQEND, which has no slots.
  const LayerUse* layer = nullptr;

  /// Number of slots of the kind.
  std::size_t slotCount() const { return slotLayout(kind).slotCount; }
  /// The text of a slot; "" for a slot whose group is absent.
  std::string_view value(std::size_t slot) const {
    return slot < kMaxSlots && (filled >> slot & 1U) != 0 ? values[slot] : std::string_view{};
  }
  /// The number in a slot; 0 for an absent one.
  double number(std::size_t slot) const { return base::numberValue(value(slot)); }

  void setValue(std::size_t slot, std::string_view text) {
    values[slot] = text;
    filled |= 1U << slot;
  }
};

/// True for the kinds whose groups are read once more for a vertex list or spline data.
constexpr bool hasSideRecord(EntityKind kind) {
  return kind == EntityKind::LwPolyline || kind == EntityKind::Leader || kind == EntityKind::Spline;
}

/// A list of entities that were stored one after the other.
struct EntityList {
  std::uint64_t first = 0;  ///< where the first one stands in the store
  std::uint64_t count = 0;

  std::uint64_t size() const { return count; }
};

/// Holds the entities of blocks in little space: a slot takes four bytes, as its distance from
/// the entity's first group and its length. The texts themselves stand elsewhere.
class EntityStore {
 public:
  /// An empty list behind all entities stored so far.
  EntityList startList() const { return {used_, 0}; }
  /// Stores an entity as the last one of the list that was started last.
  void append(EntityList& list, const DxfEntity& entity);

 private:
  friend class EntityCursor;
  static constexpr std::uint64_t kChunkWords = std::uint64_t{1} << 14;

  std::uint32_t* reserve(std::uint64_t words);
  const std::uint32_t* at(std::uint64_t place) const {
    return chunks_[place / kChunkWords].get() + place % kChunkWords;
  }

  std::vector<std::unique_ptr<std::uint32_t[]>> chunks_;
  std::uint64_t used_ = 0;  ///< in words, the rests of full chunks included
};

/// Gives the entities of a list in order.
class EntityCursor {
 public:
  EntityCursor(const EntityStore& store, const EntityList& list)
      : store_(store), place_(list.first), left_(list.count) {}

  bool next(DxfEntity& entity);

 private:
  const EntityStore& store_;
  std::uint64_t place_;
  std::uint64_t left_;
};

}  // namespace quillon::dxf
