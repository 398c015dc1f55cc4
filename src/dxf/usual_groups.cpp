#include "dxf/usual_groups.h"

#include "dxf/entity_marks.h"
#include "dxf/short_code.h"

namespace quillon::dxf {
namespace {

/// The line between two positions.
UsualGroup usualLine(const char* line, const char* next) {
  UsualGroup group;
  group.length = static_cast<std::uint8_t>(next - line);
  group.mask = 0;
  std::memset(&group.mask, 0xFF, group.length);
  std::memcpy(&group.text, line, sizeof group.text);
  group.text &= group.mask;
  return group;
}

}  // namespace

bool UsualGroups::noteMiss(const UsualGroup& first) {
  const bool wereThere = &first != begin() && first.isLast();
  misses_ = wereThere && end_.isLast() ? 0 : misses_ + 1;
  return misses_ >= kMostMisses;
}

void UsualGroups::learn(LineCursor lines, const SlotLayout& layout) {
  misses_ = 0;
  end_ = {};
  std::uint32_t filled = 0;
  std::size_t count = 0;
  for (; count < kMost && lines.hasLeft(kUsualRoom); ++count) {
    const ShortCodeLine line = readShortCode(lines.text(), lines.eol());
    if (line.code < 0) break;
    UsualGroup group = usualLine(lines.position(), line.next);
    if (line.code == 0) {
      end_ = group;
      break;
    }
    const auto code = static_cast<std::size_t>(line.code);
    const std::uint8_t slot = code < layout.slotOfCode.size() ? layout.slotOfCode[code] : kNoSlot;
    if (slot != kNoSlot && slot >= kMaxSlots) break;
    group.filled = filled;
    const bool isFirst = slot != kNoSlot && (filled >> slot & 1U) == 0;
    group.place = isFirst ? slot : static_cast<std::uint8_t>(kNoPlace);
    if (isFirst) filled |= 1U << slot;
    groups_[count] = group;
    lines.takeAfter(line.next);
  }
  groups_[count] = {};
  groups_[count].filled = filled;
}

}  // namespace quillon::dxf
