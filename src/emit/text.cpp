#include "emit/text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillon::emit {
namespace {

/// EAGLE's text size in terms of the drawing's text height.
constexpr double kSizeOfHeight = 0.6;

struct Replacement {
  std::string_view wanted;
  std::string_view by;
};

/// Control codes in their fixed order: signs, underline and overline, then the German letters by
/// their numbers in code page 437; last, as UTF-8, the characters that bytes of that code page were
/// taken for. The last ones apply to every text, genuine characters included: intended.
constexpr std::array<Replacement, 16> kControlCodes = {{{"%%p", "±"},
                                                        {"%%d", "°"},
                                                        {"%%c", "ø"},
                                                        {"%%P", "±"},
                                                        {"%%D", "°"},
                                                        {"%%C", "ø"},
                                                        {"%%%", "%"},
                                                        {"%%u", ""},
                                                        {"%%o", ""},
                                                        {"%%132", "ä"},
                                                        {"%%148", "ö"},
                                                        {"%%129", "ü"},
                                                        {"%%225", "ß"},
                                                        {"%%142", "Ä"},
                                                        {"%%153", "Ö"},
                                                        {"%%154", "Ü"}}};
constexpr std::array<Replacement, 7> kMistakenCharacters = {{{"\u201E", "ä"},
                                                             {"\u201D", "ö"},
                                                             {"\xC2\x81", "ü"},
                                                             {"\u00E1", "ß"},
                                                             {"\u017D", "Ä"},
                                                             {"\u2122", "Ö"},
                                                             {"\u0161", "Ü"}}};

/// Replaces from left to right in one pass, so that a text of any length costs its length.
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
                 dxf::Encoding encoding) {
  for (const auto& [wanted, by] : rows) {
    replaceAll(text, dxf::fromUtf8(wanted, encoding), dxf::fromUtf8(by, encoding));
  }
}

void replaceCharacters(std::string& text, dxf::Encoding encoding) {
  if (text.find("%%") != std::string::npos) replaceRows(text, kControlCodes, encoding);
  const bool ascii = std::all_of(text.begin(), text.end(),
                                 [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (!ascii) replaceRows(text, kMistakenCharacters, encoding);
}

/// Only the part inside the first pair of braces survives: intended.
void keepBracedPart(std::string& text) {
  const std::size_t open = text.find('{');
  if (open != std::string::npos) {
    const std::size_t close = text.find('}');
    const bool paired = close != std::string::npos && close > open;
    text = paired ? text.substr(open + 1, close - open - 1) : text.substr(open + 1);
  }
  std::erase(text, '}');
}

/// Whether a text stands upright. Every rotation above 45 up to 315 degrees is R90, negative ones
/// are R0; R180 and R270 are never chosen: intended.
std::string_view orientationWord(double rotation) {
  return rotation <= 45.0 || rotation > 315.0 ? "R0" : "R90";
}

}  // namespace

std::string stripFormatCodes(std::string text) {
  std::size_t backslash = text.find('\\');
  while (backslash != std::string::npos) {
    const std::size_t semicolon = text.find(';', backslash);
    if (semicolon == std::string::npos) break;  // nor has any later backslash one behind it
    const std::string piece = text.substr(backslash, semicolon - backslash + 1);
    replaceAll(text, piece, "");
    backslash = text.find('\\');
  }
  return text;
}

void writeText(EmitContext& context, double x, double y, double rotation, double height,
               std::string& text, dxf::Encoding encoding, int layer) {
  if (layer == kNotConverted) return;
  text = stripFormatCodes(std::move(text));
  ScriptWriter& script = context.script;
  script.writeLayer(layer);
  script.text("Change Size ").number(height * kSizeOfHeight).text(";").endLine();
  replaceCharacters(text, encoding);
  keepBracedPart(text);
  script.text("Text ").text(orientationWord(rotation)).text(" '").text(text).text(" ' ");
  script.formatPoint(x, y).text(";").endLine();
  script.finishCommand(3);
}

}  // namespace quillon::emit
