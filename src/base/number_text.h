#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::base {

/// The text without leading and trailing blanks. Tabs stay.
constexpr std::string_view trimBlanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// As numberValue, of which it is the rest.
double numberValueOfText(std::string_view text);

/// The number at the start of a text, in any locale: blanks and tabs, a sign, digits with ".", an
/// exponent (e or E, only with digits). Reading stops at the first character that does not fit; a
/// text without digits gives 0. Overflow gives infinity, underflow 0.
inline double numberValue(std::string_view text) {
  // Values that an entity does not have are asked for more often than not.
  return text.empty() ? 0.0 : numberValueOfText(text);
}

/// True when a text starts with a number that numberValue can read.
bool startsWithNumber(std::string_view text);

/// What follows the number at the start of a text: "" for nothing but blanks and tabs, the whole
/// text when it does not start with a number.
std::string_view textAfterNumber(std::string_view text);

/// True when the whole text is a decimal number, apart from blanks around it.
bool isNumber(std::string_view text);

/// numberValue rounded half to even to 16 bits; `fits` is false and the result 0 when it is out of
/// range.
std::int16_t roundedInteger16(double value, bool& fits);

/// True when the rounded number is odd. This is how a polyline's closed flag is tested.
bool isOddNumber(std::string_view text);

/// The group code on a trimmed line: the whole line must be a decimal number, which is rounded half
/// to even. Throws RunTimeError (BadGroupCode) otherwise.
std::int16_t groupCodeSlow(std::string_view line);

inline std::int16_t groupCode(std::string_view line) {
  // Nearly every group code has one to four digits.
  if (line.size() - 1 < 4) {
    int value = 0;
    for (const char c : line) {
      const int digit = c - '0';
      if (digit < 0 || digit > 9) return groupCodeSlow(line);
      value = value * 10 + digit;
    }
    return static_cast<std::int16_t>(value);
  }
  return groupCodeSlow(line);
}

/// A number as text with at most 15 significant digits, "." as the decimal point, a digit before
/// the point and no trailing zeros.
std::string numberText(double value);

}  // namespace quillon::base
