#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::base {

/// The encoding of a drawing's text and of the script made from it.
enum class Encoding : std::uint8_t { Windows1252, Utf8 };

/// True when the bytes are well-formed UTF-8, which includes plain ASCII.
bool isValidUtf8(std::string_view bytes);

/// The text with a-z and the accented Latin letters of Windows-1252 in upper case. Other characters
/// and the length in bytes do not change.
std::string upperCase(std::string_view text, Encoding encoding);

/// A UTF-8 text with A-Z and the accented Latin letters of Windows-1252 in lower case.
std::string lowerCase(std::string_view utf8);

/// Of equalsUpperCased(), for texts of one size. Most differ in size, which needs no call.
bool equalsOfOneSize(std::string_view text, std::string_view upper);

/// True when upperCase(text) equals `upper`, which must be ASCII without lower-case letters.
inline bool equalsUpperCased(std::string_view text, std::string_view upper) {
  return text.size() == upper.size() && equalsOfOneSize(text, upper);
}

/// Windows-1252 bytes as UTF-8; the five undefined bytes become the C1 controls with the same code.
std::string windows1252ToUtf8(std::string_view bytes);

/// A text of the given encoding as valid UTF-8; malformed bytes are read as Windows-1252.
std::string toUtf8(std::string_view bytes, Encoding encoding);

/// A UTF-8 text in the given encoding; characters missing from it become "?".
std::string fromUtf8(std::string_view utf8, Encoding encoding);

}  // namespace quillon::base
