#include "exact/dimension_text.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/double_text.h"

namespace quillon::exact {
namespace {

constexpr std::string_view kMeasureMark = "<>";
constexpr std::string_view kAlternateMark = "[]";

enum ZeroBits : int { kNoLeadingZero = 4, kNoTrailingZeros = 8 };

/// The first "<>" replaced: more of them could make a text of any length.
std::string withMeasure(std::string_view text, std::string_view measure) {
  std::string result(text);
  const std::size_t at = result.find(kMeasureMark);
  if (at != std::string::npos) result.replace(at, kMeasureMark.size(), measure);
  return result;
}

std::string withoutAlternates(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; (at = text.find(kAlternateMark)) != std::string_view::npos;) {
    result.append(text.substr(0, at));
    text.remove_prefix(at + kAlternateMark.size());
  }
  return result.append(text);
}

std::string fixedDecimals(double value, int decimals) {
  constexpr int kMostDecimals = 8;
  // The largest usable number has 101 digits before its point.
  std::array<char, 128> buffer{};
  char* const end = base::putFixed(value, std::clamp(decimals, 0, kMostDecimals), buffer.data(),
                                   buffer.data() + buffer.size());
  return end == nullptr ? "0" : std::string(buffer.data(), end);
}

std::string decimalText(double value, int decimals, int zeros, char point) {
  std::string text = fixedDecimals(value, decimals);
  const std::size_t at = text.find('.');
  if (at == std::string::npos) return text;
  text[at] = point;
  if ((zeros & kNoTrailingZeros) != 0) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == point) text.pop_back();
  }
  if ((zeros & kNoLeadingZero) != 0 && text.size() > 1 && text[0] == '0') text.erase(0, 1);
  return text;
}

std::string lengthText(double length, const DimensionNumbers& style) {
  double value = length * style.factor;
  if (style.rounding > 0.0) {
    const double rounded = std::round(value / style.rounding) * style.rounding;
    if (geometry::usable(rounded)) value = rounded;
  }
  return decimalText(value, style.decimals, style.zeros, style.decimalPoint);
}

std::string angleText(double degrees, const DimensionNumbers& style) {
  const int decimals = style.angleDecimals < 0 ? style.decimals : style.angleDecimals;
  // The bits for angles are a quarter of those for lengths.
  return decimalText(degrees, decimals, style.angleZeros * 4, style.decimalPoint) + "%%d";
}

}  // namespace

std::string measureText(double measure, Measured what, const DimensionNumbers& style) {
  if (!geometry::usable(measure) || !geometry::usable(measure * style.factor)) measure = 0.0;
  std::string text =
      what == Measured::Angle ? angleText(measure, style) : lengthText(measure, style);
  if (what == Measured::Diameter) text.insert(0, "%%c");
  if (what == Measured::Radius) text.insert(0, "R");
  if (style.around.find(kMeasureMark) == std::string_view::npos) return text.append(style.around);
  return withMeasure(style.around, text);
}

bool showsMeasure(std::string_view own) {
  return own.empty() || own.find(kMeasureMark) != std::string_view::npos;
}

std::string dimensionText(std::string_view own, std::string_view measure) {
  return withoutAlternates(withMeasure(own.empty() ? kMeasureMark : own, measure));
}

}  // namespace quillon::exact
