#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "exact/text_encoder.h"

namespace quillon::exact {

/// A text whose codes have been replaced by what they stand for.
struct PlainText {
  std::string content;    ///< without blanks around it
  bool hasLines = false;  ///< parts are underlined, overlined or struck through
};

/// The characters of a TEXT, ATTRIB or ATTDEF.
PlainText plainText(std::string_view text, TextEncoder& encoder);

/// How many characters at the start of a text, a byte each, stand for themselves in TEXT and MTEXT
/// and in all encodings.
std::size_t plainLength(std::string_view text);

// Codes at the start of a text. They append the character and return the length of the code; 0, and
// nothing is appended, where there is none.

/// \U+XXXX and \M+nXXXX.
std::size_t takeUnicode(std::string_view text, TextEncoder& encoder, std::string& out);
/// %%c, %%d, %%p and %%nnn.
std::size_t takePercent(std::string_view text, TextEncoder& encoder, std::string& out);

/// True for a text that EAGLE would replace by something else, such as >NAME.
bool isVariable(std::string_view text);

}  // namespace quillon::exact
