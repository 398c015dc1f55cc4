#pragma once

#include <string>
#include <string_view>

namespace quillon::settings {

/// A settings file's text as UTF-8: non-ASCII bytes are UTF-8 if all of them are well-formed,
/// otherwise Windows-1252.
std::string decodeProfile(std::string_view bytes);

/// The bytes of a settings file: Windows-1252, or UTF-8 for a text that would not be read back.
/// Bytes of the text that are not UTF-8 count as Windows-1252.
std::string encodeProfile(std::string_view text);

/// The first `count` characters of a UTF-8 text.
std::string_view firstCharacters(std::string_view utf8, std::size_t count);

}  // namespace quillon::settings
