#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/number_text.h"
#include "dxf/line_cursor.h"
#include "dxf/short_code.h"

// Inlined, a loop over groups has everything in registers, which a compiler gives up where there
// are several loops. In a page it gains nothing and is more to load.
#ifdef __wasm__
#define QUILLON_IN_EACH_LOOP
#else
#define QUILLON_IN_EACH_LOOP [[gnu::always_inline]]
#endif

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
  QUILLON_IN_EACH_LOOP bool next(Group& group) {
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
    const std::string_view value = lines_.next();
    // The characters around an empty line are line ends.
    const char* const stop = value.data() + value.size();
    const bool hasBlanks = *value.data() == ' ' || stop[-1] == ' ';
    group.value = hasBlanks ? base::trimBlanks(value) : value;
    return true;
  }

  /// The remaining lines; after the last group they start with the "0" line that ended the entity.
  const LineCursor& lines() const { return lines_; }

 private:
  // Static, so that a cursor in a local variable can be kept in registers.
  [[noreturn]] static void failAtEnd(const char* position);

  LineCursor lines_;
};

/// Walks the groups of one entity a second time: the first ones, as far as they were kept when they
/// were split into lines, then the others.
class GroupReplay {
 public:
  GroupReplay(std::span<const Group> split, LineCursor rest)
      : next_(split.data()), end_(split.data() + split.size()), rest_(rest) {}

  /// As that of GroupCursor.
  bool next(Group& group) {
    if (next_ == end_) return rest_.next(group);
    group = *next_++;
    return true;
  }

 private:
  const Group* next_;
  const Group* end_;
  GroupCursor rest_;
};

}  // namespace quillon::dxf
