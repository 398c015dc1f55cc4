#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillon::exact {

/// What was found for a few texts last, to be asked before a table that takes longer: most entities
/// have the names that the one before had.
template <typename Value>
class RecentTexts {
 public:
  const Value* find(std::string_view text) const {
    const Entry& entry = entries_[slotOf(text)];
    return entry.value && entry.text == text ? &*entry.value : nullptr;
  }

  /// The text has to live as long as this. Returns the value.
  Value keep(std::string_view text, Value value) {
    entries_[slotOf(text)] = {text, value};
    return value;
  }

 private:
  static constexpr std::size_t kSlots = 32;

  struct Entry {
    std::string_view text;
    std::optional<Value> value;
  };

  /// Names in a drawing often differ in their last letter alone, or have the same one.
  static std::size_t slotOf(std::string_view text) {
    if (text.empty()) return 0;
    const auto first = static_cast<unsigned char>(text.front());
    const auto last = static_cast<unsigned char>(text.back());
    return (last + 7U * first + 3U * text.size()) % kSlots;
  }

  std::array<Entry, kSlots> entries_{};
};

}  // namespace quillon::exact
