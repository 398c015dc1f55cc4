#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quillon::dxf {

/// The entities that the reader recognises, named as in DXF.
enum class EntityKind : std::uint8_t {
  None,  ///< no recognised name
  Line,
  Line3d,
  Vertex,
  Polyline,
  Circle,
  Arc,
  Ellipse,
  Spline,
  Text,
  Insert,
  Dimension,
  Point,
  Attdef,
  Attrib,
  Trace,
  Solid,
  Seqend,
  Face3d,
  LwPolyline,
  Shape,
  Mtext,
  Leader,
};
inline constexpr std::size_t kEntityKindCount = 23;

/// The kind with exactly this (trimmed) name; None for any other text.
EntityKind entityKind(std::string_view name);

/// The DXF name of a kind ("" for None).
std::string_view entityName(EntityKind kind);

/// Whether a character is a letter, which the names of entities start with.
constexpr bool startsName(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// Whether a trimmed text is the name of an entity.
inline bool isEntityName(std::string_view text) { return entityKind(text) != EntityKind::None; }

/// Largest number of slots, over all kinds.
inline constexpr std::size_t kMaxSlots = 12;
inline constexpr std::uint8_t kNoSlot = 0xFF;

/// Where the values of one kind are. Every kind but SEQEND has a layer and a line type.
struct SlotLayout {
  std::uint8_t slotCount = 0;         ///< number of slots
  std::uint8_t layer = kNoSlot;       ///< slot of group 8, upper-cased
  std::uint8_t lineType = kNoSlot;    ///< slot of group 6, upper-cased; default: the layer's
  std::uint8_t extrusionX = kNoSlot;  ///< slot that decides about mirroring in x (group 230)
  std::uint8_t extrusionY = kNoSlot;  ///< slot that decides about mirroring in y (group 220)
  /// Slot of each group code from 0 to 255, or its Marking (see entity_marks.h); kNoSlot for codes
  /// that this kind ignores.
  std::array<std::uint8_t, 256> slotOfCode{};
};

const SlotLayout& slotLayout(EntityKind kind);

/// By kind: the slots of the extrusion, as bits.
extern const std::array<std::uint32_t, kEntityKindCount> kExtrusionSlots;

}  // namespace quillon::dxf
