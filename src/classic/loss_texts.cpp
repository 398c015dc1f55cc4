#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "classic/loss_checks.h"
#include "classic/quirks.h"
#include "classic/text.h"
#include "dxf/entity_marks.h"

namespace quillon::classic {
namespace {

using dxf::EntityKind;

constexpr double kQuarter = 90.0;

bool isAttribute(EntityKind kind) {
  return kind == EntityKind::Attrib || kind == EntityKind::Attdef;
}

/// Whether CAD programs show an attribute. Its definition within a block is a pattern, unless its
/// value is constant.
bool isSeen(const dxf::DxfEntity& entity, bool isInBlock) {
  if (!isAttribute(entity.kind)) return true;
  if ((entity.marks & dxf::mark::kHiddenAttribute) != 0) return false;
  const bool isPattern = entity.kind == EntityKind::Attdef && isInBlock;
  return !isPattern || (entity.marks & dxf::mark::kConstant) != 0;
}

/// Codes that the classic rules leave as they are or take for others.
bool hasOddCode(std::string_view text) {
  constexpr std::string_view kAlike = "dDpP%uo";
  for (std::size_t at = text.find("%%"); at != std::string_view::npos; at = text.find("%%", at)) {
    at += 2;
    if (at < text.size() && kAlike.find(text[at]) == std::string_view::npos) return true;
  }
  return false;
}

/// What is special about the characters of a text, as bits.
constexpr unsigned kCode = 1;     ///< backslashes, braces, carets
constexpr unsigned kPercent = 2;  ///< percent signs
constexpr unsigned kForeign = 4;  ///< beyond ASCII

constexpr std::array<unsigned char, 256> kCharacters = [] {
  std::array<unsigned char, 256> bits{};
  for (std::size_t c = 0x80; c < bits.size(); ++c) bits[c] = kForeign;
  for (const char c : {'\\', '{', '}', '^'}) bits[static_cast<unsigned char>(c)] = kCode;
  bits['%'] = kPercent;
  return bits;
}();

bool isWrittenOtherwise(std::string_view text, base::Encoding encoding) {
  unsigned bits = 0;
  for (const char c : text) {
    bits |= kCharacters[static_cast<unsigned char>(c)];
    if ((bits & kCode) != 0) return true;
  }
  if (bits == 0) return false;
  if ((bits & kPercent) != 0 && hasOddCode(text)) return true;
  return (bits & kForeign) != 0 && hasMistakenCharacter(text, encoding);
}

bool isAligned(const dxf::DxfEntity& entity) {
  if (entity.kind == EntityKind::Mtext) return (entity.marks & dxf::mark::kBottomLeft) == 0;
  return (entity.marks & dxf::mark::kAligned) != 0;
}

bool isMirrored(const PlacedEntity& what) {
  const bool byBlock = what.placement.scaleX * what.placement.scaleY < 0.0;
  const bool byItself = (what.entity.marks & dxf::mark::kMirrored) != 0 ||
                        (what.mirror.x < 0.0 && what.entity.kind != EntityKind::Mtext);
  return byBlock || byItself;
}

/// Whether the text would be shown at another angle than the classic rules write.
bool isTurned(const PlacedEntity& what, double angle, bool quarterTurns) {
  constexpr double kTurn = 360.0;
  constexpr double kSmallestTurn = 0.05;  // EAGLE's texts have tenths of degrees
  const double written = textDegrees(textRotation(angle, what.placement));
  const auto& [dx, dy, scaleX, scaleY, rotation] = what.placement;
  if (angle == written && rotation == 0.0 && scaleX > 0.0) {
    return angle == 0.0 && (what.entity.marks & dxf::mark::kDirection) != 0;
  }
  double wanted = angle + rotation * kDegreesPerRadian;
  if (scaleX < 0.0 && scaleY < 0.0) wanted += kTurn / 2.0;
  if (quarterTurns) wanted = std::nearbyint(wanted / kQuarter) * kQuarter;
  return wanted != written && std::fabs(std::remainder(wanted - written, kTurn)) > kSmallestTurn;
}

void checkPlace(LossNotes& notes, const PlacedEntity& what, const dxf::TextValues& text,
                bool quarterTurns, Point at) {
  const bool isMtext = what.entity.kind == EntityKind::Mtext;
  if (isAligned(what.entity)) notes.note(LossRule::TextAligned, at);
  if (isMirrored(what)) {
    if (!quarterTurns) notes.note(LossRule::TextMirrored, at);
  } else if (isTurned(what, text.angle, quarterTurns)) {
    notes.note(LossRule::TextTurned, at);
  }
  const bool isAtOrigin = text.at.x == 0.0 && text.at.y == 0.0;
  if (what.placement.rotation != 0.0 && !isAtOrigin) {
    notes.note(LossRule::TextInTurnedBlock, at);
  }
  if (isMtext) checkWorld(notes, what.mirror, at);
  if (!isMtext && what.isOblique) notes.note(LossRule::ExtrusionIgnored, at);
}

}  // namespace

void checkText(LossNotes& notes, const PlacedEntity& what, const dxf::TextValues& text,
               const TextSurroundings& around, Point at) {
  if (!isSeen(what.entity, around.isInBlock)) return notes.note(LossRule::AttributeDrawn, at);
  const bool isDefinition = what.entity.kind == EntityKind::Attdef && !around.isInBlock;
  if (isDefinition) notes.note(LossRule::AttributeValue, at);
  const bool mayBeEmpty = text.content.empty() || text.content.front() == ' ';
  const bool isEmpty = mayBeEmpty && text.content.find_first_not_of(' ') == std::string_view::npos;
  if (isEmpty && !isDefinition) return;
  checkPlace(notes, what, text, around.quarterTurns, at);
  if ((what.entity.marks & dxf::mark::kEarlierText) != 0 && what.entity.kind == EntityKind::Mtext) {
    notes.note(LossRule::TextBeginning, at);
  }
  if (!isDefinition && isWrittenOtherwise(text.content, around.encoding)) {
    notes.note(LossRule::TextCodes, at);
  }
}

}  // namespace quillon::classic
