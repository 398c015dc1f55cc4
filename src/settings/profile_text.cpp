#include "settings/profile_text.h"

#include "base/encoding.h"
#include "files/ini_line.h"

namespace quillon::settings {

std::string decodeProfile(std::string_view bytes) {
  bytes = files::withoutByteOrderMark(bytes);
  return base::isValidUtf8(bytes) ? std::string(bytes) : base::windows1252ToUtf8(bytes);
}

std::string encodeProfile(std::string_view text) {
  // A single byte that is not UTF-8, e.g. from a file name, would make the next reader take the
  // whole file for Windows-1252.
  std::string utf8 = base::toUtf8(text, base::Encoding::Utf8);
  std::string bytes = base::fromUtf8(utf8, base::Encoding::Windows1252);
  // Windows-1252 bytes that happen to be valid UTF-8 would be misread, so write UTF-8 instead.
  return decodeProfile(bytes) == utf8 ? bytes : utf8;
}

std::string_view firstCharacters(std::string_view utf8, std::size_t count) {
  std::size_t end = 0;
  for (; end < utf8.size(); ++end) {
    const bool starts = (static_cast<unsigned char>(utf8[end]) & 0xC0) != 0x80;
    if (starts && count-- == 0) break;
  }
  return utf8.substr(0, end);
}

}  // namespace quillon::settings
