#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillon::dxf {

/// Four characters as one word, the first one in the lowest byte.
constexpr std::uint32_t charactersWord(char a, char b, char c, char d) {
  const auto byte = [](char x) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(x));
  };
  return byte(a) | byte(b) << 8 | byte(c) << 16 | byte(d) << 24;
}

/// The low halves of the last three of four characters, which tell digits apart, as one number.
constexpr std::size_t digitsIndex(std::uint32_t text) {
  // Each half byte is added to a place of its own.
  return (((text >> 8) & 0x0F0F0FU) * 0x1001001U >> 16) & 0xFFFU;
}

struct UsualForm {
  std::uint32_t text = 0;  ///< 0, which no text equals, where there is none
  std::int16_t code = 0;
};

/// The usual form of each group code below 1000, right-aligned in four characters, by its index.
constexpr auto makeUsualForms() {
  std::array<UsualForm, 0x1000> forms{};
  for (std::int16_t code = 0; code < 1000; ++code) {
    const auto digit = [](int value) { return static_cast<char>('0' + value % 10); };
    const std::uint32_t text = charactersWord(' ', code < 100 ? ' ' : digit(code / 100),
                                              code < 10 ? ' ' : digit(code / 10), digit(code));
    forms[digitsIndex(text)] = {text, code};
  }
  return forms;
}
inline constexpr auto kUsualForms = makeUsualForms();

/// A group-code line in its usual form: blanks, then one to three digits without leading zeros.
struct ShortCode {
  bool known = false;  ///< the line has this form; otherwise use the general function
  std::int16_t code = 0;
};

/// Reads a code line without a branch per character: lengths of one to three digits alternate, so a
/// loop would mispredict.
inline ShortCode readShortCode(std::string_view line) {
  if constexpr (std::endian::native != std::endian::little) return {};
  if (line.size() - 1 >= sizeof(std::uint32_t)) return {};
  std::uint32_t word = 0;
  std::memcpy(&word, line.data(), sizeof word);  // the margin makes four bytes readable
  const auto shift = static_cast<std::uint32_t>(32 - 8 * line.size());
  constexpr std::uint32_t kBlanks = charactersWord(' ', ' ', ' ', ' ');
  const std::uint32_t text = (word << shift) | (kBlanks & ((std::uint32_t{1} << shift) - 1));
  const UsualForm& form = kUsualForms[digitsIndex(text)];
  return {form.text == text, form.code};
}

}  // namespace quillon::dxf
