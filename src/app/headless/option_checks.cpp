#include "app/headless/option_checks.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <system_error>

#include "base/number_text.h"
#include "convert/layer_file.h"

namespace quillon::headless {

std::string checkNumber(const std::string& text) {
  char* end = nullptr;
  std::strtod(text.c_str(), &end);
  const bool whole = end != text.c_str() && *end == '\0';
  const bool plain = text.find_first_not_of("+-.0123456789eE") == std::string::npos;
  if (whole && plain && std::isfinite(base::numberValue(text))) return {};
  return "\"" + text + "\" is not a number";
}

std::string checkScale(const std::string& text) {
  std::string error = checkNumber(text);
  if (error.empty() && base::numberValue(text) == 0.0) error = "the scale factor must not be 0";
  return error;
}

std::string checkLayer(const std::string& text) {
  if (convert::isEagleLayer(text)) return {};
  return "\"" + text + "\" is not an EAGLE layer from 1 to 255, or 999";
}

std::optional<std::uint64_t> sizeOf(std::string_view text) {
  constexpr std::string_view kSuffixes = "KMG";
  constexpr unsigned kBitsEach = 10;
  unsigned shift = 0;
  if (!text.empty()) {
    const auto last = static_cast<char>(std::toupper(static_cast<unsigned char>(text.back())));
    const std::size_t power = kSuffixes.find(last);
    if (power != std::string_view::npos) {
      shift = kBitsEach * static_cast<unsigned>(power + 1);
      text.remove_suffix(1);
    }
  }
  const std::optional<std::uint64_t> number = wholeNumberOf(text);
  if (!number || *number == 0 || *number > std::numeric_limits<std::uint64_t>::max() >> shift)
    return std::nullopt;
  return *number << shift;
}

std::string checkSize(const std::string& text) {
  return sizeOf(text) ? "" : "\"" + text + "\" is not a size";
}

std::optional<std::uint64_t> wholeNumberOf(std::string_view text) {
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || stop != end) return std::nullopt;
  return number;
}

std::string checkCount(const std::string& text, const std::string& things) {
  constexpr std::uint64_t kMost = 999'999'999'999'999'999;
  const std::optional<std::uint64_t> number = wholeNumberOf(text);
  if (number && *number >= 1 && *number <= kMost) return {};
  return "\"" + text + "\" is not a number of " + things;
}

std::string checkUpTo(const std::string& text, unsigned most) {
  const std::optional<std::uint64_t> number = wholeNumberOf(text);
  if (number && *number >= 1 && *number <= most) return {};
  return "\"" + text + "\" is not a number from 1 to " + std::to_string(most);
}

}  // namespace quillon::headless
