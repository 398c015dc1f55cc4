#include "eagle/number_format.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "base/bits.h"
#include "base/double_text.h"
#include "eagle/decimal_digits.h"

namespace quillon::eagle {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kMantissaBits = 52;
constexpr std::uint64_t kImplicitBit = std::uint64_t{1} << kMantissaBits;
constexpr int kExponentBias = 1075;

/// What putWhole leaves.
char* putLargeWhole(std::uint64_t value, char* out) {
  constexpr std::size_t kMostDigits = 20;
  char* const end = std::to_chars(out, out + kMostDigits, value).ptr;
  *end = '.';
  return end + 1;
}

/// A number from a thousand up to a million and a point, and up to one character more.
char* putMiddleWhole(std::uint64_t value, char* out) {
  char* const rest = putSmallWhole(value / 1000, out) - 1;
  *rest = static_cast<char>('0' + value / 100 % 10);
  putPair(value % 100, rest + 1);
  rest[3] = '.';
  return rest + 4;
}

/// The number and a point, and up to two characters more.
char* putWhole(std::uint64_t value, char* out) {
  constexpr std::uint64_t kMillion = 1'000'000;
  if (value < kWholes.size()) return putSmallWhole(value, out);
  return value < kMillion ? putMiddleWhole(value, out) : putLargeWhole(value, out);
}

char* putScaled(std::uint64_t scaled, char* out) {
  return putDecimals(scaled % kScale, putWhole(scaled / kScale, out));
}

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

/// The magnitude in units of the last decimal, rounded, halves up: from 2^-11 up to where 64 bits
/// do not hold twice of it.
std::uint64_t scaledNumber(std::uint64_t bits) {
  const std::uint64_t mantissa = (bits & (kImplicitBit - 1)) | kImplicitBit;
  const Wide exact = static_cast<Wide>(mantissa) * kScale;
  // One binary place is left to round by.
  const auto down = static_cast<unsigned>(kExponentBias - 1) -
                    static_cast<unsigned>(bits >> kMantissaBits & 0x7FF);
  const std::uint64_t twice = static_cast<std::uint64_t>(exact >> 64) << (-down & 63U) |
                              static_cast<std::uint64_t>(exact) >> down;
  return (twice + 1) >> 1;
}

/// Any number. Apart, like other rare cases, so that the usual number needs no stack.
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
  const double magnitude = std::fabs(value);
  if (magnitude <= kMostRounded) {
    const RoundedNumber usual = roundUsual(magnitude);
    // A zero has no sign; a negative number that rounds to zero keeps it.
    *out = '-';
    if (usual.isRounded) return putScaled(usual.scaled, out + (value < 0.0 ? 1 : 0));
  }
  // From 2^-11 up to where 64 bits do not hold twice the number times 10^7.
  constexpr int kLeastShift = 14;
  constexpr int kMostShift = 63;
  const auto bits = base::bitCast<std::uint64_t>(value);
  const int shift = kExponentBias - static_cast<int>(bits >> kMantissaBits & 0x7FF);
  if (shift < kLeastShift || shift > kMostShift) return putUnusual(value, out);
  *out = '-';
  out += bits >> 63;
  return putScaled(scaledNumber(bits), out);
}

std::string formatNumber(double value) {
  std::array<char, kNumberRoom> buffer{};
  return {buffer.data(), formatNumber(value, buffer.data())};
}

}  // namespace quillon::eagle
