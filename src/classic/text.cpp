#include "classic/text.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "classic/format_codes.h"

namespace quillon::classic {
namespace {

/// EAGLE's text size relative to the drawing's text height.
constexpr double kSizeOfHeight = 0.6;

/// A text and its replacement, in both encodings of drawings.
struct Replacement {
  std::string_view wanted;
  std::string_view by;
  std::string_view wanted1252;
  std::string_view by1252;
};

/// Control codes in their fixed order: signs, underline and overline, then the German letters by
/// their code page 437 numbers.
constexpr std::array<Replacement, 16> kControlCodes = {{{"%%p", "±", "%%p", "\xB1"},
                                                        {"%%d", "°", "%%d", "\xB0"},
                                                        {"%%c", "ø", "%%c", "\xF8"},
                                                        {"%%P", "±", "%%P", "\xB1"},
                                                        {"%%D", "°", "%%D", "\xB0"},
                                                        {"%%C", "ø", "%%C", "\xF8"},
                                                        {"%%%", "%", "%%%", "%"},
                                                        {"%%u", "", "%%u", ""},
                                                        {"%%o", "", "%%o", ""},
                                                        {"%%132", "ä", "%%132", "\xE4"},
                                                        {"%%148", "ö", "%%148", "\xF6"},
                                                        {"%%129", "ü", "%%129", "\xFC"},
                                                        {"%%225", "ß", "%%225", "\xDF"},
                                                        {"%%142", "Ä", "%%142", "\xC4"},
                                                        {"%%153", "Ö", "%%153", "\xD6"},
                                                        {"%%154", "Ü", "%%154", "\xDC"}}};

/// Characters that result from misreading code page 437. They are replaced in every text, even
/// where they are genuine; kept so that scripts stay the same.
constexpr std::array<Replacement, 7> kMistakenCharacters = {{{"\u201E", "ä", "\x84", "\xE4"},
                                                             {"\u201D", "ö", "\x94", "\xF6"},
                                                             {"\xC2\x81", "ü", "\x81", "\xFC"},
                                                             {"\u00E1", "ß", "\xE1", "\xDF"},
                                                             {"\u017D", "Ä", "\x8E", "\xC4"},
                                                             {"\u2122", "Ö", "\x99", "\xD6"},
                                                             {"\u0161", "Ü", "\x9A", "\xDC"}}};

/// Replaces from left to right in one pass, so that the cost stays linear.
void replaceAll(std::string& text, std::string_view wanted, std::string_view by) {
  std::size_t found = text.find(wanted);
  if (found == std::string::npos) return;
  std::string out;
  out.reserve(text.size());
  std::size_t from = 0;
  for (; found != std::string::npos; found = text.find(wanted, from)) {
    out.append(text, from, found - from).append(by);
    from = found + wanted.size();
  }
  text = out.append(text, from);
}

template <std::size_t N>
void replaceRows(std::string& text, const std::array<Replacement, N>& rows,
                 base::Encoding encoding) {
  const bool utf8 = encoding == base::Encoding::Utf8;
  for (const Replacement& row : rows) {
    replaceAll(text, utf8 ? row.wanted : row.wanted1252, utf8 ? row.by : row.by1252);
  }
}

void replaceCharacters(std::string& text, base::Encoding encoding) {
  if (text.find("%%") != std::string::npos) replaceRows(text, kControlCodes, encoding);
  const bool ascii = std::all_of(text.begin(), text.end(),
                                 [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (!ascii) replaceRows(text, kMistakenCharacters, encoding);
}

/// Only the part within the first pair of braces survives; kept so that scripts stay the same.
void keepBracedPart(std::string& text) {
  const std::size_t open = text.find('{');
  if (open != std::string::npos) {
    const std::size_t close = text.find('}');
    const bool paired = close != std::string::npos && close > open;
    text = paired ? text.substr(open + 1, close - open - 1) : text.substr(open + 1);
  }
  std::erase(text, '}');
}

/// Replaces characters that would break a script, or that a terminal would obey, by blanks.
void blankControlCharacters(std::string& text) {
  for (char& c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte < 0x20 && c != '\t') || byte == 0x7F) c = ' ';
  }
}

}  // namespace

/// Texts are horizontal or vertical only: rotations above 45 up to 315 degrees count as 90, all
/// others, including negative ones, as 0.
int textDegrees(double rotation) { return rotation <= 45.0 || rotation > 315.0 ? 0 : 90; }

bool hasMistakenCharacter(std::string_view text, base::Encoding encoding) {
  const bool utf8 = encoding == base::Encoding::Utf8;
  return std::any_of(
      kMistakenCharacters.begin(), kMistakenCharacters.end(), [&](const Replacement& row) {
        return text.find(utf8 ? row.wanted : row.wanted1252) != std::string_view::npos;
      });
}

void writeText(Context& context, double x, double y, double rotation, double height,
               std::string& text, base::Encoding encoding, int layer) {
  if (layer == kNotConverted) return;
  if (!stripFormatCodes(text, context.cancelled)) return;
  context.commands.layer(layer);
  context.commands.change(eagle::Property::Size, height * kSizeOfHeight);
  replaceCharacters(text, encoding);
  keepBracedPart(text);
  blankControlCharacters(text);
  text += ' ';  // keeps the closing quote apart from the text
  context.commands.text({{textDegrees(rotation)}, text, {x, y}});
  text.pop_back();
}

}  // namespace quillon::classic
