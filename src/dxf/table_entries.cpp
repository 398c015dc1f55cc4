#include "dxf/table_entries.h"

#include "base/number_text.h"

namespace quillon::dxf {
namespace {

/// An entry while its groups are read.
struct OpenEntry {
  std::string_view type;
  std::string_view name;
  const char* groups = nullptr;
};

}  // namespace

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
      }
      entry = {value, {}, lines.position()};
    } else if (code == "2" && entry.groups != nullptr && entry.name.empty()) {
      entry.name = arena.keep(base::upperCase(value, encoding));
    }
  }
}

LineRange TableEntries::find(std::string_view type, std::string_view name) const {
  const auto found = entries_.find(Key(type, name));
  return found == entries_.end() ? LineRange{} : found->second;
}

}  // namespace quillon::dxf
