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

void putPair(std::uint64_t value, char* out) {
  std::memcpy(out, &kDigitPairs[static_cast<std::size_t>(value) * 2], 2);
}

char* putDecimals(std::uint64_t decimals, char* out) {
  *out++ = '.';
  *out++ = static_cast<char>('0' + decimals / 1'000'000);
  decimals %= 1'000'000;
  putPair(decimals / 10'000, out);
  putPair(decimals / 100 % 100, out + 2);
  putPair(decimals % 100, out + 4);
  return out + 6;
}

char* putInteger(std::uint64_t value, char* out) {
  if (value < 10) {
    *out = static_cast<char>('0' + value);
    return out + 1;
  }
  if (value < 100) {
    putPair(value, out);
    return out + 2;
  }
  if (value < 1000) {
    *out = static_cast<char>('0' + value / 100);
    putPair(value % 100, out + 1);
    return out + 3;
  }
  if (value < 10000) {
    putPair(value / 100, out);
    putPair(value % 100, out + 2);
    return out + 4;
  }
  constexpr std::size_t kMostDigits = 20;
  return std::to_chars(out, out + kMostDigits, value).ptr;
}

char* putScaled(std::uint64_t scaled, char* out) {
  return putDecimals(scaled % kScale, putInteger(scaled / kScale, out));
}

/// A magnitude below 2^53 as mantissa / 2^shift: times 10^7 it fits in 128 bits exactly, so
/// rounding is exact.
char* putFraction(std::uint64_t mantissa, int shift, char* out) {
  const Wide exact = static_cast<Wide>(mantissa) * kScale;
  if (shift < 64) {
    const Wide rounded = exact + (std::uint64_t{1} << (shift - 1));
    const auto high = static_cast<std::uint64_t>(rounded >> 64);
    const auto low = static_cast<std::uint64_t>(rounded);
    if (high >> shift == 0) return putScaled(high << (64 - shift) | low >> shift, out);
    const Wide scaled = rounded >> shift;
    return putDecimals(static_cast<std::uint64_t>(scaled % kScale),
                       putInteger(static_cast<std::uint64_t>(scaled / kScale), out));
  }
  constexpr int kWideBits = 128;
  if (shift >= kWideBits) return putScaled(0, out);
  return putScaled(
      static_cast<std::uint64_t>((exact + (static_cast<Wide>(1) << (shift - 1))) >> shift), out);
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
  // From 2^52 on there is no fraction, so the library's digits need no rounding.
  const double magnitude = negative ? -value : value;
  return base::putFixed(magnitude, 7, out, out + kNumberRoom - 1);
}

std::string formatNumber(double value) {
  std::array<char, kNumberRoom> buffer{};
  return {buffer.data(), formatNumber(value, buffer.data())};
}

}  // namespace quillon::eagle
