#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/number_text.h"
#include "dxf/line_cursor.h"
#include "dxf/short_code.h"

// Inlined, a loop over groups has everything in registers, which a compiler gives up where there
// are several loops. In a page it gains little and is more to load.
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

/// A value line without the blanks around it.
inline std::string_view withoutBlanks(std::string_view value) {
  // The characters around an empty line are line ends.
  const char* const stop = value.data() + value.size();
  const bool hasBlanks = *value.data() == ' ' || stop[-1] == ' ';
  return hasBlanks ? base::trimBlanks(value) : value;
}

/// Walks the groups of one entity, from its first group up to the next group 0.
class GroupCursor {
 public:
  explicit GroupCursor(LineCursor lines) : lines_(lines) {}

  /// Reads the next group; false at a code line that is exactly "0". Throws RunTimeError when the
  /// lines end first or a code line is not a group code.
#ifdef __wasm__
  bool next(Group& group);  // the only copy has to be one that was compiled to be fast
#else
  QUILLON_IN_EACH_LOOP bool next(Group& group) { return take(group); }
#endif

  /// The remaining lines; after the last group they start with the "0" line that ended the entity.
  const LineCursor& lines() const { return lines_; }
  /// Then, where the line after that one starts; null if it had no usual form or is near the end.
  const char* afterEnd() const { return afterEnd_; }

 private:
  struct Step {
    const char* next;  ///< the line to go on at
    Group group;
    bool found;
  };

  [[gnu::always_inline]] bool take(Group& group) {
    if (lines_.hasLeft(kShortCodeRoom)) {
      const ShortCodeLine line = readShortCode(lines_.text(), lines_.eol());
      if (line.code == 0) {
        afterEnd_ = line.next;
        return false;
      }
      if (line.code > 0) {
        const std::string_view value = lines_.takeAfter(line.next);
        group.code = static_cast<std::int16_t>(line.code);
        group.value = withoutBlanks(value);
        return true;
      }
    }
    const Step step = readUnusual(lines_);
    lines_.seek(step.next);
    group = step.group;
    return step.found;
  }

  /// Reads a group whose code has no usual form, or that is near the end of the lines. Static, so
  /// that a cursor in a local variable can be kept in registers.
  static Step readUnusual(LineCursor lines);

  LineCursor lines_;
  const char* afterEnd_ = nullptr;
};

/// Walks the groups of one entity a second time: the first ones, as far as they were kept when they
/// were split into lines, then the others.
class GroupReplay {
 public:
  GroupReplay(std::span<const Group> split, LineCursor rest)
      : next_(split.data()), end_(split.data() + split.size()), rest_(rest) {}

  /// As that of GroupCursor.
  bool next(Group& group) {
    const Group* const split = nextSplit();
    if (split == nullptr) return rest_.next(group);
    group = *split;
    return true;
  }

  /// The next of those that were kept; null after them.
  const Group* nextSplit() { return next_ != end_ ? next_++ : nullptr; }

 private:
  const Group* next_;
  const Group* end_;
  GroupCursor rest_;
};

}  // namespace quillon::dxf
