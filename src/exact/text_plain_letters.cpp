#include "exact/text_plain_letters.h"

#include <algorithm>
#include <array>

namespace quillon::exact {
namespace {

struct PlainForm {
  char32_t character;
  std::string_view plain;
};

/// In ascending order.
constexpr std::array<PlainForm, 34> kPlainForms = {
    {{0xA0, " "},   {0xB0, "deg"}, {0xB1, "+/-"},  {0xB2, "2"},    {0xB3, "3"},    {0xB4, "'"},
     {0xB5, "u"},   {0xB9, "1"},   {0xC6, "AE"},   {0xD7, "x"},    {0xD8, "D"},    {0xDE, "Th"},
     {0xDF, "ss"},  {0xE6, "ae"},  {0xF7, ":"},    {0xFE, "th"},   {0x132, "IJ"},  {0x133, "ij"},
     {0x152, "OE"}, {0x153, "oe"}, {0x3BC, "u"},   {0x2013, "-"},  {0x2014, "-"},  {0x2018, "'"},
     {0x2019, "'"}, {0x201A, ","}, {0x201C, "\""}, {0x201D, "\""}, {0x201E, "\""}, {0x2026, "..."},
     {0x2205, "D"}, {0x2212, "-"}, {0x2215, "/"},  {0x2300, "D"}}};

/// The letters from U+00C0 to U+017F without their accents; "*" for those in the table above.
constexpr char32_t kFirstLetter = 0xC0;
constexpr std::string_view kLetters =
    "AAAAAA*CEEEEIIIIDNOOOOO**UUUUY**aaaaaa*ceeeeiiiidnooooo*ouuuuy*y"
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi**JjKkkLlLlLlL"
    "lLlNnNnNnnNnOoOoOo**RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";

/// Accents that follow the letter they belong to.
constexpr bool isAccent(char32_t c) { return c >= 0x300 && c <= 0x36F; }

}  // namespace

std::optional<std::string_view> plainLetters(char32_t character) {
  if (character < 0x80) return std::nullopt;
  if (isAccent(character)) return "";
  const auto* const found = std::lower_bound(
      kPlainForms.begin(), kPlainForms.end(), character,
      [](const PlainForm& form, char32_t wanted) { return form.character < wanted; });
  if (found != kPlainForms.end() && found->character == character) return found->plain;
  if (character < kFirstLetter || character >= kFirstLetter + kLetters.size()) return std::nullopt;
  return kLetters.substr(character - kFirstLetter, 1);
}

char32_t lookalike(char32_t character) {
  switch (character) {
    case 0x2205:  // the empty set, by which many fonts draw the diameter sign
    case 0x2300:  // the diameter sign
      return 0xD8;
    case 0x3BC:  // the Greek letter; micro is a character of its own
      return 0xB5;
    case 0x2212:  // minus
      return '-';
    default:
      return character;
  }
}

}  // namespace quillon::exact
