#include "base/quotable.h"

namespace quillon::base {
namespace {

/// Length in bytes of the control character at an offset of a UTF-8 text; 0 for another character.
std::size_t controlLength(std::string_view utf8, std::size_t at) {
  const auto byte = static_cast<unsigned char>(utf8[at]);
  if (byte < 0x20 || byte == 0x7F) return 1;
  const auto next = at + 1 < utf8.size() ? static_cast<unsigned char>(utf8[at + 1]) : 0U;
  return byte == 0xC2 && next >= 0x80 && next < 0xA0 ? 2 : 0;
}

/// Appends the byte at an offset, or the control character there as an escape; returns the number
/// of bytes consumed.
std::size_t appendShown(std::string& out, std::string_view utf8, std::size_t at) {
  constexpr std::string_view kHex = "0123456789abcdef";
  const std::size_t length = controlLength(utf8, at);
  if (length == 0) {
    out += utf8[at];
    return 1;
  }
  const unsigned code = static_cast<unsigned char>(utf8[at + length - 1]);
  out += {'\\', 'x', kHex[code >> 4], kHex[code & 15]};
  return length;
}

}  // namespace

bool hasControlCharacter(std::string_view utf8) {
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    if (controlLength(utf8, i) > 0) return true;
  }
  return false;
}

std::string withoutControls(std::string_view utf8) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    if (utf8[i] == '\t') {
      out += utf8[i++];
    } else {
      i += appendShown(out, utf8, i);
    }
  }
  return out;
}

std::string quotable(std::string_view utf8, std::size_t longest) {
  std::string out;
  for (std::size_t i = 0; i < utf8.size();) {
    if (out.size() >= longest && (static_cast<unsigned char>(utf8[i]) & 0xC0) != 0x80) {
      return out + "…";
    }
    i += appendShown(out, utf8, i);
  }
  return out;
}

}  // namespace quillon::base
