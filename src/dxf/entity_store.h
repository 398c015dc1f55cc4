#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "base/number_text.h"
#include "dxf/entity_kinds.h"
#include "dxf/group_cursor.h"
#include "dxf/line_counter.h"

namespace quillon::dxf {

/// What the reader knows of a layer, by the name given in an entity.
struct LayerUse {
  std::string_view name;      ///< upper-cased
  std::string_view lineType;  ///< as in the layer table; "" when the layer is not in it
  std::size_t number = 0;     ///< dense, from 0 in order of first use
  bool isOff = false;
  bool isFrozen = false;
  bool isZero = false;  ///< layer "0", which means another one within blocks

  bool isHidden() const { return isOff || isFrozen; }
};

/// One entity: the texts of its slots as found in the drawing, or in their final form after
/// EntityReader::complete().
struct DxfEntity {
  EntityKind kind = EntityKind::None;
  const char* groups = nullptr;  ///< the entity's first group in the text
  /// End of the line that ended the groups. Only for kinds with a side record (vertex list or
  /// spline data), as is that record's number, and where entities of every kind are handed on.
  const char* groupsEnd = nullptr;
  std::uint64_t sideIndex = 0;
  std::uint32_t filled = 0;  ///< bit n: slot n has a text
  std::uint32_t marks = 0;   ///< see entity_marks.h
  /// Valid where filled; after the slots, a place for what has none.
  std::array<std::string_view, kMaxSlots + 1> values;
  std::string_view name;   ///< as found; only where entities of every kind are handed on
  std::uint64_t line = 0;  ///< in the file, of its first group; likewise
  /// Counts lines up to this entity or a later one; null in a block.
  LineCounter* lines = nullptr;
  /// Its groups, likewise, unless there are many. Else, in the ENTITIES section, the first groups
  /// of a kind with a side record. Until the walk that found it goes on or is moved.
  std::span<const Group> split;
  const char* afterSplit = nullptr;  ///< where the lines after these groups start
  /// The entity's layer once complete; null for SEQEND, which has no slots.
  const LayerUse* layer = nullptr;

  /// The text of a slot; "" when its group is absent.
  std::string_view value(std::size_t slot) const {
    return slot < kMaxSlots && (filled >> slot & 1U) != 0 ? values[slot] : std::string_view{};
  }
  /// The number in a slot; 0 when its group is absent.
  double number(std::size_t slot) const { return base::numberValue(value(slot)); }

  /// Total size of its texts, in bytes.
  std::size_t textSize() const {
    std::size_t size = 0;
    for (std::size_t slot = 0; slot < kMaxSlots; ++slot) size += value(slot).size();
    return size;
  }

  void setValue(std::size_t slot, std::string_view text) {
    values[slot] = text;
    filled |= 1U << slot;
  }
};

/// True for kinds whose groups are read again for a vertex list or spline data.
constexpr bool hasSideRecord(EntityKind kind) {
  return kind == EntityKind::LwPolyline || kind == EntityKind::Leader || kind == EntityKind::Spline;
}

/// A list of entities stored one after another.
struct EntityList {
  std::size_t first = 0;  ///< offset of the first one in the store
  std::size_t count = 0;

  std::size_t size() const { return count; }
};

/// Holds the entities of blocks compactly: a slot takes four bytes, its distance from the entity's
/// first group and its length. The texts themselves are stored elsewhere.
class EntityStore {
 public:
  /// An empty list after all entities stored so far.
  EntityList startList() const { return {used_, 0}; }
  /// Appends an entity to the list started last.
  void append(EntityList& list, const DxfEntity& entity);

 private:
  friend class EntityCursor;
  static constexpr std::size_t kChunkWords = std::size_t{1} << 14;

  std::uint32_t* reserve(std::size_t words);
  const std::uint32_t* at(std::size_t place) const {
    return chunks_[place / kChunkWords].get() + place % kChunkWords;
  }

  std::vector<std::unique_ptr<std::uint32_t[]>> chunks_;
  std::size_t used_ = 0;  ///< in words, including the unused rest of full chunks
};

/// Iterates over the entities of a list in order.
class EntityCursor {
 public:
  EntityCursor(const EntityStore& store, const EntityList& list)
      : store_(store), place_(list.first), left_(list.count) {}

  bool next(DxfEntity& entity);

 private:
  const EntityStore& store_;
  std::size_t place_;
  std::size_t left_;
};

}  // namespace quillon::dxf
