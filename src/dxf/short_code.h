#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillon::dxf {

/// A group-code line in its usual form: blanks, then digits, four characters at most.
struct ShortCode {
  bool known = false;        ///< the line is in this form; otherwise read it the long way
  bool isPlainZero = false;  ///< the trimmed line is exactly "0"
  std::int16_t code = 0;
};

/// Reads a line of a drawing without a branch for each character: code lines alternate between
/// one, two and three digits, which a loop would guess wrong.
inline ShortCode readShortCode(std::string_view line) {
  ShortCode result;
  if constexpr (std::endian::native == std::endian::little) {
    constexpr std::uint32_t kBlanks = 0x20202020U;
    if (line.size() - 1 >= sizeof kBlanks) return result;
    std::uint32_t word = 0;
    std::memcpy(&word, line.data(), sizeof word);  // the text's margin makes four bytes readable

    // The characters at the end of four bytes, blanks before them.
    const auto shift = static_cast<std::uint32_t>(32 - 8 * line.size());
    const std::uint32_t text = (word << shift) | (kBlanks & ((std::uint32_t{1} << shift) - 1));
    const std::uint32_t bytes = text ^ 0x30303030U;  // 0..9 for digits, 0x10 for blanks
    const std::uint32_t blanks = bytes & 0x10101010U;
    const std::uint32_t digits = bytes & 0x0F0F0F0FU;
    const std::uint32_t bad = (bytes & 0xE0E0E0E0U) |                    // neither nor
                              ((digits + 0x06060606U) & 0x10101010U) |   // behind "9"
                              (bytes & (blanks - (blanks >> 4))) |       // behind the blank
                              ((~blanks << 8) & blanks & 0x10101000U) |  // blank after digit
                              (blanks & 0x10000000U);                    // no digit at all
    if (bad != 0) return result;
    const std::uint32_t pairs = digits * 10 + (digits >> 8);
    result.known = true;
    result.isPlainZero = text == 0x30202020U;
    result.code = static_cast<std::int16_t>((pairs & 0xFFU) * 100 + (pairs >> 16 & 0xFFU));
  }
  return result;
}

}  // namespace quillon::dxf
