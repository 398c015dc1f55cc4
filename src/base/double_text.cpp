#include "base/double_text.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <system_error>

namespace quillon::base {

#ifdef __cpp_lib_to_chars

double valueOfDigits(const char* digits, const char* end, bool isLarge) {
  double value = 0.0;
  const auto [stop, error] = std::from_chars(digits, end, value);
  if (error != std::errc::result_out_of_range) return value;
  return isLarge ? std::numeric_limits<double>::infinity() : 0.0;
}

#else

namespace {

/// What C writes in the locale, with a point.
char* putFormatted(const char* format, int digits, double value, char* out, char* end) {
  const auto room = static_cast<std::size_t>(end - out);
  // C also writes a zero at the end.
  std::string text(room + 1, '\0');
  const int length = std::snprintf(text.data(), text.size(), format, digits, value);
  if (length < 0 || static_cast<std::size_t>(length) > room) return nullptr;
  text.resize(static_cast<std::size_t>(length));
  const std::string_view point = std::localeconv()->decimal_point;
  const std::size_t at = text.find(point);
  if (at != std::string::npos) text.replace(at, point.size(), ".");
  return out + text.copy(out, room);
}

}  // namespace

char* putFixed(double value, int decimals, char* out, char* end) {
  return putFormatted("%.*f", decimals, value, out, end);
}

char* putShort(double value, int digits, char* out, char* end) {
  return putFormatted("%.*g", digits, value, out, end);
}

double valueOfDigits(const char* digits, const char* end, bool) {
  std::string text(digits, end);
  const std::size_t point = text.find('.');
  if (point != std::string::npos) text.replace(point, 1, std::localeconv()->decimal_point);
  return std::strtod(text.c_str(), nullptr);
}

#endif

}  // namespace quillon::base
