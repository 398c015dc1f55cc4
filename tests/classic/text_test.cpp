#include "classic/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <string_view>

#include "dxf/run_time_error.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using dxf::Encoding;
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

  /// What stands between the quotes.
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

TEST(WriteText, IsUprightOnlyAbove45AndUpTo315Degrees) {
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
               dxf::RunTimeError);
  EXPECT_THROW(writeText(capture.context, HUGE_VAL, 2.0, 0.0, 1.0, text, Encoding::Utf8, 21),
               dxf::RunTimeError);
}

TEST(WriteText, DoublesApostrophes) { EXPECT_EQ(quoted("it's ''it"), "it''s ''''it"); }

TEST(Braces, LeaveOnlyWhatStandsInTheFirstPair) {
  EXPECT_EQ(quoted("A{B}C"), "B");
  EXPECT_EQ(quoted("{AB}"), "AB");
  EXPECT_EQ(quoted("{A}{B}"), "A");
  EXPECT_EQ(quoted("x{}y"), "");
  EXPECT_EQ(quoted("{A{B}C}"), "A{B");
}

TEST(Braces, LeaveEverythingBehindOneThatIsNotClosed) {
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

TEST(FormatCodes, RunFromABackslashToTheNextSemicolon) {
  EXPECT_EQ(stripFormatCodes("\\fArial;Hello"), "Hello");
  EXPECT_EQ(stripFormatCodes("Hello\\H2.5x; world"), "Hello world");
  EXPECT_EQ(stripFormatCodes("a\\;b"), "ab");
}

TEST(FormatCodes, StayWithoutASemicolon) {
  EXPECT_EQ(stripFormatCodes("\\PHello"), "\\PHello");
  EXPECT_EQ(stripFormatCodes("a;b\\Pc\\Pd"), "a;b\\Pc\\Pd");
  EXPECT_EQ(stripFormatCodes("\\"), "\\");
}

TEST(FormatCodes, ReachFromTheFirstOfSeveralBackslashes) {
  EXPECT_EQ(stripFormatCodes("x\\Pa\\H2;y"), "xy");
}

TEST(FormatCodes, DisappearWhereverTheyOccur) {
  EXPECT_EQ(stripFormatCodes("\\A1;x\\A1;y\\A1;"), "xy");
  EXPECT_EQ(stripFormatCodes("\\A1;x\\A2;y"), "xy");
}

TEST(FormatCodes, AreLookedForFromTheStartAfterEveryDeletion) {
  // Without "\A;" the text reads "\B;c", which is a code of its own.
  EXPECT_EQ(stripFormatCodes("\\A;\\B\\A;;c"), "c");
  EXPECT_EQ(stripFormatCodes("\\A;x\\Py"), "x\\Py");
}

TEST(FormatCodes, LeaveTextsWithoutABackslashAlone) {
  EXPECT_EQ(stripFormatCodes(""), "");
  EXPECT_EQ(stripFormatCodes("a;b"), "a;b");
}

/// The removal of format codes step by step, every deletion over the whole text.
std::string strippedStepByStep(std::string text) {
  std::size_t from = 0;
  for (;;) {
    const std::size_t backslash = text.find('\\', from);
    if (backslash == std::string::npos) return text;
    const std::size_t semicolon = text.find(';', backslash);
    from = backslash + 1;
    if (semicolon == std::string::npos) continue;
    const std::string piece = text.substr(backslash, semicolon - backslash + 1);
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at)) {
      text.erase(at, piece.size());
    }
    from = 0;
  }
}

TEST(FormatCodes, OfTextsOfAnyShapeAreRemovedAsStepByStep) {
  std::mt19937 random(5);
  for (int i = 0; i < 20'000; ++i) {
    std::string text;
    for (std::size_t n = random() % 24; n > 0; --n) text += "\\\\;;AB1"[random() % 7];
    ASSERT_EQ(stripFormatCodes(text), strippedStepByStep(text)) << text;
  }
}

TEST(FormatCodes, AreRemovedFromTheTextThatIsWritten) {
  EXPECT_EQ(quoted("\\fArial;Hello"), "Hello");
  EXPECT_EQ(quoted("\\PHello"), "\\PHello");
}

TEST(FormatCodes, OfAVeryLongTextAreRemovedInReasonableTime) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += "\\A1;x";
  EXPECT_EQ(stripFormatCodes(text), std::string(100'000, 'x'));
}

}  // namespace
}  // namespace quillon::classic
