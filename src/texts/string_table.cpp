#include "texts/string_table.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quillon::texts {
namespace {

struct Entry {
  int id;
  std::string_view german;   ///< found by the id itself
  std::string_view english;  ///< found by id + 10000; empty for a text that exists once
};

constexpr Entry kEntries[] = {
#define TEXT(name, id, german, english) {id, german, english},
#define BOTH(name, id, text) {id, text, {}},
#include "texts/strings.def"
#undef TEXT
#undef BOTH
};

struct IdRange {
  int first;
  int last;
};

/// Layer names that are read without the language offset.
constexpr IdRange kStandOnce[] = {{20000, 20050}, {20052, 20057}};

constexpr bool standsOnce(int id) {
  for (const auto [first, last] : kStandOnce) {
    if (id >= first && id <= last) return true;
  }
  return false;
}

constexpr bool bothLanguagesAreComplete() {
  for (const Entry& entry : kEntries) {
    if (entry.german.empty() || entry.english.empty() != standsOnce(entry.id)) return false;
  }
  return true;
}
static_assert(bothLanguagesAreComplete(), "every entry needs both languages, but layer names");

constexpr const Entry* findEntry(int id) {
  const auto* const found = std::lower_bound(std::begin(kEntries), std::end(kEntries), id,
                                             [](const Entry& e, int key) { return e.id < key; });
  return found != std::end(kEntries) && found->id == id ? found : nullptr;
}

}  // namespace

std::string_view loadString(int id) {
  if (const Entry* const entry = findEntry(id)) return entry->german;
  if (const Entry* const entry = findEntry(id - kEnglish)) return entry->english;
  return {};
}

std::string fillIn(std::string_view text, std::initializer_list<std::string_view> arguments) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool mark = text[i] == '%' && i + 1 < text.size() && text[i + 1] >= '1' &&
                      text[i + 1] < '1' + static_cast<int>(arguments.size());
    if (mark) {
      out += *(arguments.begin() + (text[++i] - '1'));
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string captionName(std::string_view caption) {
  std::string name(caption);
  std::erase(name, '&');
  if (name.ends_with(':')) name.pop_back();
  return name;
}

}  // namespace quillon::texts
