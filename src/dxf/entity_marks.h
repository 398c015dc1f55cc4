#pragma once

#include <cstdint>
#include <string_view>

#include "dxf/entity_store.h"

namespace quillon::dxf {

/// What an entity has besides its slots, as bits: enough to tell that rules which read everything
/// would show it in another way. An entity of a block keeps them beside its kind and its filled
/// slots, so there cannot be more than twelve.
namespace mark {

inline constexpr std::uint32_t kInvisible = 1U << 0;
inline constexpr std::uint32_t kInPaperSpace = 1U << 1;
/// The extrusion that no slot has: group 210, and all of it of a TRACE.
inline constexpr std::uint32_t kExtruded = 1U << 2;
inline constexpr std::uint32_t kAligned = 1U << 3;          ///< TEXT, ATTRIB, ATTDEF
inline constexpr std::uint32_t kBottomLeft = 1U << 4;       ///< MTEXT: grows from there
inline constexpr std::uint32_t kMirrored = 1U << 5;         ///< TEXT, ATTRIB, ATTDEF
inline constexpr std::uint32_t kEarlierText = 1U << 6;      ///< MTEXT: parts before the last
inline constexpr std::uint32_t kDirection = 1U << 7;        ///< MTEXT: as a vector, not along x
inline constexpr std::uint32_t kHiddenAttribute = 1U << 8;  ///< ATTRIB, ATTDEF
inline constexpr std::uint32_t kConstant = 1U << 9;         ///< ATTDEF
inline constexpr std::uint32_t kArray = 1U << 10;           ///< INSERT: of several rows or columns
inline constexpr std::uint32_t kArrowless = 1U << 10;       ///< LEADER
inline constexpr std::uint32_t kCurved = 1U << 11;          ///< LEADER: a spline
inline constexpr std::uint32_t kTapered = 1U << 11;  ///< VERTEX: from a start to an end width

}  // namespace mark

/// What a group without a slot says about its entity, in the place of a slot in
/// SlotLayout::slotOfCode. Greater than every slot, and numbers of bits like them.
enum class Marking : std::uint8_t {
  Invisible = kMaxSlots,
  PaperSpace,
  Extrusion,
  ExtrusionDown,
  Alignment,
  TextMirror,
  Attachment,
  EarlierText,
  DirectionX,
  DirectionY,
  AttributeFlags,
  Cells,
  Arrow,
  PathKind,
  EndWidth,
};
static_assert(static_cast<int>(Marking::EndWidth) < 32);

/// As DxfEntity::filled while an entity is read: groups that give marks never fill a slot.
inline constexpr std::uint32_t kMarkingBits = ~((1U << kMaxSlots) - 1);

/// The marks that a group with this value gives to an entity that has been read up to there.
std::uint32_t marksOf(Marking marking, std::string_view value, const DxfEntity& entity);

}  // namespace quillon::dxf
