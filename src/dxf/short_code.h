#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "base/byte_of.h"

// As with LineCursor, functions are put in line everywhere.
namespace quillon::dxf {

/// Four characters as one word, the first one in the lowest byte.
[[gnu::always_inline]] constexpr std::uint32_t charactersWord(char a, char b, char c, char d) {
  return std::uint32_t{base::byteOf(a)} | std::uint32_t{base::byteOf(b)} << 8 |
         std::uint32_t{base::byteOf(c)} << 16 | std::uint32_t{base::byteOf(d)} << 24;
}

/// The low halves of three characters, which tell digits apart, as one number.
[[gnu::always_inline]] constexpr std::size_t digitsIndex(std::uint32_t text) {
  // Each half byte is added to a place of its own.
  return ((text & 0x0F0F0FU) * 0x1001001U >> 16) & 0xFFFU;
}

struct UsualForm {
  std::uint32_t text = 0;  ///< 0, which no text equals, where there is none
  std::uint16_t code = 0;
};

/// The usual form of each group code below 1000, right-aligned in three characters, by its index.
constexpr auto makeUsualForms() {
  std::array<UsualForm, 0x1000> forms{};
  for (std::uint16_t code = 0; code < 1000; ++code) {
    const auto digit = [](int value) { return static_cast<char>('0' + value % 10); };
    const std::uint32_t text = charactersWord(code < 100 ? ' ' : digit(code / 100),
                                              code < 10 ? ' ' : digit(code / 10), digit(code), 0);
    forms[digitsIndex(text)] = {text, code};
  }
  return forms;
}
inline constexpr auto kUsualForms = makeUsualForms();

/// What is given in place of a code for lines that the general function has to read.
inline constexpr int kNoShortCode = -1;

/// The group code that three characters, the first one in the lowest byte, are in their usual form:
/// blanks, then one to three digits without leading zeros.
[[gnu::always_inline]] inline int shortCodeOf(std::uint32_t text) {
  const UsualForm& form = kUsualForms[digitsIndex(text)];
  return form.text == text ? form.code : kNoShortCode;
}

/// A code line in its usual form.
struct ShortCodeLine {
  int code = kNoShortCode;
  const char* next = nullptr;  ///< the line after it
};

/// What has to be left of a text so that a code line may be read from where its line starts: the
/// other character of a line end, three of the code, its line end, and one more.
inline constexpr std::size_t kShortCodeRoom = 6;

/// Reads the code line at a position, without a branch per character: lengths of one to three
/// digits alternate, so a loop would mispredict. Four characters must be readable.
[[gnu::always_inline]] inline ShortCodeLine readShortCode(const char* line, char eol) {
  if constexpr (std::endian::native != std::endian::little) return {};
  std::uint32_t word = 0;
  std::memcpy(&word, line, sizeof word);
  // Mostly, codes are aligned to the right in three characters.
  const int code = shortCodeOf(word ^ charactersWord('\0', '\0', '\0', eol));
  if (code >= 0) return {code, line + 4};
  const std::uint32_t others = word ^ charactersWord(eol, eol, eol, eol);
  const std::uint32_t ends = (others - 0x01010101U) & ~others & 0x80808080U;
  // What is before the first line end, with blanks in front of it.
  const auto bits = static_cast<unsigned>(std::countr_zero(ends)) & ~7U;
  if (ends == 0 || bits == 0) return {};
  constexpr std::uint32_t kBlanks = charactersWord(' ', ' ', ' ', '\0');
  const std::uint32_t text = (word << (24 - bits) & 0xFFFFFFU) | kBlanks >> bits;
  return {shortCodeOf(text), line + bits / 8 + 1};
}

}  // namespace quillon::dxf
