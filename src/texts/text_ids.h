#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

// windows.h has a macro of the same name.
#pragma push_macro("TEXT")
#undef TEXT

namespace quillon::texts {

/// The entries of the string table; their values are the ids under which loadString finds them.
enum class TextId : std::uint16_t {
// NOLINTBEGIN(bugprone-macro-parentheses): an enumerator takes none
#define TEXT(name, id, german, english) name = id,
#define BOTH(name, id, text) name = id,
// NOLINTEND(bugprone-macro-parentheses)
#include "texts/strings.def"
#undef TEXT
#undef BOTH
};

/// All entries, in ascending order of ids.
inline constexpr auto kTextIds = std::to_array<TextId>({
#define TEXT(name, id, german, english) TextId::name,
#define BOTH(name, id, text) TextId::name,
#include "texts/strings.def"
#undef TEXT
#undef BOTH
});
static_assert(std::adjacent_find(kTextIds.begin(), kTextIds.end(), std::greater_equal<>()) ==
                  kTextIds.end(),
              "ids must ascend, and none may occur twice");

/// Neighbours in the string table, whether or not numbers between them are unused.
using TextRow = std::span<const TextId>;

/// The entries from one to another, both included. Where an entry is chosen by its index, assert
/// how many there are.
consteval TextRow textRow(TextId first, TextId last) {
  const auto* const begin = std::find(kTextIds.begin(), kTextIds.end(), first);
  const auto* const end = std::find(kTextIds.begin(), kTextIds.end(), last) + 1;
  return {begin, end};
}

}  // namespace quillon::texts

#pragma pop_macro("TEXT")
