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

/// The usual form of each group code below 1000, right-aligned in four characters. The table is
/// large enough for any three half bytes; its unused entries are 0, which no text equals.
constexpr auto makeUsualForms() {
  constexpr std::size_t kCodes = 1000;
  constexpr std::size_t kReachable = 15 * 111 + 1;
  std::array<std::uint32_t, kReachable> forms{};
  for (std::size_t code = 0; code < kCodes; ++code) {
    const auto digit = [](std::size_t value) { return static_cast<char>('0' + value % 10); };
    forms[code] = charactersWord(' ', code < 100 ? ' ' : digit(code / 100),
                                 code < 10 ? ' ' : digit(code / 10), digit(code));
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
  // The low half of a blank is 0, like that of "0".
  const std::uint32_t code = (text >> 24 & 15U) + 10 * (text >> 16 & 15U) + 100 * (text >> 8 & 15U);
  return {kUsualForms[code] == text, static_cast<std::int16_t>(code)};
}

}  // namespace quillon::dxf
