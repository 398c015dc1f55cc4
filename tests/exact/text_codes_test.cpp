#include "text_losses.h"

namespace quillon::testing {
namespace {

/// The drawing of a TEXT, in UTF-8 or in Windows-1252.
ExactDrawing codedText(std::string_view text, std::string_view version,
                       std::string_view codePage = "ANSI_1252", bool plain = false) {
  exact::Options options;
  options.plainLetters = plain;
  DxfBuilder dxf = oneEntity("TEXT", {{1, text}, {40, "1"}});
  dxf.header("$ACADVER", 1, version).header("$DWGCODEPAGE", 3, codePage);
  return ExactDrawing(dxf, options);
}

/// What is between the apostrophes.
std::string contentIn(const std::string& shapes) {
  const std::size_t begin = shapes.find('\'');
  const std::size_t end = shapes.rfind('\'');
  return begin == end ? "" : shapes.substr(begin + 1, end - begin - 1);
}

std::string utf8Text(std::string_view text, std::string_view codePage = "ANSI_1252") {
  return contentIn(codedText(text, "AC1021", codePage).shapes());
}

std::string oldText(std::string_view text, std::string_view codePage = "ANSI_1252") {
  return contentIn(codedText(text, "AC1015", codePage).shapes());
}

std::string plainLettersOf(std::string_view text) {
  return contentIn(codedText(text, "AC1021", "ANSI_1252", true).shapes());
}

TEST(ExactTextCodes, SignsAreWrittenInTheEncodingOfTheDrawing) {
  EXPECT_EQ(utf8Text("%%c5 %%D %%p1"), "Ø5 ° ±1");
  EXPECT_EQ(oldText("%%C5 %%d %%P1"),
            "\xD8"
            "5 \xB0 \xB1"
            "1");
}

TEST(ExactTextCodes, ThreePercentSignsAreOne) {
  EXPECT_EQ(utf8Text("5%%%"), "5%");
  EXPECT_EQ(utf8Text("5%%%%%%d"), "5%%d");
}

TEST(ExactTextCodes, OtherPercentSignsStay) {
  EXPECT_EQ(utf8Text("5%% 9%%x %%12"), "5%% 9%%x %%12");
}

TEST(ExactTextCodes, ThreeDigitsAreACharacterOfTheCodePage) {
  EXPECT_EQ(utf8Text("%%065%%128"), "A€");
  EXPECT_EQ(utf8Text("%%192", "ANSI_1251"), "А");  // the Cyrillic letter
  EXPECT_EQ(utf8Text("%%193", "ANSI_1253"), "Α");  // the Greek letter
  EXPECT_EQ(oldText("%%192", "ANSI_1251"), "\xC0");
  EXPECT_EQ(utf8Text("a%%999b%%129c"), "a?b?c");
}

TEST(ExactTextCodes, AControlCharacterIsNoSecondByte) {
  EXPECT_EQ(oldText("\x81\x07;\x82\x60", "ANSI_932"), "\x81 ;\x82\x60");
}

TEST(ExactTextCodes, LinesAreDroppedAndNamed) {
  const ExactDrawing drawing = codedText("%%Uab%%u %%oc%%kd", "AC1021");
  EXPECT_EQ(contentIn(drawing.shapes()), "ab cd");
  EXPECT_EQ(textLosses(drawing), "text-lines");
}

TEST(ExactTextCodes, CharactersByTheirNumber) {
  EXPECT_EQ(utf8Text("\\U+00D85 \\u+2264 x"), "Ø5 ≤ x");
  EXPECT_EQ(utf8Text("\\U+D83D\\U+DE00"), "😀");
  EXPECT_EQ(utf8Text("\\U+D83D!"), "?!");
  EXPECT_EQ(utf8Text("\\U+12 \\Ux"), "\\U+12 \\Ux");
}

TEST(ExactTextCodes, WhatTheEncodingLacksIsAQuestionMarkAndNamed) {
  const ExactDrawing drawing = codedText("a\\U+2264\\U+0416", "AC1015");
  EXPECT_EQ(contentIn(drawing.shapes()), "a??");
  EXPECT_EQ(textLosses(drawing), "character-replaced");
  EXPECT_EQ(textLosses(codedText("a?", "AC1015")), "");
}

TEST(ExactTextCodes, ADiameterSignIsALetterThatTheEncodingHas) {
  EXPECT_EQ(oldText("\\U+22055 \\U+23006"),
            "\xD8"
            "5 \xD8"
            "6");
  EXPECT_EQ(utf8Text("\\U+22055"), "∅5");
}

TEST(ExactTextCodes, DoubleByteCharactersStayInADrawingOfTheirCodePage) {
  EXPECT_EQ(oldText("\\M+1955C", "ANSI_932"), "\x95\x5C");
  EXPECT_EQ(oldText("\\M+1955C", "ANSI_1252"), "?");
  EXPECT_EQ(oldText("\\M+5B0A1", "ANSI_936"), "\xB0\xA1");
  EXPECT_EQ(oldText("\\M+10041", "ANSI_1252"), "A");
  EXPECT_EQ(oldText("\\M+6955C", "ANSI_932"), "\\M+6955C");
  EXPECT_EQ(textLosses(codedText("\\M+1955C", "AC1021")), "character-replaced");
}

// The second byte of the character is a caret, which would take the A with it.
TEST(ExactTextCodes, TheSecondByteOfACharacterIsNoCode) {
  EXPECT_EQ(oldText("\x8A\x5E"
                    "A",
                    "ANSI_932"),
            "\x8A\x5E"
            "A");
  EXPECT_EQ(oldText("\x8A\x5E"
                    "A",
                    "ANSI_1252"),
            "\x8A");
}

TEST(ExactTextCodes, CaretsStandForControlCharactersWhichAreBlanks) {
  EXPECT_EQ(utf8Text("a^ b^Ic^2"), "a^b c^2");
  EXPECT_EQ(utf8Text("a\tb"), "a b");
  EXPECT_EQ(utf8Text("^Jab\\U+000A"), "ab");
}

TEST(ExactTextCodes, OtherBytesPassUnchanged) {
  EXPECT_EQ(oldText("gr\xFC\xDF"), "gr\xFC\xDF");
  EXPECT_EQ(utf8Text("grüß 東京"), "grüß 東京");
  EXPECT_EQ(utf8Text("a\\b'c!"), "a\\b'c!");
}

TEST(ExactTextCodes, PlainLettersHaveNoAccentsAndNoSigns) {
  EXPECT_EQ(plainLettersOf("%%c5 %%p1%%d"), "D5 +/-1deg");
  EXPECT_EQ(plainLettersOf("Größe Ångström Łódź Œuvre Straße"),
            "Grosse Angstrom Lodz OEuvre Strasse");
  EXPECT_EQ(plainLettersOf("e\xCC\x81 \\U+2205"
                           "5 10µm 東"),
            "e D5 10um 東");
  EXPECT_EQ(contentIn(codedText("gr\xFC\xDF"
                                "e",
                                "AC1015", "ANSI_1252", true)
                          .shapes()),
            "grusse");
  // Letters of other code pages are not known.
  EXPECT_EQ(contentIn(codedText("\xE6", "AC1015", "ANSI_1251", true).shapes()), "\xE6");
}

}  // namespace
}  // namespace quillon::testing
