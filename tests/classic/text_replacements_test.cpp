// The characters that replace control codes and misread bytes in a text.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "classic/text.h"
#include "support/script_capture.h"

namespace quillon::classic {
namespace {

using base::Encoding;
using testing::ScriptCapture;

/// The cleaned text.
std::string cleaned(std::string text, Encoding encoding) {
  ScriptCapture capture;
  writeText(capture.context, 0.0, 0.0, 0.0, 1.0, text, encoding, 1);
  const std::string script = capture.take();
  EXPECT_NE(script.find("'" + text + " ' ("), std::string::npos) << script;
  return text;
}

std::string utf8(std::string text) { return cleaned(std::move(text), Encoding::Utf8); }
std::string windows(std::string text) { return cleaned(std::move(text), Encoding::Windows1252); }

/// What is replaced by what, in both encodings.
struct Row {
  std::string_view utf8From;
  std::string_view utf8To;
  std::string_view windowsFrom;
  std::string_view windowsTo;
};

constexpr std::array<Row, 23> kRows = {{
    {"%%p", "\xC2\xB1", "%%p", "\xB1"},
    {"%%d", "\xC2\xB0", "%%d", "\xB0"},
    {"%%c", "\xC3\xB8", "%%c", "\xF8"},
    {"%%P", "\xC2\xB1", "%%P", "\xB1"},
    {"%%D", "\xC2\xB0", "%%D", "\xB0"},
    {"%%C", "\xC3\xB8", "%%C", "\xF8"},
    {"%%%", "%", "%%%", "%"},
    {"%%u", "", "%%u", ""},
    {"%%o", "", "%%o", ""},
    {"%%132", "\xC3\xA4", "%%132", "\xE4"},
    {"%%148", "\xC3\xB6", "%%148", "\xF6"},
    {"%%129", "\xC3\xBC", "%%129", "\xFC"},
    {"%%225", "\xC3\x9F", "%%225", "\xDF"},
    {"%%142", "\xC3\x84", "%%142", "\xC4"},
    {"%%153", "\xC3\x96", "%%153", "\xD6"},
    {"%%154", "\xC3\x9C", "%%154", "\xDC"},
    {"\xE2\x80\x9E", "\xC3\xA4", "\x84", "\xE4"},
    {"\xE2\x80\x9D", "\xC3\xB6", "\x94", "\xF6"},
    {"\xC2\x81", "\xC3\xBC", "\x81", "\xFC"},
    {"\xC3\xA1", "\xC3\x9F", "\xE1", "\xDF"},
    {"\xC5\xBD", "\xC3\x84", "\x8E", "\xC4"},
    {"\xE2\x84\xA2", "\xC3\x96", "\x99", "\xD6"},
    {"\xC5\xA1", "\xC3\x9C", "\x9A", "\xDC"},
}};

/// A piece with text on both sides.
std::string around(std::string_view piece) {
  std::string text = "x";
  text.append(piece).append("y").append(piece).append("z");
  return text;
}

TEST(TextReplacements, ReplaceEveryRowWhereverItOccurs) {
  for (const Row& row : kRows) {
    EXPECT_EQ(utf8(std::string(row.utf8From)), row.utf8To);
    EXPECT_EQ(utf8(around(row.utf8From)), around(row.utf8To)) << row.utf8From;
    EXPECT_EQ(windows(std::string(row.windowsFrom)), row.windowsTo);
    EXPECT_EQ(windows(around(row.windowsFrom)), around(row.windowsTo)) << row.utf8From;
  }
}

TEST(TextReplacements, AreCaseSensitive) {
  EXPECT_EQ(utf8("%%U%%O"), "%%U%%O");
  EXPECT_EQ(utf8("%%x%%k"), "%%x%%k");
}

TEST(TextReplacements, LeaveOtherNumbersAlone) {
  EXPECT_EQ(utf8("%%131 %%13 %%065"), "%%131 %%13 %%065");
}

TEST(TextReplacements, TakeTheDegreeSignBeforeThePercentSign) {
  EXPECT_EQ(utf8("%%%%d"), "%%°");
  EXPECT_EQ(utf8("%%%d"), "%°");
  EXPECT_EQ(utf8("%%%%p"), "%%±");
}

TEST(TextReplacements, TakeThePercentSignBeforeTheCodesThatFollowIt) {
  EXPECT_EQ(utf8("%%%132"), "%132");
  EXPECT_EQ(utf8("%%%u"), "%u");
  EXPECT_EQ(utf8("%%%%%%"), "%%");
  EXPECT_EQ(utf8("%%%%"), "%%");
}

TEST(TextReplacements, FindTheCodesThatEarlierOnesLeave) {
  // Three percent signs become one, which joins the rest.
  EXPECT_EQ(utf8("%%%%132"), "ä");
  EXPECT_EQ(utf8("%%%%%132"), "%ä");
  EXPECT_EQ(utf8("%%%%u"), "");
  EXPECT_EQ(utf8("%%%%u132"), "132");
}

TEST(TextReplacements, TurnGenuineCharactersIntoGermanLettersToo) {
  EXPECT_EQ(utf8("Casá „x” Žš™"), "Casß äxö ÄÜÖ");
}

TEST(TextReplacements, LeaveOtherCharactersAsTheyAre) {
  EXPECT_EQ(utf8("äöüßÄÖÜ é 中 €"), "äöüßÄÖÜ é 中 €");
  EXPECT_EQ(windows("\xE4\xF6\xFC\xDF\xC4\xD6\xDC \xE9 \x80 \x8D"),
            "\xE4\xF6\xFC\xDF\xC4\xD6\xDC \xE9 \x80 \x8D");
}

TEST(TextReplacements, DoNotTouchThePartsOfAnotherCharacter) {
  // Bytes 0x81, 0x84, 0x8E, 0x94, 0x99, 0x9A and 0xE1 as parts of multi-byte characters.
  const std::string text = "\xC4\x81\xC4\x84\xC4\x8E\xC4\x94\xC4\x99\xC4\x9A\xE1\x80\x81";
  EXPECT_EQ(utf8(text), text);
}

TEST(TextReplacements, FollowTheRemovalOfFormatCodes) { EXPECT_EQ(utf8("%\\A1;%d"), "°"); }

}  // namespace
}  // namespace quillon::classic
