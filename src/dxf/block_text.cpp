#include "dxf/block_text.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/byte_scan.h"

namespace quillon::dxf {
namespace {

std::string_view textBetween(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

BlockText::BlockText(TextArena& arena, LineRange lines, char eol)
    : arena_(arena),
      lines_(lines),
      eol_(eol),
      next_(lines.begin),
      start_(arena.beginText(textBetween(lines.begin, lines.end).size() + TextSource::kMargin)),
      out_(start_) {}

void BlockText::keep(DxfEntity& entity) {
  leaveOutUpTo(entity.groups);
  const char* const groups = std::exchange(entity.groups, out_);
  const bool keepsGroups = hasSideRecord(entity.kind);
  if (keepsGroups) {
    copy(textBetween(groups, entity.groupsEnd));
    next_ = std::exchange(entity.groupsEnd, out_);
  }
  for (std::uint32_t rest = entity.filled; rest != 0; rest &= rest - 1) {
    std::string_view& value = entity.values[static_cast<std::size_t>(std::countr_zero(rest))];
    const char* const kept = keepsGroups ? entity.groups + (value.data() - groups) : copy(value);
    value = {kept, value.size()};
  }
}

LineRange BlockText::finish() {
  leaveOutUpTo(lines_.end);
  const char* const end = out_;
  out_ = std::fill_n(out_, TextSource::kMargin, eol_);
  arena_.endText(out_);
  return {start_, end};
}

void BlockText::leaveOutUpTo(const char* position) {
  out_ = std::fill_n(out_, base::countByte(textBetween(next_, position), eol_), eol_);
  next_ = position;
}

const char* BlockText::copy(std::string_view text) {
  return std::exchange(out_, std::copy(text.begin(), text.end(), out_));
}

}  // namespace quillon::dxf
