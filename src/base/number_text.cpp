#include "base/number_text.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "base/digit_block.h"
#include "base/double_text.h"
#include "base/run_time_error.h"

namespace quillon::base {
namespace {

constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::array<std::uint64_t, 9> kIntegerPowersOfTen = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};
constexpr std::uint64_t kLargestExactMantissa = std::uint64_t{1} << 53;
constexpr int kMostMantissaDigits = 19;
constexpr int kExponentCap = 1'000'000;

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// The parts of the number at the start of a text.
struct NumberParts {
  bool negative = false;
  const char* digits = nullptr;  ///< first character after the sign
  const char* end = nullptr;     ///< one past the last character of the number
  std::uint64_t mantissa = 0;    ///< valid while digitCount <= 19
  int digitCount = 0;            ///< digits without leading zeros
  bool anyDigit = false;
  int exponent = 0;  ///< power of ten of the mantissa
};

void readDigits(const char*& p, const char* end, NumberParts& parts, int exponentStep) {
  for (; p != end && isDigit(*p); ++p) {
    parts.anyDigit = true;
    const auto digit = static_cast<unsigned>(*p - '0');
    if (parts.digitCount > 0 || digit != 0) {
      if (parts.digitCount < kMostMantissaDigits) parts.mantissa = parts.mantissa * 10 + digit;
      ++parts.digitCount;
    }
    parts.exponent += exponentStep;
  }
}

/// Reads "e", a sign and digits at p; otherwise p does not move.
void readExponent(const char*& p, const char* end, NumberParts& parts) {
  if (p == end || (*p != 'e' && *p != 'E')) return;
  const char* q = p + 1;
  bool negative = false;
  if (q != end && (*q == '+' || *q == '-')) negative = *q++ == '-';
  if (q == end || !isDigit(*q)) return;
  int value = 0;
  for (; q != end && isDigit(*q); ++q) {
    if (value < kExponentCap) value = value * 10 + (*q - '0');
  }
  parts.exponent += negative ? -value : value;
  p = q;
}

NumberParts splitNumber(std::string_view text) {
  NumberParts parts;
  const char* p = text.data();
  const char* const end = p + text.size();
  while (p != end && (*p == ' ' || *p == '\t')) ++p;
  if (p != end && (*p == '+' || *p == '-')) parts.negative = *p++ == '-';
  parts.digits = p;
  readDigits(p, end, parts, 0);
  if (p != end && *p == '.') {
    ++p;
    readDigits(p, end, parts, -1);
  }
  if (parts.anyDigit) readExponent(p, end, parts);
  parts.end = p;
  return parts;
}

/// Whether the trimmed text is nothing but the number.
bool isWhole(const NumberParts& parts, std::string_view trimmed) {
  return parts.anyDigit && trimmed.front() != '\t' && parts.end == trimmed.data() + trimmed.size();
}

/// Long mantissas and large exponents go through the library's exact conversion.
double valueOfLongNumber(const NumberParts& parts) {
  return valueOfDigits(parts.digits, parts.end, parts.digitCount + parts.exponent > 0);
}

/// Whether mantissa and power of ten are exact doubles: then a single operation rounds correctly.
bool isExact(std::uint64_t mantissa, int exponent) {
  return mantissa <= kLargestExactMantissa && exponent >= -22 && exponent <= 22;
}

double exactValue(std::uint64_t mantissa, int exponent) {
  const auto value = static_cast<double>(mantissa);
  return exponent < 0 ? value / kPowersOfTen[static_cast<std::size_t>(-exponent)]
                      : value * kPowersOfTen[static_cast<std::size_t>(exponent)];
}

double valueOf(const NumberParts& parts) {
  if (!parts.anyDigit || parts.digitCount == 0) return parts.negative ? -0.0 : 0.0;
  const bool exact =
      parts.digitCount <= kMostMantissaDigits && isExact(parts.mantissa, parts.exponent);
  const double value =
      exact ? exactValue(parts.mantissa, parts.exponent) : valueOfLongNumber(parts);
  return parts.negative ? -value : value;
}

/// Reads a short number: at most seven characters, digits with or without ".".
bool readShortNumber(const char* start, std::size_t length, double& value) {
  if (length == 0) return false;
  const std::uint64_t word = loadFewDigits(start, length);
  const std::size_t whole = static_cast<std::size_t>(std::countr_zero(nonDigits(word))) / 8;
  if (whole == 0) return false;
  std::uint64_t mantissa = digitBlockValue(word << (64 - 8 * whole));
  std::size_t places = 0;
  if (whole < length) {
    places = length - whole - 1;
    if (start[whole] != '.' || places == 0) return false;
    const std::size_t dropped = 8 * (8 - places);
    const std::uint64_t fraction = word << (8 * (8 - length)) >> dropped << dropped;
    if (nonDigits(fraction) != 0) return false;
    mantissa = mantissa * kIntegerPowersOfTen[places] + digitBlockValue(fraction);
  }
  value = static_cast<double>(mantissa) / kPowersOfTen[places];
  return true;
}

/// Reads the usual coordinate, eight characters at a time: an optional sign, up to seven digits,
/// ".", up to 16 digits. False for any other form.
bool readCoordinate(std::string_view text, double& value) {
  if constexpr (std::endian::native != std::endian::little) return false;
  const bool negative = !text.empty() && text.front() == '-';
  const char* const start = text.data() + (negative ? 1 : 0);
  const char* const end = text.data() + text.size();
  if (end - start < 8) {
    if (!readShortNumber(start, static_cast<std::size_t>(end - start), value)) return false;
    if (negative) value = -value;
    return true;
  }
  const std::uint64_t head = loadDigits(start);
  const auto whole = static_cast<unsigned>(std::countr_zero(nonDigits(head))) / 8;
  if (whole == 0 || whole == 8 || start[whole] != '.') return false;
  std::uint64_t mantissa = digitBlockValue(head << (64 - 8 * whole));
  const char* const fraction = start + whole + 1;
  const auto places = static_cast<unsigned>(end - fraction);
  if (places == 0 || places + whole > 18 || places > 16) return false;
  const unsigned tail = places > 8 ? places - 8 : places;
  if (places > 8) {
    const std::uint64_t middle = loadDigits(fraction);
    if (nonDigits(middle) != 0) return false;
    mantissa = mantissa * 100'000'000 + digitBlockValue(middle);
  }
  const std::uint64_t last = loadLastDigits(end, tail);
  if (nonDigits(last) != 0) return false;
  mantissa = mantissa * kIntegerPowersOfTen[tail] + digitBlockValue(last);
  const int exponent = -static_cast<int>(places);
  if (!isExact(mantissa, exponent)) return false;
  value = exactValue(mantissa, exponent);
  if (negative) value = -value;
  return true;
}

}  // namespace

