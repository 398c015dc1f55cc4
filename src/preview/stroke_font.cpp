#include "preview/stroke_font.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/characters.h"

namespace quillon::preview {
namespace {

using geometry::Point;

// A letter is drawn in a grid of 4 units of width; its points are pairs of digits, x and y. The
// baseline is at y = 2, small letters reach to 6, capitals to 8, descenders down to 0. "|" lifts
// the pen.
constexpr double kUnit = 1.0 / 6.0;
constexpr double kBaseline = 2.0;
constexpr double kLetterWidth = 4.0;

/// From "!" to "~".
constexpr std::array<std::string_view, 94> kAscii = {
    "28 24|22",                                         // !
    "18 16|38 36",                                      // "
    "13 17|33 37|04 44|06 46",                          // #
    "46 37 17 06 15 35 44 33 13 04|28 22",              // $
    "02 48|08 18 17 07 08|33 43 42 32 33",              // %
    "42 06 07 18 28 37 36 04 03 12 22 44",              // &
    "28 26",                                            // '
    "38 26 24 32",                                      // (
    "18 26 24 12",                                      // )
    "27 23|06 44|46 04",                                // *
    "27 23|05 45",                                      // +
    "23 22 11",                                         // ,
    "15 35",                                            // -
    "22",                                               // .
    "02 48",                                            // /
    "12 03 07 18 38 47 43 32 12|13 37",                 // 0
    "17 28 22|12 32",                                   // 1
    "07 18 38 47 46 02 42",                             // 2
    "08 48 25 35 44 43 32 12 03",                       // 3
    "32 38 04 44",                                      // 4
    "48 08 05 35 44 43 32 12 03",                       // 5
    "38 18 07 03 12 32 43 44 35 05",                    // 6
    "08 48 47 12",                                      // 7
    "15 06 07 18 38 47 46 35 15 04 03 12 32 43 44 35",  // 8
    "12 32 43 47 38 18 07 06 15 45",                    // 9
    "26|23",                                            // :
    "26|23 22 11",                                      // ;
    "47 05 43",                                         // <
    "06 46|04 44",                                      // =
    "07 45 03",                                         // >
    "07 18 38 47 46 25 24|22",                          // ?
    "34 36 16 05 04 13 33 44 47 38 18 07 03 12 42",     // @
    "02 06 28 46 42|04 44",                             // A
    "02 08 38 47 46 35 05|35 44 43 32 02",              // B
    "47 38 18 07 03 12 32 43",                          // C
    "02 08 38 47 43 32 02",                             // D
    "42 02 08 48|05 35",                                // E
    "02 08 48|05 35",                                   // F
    "47 38 18 07 03 12 32 43 45 25",                    // G
    "02 08|42 48|05 45",                                // H
    "12 32|22 28|18 38",                                // I
    "03 12 32 43 48",                                   // J
    "02 08|48 04|15 42",                                // K
    "08 02 42",                                         // L
    "02 08 25 48 42",                                   // M
    "02 08 42 48",                                      // N
    "12 03 07 18 38 47 43 32 12",                       // O
    "02 08 38 47 46 35 05",                             // P
    "12 03 07 18 38 47 43 32 12|24 42",                 // Q
    "02 08 38 47 46 35 05|25 42",                       // R
    "47 38 18 07 06 15 35 44 43 32 12 03",              // S
    "08 48|28 22",                                      // T
    "08 03 12 32 43 48",                                // U
    "08 22 48",                                         // V
    "08 12 26 32 48",                                   // W
    "02 48|08 42",                                      // X
    "08 25 48|25 22",                                   // Y
    "08 48 02 42",                                      // Z
    "38 18 12 32",                                      // [
    "08 42",                                            // backslash
    "18 38 32 12",                                      // ]
    "06 28 46",                                         // ^
    "01 41",                                            // _
    "18 27",                                            // `
    "16 36 45 42|44 14 03 12 32 43",                    // a
    "08 02 32 43 45 36 06",                             // b
    "45 36 16 05 03 12 32 43",                          // c
    "48 42 12 03 05 16 46",                             // d
    "04 44 45 36 16 05 03 12 42",                       // e
    "48 38 27 22|16 36",                                // f
    "46 41 30 10|46 16 05 03 12 42",                    // g
    "08 02|05 16 36 45 42",                             // h
    "16 26 22|12 32|28",                                // i
    "26 36 31 20 10|38",                                // j
    "08 02|46 04|25 42",                                // k
    "18 28 22|12 32",                                   // l
    "06 02|05 16 25 22|25 36 45 42",                    // m
    "06 02|05 16 36 45 42",                             // n
    "12 03 05 16 36 45 43 32 12",                       // o
    "00 06 36 45 43 32 02",                             // p
    "40 46 16 05 03 12 42",                             // q
    "06 02|04 26 46",                                   // r
    "46 16 05 14 34 43 32 02",                          // s
    "18 13 22 32 43|06 36",                             // t
    "06 03 12 32 43|46 42",                             // u
    "06 22 46",                                         // v
    "06 12 25 32 46",                                   // w
    "02 46|06 42",                                      // x
    "06 22|46 10",                                      // y
    "06 46 02 42",                                      // z
    "38 28 27 26 15 24 23 22 32",                       // {
    "28 20",                                            // |
    "18 28 27 26 35 24 23 22 12",                       // }
    "04 15 34 45",                                      // ~
};

/// What stands above or below a letter, at the height of small ones.
enum class Mark : std::uint8_t { None, Grave, Acute, Circumflex, Tilde, Dots, Ring, Cedilla };
constexpr std::array<std::string_view, 8> kMarks = {
    "", "18 27", "38 27", "17 28 37", "07 18 27 38", "17|37", "27 18 28 37 27", "22 21 10"};

constexpr std::string_view kBox = "02 08 48 42 02";
constexpr std::string_view kDotlessI = "16 26 22|12 32";

struct Glyph {
  std::string_view strokes;
  Mark mark = Mark::None;
  bool capital = false;  ///< the mark stands higher
};

struct Other {
  char32_t character;
  std::string_view strokes;
};

/// Characters of their own, in ascending order.
constexpr Other kOthers[] = {
    {0xA1, "26|24 20"},
    {0xA2, "45 36 16 05 03 12 32 43|27 21"},
    {0xA3, "47 38 28 17 13 02 42|05 35"},
    {0xA5, "08 25 48|25 22|15 35|14 34"},
    {0xA6, "28 26|24 22"},
    {0xA7, "38 18 17 35 34 23|27 15 14 32 31 11"},
    {0xA9, "12 03 07 18 38 47 43 32 12|36 26 15 14 23 33"},
    {0xAB, "26 04 22|46 24 42"},
    {0xAC, "05 45 43"},
    {0xAE, "12 03 07 18 38 47 43 32 12|13 16 26 25 15|25 33"},
    {0xB0, "28 17 26 37 28"},
    {0xB1, "27 24|05 45|03 43"},
    {0xB2, "18 28 27 15 25"},
    {0xB3, "18 28 17 26 15"},
    {0xB5, "06 00|03 12 32 43|46 42"},
    {0xB7, "25"},
    {0xB9, "17 28 25"},
    {0xBB, "06 24 02|26 44 22"},
    {0xBC, "08 05|02 48|34 33 43|44 42"},
    {0xBD, "08 05|02 48|34 44 32 42"},
    {0xBF, "26|24 23 02 01 10 30 41"},
    {0xC6, "02 06 28 48|25 45|22 42|28 22|04 24"},
    {0xD0, "02 08 38 47 43 32 02|05 25"},
    {0xD7, "03 47|07 43"},
    {0xD8, "12 03 07 18 38 47 43 32 12|02 48"},
    {0xDE, "08 02|07 37 46 45 34 04"},
    {0xDF, "02 07 18 28 37 36 25 35 44 43 32 22"},
    {0xE6, "06 26 22|24 44 45 36 26|24 04 03 12 42"},
    {0xF0, "17 37|28 46 43 32 12 03 04 15 45"},
    {0xF7, "27|05 45|23"},
    {0xF8, "12 03 05 16 36 45 43 32 12|02 46"},
    {0xFE, "08 00|06 36 45 43 32 02"},
    {0x152, "28 18 07 03 12 22|28 22|28 48|25 45|22 42"},
    {0x153, "24 44 45 36 26 16 05 03 12 42|26 22"},
    {0x3A9, "02 12 14 06 07 18 38 47 46 34 32 42"},
    {0x2013, "05 45"},
    {0x2014, "05 45"},
    {0x2018, "38 27 26"},
    {0x2019, "28 27 16"},
    {0x201C, "18 07 06|38 27 26"},
    {0x201D, "18 17 06|38 37 26"},
    {0x201E, "13 12 01|33 32 21"},
    {0x2022, "25"},
    {0x2026, "02|22|42"},
    {0x20AC, "47 38 18 07 03 12 32 43|06 36|04 34"},
    {0x2126, "02 12 14 06 07 18 38 47 46 34 32 42"},
    {0x2205, "12 03 07 18 38 47 43 32 12|02 48"},
    {0x2300, "12 03 07 18 38 47 43 32 12|02 48"},
};

/// The letters under the marks of U+00C0 to U+00DF; those of U+00E0 to U+00FF are the small ones.
constexpr std::string_view kMarkedLetters = "AAAAAA CEEEEIIII NOOOOO  UUUUY  ";
constexpr std::array<Mark, 32> kMarksOfLetters = {
    Mark::Grave, Mark::Acute,   Mark::Circumflex, Mark::Tilde,      Mark::Dots,       Mark::Ring,
    Mark::None,  Mark::Cedilla, Mark::Grave,      Mark::Acute,      Mark::Circumflex, Mark::Dots,
    Mark::Grave, Mark::Acute,   Mark::Circumflex, Mark::Dots,       Mark::None,       Mark::Tilde,
    Mark::Grave, Mark::Acute,   Mark::Circumflex, Mark::Tilde,      Mark::Dots,       Mark::None,
    Mark::None,  Mark::Grave,   Mark::Acute,      Mark::Circumflex, Mark::Dots,       Mark::Acute,
    Mark::None,  Mark::None};

std::string_view ofAscii(char32_t character) {
  return kAscii[static_cast<std::size_t>(character - U'!')];
}

/// A letter with a mark, if it is one of Latin-1.
bool findMarked(char32_t character, Glyph& glyph) {
  constexpr char32_t kFirst = 0xC0;
  constexpr char32_t kFirstSmall = 0xE0;
  constexpr char32_t kLastOfAll = 0xFF;
  if (character < kFirst || character > kLastOfAll) return false;
  const bool capital = character < kFirstSmall;
  const auto index = static_cast<std::size_t>(character - (capital ? kFirst : kFirstSmall));
  const bool isYWithDots = character == kLastOfAll;
  const char letter = isYWithDots ? 'Y' : kMarkedLetters[index];
  if (letter == ' ') return false;
  const auto base = static_cast<char32_t>(capital ? letter : letter - 'A' + 'a');
  glyph = {base == U'i' ? kDotlessI : ofAscii(base),
           isYWithDots ? Mark::Dots : kMarksOfLetters[index], capital};
  return true;
}

Glyph glyphOf(char32_t character) {
  constexpr char32_t kNoBreakSpace = 0xA0;
  if (character <= U' ' || character == kNoBreakSpace) return {};
  if (character <= U'~') return {ofAscii(character)};
  Glyph glyph;
  if (findMarked(character, glyph)) return glyph;
  const auto* const found = std::lower_bound(
      std::begin(kOthers), std::end(kOthers), character,
      [](const Other& other, char32_t wanted) { return other.character < wanted; });
  if (found != std::end(kOthers) && found->character == character) return {found->strokes};
  return {kBox};
}

void addStrokes(Strokes& strokes, std::string_view digits, Point origin) {
  constexpr std::size_t kPointSize = 3;  // with the separator
  for (std::size_t i = 0; i + 1 < digits.size(); i += kPointSize) {
    const double x = digits[i] - '0';
    const double y = digits[i + 1] - '0';
    strokes.points.push_back({origin.x + x * kUnit, origin.y + (y - kBaseline) * kUnit});
    const bool ends = i + 2 >= digits.size() || digits[i + 2] == '|';
    if (ends) strokes.ends.push_back(strokes.points.size());
  }
}

}  // namespace

Strokes strokesOf(std::string_view utf8) {
  constexpr double kLiftOfMark = 2.0 * kUnit;
  Strokes strokes;
  double x = 0.0;
  for (base::Characters characters(utf8); !characters.atEnd(); x += kLetterPitch) {
    const Glyph glyph = glyphOf(characters.next());
    addStrokes(strokes, glyph.strokes, {x, 0.0});
    const bool above = glyph.mark != Mark::Cedilla && glyph.capital;
    addStrokes(strokes, kMarks[static_cast<std::size_t>(glyph.mark)],
               {x, above ? kLiftOfMark : 0.0});
  }
  return strokes;
}

double widthOf(std::string_view utf8) {
  std::size_t count = 0;
  for (base::Characters characters(utf8); !characters.atEnd(); characters.next()) ++count;
  if (count == 0) return 0.0;
  return static_cast<double>(count - 1) * kLetterPitch + kLetterWidth * kUnit;
}

}  // namespace quillon::preview
