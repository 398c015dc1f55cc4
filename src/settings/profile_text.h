#pragma once

#include <string>
#include <string_view>

namespace quillon::settings {

/// The text of a settings file as UTF-8: bytes beyond ASCII are UTF-8 when all of them are
/// well-formed, else Windows-1252.
std::string decodeProfile(std::string_view bytes);

/// The bytes of a settings file: Windows-1252, but UTF-8 for a text that would not be read back.
/// Bytes of the text that are no UTF-8 count as Windows-1252.
std::string encodeProfile(std::string_view text);

/// The first characters of a UTF-8 text.
std::string_view firstCharacters(std::string_view utf8, std::size_t count);

}  // namespace quillon::settings