double numberValue(std::string_view text) {
  double value = 0.0;
  return readCoordinate(text, value) ? value : valueOf(splitNumber(text));
}

bool startsWithNumber(std::string_view text) { return splitNumber(text).anyDigit; }

std::string_view textAfterNumber(std::string_view text) {
  const NumberParts parts = splitNumber(text);
  std::string_view rest = text;
  if (parts.anyDigit) rest.remove_prefix(static_cast<std::size_t>(parts.end - text.data()));
  const bool any = rest.find_first_not_of(" \t") != std::string_view::npos;
  return any ? rest : std::string_view{};
}

std::int16_t roundedInteger16(double value, bool& fits) {
  const double rounded = std::nearbyint(value);
  fits = rounded >= std::numeric_limits<std::int16_t>::min() &&
         rounded <= std::numeric_limits<std::int16_t>::max();
  return fits ? static_cast<std::int16_t>(rounded) : std::int16_t{0};
}

bool isOddNumber(std::string_view text) {
  const double rounded = std::nearbyint(numberValue(text));
  return std::fmod(std::fabs(rounded), 2.0) == 1.0;
}

bool isNumber(std::string_view text) {
  const std::string_view trimmed = trimBlanks(text);
  return isWhole(splitNumber(trimmed), trimmed);
}

std::int16_t groupCodeSlow(std::string_view line) {
  const std::string_view trimmed = trimBlanks(line);
  const NumberParts parts = splitNumber(trimmed);
  bool fits = isWhole(parts, trimmed);
  std::int16_t code = 0;
  if (fits) code = roundedInteger16(valueOf(parts), fits);
  if (!fits) throw RunTimeError(Fault::BadGroupCode, line, line.data());
  return code;
}

std::string numberText(double value) {
  constexpr int kSignificantDigits = 15;
  // Digits that numberValue reads back as infinity; the word "inf" would read as 0.
  if (!std::isfinite(value)) return value < 0.0 ? "-1e999" : "1e999";
  std::array<char, 40> buffer{};
  char* const end =
      putShort(value, kSignificantDigits, buffer.data(), buffer.data() + buffer.size());
  if (end == nullptr || value == 0.0) return "0";
  return {buffer.data(), end};
}

}  // namespace quillon::base
