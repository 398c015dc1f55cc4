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

/// A list of values; its elements are not recorded.
struct Array {};
/// A value that is known to be none.
struct Null {};
/// A value that was never set.
struct Empty {};
/// A reference to no object.
struct Nothing {};
/// An object of a named type.
struct Object {
  std::string_view type;
};

/// A parameter's value, by kind.
using Value = std::variant<Array, Null, Empty, Nothing, Object, std::string>;

inline Value toValue(std::string_view text) { return std::string(text); }
inline Value toValue(const char* text) { return std::string(text); }
inline Value toValue(const std::string& text) { return text; }
inline Value toValue(std::nullptr_t) { return Nothing{}; }
inline Value toValue(std::nullopt_t) { return Null{}; }
inline Value toValue(std::monostate) { return Empty{}; }
inline Value toValue(bool flag) { return std::string(flag ? "True" : "False"); }
template <typename Number>
requires(std::integral<Number> || std::floating_point<Number>) Value toValue(Number number) {
  char text[64];
  const std::to_chars_result end = std::to_chars(text, text + sizeof text, number);
  return std::string(text, end.ptr);
}
template <std::ranges::range List>
requires(!std::convertible_to<List, std::string_view>) Value toValue(const List&) {
  return Array{};
}

/// What the call stack shows of a value: "[ARRAY]", "[NULL]", "[EMPTY]", "[NOTHING]",
/// "[OBJECT:type]", or its text on one line.
std::string renderValue(const Value& value);

}  // namespace quillon::errors
