#include "drawing_text.h"

#include <array>
#include <charconv>

namespace quillon::bench {

DrawingText& DrawingText::group(int groupCode, std::string_view value) {
  code(groupCode);
  buffer_ += value;
  return endGroup();
}

DrawingText& DrawingText::integer(int groupCode, std::int64_t value) {
  constexpr std::size_t kWidth = 6;  // integers are right-aligned in six columns
  const std::string digits = std::to_string(value);
  code(groupCode);
  if (digits.size() < kWidth) buffer_.append(kWidth - digits.size(), ' ');
  buffer_ += digits;
  return endGroup();
}

DrawingText& DrawingText::number(int groupCode, double value) {
  constexpr int kSignificantDigits = 16;
  std::array<char, 40> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::general, kSignificantDigits)
                       .ptr;
  const std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
  code(groupCode);
  buffer_ += text;
  if (text.find_first_of(".e") == std::string_view::npos) buffer_ += ".0";
  return endGroup();
}

DrawingText& DrawingText::point(int xCode, double x, double y) {
  return number(xCode, x).number(xCode + 10, y).number(xCode + 20, 0.0);
}

DrawingText& DrawingText::beginTable(std::string_view name, std::size_t entries) {
  group(0, "TABLE").group(2, name).group(5, "2").group(100, "AcDbSymbolTable");
  return integer(70, static_cast<std::int64_t>(entries));
}

DrawingText& DrawingText::beginEntity(std::string_view name, std::string_view layer) {
  constexpr int kHexadecimal = 16;
  std::array<char, 20> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), handle_++, kHexadecimal).ptr;
  group(0, name);
  group(5, {digits.data(), static_cast<std::size_t>(end - digits.data())});
  return group(330, "1F").group(100, "AcDbEntity").group(8, layer);
}

void DrawingText::finish() {
  group(0, "EOF");
  sink_(buffer_);
  handedOn_ += buffer_.size();
  buffer_.clear();
}

void DrawingText::code(int groupCode) {
  constexpr std::size_t kWidth = 3;
  const std::string digits = std::to_string(groupCode);
  if (digits.size() < kWidth) buffer_.append(kWidth - digits.size(), ' ');
  buffer_ += digits;
  buffer_ += "\r\n";
}

DrawingText& DrawingText::endGroup() {
  buffer_ += "\r\n";
  if (buffer_.size() < kBlock) return *this;
  sink_(buffer_);
  handedOn_ += buffer_.size();
  buffer_.clear();
  return *this;
}

}  // namespace quillon::bench
