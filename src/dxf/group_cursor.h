#pragma once

#include <cstdint>
#include <string_view>

#include "base/number_text.h"
#include "dxf/line_cursor.h"
#include "dxf/short_code.h"

namespace quillon::dxf {

struct Group {
  std::int16_t code = 0;
  std::string_view value;  ///< trimmed
};

/// Walks the groups of one entity, from its first group up to the next group 0.
class GroupCursor {
 public:
  explicit GroupCursor(LineCursor lines) : lines_(lines) {}

  /// Reads the next group; false at a code line that is exactly "0". Throws RunTimeError when the
  /// lines end first or a code line is not a group code.
  bool next(Group& group) {
    if (lines_.atEnd()) failAtEnd(lines_.position());
    const std::string_view line = lines_.peek();
    const ShortCode code = readShortCode(line);
    if (code.known) {
      if (code.code == 0) return false;
      group.code = code.code;
    } else {
      const std::string_view text = base::trimBlanks(line);
      if (text == "0") return false;
      group.code = base::groupCode(text);
    }
    lines_.take(line);
    if (lines_.atEnd()) failAtEnd(lines_.position());
    group.value = base::trimBlanks(lines_.next());
    return true;
  }

  /// The remaining lines; after the last group they start with the "0" line that ended the entity.
  const LineCursor& lines() const { return lines_; }

 private:
  // Static, so that a cursor in a local variable can be kept in registers.
  [[noreturn]] static void failAtEnd(const char* position);

  LineCursor lines_;
};

}  // namespace quillon::dxf
