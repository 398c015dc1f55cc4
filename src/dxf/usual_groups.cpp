#include "dxf/usual_groups.h"

#include <algorithm>

#include "dxf/short_code.h"

namespace quillon::dxf {
namespace {

/// Expects the code line at a position; nothing where it is too long.
UsualGroup lineAt(const char* position, char eol) {
  const char* const stop = position + kUsualRoom;
  const char* const end = std::find(position, stop, eol);
  UsualGroup line;
  if (end == stop) return line;
  line.length = static_cast<std::uint8_t>(end + 1 - position);
  std::memset(&line.mask, 0xFF, line.length);
  std::memcpy(&line.text, position, sizeof line.text);
  line.text &= line.mask;
  return line;
}

}  // namespace

void UsualGroups::learn(LineCursor lines, const SlotLayout& layout) {
  misses_ = 0;
  next_ = {};
  areAll_ = false;
  std::uint32_t filled = 0;
  std::size_t count = 0;
  for (; lines.hasLeft(kUsualRoom); ++count) {
    const ShortCodeLine line = readShortCode(lines.text(), lines.eol());
    UsualGroup group = lineAt(lines.line(), lines.eol());
    const auto code = static_cast<std::size_t>(line.code);
    const std::uint8_t slot = code < layout.slotOfCode.size() ? layout.slotOfCode[code] : kNoSlot;
    const bool givesMarks = slot != kNoSlot && slot >= kMaxSlots;
    if (line.code <= 0 || givesMarks || count == kMost) {
      next_ = group;
      areAll_ = line.code == 0;
      break;
    }
    const bool isFirst = slot != kNoSlot && (filled >> slot & 1U) == 0;
    group.place = isFirst ? slot : static_cast<std::uint8_t>(kNoPlace);
    group.filled = filled;
    if (isFirst) filled |= 1U << slot;
    groups_[count] = group;
    lines.takeAfter(line.next);
  }
  groups_[count] = {};
  groups_[count].filled = filled;
}

}  // namespace quillon::dxf
