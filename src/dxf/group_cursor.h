#pragma once

#include <cstdint>
#include <string_view>

#include "dxf/line_reader.h"
#include "dxf/number_text.h"

namespace quillon::dxf {

struct Group {
  std::int16_t code = 0;
  std::string_view value;  ///< trimmed
};

/// Walks the groups of one entity, from its first group up to the next group 0.
class GroupCursor {
 public:
  explicit GroupCursor(LineCursor lines) : lines_(lines) {}

  /// The next group, or false at a code line that is exactly "0". Throws RunTimeError when the
  /// lines end first or a code line is no group code.
  bool next(Group& group) {
    const char* const start = lines_.position();
    const std::string_view code = nextLine();
    if (code.size() == 1 && code.front() == '0') {
      lines_.seek(start);
      return false;
    }
    group.code = groupCode(code);
    group.value = nextLine();
    return true;
  }

  /// Where the next group starts; behind the last one, the "0" line that ended the entity.
  const char* position() const { return lines_.position(); }

 private:
  std::string_view nextLine() {
    if (lines_.atEnd()) failAtEnd();
    return trimBlanks(lines_.next());
  }
  [[noreturn]] void failAtEnd() const;

  LineCursor lines_;
};

}  // namespace quillon::dxf
