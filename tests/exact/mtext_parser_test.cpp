#include "text_losses.h"

namespace quillon::testing {
namespace {

ExactDrawing paragraphs(std::string_view text) {
  DxfBuilder dxf = oneEntity("MTEXT", {{40, "1"}, {71, "1"}, {1, text}});
  dxf.header("$ACADVER", 1, "AC1021");
  return ExactDrawing(dxf);
}

/// Each line's text and height: "ab 1|c 2".
std::string linesIn(const ExactDrawing& drawing) {
  std::string lines;
  std::string_view rest = drawing.shapes();
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(line.size() + 1);
    const std::size_t begin = line.find('\'') + 1;
    const std::size_t end = line.rfind('\'');
    if (!lines.empty()) lines += "|";
    lines += line.substr(begin, end - begin);
    lines += line.substr(end + 1, line.find(' ', end + 2) - end - 1);
  }
  return lines;
}

std::string mtextLines(std::string_view text) { return linesIn(paragraphs(text)); }

TEST(ExactMtextCodes, LinesEndAtTheirCodes) {
  EXPECT_EQ(mtextLines("a\\Pb\\Xc^Jd"), "a 1|b 1|c 1|d 1");
}

TEST(ExactMtextCodes, ANewColumnIsANewLineAndNamed) {
  const ExactDrawing drawing = paragraphs("a\\Nb");
  EXPECT_EQ(linesIn(drawing), "a 1|b 1");
  EXPECT_EQ(textLosses(drawing), "text-columns");
}

TEST(ExactMtextCodes, EscapedCharactersStandForThemselves) {
  EXPECT_EQ(mtextLines("a\\\\P\\{b\\}\\~c"), "a\\P{b} c 1");
}

TEST(ExactMtextCodes, LinesAroundLettersAreDroppedAndNamed) {
  const ExactDrawing drawing = paragraphs("\\La\\lb\\Oc\\od\\Ke\\kf");
  EXPECT_EQ(linesIn(drawing), "abcdef 1");
  EXPECT_EQ(textLosses(drawing), "text-lines");
}

TEST(ExactMtextCodes, HeightsHoldUntilTheirBraceEnds) {
  EXPECT_EQ(mtextLines("a{\\H3;b\\Pc}\\Pd"), "ab 3|c 3|d 1");
  EXPECT_EQ(mtextLines("{\\H2.5x;a{\\H2x;b}\\Pc}}\\Pd"), "ab 5|c 2.5|d 1");
  EXPECT_EQ(mtextLines("\\H0;a\\H-2;b\\H1e999;c"), "abc 1");
  EXPECT_EQ(textLosses(paragraphs("a{\\H3;b}")), "text-mixed-heights");
  EXPECT_EQ(textLosses(paragraphs("{\\H3;b} \\Pa")), "");
}

TEST(ExactMtextCodes, StacksAreWrittenInALine) {
  EXPECT_EQ(mtextLines("\\S1/2; \\S3#4;"), "1/2 3/4 1");
  EXPECT_EQ(mtextLines("x\\S+0.1^ -0.2;y"), "x+0.1 -0.2y 1");
  EXPECT_EQ(mtextLines("m\\S2^;k\\S^3;"), "m2k3 1");
  EXPECT_EQ(mtextLines("\\Sa\\/b\\;/c^d;"), "a/b;/c^d 1");
  EXPECT_EQ(mtextLines("\\Sab;"), "ab 1");
}

TEST(ExactMtextCodes, OtherValuesAreDropped) {
  EXPECT_EQ(mtextLines("{\\fArial|b0|i0|c0|p34;a\\C1;b\\c255;c\\T1.2;d\\A1;e\\pxqc;f\\Fx;g}"),
            "abcdefg 1");
}

TEST(ExactMtextCodes, WidthsAndSlantsAreNamed) {
  EXPECT_EQ(mtextLines("\\W0.8;\\Q15;ab"), "ab 1");
  EXPECT_EQ(textLosses(paragraphs("\\W0.8;ab")), "text-width");
  EXPECT_EQ(textLosses(paragraphs("\\Q15;ab")), "text-oblique");
  EXPECT_EQ(textLosses(paragraphs("\\W1;\\Q0;ab")), "");
}

TEST(ExactMtextCodes, CharactersByTheirNumbersAndSigns) {
  EXPECT_EQ(mtextLines("%%c5 %%D %%p1 %%065 %%uz \\U+2264\\M+10041"), "Ø5 ° ±1 A %%uz ≤A 1");
  EXPECT_EQ(mtextLines("\\S\\U+00B11/%%c;"), "±1/Ø 1");
}

TEST(ExactMtextCodes, CaretsStandForTabulatorsAndThemselves) {
  EXPECT_EQ(mtextLines("a^Ib^ c^2^Md"), "a    b^c^2 d 1");
}

TEST(ExactMtextCodes, CaretsAndSmallLettersStandForSigns) {
  EXPECT_EQ(mtextLines("a^ab^zc^{d}^"), "a!b:c^d^ 1");
}

TEST(ExactMtextCodes, ABackslashWithoutACodeIsDropped) {
  EXPECT_EQ(mtextLines("a\\gb\\"), "agb 1");
  EXPECT_EQ(mtextLines("C:\\Temp"), "C:Temp 1");
  EXPECT_EQ(mtextLines("\\Housing; \\S1/2"), "Housing; S1/2 1");
}

TEST(ExactMtextCodes, BlankLinesAtTheEndAndBlankTextsAreDropped) {
  EXPECT_EQ(mtextLines("a\\P \\P"), "a 1");
  EXPECT_EQ(textLosses(paragraphs("{ \\P\\~ }")), "empty-text");
  EXPECT_EQ(textLosses(paragraphs("")), "empty-text");
}

// Looking for the semicolon again for each code would take hours.
TEST(ExactMtextCodes, MillionsOfCodesWithoutTheirValuesTakeNoTime) {
  constexpr std::size_t kCodes = 1'000'000;
  std::string without;
  std::string farAway;
  for (std::size_t i = 0; i < kCodes; ++i) {
    without += "\\f{";
    farAway += "\\H";
  }
  EXPECT_EQ(linesIn(paragraphs(without)), std::string(kCodes, 'f') + " 1");
  EXPECT_EQ(linesIn(paragraphs(farAway + ";")), std::string(kCodes, 'H') + "; 1");
}

}  // namespace
}  // namespace quillon::testing
