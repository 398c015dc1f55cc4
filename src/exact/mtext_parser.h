#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "exact/text_encoder.h"

namespace quillon::exact {

/// A part of a text: from the byte `begin` up to `end`.
struct TextSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// The lines of an MTEXT as they were typed, without codes.
struct ParsedText {
  /// The height of letters from this byte on.
  struct HeightFrom {
    std::size_t begin;
    double height;
  };

  bool isBlank() const;

  std::string text;                 ///< of all lines, without line ends
  std::vector<TextSpan> lines;      ///< at least one; the last one is not blank, unless all are
  std::vector<HeightFrom> heights;  ///< ascending; the first one at 0

  bool hasLines = false;    ///< underlined, overlined or struck through
  bool hasColumns = false;  ///< a break between columns
  bool hasWidths = false;   ///< parts with a width factor of their own
  bool hasOblique = false;  ///< slanting parts
};

/// Blanks at which a line must not break; to be replaced before a line is drawn.
inline constexpr char kHardBlank = '\x01';

/// Replaces the codes of an MTEXT. `height` is that of letters without a code.
ParsedText parseMtext(std::string_view content, double height, TextEncoder& encoder);

}  // namespace quillon::exact
