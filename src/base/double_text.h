#pragma once

#include <charconv>

namespace quillon::base {

// Numbers to and from text as std::to_chars and std::from_chars have it: rounded correctly, with a
// point whatever the locale. Not every standard library has them for double.

#ifdef __cpp_lib_to_chars

/// Writes a value with so many decimals. Returns the end; null where it does not fit.
inline char* putFixed(double value, int decimals, char* out, char* end) {
  const auto [stop, error] = std::to_chars(out, end, value, std::chars_format::fixed, decimals);
  return error == std::errc{} ? stop : nullptr;
}

/// Writes a value with at most so many significant digits, with an exponent where that is shorter.
/// Returns the end; null where it does not fit.
inline char* putShort(double value, int digits, char* out, char* end) {
  const auto [stop, error] = std::to_chars(out, end, value, std::chars_format::general, digits);
  return error == std::errc{} ? stop : nullptr;
}

#else

char* putFixed(double value, int decimals, char* out, char* end);
char* putShort(double value, int digits, char* out, char* end);

#endif

/// The value of a decimal number without a sign, of any length. `isLarge`: one that no double can
/// hold is infinity, not 0.
double valueOfDigits(const char* digits, const char* end, bool isLarge);

}  // namespace quillon::base
