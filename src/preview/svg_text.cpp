#include "preview/svg_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace quillon::preview {
namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10;
constexpr unsigned kMostDecimals = 6;
constexpr std::array<std::int64_t, kMostDecimals + 1> kPowers = {1,      10,      100,      1'000,
                                                                 10'000, 100'000, 1'000'000};
constexpr double kLargest = 1e12;  // with all decimals still a whole number of 64 bits

/// The characters of a number.
class Digits {
 public:
  Digits(double value, unsigned decimals) {
    if (!(std::fabs(value) <= kLargest)) value = 0.0;
    const std::int64_t whole = kPowers[decimals];
    const std::int64_t scaled = std::llround(value * static_cast<double>(whole));
    if (scaled < 0) put('-');
    const std::int64_t size = scaled < 0 ? -scaled : scaled;
    at_ = std::to_chars(at_, digits_.data() + digits_.size(), size / whole).ptr;
    if (decimals == 0) return;
    put('.');
    std::int64_t rest = size % whole;
    for (std::int64_t place = whole / 10; place > 0; place /= 10) {
      put(static_cast<char>('0' + rest / place));
      rest %= place;
    }
    hasPoint_ = true;
  }

  std::string_view all() const {
    return {digits_.data(), static_cast<std::size_t>(at_ - digits_.data())};
  }
  std::string_view withoutZeros() const {
    std::string_view text = all();
    if (!hasPoint_) return text;
    while (text.back() == '0') text.remove_suffix(1);
    if (text.back() == '.') text.remove_suffix(1);
    return text;
  }

 private:
  void put(char c) { *at_++ = c; }

  std::array<char, 32> digits_{};
  char* at_ = digits_.data();
  bool hasPoint_ = false;
};

}  // namespace

SvgText::SvgText(base::ByteSink& sink, double finest) : sink_(sink) {
  while (decimals_ < kMostDecimals && static_cast<double>(kPowers[decimals_]) * finest < 1.0) {
    ++decimals_;
  }
}

SvgText& SvgText::text(std::string_view text) {
  buffer_.append(text);
  if (buffer_.size() >= kBlock) flush();
  return *this;
}

SvgText& SvgText::number(double value) { return text(Digits(value, decimals_).withoutZeros()); }

SvgText& SvgText::point(geometry::Point point) {
  return number(point.x).text(" ").number(-point.y);
}

void SvgText::flush() {
  if (!buffer_.empty()) sink_.write(buffer_);
  buffer_.clear();
}

std::string fixedText(double value, unsigned decimals) {
  return std::string(Digits(value, decimals).all());
}

std::string shortText(double value, unsigned decimals) {
  return std::string(Digits(value, decimals).withoutZeros());
}

std::string xmlText(std::string_view utf8) {
  std::string text;
  for (const char c : utf8) {
    switch (c) {
      case '&':
        text += "&amp;";
        break;
      case '<':
        text += "&lt;";
        break;
      case '>':
        text += "&gt;";
        break;
      case '"':
        text += "&quot;";
        break;
      default:
        if (static_cast<unsigned char>(c) >= ' ') text += c;
    }
  }
  return text;
}

}  // namespace quillon::preview
