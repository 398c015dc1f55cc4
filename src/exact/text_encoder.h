#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "dxf/drawing.h"

namespace quillon::exact {

/// Puts texts together in the encoding of a drawing. Characters that it lacks become "?", control
/// characters blanks.
class TextEncoder {
 public:
  TextEncoder(const dxf::Drawing& drawing, bool plainLetters);

  /// Bytes of the first character of a text of the drawing; 0 for "".
  std::size_t firstLength(std::string_view text) const;
  std::size_t charactersIn(std::string_view text) const;

  /// Appends a character of the drawing as it is.
  void copy(std::string_view character, std::string& out);
  /// Appends a character by its code point.
  void append(char32_t character, std::string& out);
  /// Appends the character that has this code in the drawing's code page.
  void appendCode(unsigned code, std::string& out);
  /// Appends a character of one of the code pages with two bytes a character.
  void appendTwoBytes(unsigned page, unsigned code, std::string& out);

  /// There was a character that the encoding lacks.
  bool hasReplaced() const { return hasReplaced_; }

 private:
  bool isLead(char byte) const;
  void appendUnknown(std::string& out);

  base::Encoding encoding_;
  unsigned page_;  ///< of Windows
  bool plainLetters_;
  bool hasReplaced_ = false;
};

/// The number of a code page by its name in a drawing ("ANSI_1252"); 1252 for any other name.
unsigned codePageOf(std::string_view name);

}  // namespace quillon::exact
