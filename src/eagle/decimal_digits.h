#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillon::eagle {

// The digits of the numbers that scripts mostly have, in a header, so that what writes points has
// them in line.

inline constexpr std::uint64_t kScale = 10'000'000;  // seven decimal places

inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

using Whole = std::array<char, 4>;

/// The usual numbers before a point, each with its point.
inline constexpr std::array<Whole, 1000> kWholes = [] {
  std::array<Whole, 1000> wholes{};
  for (std::size_t i = 0; i < wholes.size(); ++i) {
    std::size_t at = 0;
    if (i >= 100) wholes[i][at++] = static_cast<char>('0' + i / 100);
    if (i >= 10) wholes[i][at++] = static_cast<char>('0' + i / 10 % 10);
    wholes[i][at++] = static_cast<char>('0' + i % 10);
    wholes[i][at] = '.';
  }
  return wholes;
}();

inline void putPair(std::uint64_t value, char* out) {
  std::memcpy(out, &kDigitPairs[static_cast<std::size_t>(value) * 2], 2);
}

/// Seven decimals.
inline char* putDecimals(std::uint64_t decimals, char* out) {
  // The next digits are the whole part of a number with so many binary places. That it starts a
  // little too large never shows: in the end it is a hundredth of a decimal.
  constexpr unsigned kPlaces = 48;
  constexpr std::uint64_t kOne = std::uint64_t{1} << kPlaces;
  std::uint64_t rest = decimals * (kOne / 1'000'000 + 1);
  *out++ = static_cast<char>('0' + (rest >> kPlaces));
  for (char* const end = out + 6; out != end; out += 2) {
    rest = (rest & (kOne - 1)) * 100;
    putPair(rest >> kPlaces, out);
  }
  return out;
}

/// One of kWholes.
inline char* putSmallWhole(std::uint64_t value, char* out) {
  std::memcpy(out, kWholes[static_cast<std::size_t>(value)].data(), sizeof(Whole));
  // The differences are negative where there are more digits. Compared, the number would be divided
  // again, as compilers compare what it was divided from.
  return out + 2 + ((9 - value) >> 63) + ((99 - value) >> 63);
}

struct RoundedNumber {
  std::uint64_t scaled = 0;  ///< the magnitude in units of the last decimal, rounded
  bool isRounded = false;    ///< false where only more digits tell how
};

/// The largest magnitude that roundUsual takes.
inline constexpr double kMostRounded = 99'999.999;
/// The largest magnitude with up to three digits before the point, once it is rounded.
inline constexpr double kMostUsual = 999.999;

/// Rounds a magnitude to seven decimals, halves up.
inline RoundedNumber roundUsual(double magnitude) {
  // The product and the sum are off by at most 2^-14 each.
  constexpr double kDoubt = 0x1p-12;
  const double raised = magnitude * static_cast<double>(kScale) + 0.5;
  const auto scaled = static_cast<std::int64_t>(raised);
  const double left = raised - static_cast<double>(scaled);
  return {static_cast<std::uint64_t>(scaled), std::fabs(left - 0.5) < 0.5 - kDoubt};
}

/// The digits of a usual number with up to three before the point, after "-" if it is negative.
/// There is no call in it, so that what it is put in line in needs no stack.
inline char* putUsualNumber(std::uint64_t scaled, bool isNegative, char* out) {
  const std::uint64_t whole = scaled / kScale;
  *out = '-';
  out += isNegative ? 1 : 0;
  return putDecimals(scaled - whole * kScale, putSmallWhole(whole, out));
}

}  // namespace quillon::eagle
