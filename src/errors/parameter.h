#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>
#include <variant>

namespace quillon::errors {

/// What the call stack shows of a value: its text on one line, or its kind.
std::string rendered(std::string_view text);
/// "[NULL]": a value that is known to be none.
std::string rendered(std::nullopt_t);
/// "[EMPTY]": a value that was never set.
std::string rendered(std::monostate);
/// "[NOTHING]": an object that is not set.
std::string rendered(std::nullptr_t);
/// "[OBJECT:type]", or "[NOTHING]" for none.
std::string rendered(const void* object, std::string_view type);
template <typename Number>
requires(std::integral<Number> || std::floating_point<Number>) std::string rendered(Number number) {
  if constexpr (std::same_as<Number, bool>) {
    return number ? "True" : "False";
  } else {
    char text[64];
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, number);
    return {text, end.ptr};
  }
}
/// "[ARRAY]": a list, whose elements are not recorded.
template <std::ranges::range List>
requires(!std::convertible_to<List, std::string_view>) std::string rendered(const List&) {
  return "[ARRAY]";
}

/// The record of a parameter: its name, a colon, a tab and its rendered value.
std::string parameterRecord(std::string_view name, std::string_view renderedValue);

}  // namespace quillon::errors
