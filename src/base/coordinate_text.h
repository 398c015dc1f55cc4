#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/digit_block.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quillon::base {

/// The digits of a number without their point.
struct CoordinateDigits {
  std::uint64_t mantissa = 0;
  unsigned places = 0;  ///< behind the point
};

/// Takes the point out of eight characters: those before it move one place towards the end.
/// `others` are the characters that are no digits; false unless that is one point after a digit.
/// The first of the eight characters are padding, so many bits.
inline bool takePoint(std::uint64_t& digits, std::uint64_t others, unsigned padding,
                      unsigned& places) {
  constexpr std::uint64_t kPoint = '.' ^ '0';
  const auto at = static_cast<unsigned>(std::countr_zero(others)) - 7;
  const bool isAlone = (others & (others - 1)) == 0;
  if (!isAlone || (digits >> at & 0xFF) != kPoint || at <= padding) return false;
  const std::uint64_t before = (std::uint64_t{1} << at) - 1;
  digits = (digits & before) << 8 | (digits & ~(before << 8 | 0xFF));
  places = 7 - at / 8;
  return true;
}

/// Reads up to 19 characters, eight at a time: digits, and a point among the first eight of them
/// unless there are no more. False for any other form, and where words are not little-endian.
inline bool readDigitsByWords(std::string_view text, CoordinateDigits& read) {
  static constexpr std::array<std::uint64_t, 9> kPowersOfTen = {
      1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};
  constexpr std::size_t kLongest = 19;
  if constexpr (std::endian::native != std::endian::little) return false;
  const char* const start = text.data();
  const std::size_t length = text.size();
  if (length - 1 >= kLongest) return false;
  std::uint64_t digits = 0;
  unsigned padding = 0;  // in bits
  if (length >= 8) {
    digits = loadDigits(start);
  } else {
    padding = static_cast<unsigned>(8 * (8 - length));
    digits = loadFewDigits(start, length) << padding;
  }
  read.places = 0;
  const std::uint64_t others = nonDigits(digits);
  if (others != 0 && !takePoint(digits, others, padding, read.places)) return false;
  read.mantissa = digitBlockValue(digits);
  if (length <= 8) return true;
  if (others == 0) return false;
  auto left = static_cast<unsigned>(length - 8);
  read.places += left;
  if (left > 8) {
    const std::uint64_t middle = loadDigits(start + 8);
    if (nonDigits(middle) != 0) return false;
    read.mantissa = read.mantissa * 100'000'000 + digitBlockValue(middle);
    left -= 8;
  }
  const std::uint64_t last = loadLastDigits(start + length, left);
  if (nonDigits(last) != 0) return false;
  read.mantissa = read.mantissa * kPowersOfTen[left] + digitBlockValue(last);
  return true;
}

#ifdef __SSE2__

/// The longest text that readDigitsAtOnce reads: sixteen digits and a point.
inline constexpr std::size_t kMostCoordinateCharacters = 17;

/// The last sixteen characters, or all with zeros in front of them, as loadDigits gives them.
inline __m128i loadLastSixteen(std::string_view text) {
  const std::size_t count = text.size();
  const char* const end = text.data() + count;
  if (count >= 16) {
    const auto* const block = reinterpret_cast<const __m128i*>(end - 16);
    return _mm_xor_si128(_mm_loadu_si128(block), _mm_set1_epi8('0'));
  }
  std::uint64_t first = 0;
  std::uint64_t last = 0;
  if (count >= 8) {
    // In two steps, as a shift by 64 bits is none.
    const auto half = static_cast<unsigned>(4 * (16 - count));
    first = loadDigits(text.data()) << half << half;
    last = loadDigits(end - 8);
  } else {
    last = loadFewDigits(text.data(), count) << (8 * (8 - count));
  }
  return _mm_set_epi64x(static_cast<long long>(last), static_cast<long long>(first));
}

/// The number that sixteen digits form.
inline std::uint64_t sixteenDigitsValue(__m128i digits) {
  // Each step joins neighbours, the first of which counts for more.
  const __m128i first = _mm_and_si128(digits, _mm_set1_epi16(0xFF));
  const __m128i twos =
      _mm_add_epi16(_mm_mullo_epi16(first, _mm_set1_epi16(10)), _mm_srli_epi16(digits, 8));
  const __m128i fours = _mm_madd_epi16(twos, _mm_set1_epi32(1 << 16 | 100));
  const __m128i packed = _mm_packs_epi32(fours, fours);
  const __m128i eights = _mm_madd_epi16(packed, _mm_set1_epi32(1 << 16 | 10'000));
  std::uint64_t halves = 0;
  _mm_storel_epi64(reinterpret_cast<__m128i*>(&halves), eights);
  return (halves & 0xFFFFFFFF) * 100'000'000 + (halves >> 32);
}

/// Moves what is before a point, which is so many places from the first of sixteen characters, to
/// where the point is. `before` is the character in front of the sixteen.
inline __m128i closeGap(__m128i characters, unsigned point, unsigned char before) {
  static constexpr auto kIsBehind = [] {
    std::array<std::uint8_t, 32> lanes{};
    for (std::size_t i = 16; i < lanes.size(); ++i) lanes[i] = 0xFF;
    return lanes;
  }();
  const auto* const lanes = reinterpret_cast<const __m128i*>(&kIsBehind[15 - point]);
  const __m128i isBehind = _mm_loadu_si128(lanes);
  const __m128i moved = _mm_or_si128(_mm_slli_si128(characters, 1), _mm_cvtsi32_si128(before));
  return _mm_or_si128(_mm_and_si128(isBehind, characters), _mm_andnot_si128(isBehind, moved));
}

/// Reads up to 17 characters, all at once: digits, and a point among them or in front of or behind
/// them. False for any other form.
inline bool readDigitsAtOnce(std::string_view text, CoordinateDigits& read) {
  if (text.size() - 1 >= kMostCoordinateCharacters) return false;
  const bool isLongest = text.size() == kMostCoordinateCharacters;
  __m128i digits = loadLastSixteen(text);
  const __m128i isPoint = _mm_cmpeq_epi8(digits, _mm_set1_epi8('.' ^ '0'));
  const auto points = static_cast<unsigned>(_mm_movemask_epi8(isPoint));
  read.places = 0;
  if (points != 0) {
    const auto point = static_cast<unsigned>(std::countr_zero(points));
    digits =
        closeGap(digits, point, static_cast<unsigned char>(isLongest ? text.front() ^ '0' : 0));
    read.places = 15 - point;
  } else if (isLongest) {
    return false;
  }
  const __m128i excess = _mm_subs_epu8(digits, _mm_set1_epi8(9));
  if (_mm_movemask_epi8(_mm_cmpeq_epi8(excess, _mm_setzero_si128())) != 0xFFFF) return false;
  read.mantissa = sixteenDigitsValue(digits);
  return true;
}

#endif

}  // namespace quillon::base
