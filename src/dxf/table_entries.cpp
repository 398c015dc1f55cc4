#include "dxf/table_entries.h"

#include <charconv>

#include "base/number_text.h"

namespace quillon::dxf {
namespace {

/// An entry while its groups are read.
struct OpenEntry {
  std::string_view type;
  std::string_view name;
  std::uint64_t handle = 0;
  const char* groups = nullptr;
};

}  // namespace

std::uint64_t handleValue(std::string_view text) {
  std::uint64_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, 16);
  return error == std::errc{} && stop == end ? value : 0;
}

void TableEntries::add(LineRange table, const LineEnds& ends, base::Encoding encoding,
                       TextArena& arena) {
  const std::string_view text(table.begin, static_cast<std::size_t>(table.end - table.begin));
  const std::string_view kept = arena.keep(text, TextSource::kMargin, ends.eolChar);
  LineCursor lines({kept.data(), kept.data() + kept.size()}, ends);
  OpenEntry entry;
  while (!lines.atEnd()) {
    const std::string_view code = base::trimBlanks(lines.next());
    const char* const afterCode = lines.position();
    if (lines.atEnd()) return;
    const std::string_view value = base::trimBlanks(lines.next());
    if (code == "0") {
      if (entry.groups != nullptr && !entry.name.empty()) {
        entries_.try_emplace(Key(entry.type, entry.name), LineRange{entry.groups, afterCode});
        if (entry.handle != 0) names_.try_emplace({entry.type, entry.handle}, entry.name);
      }
      entry = {value, {}, 0, lines.position()};
    } else if (code == "2" && entry.groups != nullptr && entry.name.empty()) {
      entry.name = arena.keep(base::upperCase(value, encoding));
    } else if (code == "5" && entry.handle == 0) {
      entry.handle = handleValue(value);
    }
  }
}

LineRange TableEntries::find(std::string_view type, std::string_view name) const {
  const auto found = entries_.find(Key(type, name));
  return found == entries_.end() ? LineRange{} : found->second;
}

std::string_view TableEntries::nameOf(std::string_view type, std::string_view handle) const {
  const auto found = names_.find({type, handleValue(handle)});
  return found == names_.end() ? std::string_view{} : found->second;
}

}  // namespace quillon::dxf
