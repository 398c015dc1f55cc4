#include "dxf/entity_marks.h"

#include <cmath>

#include "base/number_text.h"

namespace quillon::dxf {
namespace {

constexpr std::size_t kStartWidthSlot = 2;  ///< of a VERTEX
constexpr double kNoExtrusion = 1e-9;       ///< and below: rounding

/// Quick for digits.
double numberOf(std::string_view value) {
  const bool isDigit = value.size() == 1 && value.front() >= '0' && value.front() <= '9';
  if (isDigit) return value.front() - '0';
  return value == "0.0" ? 0.0 : base::numberValue(value);
}

std::uint32_t when(bool isSo, std::uint32_t mark) { return isSo ? mark : 0; }

/// The bits of flags; 0 for what is no small number.
unsigned flagsOf(double number) {
  constexpr double kMost = 65535.0;
  return number >= 0.0 && number <= kMost ? static_cast<unsigned>(number) : 0U;
}

}  // namespace

std::uint32_t marksOf(Marking marking, std::string_view value, const DxfEntity& entity) {
  if (marking == Marking::EarlierText) return when(!value.empty(), mark::kEarlierText);
  const double number = numberOf(value);
  switch (marking) {
    case Marking::Invisible:
      return when(number != 0.0, mark::kInvisible);
    case Marking::PaperSpace:
      return when(number != 0.0, mark::kInPaperSpace);
    case Marking::Extrusion:
      return when(std::fabs(number) > kNoExtrusion, mark::kExtruded);
    case Marking::ExtrusionDown:
      return when(number < -kNoExtrusion, mark::kExtruded);
    case Marking::Alignment:
      return when(number != 0.0, mark::kAligned);
    case Marking::TextMirror:
      return when(number != 0.0, mark::kMirrored);
    case Marking::Attachment:
      return when(number == 7.0, mark::kBottomLeft);
    case Marking::DirectionX:
      return when(number < 0.0, mark::kDirection);
    case Marking::DirectionY:
      return when(number != 0.0, mark::kDirection);
    case Marking::AttributeFlags:
      return when((flagsOf(number) & 1U) != 0, mark::kHiddenAttribute) |
             when((flagsOf(number) & 2U) != 0, mark::kConstant);
    case Marking::Cells:
      return when(number > 1.0, mark::kArray);
    case Marking::Arrow:
      return when(number == 0.0, mark::kArrowless);
    case Marking::PathKind:
      return when(number == 1.0, mark::kCurved);
    case Marking::EndWidth:
      return when(number != entity.number(kStartWidthSlot), mark::kTapered);
    case Marking::EarlierText:
      break;
  }
  return 0;
}

}  // namespace quillon::dxf
