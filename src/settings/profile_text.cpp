#include "settings/profile_text.h"

#include "base/encoding.h"
#include "files/ini_line.h"

namespace quillon::settings {

std::string decodeProfile(std::string_view bytes) {
  bytes = files::withoutByteOrderMark(bytes);
  return base::isValidUtf8(bytes) ? std::string(bytes) : base::windows1252ToUtf8(bytes);
}

std::string encodeProfile(std::string_view text) {
  // One byte that is no UTF-8, from a file name for one, would turn the whole file into
  // Windows-1252 for the next reader.
  std::string utf8 = base::toUtf8(text, base::Encoding::Utf8);
  std::string bytes = base::fromUtf8(utf8, base::Encoding::Windows1252);
  // Some texts of Windows-1252 could be taken for UTF-8; those are written in UTF-8 too.
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
