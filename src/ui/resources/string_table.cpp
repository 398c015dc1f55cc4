#include "ui/resources/string_table.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quillon::resources {
namespace {

struct Entry {
  int id;
  std::string_view german;
  std::string_view english;
};

constexpr Entry kEntries[] = {
#define TEXT(id, german, english) {id, german, english},
#include "ui/resources/strings.def"
#undef TEXT
};

constexpr bool isComplete() {
  for (std::size_t i = 0; i < std::size(kEntries); ++i) {
    const Entry& entry = kEntries[i];
    if (entry.german.empty() || entry.english.empty()) return false;
    if (i > 0 && kEntries[i - 1].id >= entry.id) return false;
  }
  return true;
}
static_assert(isComplete(), "ids must ascend, and every entry needs both languages");

}  // namespace

std::string_view loadString(int id) {
  const bool english = id >= kEnglish;
  const int base = english ? id - kEnglish : id;
  const auto* const found = std::lower_bound(std::begin(kEntries), std::end(kEntries), base,
                                             [](const Entry& e, int key) { return e.id < key; });
  if (found == std::end(kEntries) || found->id != base) return {};
  return english ? found->english : found->german;
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

}  // namespace quillon::resources
