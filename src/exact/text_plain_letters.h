#pragma once

#include <optional>
#include <string_view>

namespace quillon::exact {

/// What is written for a character when letters are to be plain: letters without their accents,
/// "D", "deg" and "+/-" for signs of drawings. Nothing for characters that stay.
std::optional<std::string_view> plainLetters(char32_t character);

/// A character that looks the same and that more encodings have; else the character itself.
char32_t lookalike(char32_t character);

}  // namespace quillon::exact
