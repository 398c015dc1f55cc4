#include "dxf/group_cursor.h"

#include "base/run_time_error.h"

namespace quillon::dxf {
namespace {

[[noreturn]] void failAtEnd(const LineCursor& lines) {
  throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, lines.position());
}

}  // namespace

#ifdef __wasm__
bool GroupCursor::next(Group& group) { return take(group); }
#endif

GroupCursor::Step GroupCursor::readUnusual(LineCursor lines) {
  if (lines.atEnd()) failAtEnd(lines);
  const std::string_view line = lines.peek();
  const std::string_view text = base::trimBlanks(line);
  if (text == "0") return {lines.position(), {}, false};
  const std::int16_t code = base::groupCode(text);
  lines.take(line);
  if (lines.atEnd()) failAtEnd(lines);
  const std::string_view value = lines.peek();
  return {value.data() + value.size() + 1, {code, withoutBlanks(value)}, true};
}

}  // namespace quillon::dxf
