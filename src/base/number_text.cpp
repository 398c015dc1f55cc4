#include "base/number_text.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "base/coordinate_text.h"
#include "base/double_pair.h"
#include "base/double_text.h"
#include "base/run_time_error.h"

namespace quillon::base {
namespace {

constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
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

/// Divides a mantissa of more digits than a double has by a power of ten that is an exact double.
/// False where it remains open which double is nearest.
bool divideLong(std::uint64_t mantissa, double power, double& value) {
  const auto rounded = static_cast<double>(mantissa);
  const auto left = static_cast<double>(
      static_cast<std::int64_t>(mantissa - static_cast<std::uint64_t>(rounded)));
  const double quotient = rounded / power;
  const Pair back = productOf(quotient, power);
  // Exact up to the division, as what a quotient leaves is a double.
  const double more = (((rounded - back.high) - back.low) + left) / power;
  const double doubt = std::fabs(more) * 0x1p-48;
  value = quotient + (more - doubt);
  return value == quotient + (more + doubt);
}

/// Other long mantissas and large exponents go through the library's exact conversion.
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

/// The number that these digits form, if it is exact.
bool takeDigits(const CoordinateDigits& digits, double& value) {
  if (digits.mantissa > kLargestExactMantissa) return false;
  // Signed, as only that takes one instruction.
  const auto mantissa = static_cast<double>(static_cast<std::int64_t>(digits.mantissa));
  value = mantissa / kPowersOfTen[digits.places];
  return true;
}

/// Reads a coordinate of more digits than usual: more than a double has, or many zeros behind the
/// point.
bool readLongCoordinate(std::string_view text, double& value) {
  CoordinateDigits digits;
  return readDigitsByWords(text, digits) &&
         (takeDigits(digits, value) ||
          divideLong(digits.mantissa, kPowersOfTen[digits.places], value));
}

/// Apart, so that the usual coordinate needs no stack.
[[gnu::noinline]] double valueOfAnyNumber(std::string_view text) {
  const bool negative = text.front() == '-';
  double value = 0.0;
  if (readLongCoordinate(text.substr(negative ? 1 : 0), value)) return negative ? -value : value;
  return valueOf(splitNumber(text));
}

/// Reads the usual coordinate: an optional sign, and digits with at most one point among them.
bool readCoordinate(std::string_view text, double& value) {
  const bool negative = text.front() == '-';
  const std::string_view rest{text.data() + (negative ? 1 : 0), text.size() - (negative ? 1 : 0)};
  CoordinateDigits digits;
#ifdef __SSE2__
  const bool known = readDigitsAtOnce(rest, digits);
#else
  const bool known = readDigitsByWords(rest, digits);
#endif
  if (!known || !takeDigits(digits, value)) return false;
  if (negative) value = -value;
  return true;
}

}  // namespace

double numberValueOfText(std::string_view text) {
  double value = 0.0;
  return readCoordinate(text, value) ? value : valueOfAnyNumber(text);
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
