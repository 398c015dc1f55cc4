#include "convert/input_check.h"

namespace quillon::convert {
namespace {

bool isDwg(std::string_view head) {
  // "AC" and a four-character version, followed by a byte that cannot continue a line of text.
  constexpr std::size_t kVersionLength = 6;
  if (!head.starts_with("AC") || head.size() <= kVersionLength) return false;
  const std::string_view version = head.substr(2, kVersionLength - 2);
  const bool digits = version.find_first_not_of("0123456789.") == std::string_view::npos;
  return digits && head.find('\0') != std::string_view::npos;
}

}  // namespace

InputKind checkInput(std::string_view head) {
  if (head.empty()) return InputKind::Empty;
  if (head.starts_with("AutoCAD Binary DXF")) return InputKind::BinaryDxf;
  if (isDwg(head)) return InputKind::Dwg;
  if (head.find('\0') != std::string_view::npos) return InputKind::NoText;
  if (head.find_first_of("\r\n") == std::string_view::npos) return InputKind::NoText;
  return InputKind::Text;
}

}  // namespace quillon::convert
