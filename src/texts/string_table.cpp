#include "texts/string_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace quillon::texts {
namespace {

struct Entry {
  int id;
  std::string_view german;   ///< found by the id itself
  std::string_view english;  ///< found by id + 10000; empty for a text that exists once
};

/// Read by the compiler only.
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

/// An entry as the program has it: without pointers, which the system would have to fill in at
/// each start of a program that may be loaded anywhere.
struct PackedEntry {
  int id = 0;
  std::uint32_t german = 0;  ///< place of the text; the English one follows
  std::uint16_t germanSize = 0;
  std::uint16_t englishSize = 0;
};

constexpr std::size_t textBytes() {
  std::size_t size = 0;
  for (const Entry& entry : kEntries) size += entry.german.size() + entry.english.size();
  return size;
}

struct PackedTexts {
  std::array<PackedEntry, std::size(kEntries)> entries{};
  std::array<char, textBytes()> bytes{};
};

constexpr PackedTexts pack() {
  PackedTexts packed;
  std::size_t used = 0;
  auto* next = packed.entries.data();
  for (const auto& [id, german, english] : kEntries) {
    *next++ = {id, static_cast<std::uint32_t>(used), static_cast<std::uint16_t>(german.size()),
               static_cast<std::uint16_t>(english.size())};
    for (const std::string_view text : {german, english}) {
      for (const char c : text) packed.bytes[used++] = c;
    }
  }
  return packed;
}

constexpr PackedTexts kTexts = pack();

constexpr const PackedEntry* findEntry(int id) {
  const auto* const end = kTexts.entries.data() + kTexts.entries.size();
  const auto* const found =
      std::lower_bound(kTexts.entries.data(), end, id,
                       [](const PackedEntry& entry, int key) { return entry.id < key; });
  return found != end && found->id == id ? found : nullptr;
}

}  // namespace

std::string_view loadString(int id) {
  const char* const bytes = kTexts.bytes.data();
  if (const PackedEntry* const entry = findEntry(id)) {
    return {bytes + entry->german, entry->germanSize};
  }
  if (const PackedEntry* const entry = findEntry(id - kEnglish)) {
    return {bytes + entry->german + entry->germanSize, entry->englishSize};
  }
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
