#include "classic/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <string_view>

#include "base/run_time_error.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using base::Encoding;
using testing::kRangeNote;
using testing::ScriptCapture;

/// A text of height 2.5 at (1, 2) on layer 21.
struct WrittenText {
  explicit WrittenText(std::string content, double rotation = 0.0,
                       Encoding encoding = Encoding::Utf8)
      : text(std::move(content)) {
    writeText(capture.context, 1.0, 2.0, rotation, 2.5, text, encoding, 21);
    script = capture.take();
    count = capture.script.commandCount();
  }

  /// The text between the quotes.
  std::string quoted() const {
    const std::size_t open = script.find(" '");
    const std::size_t close = script.rfind(" ' (");
    return script.substr(open + 2, close - open - 2);
  }

  ScriptCapture capture;
  std::string text;
  std::string script;
  std::uint64_t count = 0;
};

std::string quoted(std::string content) { return WrittenText(std::move(content)).quoted(); }

std::string orientation(double rotation) {
  const std::string script = WrittenText("x", rotation).script;
  const std::size_t from = script.find("Text ") + 5;
  return script.substr(from, script.find(' ', from) - from);
}

TEST(WriteText, WritesLayerSizeAndTextWithABlankBeforeTheClosingQuote) {
  const WrittenText written("ABC");
  EXPECT_EQ(written.script,
            "Layer  21 ;\n"
            "Change Size 1.5000000;\n"
            "Text R0 'ABC ' (1.0000000 2.0000000);\n");
  EXPECT_EQ(written.count, 3U);
}

TEST(WriteText, WritesAnEmptyTextAsAnEmptyQuotedString) {
  EXPECT_EQ(WrittenText("").script,
            "Layer  21 ;\nChange Size 1.5000000;\nText R0 ' ' (1.0000000 2.0000000);\n");
}

TEST(WriteText, AddsTheOffsets) {
  ScriptCapture capture({.form = eagle::PointForm::FromMark, .offsetX = 10.0, .offsetY = 20.0});
  std::string text = "ABC";
  writeText(capture.context, 1.0, 2.0, 0.0, 10.0, text, Encoding::Utf8, 21);
  EXPECT_EQ(capture.take(),
            "Layer  21 ;\nChange Size 6.0000000;\nText R0 'ABC ' (R11.0000000 22.0000000);\n");
}

TEST(WriteText, IsVerticalOnlyAbove45AndUpTo315Degrees) {
  EXPECT_EQ(orientation(0.0), "R0");
  EXPECT_EQ(orientation(45.0), "R0");
  EXPECT_EQ(orientation(45.0001), "R90");
  EXPECT_EQ(orientation(90.0), "R90");
  EXPECT_EQ(orientation(180.0), "R90");
  EXPECT_EQ(orientation(270.0), "R90");
  EXPECT_EQ(orientation(315.0), "R90");
  EXPECT_EQ(orientation(315.0001), "R0");
  EXPECT_EQ(orientation(360.0), "R0");
  EXPECT_EQ(orientation(450.0), "R0");
}

TEST(WriteText, LiesFlatForEveryNegativeRotation) {
  for (const double rotation : {-0.1, -45.0, -90.0, -180.0, -270.0, -300.0, -1000.0}) {
    EXPECT_EQ(orientation(rotation), "R0") << rotation;
  }
}

TEST(WriteText, LeavesTheCleanedTextToTheCaller) {
  EXPECT_EQ(WrittenText("\\H2;x{%%d}y").text, "°");
  EXPECT_EQ(WrittenText("plain").text, "plain");
}

TEST(WriteText, WritesNothingOnALayerThatIsNotConverted) {
  ScriptCapture capture;
  std::string text = "\\H2;x{%%d}y";
  writeText(capture.context, 1.0, 2.0, 0.0, 2.5, text, Encoding::Utf8, 999);
  EXPECT_EQ(capture.take(), "");
  EXPECT_EQ(capture.script.commandCount(), 0U);
  EXPECT_EQ(text, "\\H2;x{%%d}y");
}

