#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillon::base {

/// Loads eight characters into one word, the first one lowest, with the value 0..9 for each digit.
/// Little-endian machines only.
inline std::uint64_t loadDigits(const char* p) {
  std::uint64_t word = 0;
  std::memcpy(&word, p, sizeof word);
  return word ^ 0x3030303030303030U;
}

/// The same for fewer than eight characters; the remaining bytes are not digits.
inline std::uint64_t loadFewDigits(const char* p, std::size_t count) {
  std::uint64_t word = 0;
  if (count >= 4) {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::memcpy(&first, p, sizeof first);
    std::memcpy(&last, p + count - sizeof last, sizeof last);
    word = first | std::uint64_t{last} << (8 * (count - sizeof last));
  } else if (count != 0) {
    const auto at = [p](std::size_t i) {
      return std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i);
    };
    // The first, the middle and the last one: all of up to three.
    word = at(0) | at(count / 2) | at(count - 1);
  }
  return word ^ 0x3030303030303030U;
}

/// Sets the highest bit of each byte that is not a digit.
inline std::uint64_t nonDigits(std::uint64_t digits) {
  constexpr std::uint64_t kLow = 0x7F7F7F7F7F7F7F7FU;
  return (((digits & kLow) + 0x7676767676767676U) | digits) & ~kLow;
}

/// The number that eight digits form.
inline std::uint64_t digitBlockValue(std::uint64_t digits) {
  constexpr std::uint64_t kMask = 0x000000FF000000FFU;
  digits = digits * 10 + (digits >> 8);  // pairs, in every other byte
  const std::uint64_t upper = (digits & kMask) * 0x000F424000000064U;
  const std::uint64_t lower = (digits >> 16 & kMask) * 0x0000271000000001U;
  return (upper + lower) >> 32;
}

/// The last `count` (1..8) characters before `end`, padded with zeros in front; eight must be
/// readable.
inline std::uint64_t loadLastDigits(const char* end, unsigned count) {
  const unsigned dropped = 8 * (8 - count);
  return loadDigits(end - 8) >> dropped << dropped;
}

}  // namespace quillon::base
