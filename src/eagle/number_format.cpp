#include "eagle/number_format.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "base/bits.h"
#include "base/digit_block.h"
#include "base/double_text.h"

namespace quillon::eagle {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::uint64_t kScale = 10'000'000;  // seven decimal places
constexpr int kMantissaBits = 52;
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

/// Seven decimals, and up to one character more.
char* putDecimals(std::uint64_t decimals, char* out) {
  if constexpr (std::endian::native == std::endian::little) {
    const std::uint64_t text = base::charactersOf(static_cast<std::uint32_t>(decimals)) >> 8;
    std::memcpy(out, &text, sizeof text);
    return out + 7;
  }
  *out++ = static_cast<char>('0' + decimals / 1'000'000);
  decimals %= 1'000'000;
  putPair(decimals / 10'000, out);
  putPair(decimals / 100 % 100, out + 2);
  putPair(decimals % 100, out + 4);
  return out + 6;
}

/// What putWhole leaves. Apart, like other rare cases, so that the usual number needs no stack.
[[gnu::noinline]] char* putLargeWhole(std::uint64_t value, char* out) {
  constexpr std::size_t kMostDigits = 20;
  char* const end = std::to_chars(out, out + kMostDigits, value).ptr;
  *end = '.';
  return end + 1;
}

/// One of kWholes.
char* putSmallWhole(std::uint64_t value, char* out) {
  std::memcpy(out, kWholes[static_cast<std::size_t>(value)].data(), sizeof(Whole));
  return out + 2 + (value >= 10 ? 1 : 0) + (value >= 100 ? 1 : 0);
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

/// Less than 2^-11, or so large that 64 bits do not hold it times 10^7.
[[gnu::noinline]] char* putUnusual(std::uint64_t mantissa, int shift, char* out) {
  const Wide exact = static_cast<Wide>(mantissa) * kScale;
  constexpr int kWideBits = 128;
  if (shift >= kWideBits) return putScaled(0, out);
  const Wide scaled = (exact + (static_cast<Wide>(1) << (shift - 1))) >> shift;
  return putDecimals(static_cast<std::uint64_t>(scaled % kScale),
                     putWhole(static_cast<std::uint64_t>(scaled / kScale), out));
}

/// A magnitude below 2^53 as mantissa / 2^shift: times 10^7 it fits in 128 bits exactly, so
/// rounding is exact.
char* putFraction(std::uint64_t mantissa, int shift, char* out) {
  if (shift >= 64) return putUnusual(mantissa, shift, out);
  const Wide rounded = static_cast<Wide>(mantissa) * kScale + (std::uint64_t{1} << (shift - 1));
  const auto high = static_cast<std::uint64_t>(rounded >> 64);
  const auto low = static_cast<std::uint64_t>(rounded);
  if (high >> shift != 0) return putUnusual(mantissa, shift, out);
  return putScaled(high << (64 - shift) | low >> shift, out);
}

/// From 2^52 on there is no fraction, so the library's digits need no rounding.
[[gnu::noinline]] char* putHuge(double magnitude, char* out) {
  return base::putFixed(magnitude, 7, out, out + kNumberRoom - 1);
}

}  // namespace

char* formatNumber(double value, char* out) {
  const auto bits = base::bitCast<std::uint64_t>(value);
  const bool negative = (bits >> 63) != 0;
  const auto biased = static_cast<int>(bits >> kMantissaBits & 0x7FF);
  std::uint64_t mantissa = bits & ((std::uint64_t{1} << kMantissaBits) - 1);
  // A zero has no sign; a negative number that rounds to zero keeps it.
  if (negative && (biased != 0 || mantissa != 0)) *out++ = '-';
  if (biased != 0) mantissa |= std::uint64_t{1} << kMantissaBits;
  const int shift = kExponentBias - (biased == 0 ? 1 : biased);
  if (shift > 0) return putFraction(mantissa, shift, out);
  return putHuge(negative ? -value : value, out);
}

std::string formatNumber(double value) {
  std::array<char, kNumberRoom> buffer{};
  return {buffer.data(), formatNumber(value, buffer.data())};
}

}  // namespace quillon::eagle
