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
#define TEXT(id, german, english) {id, german, english},
#define BOTH(id, text) {id, text, {}},
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

/// The ids that windows, messages and the report use.
constexpr IdRange kRequired[] = {
    {900, 920},   {922, 923},   {925, 932},   {950, 957},   {960, 965},     {971, 989},
    {991, 992},   {994, 995},   {1100, 1114}, {1151, 1161}, {1300, 1302},   {1304, 1305},
    {2401, 2402}, {2600, 2603}, {2802, 2814}, {2816, 2817}, {2834, 2836},   {2838, 2839},
    {2900, 2935}, {4000, 4009}, {4011, 4012}, {4014, 4015}, {20000, 20058},
};

constexpr bool standsOnce(int id) {
  for (const auto [first, last] : kStandOnce) {
    if (id >= first && id <= last) return true;
  }
  return false;
}

constexpr bool idsAscend() {
  for (std::size_t i = 1; i < std::size(kEntries); ++i) {
    if (kEntries[i - 1].id >= kEntries[i].id) return false;
  }
  return true;
}
static_assert(idsAscend(), "ids must ascend, and no id may stand twice");

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

constexpr bool allRequiredArePresent() {
  for (const auto [first, last] : kRequired) {
    for (int id = first; id <= last; ++id) {
      if (findEntry(id) == nullptr) return false;
    }
  }
  return true;
}
static_assert(allRequiredArePresent(), "an id that the program asks for is missing");

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