TEST(WriteText, IsFollowedByTheRangeNote) {
  ScriptCapture capture;
  std::string text = "x";
  writeText(capture.context, 900.0, 2.0, 0.0, 2.5, text, Encoding::Utf8, 21);
  EXPECT_TRUE(capture.take().ends_with("Text R0 'x ' (900.0000000 2.0000000);\n" +
                                       std::string(kRangeNote)));
  EXPECT_EQ(capture.script.commandCount(), 4U);
}

TEST(WriteText, RefusesNumbersThatAreNotFinite) {
  ScriptCapture capture;
  std::string text = "x";
  EXPECT_THROW(writeText(capture.context, 1.0, 2.0, 0.0, HUGE_VAL, text, Encoding::Utf8, 21),
               base::RunTimeError);
  EXPECT_THROW(writeText(capture.context, HUGE_VAL, 2.0, 0.0, 1.0, text, Encoding::Utf8, 21),
               base::RunTimeError);
}

TEST(WriteText, DoublesApostrophes) { EXPECT_EQ(quoted("it's ''it"), "it''s ''''it"); }

TEST(Braces, LeaveOnlyTheContentOfTheFirstPair) {
  EXPECT_EQ(quoted("A{B}C"), "B");
  EXPECT_EQ(quoted("{AB}"), "AB");
  EXPECT_EQ(quoted("{A}{B}"), "A");
  EXPECT_EQ(quoted("x{}y"), "");
  EXPECT_EQ(quoted("{A{B}C}"), "A{B");
}

TEST(Braces, LeaveEverythingAfterAnUnclosedOne) {
  EXPECT_EQ(quoted("A{BC"), "BC");
  EXPECT_EQ(quoted("A{B{C"), "B{C");
  EXPECT_EQ(quoted("ABC{"), "");
}

TEST(Braces, TakeTheFirstClosingOneAnywhereInTheText) {
  EXPECT_EQ(quoted("}A{B"), "B");
  EXPECT_EQ(quoted("}A{B}C"), "BC");
  EXPECT_EQ(quoted("a}b{c}d}e"), "cde");
}

TEST(Braces, DisappearWithoutAnOpeningOne) {
  EXPECT_EQ(quoted("AB}C"), "ABC");
  EXPECT_EQ(quoted("}A}B}"), "AB");
}

TEST(Braces, AreLookedAtAfterFormatCodesAndReplacements) {
  EXPECT_EQ(quoted("{\\fArial|b0;Hello}"), "Hello");
  EXPECT_EQ(quoted("\\A{1;x}y"), "xy");
  EXPECT_EQ(quoted("x{%%p5}"), "±5");
}

TEST(FormatCodes, AreRemovedFromTheTextThatIsWritten) {
  EXPECT_EQ(quoted("\\fArial;Hello"), "Hello");
  EXPECT_EQ(quoted("\\PHello"), "\\PHello");
}

TEST(ControlCharacters, OfATextAreWrittenAsBlanks) {
  using namespace std::string_literals;
  EXPECT_EQ(quoted("a\0b\x1A"
                   "c\v\f\x1B[1md\x7F"
                   "e\x01\x1F"s),
            "a b c   [1md e  ");
  EXPECT_EQ(quoted("a\tb"), "a\tb");
  EXPECT_EQ(quoted("\xC2\x85"), "\xC2\x85");
  for (int c = 0; c < 0x20; ++c) {
    const std::string text{'a', static_cast<char>(c), 'b'};
    EXPECT_EQ(quoted(text), c == '\t' ? "a\tb" : "a b") << c;
    EXPECT_EQ(WrittenText(text, 0.0, Encoding::Windows1252).quoted(), c == '\t' ? "a\tb" : "a b");
  }
}

}  // namespace
}  // namespace quillon::classic
