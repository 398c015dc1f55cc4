#include "eagle/number_format.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "base/bits.h"
#include "base/double_text.h"

namespace quillon::eagle {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::uint64_t kScale = 10'000'000;  // seven decimal places
constexpr int kMantissaBits = 52;
constexpr std::uint64_t kImplicitBit = std::uint64_t{1} << kMantissaBits;
constexpr int kExponentBias = 1075;

constexpr std::array<char, 200> makeDigitPairs() {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}
constexpr std::array<char, 200> kDigitPairs = makeDigitPairs();

using Whole = std::array<char, 4>;

/// The usual numbers before a point, each with its point.
constexpr std::array<Whole, 1000> makeWholes() {
  std::array<Whole, 1000> wholes{};
  for (std::size_t i = 0; i < wholes.size(); ++i) {
    std::size_t at = 0;
    if (i >= 100) wholes[i][at++] = static_cast<char>('0' + i / 100);
    if (i >= 10) wholes[i][at++] = static_cast<char>('0' + i / 10 % 10);
    wholes[i][at++] = static_cast<char>('0' + i % 10);
    wholes[i][at] = '.';
  }
  return wholes;
}
constexpr std::array<Whole, 1000> kWholes = makeWholes();

void putPair(std::uint64_t value, char* out) {
  std::memcpy(out, &kDigitPairs[static_cast<std::size_t>(value) * 2], 2);
}

/// Seven decimals.
char* putDecimals(std::uint64_t decimals, char* out) {
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

/// What putWhole leaves.
char* putLargeWhole(std::uint64_t value, char* out) {
  constexpr std::size_t kMostDigits = 20;
  char* const end = std::to_chars(out, out + kMostDigits, value).ptr;
  *end = '.';
  return end + 1;
}

/// One of kWholes.
char* putSmallWhole(std::uint64_t value, char* out) {
  std::memcpy(out, kWholes[static_cast<std::size_t>(value)].data(), sizeof(Whole));
  // The differences are negative where there are more digits. Compared, the number would be divided
  // again, as compilers compare what it was divided from.
  return out + 2 + ((9 - value) >> 63) + ((99 - value) >> 63);
}

/// The number and a point, and up to two characters more.
char* putWhole(std::uint64_t value, char* out) {
  constexpr std::uint64_t kMillion = 1'000'000;
  if (value < kWholes.size()) return putSmallWhole(value, out);
  if (value >= kMillion) return putLargeWhole(value, out);
  char* const rest = putSmallWhole(value / 1000, out) - 1;
  *rest = static_cast<char>('0' + value / 100 % 10);
  putPair(value % 100, rest + 1);
  rest[3] = '.';
  return rest + 4;
}

char* putScaled(std::uint64_t scaled, char* out) {
  return putDecimals(scaled % kScale, putWhole(scaled / kScale, out));
}

/// Of a thousand or more. Apart, like other rare cases, so that the usual number needs no stack.
[[gnu::noinline]] char* putLarge(std::uint64_t scaled, char* out) { return putScaled(scaled, out); }

/// A magnitude below 2^53 as mantissa / 2^shift: times 10^7 it fits in 128 bits exactly, so
/// rounding is exact.
char* putFraction(std::uint64_t mantissa, int shift, char* out) {
  const Wide exact = static_cast<Wide>(mantissa) * kScale;
  constexpr int kWideBits = 128;
  if (shift >= kWideBits) return putScaled(0, out);
  const Wide scaled = (exact + (static_cast<Wide>(1) << (shift - 1))) >> shift;
  return putDecimals(static_cast<std::uint64_t>(scaled % kScale),
                     putWhole(static_cast<std::uint64_t>(scaled / kScale), out));
}

/// Any number.
[[gnu::noinline]] char* putUnusual(double value, char* out) {
  const auto bits = base::bitCast<std::uint64_t>(value);
  const bool negative = (bits >> 63) != 0;
  const auto biased = static_cast<int>(bits >> kMantissaBits & 0x7FF);
  std::uint64_t mantissa = bits & (kImplicitBit - 1);
  // A zero has no sign; a negative number that rounds to zero keeps it.
  if (negative && (biased != 0 || mantissa != 0)) *out++ = '-';
  if (biased != 0) mantissa |= kImplicitBit;
  const int shift = kExponentBias - (biased == 0 ? 1 : biased);
  if (shift > 0) return putFraction(mantissa, shift, out);
  // From 2^52 on there is no fraction, so the library's digits need no rounding.
  return base::putFixed(negative ? -value : value, 7, out, out + kNumberRoom - 1);
}

}  // namespace

char* formatNumber(double value, char* out) {
  // From 2^-11 up to where 64 bits do not hold twice the number times 10^7.
  constexpr int kLeastShift = 14;
  constexpr int kMostShift = 63;
  const auto bits = base::bitCast<std::uint64_t>(value);
  const int shift = kExponentBias - static_cast<int>(bits >> kMantissaBits & 0x7FF);
  if (shift < kLeastShift || shift > kMostShift) return putUnusual(value, out);
  const std::uint64_t mantissa = (bits & (kImplicitBit - 1)) | kImplicitBit;
  const Wide exact = static_cast<Wide>(mantissa) * kScale;
  // One binary place is left to round by.
  const auto down = static_cast<unsigned>(shift - 1);
  const std::uint64_t twice = static_cast<std::uint64_t>(exact >> 64) << (-down & 63U) |
                              static_cast<std::uint64_t>(exact) >> down;
  const std::uint64_t scaled = (twice + 1) >> 1;
  const std::uint64_t whole = scaled / kScale;
  *out = '-';
  out += bits >> 63;
  if (whole >= kWholes.size()) return putLarge(scaled, out);
  return putDecimals(scaled - whole * kScale, putSmallWhole(whole, out));
}

std::string formatNumber(double value) {
  std::array<char, kNumberRoom> buffer{};
  return {buffer.data(), formatNumber(value, buffer.data())};
}

}  // namespace quillon::eagle
