#include "convert/findings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "classic/loss_notes.h"
#include "exact/kinds.h"
#include "support/conversion.h"
#include "support/dxf_builder.h"

namespace quillon::testing {
namespace {

convert::ConversionJob exactJob() {
  convert::ConversionJob job;
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  job.unit = base::Unit::Mm;
  return job;
}

std::vector<std::string> findingsOf(const DxfBuilder& dxf, int language = texts::kEnglish,
                                    convert::ConversionJob job = exactJob()) {
  const Conversion conversion(dxf.text(), std::move(job));
  return convert::findingLines(conversion.result, texts::Texts(language));
}

bool has(const std::vector<std::string>& lines, std::string_view line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

DxfBuilder openOutline() {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  dxf.entity("LINE", {{8, "0"}, {10, "10.25"}, {20, "0"}, {11, "10"}, {21, "10"}});
  return dxf;
}

TEST(Findings, ThereAreNoneByOtherRules) {
  EXPECT_TRUE(findingsOf(openOutline(), texts::kEnglish, {}).empty());
}

TEST(Findings, SaysWhichUnitWasAssumed) {
  EXPECT_TRUE(has(findingsOf(openOutline()), "The drawing names no unit; mm were assumed."));
  DxfBuilder metres = openOutline();
  metres.header("$INSUNITS", 70, "6");
  const Conversion conversion(metres.text(), exactJob());
  EXPECT_TRUE(has(convert::notDrawnLines(conversion.result, texts::Texts(texts::kEnglish)),
                  "The unit in the drawing (1000 mm) would make it 10250 x 10000 mm; mm were "
                  "assumed: 10.25 x 10 mm"));
  EXPECT_TRUE(has(convert::notDrawnLines(conversion.result, texts::Texts(texts::kGerman)),
                  "Mit der Einheit aus der Zeichnung (1000 mm) wäre sie 10250 x 10000 mm groß; mm "
                  "wurden angenommen: 10.25 x 10 mm"));
}

TEST(Findings, TheUnitFollowsFromTheSizeOfWhatIsDrawn) {
  DxfBuilder dxf;
  dxf.header("$INSUNITS", 70, "1");
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "300"}, {21, "0"}});
  dxf.entity("LINE", {{8, "0"}, {67, "1"}, {10, "0"}, {20, "0"}, {11, "3"}, {21, "0"}});
  EXPECT_TRUE(has(findingsOf(dxf), "Size: 300 x 0 mm (11.811 x 0 inches)"));
  convert::ConversionJob job = exactJob();
  job.exact.space = exact::Space::Paper;
  EXPECT_TRUE(has(findingsOf(dxf, texts::kEnglish, job), "Size: 76.2 x 0 mm (3 x 0 inches)"));
}

TEST(Findings, TheReportSaysWhichUnitWasDoubted) {
  DxfBuilder metres = openOutline();
  metres.header("$INSUNITS", 70, "6");
  convert::ConversionJob job = exactJob();
  job.report = true;
  EXPECT_NE(Conversion(metres.text(), job).result.report.find("would make it 10250 x 10000 mm"),
            std::string::npos);
}

TEST(Findings, NamesOpenEndsWithBothPlacesAndLines) {
  EXPECT_TRUE(has(findingsOf(openOutline()),
                  "Outline open at (10 0), layer 20 (line 7): next end 0.25 mm away at (10.25 0) "
                  "(line 19)"));
}

TEST(Findings, ALineListsSomeOfManyThingsThatAreMissing) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  std::vector<std::string> names;
  for (int i = 100; i < 300; ++i) names.push_back("PART" + std::to_string(i));
  for (const std::string& name : names) {
    dxf.entity("INSERT", {{8, "0"}, {2, name}, {10, "0"}, {20, "0"}});
  }
  const Conversion conversion(dxf.text(), exactJob());
  const std::vector<std::string> lines =
      convert::notDrawnLines(conversion.result, texts::Texts(texts::kEnglish));
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines[0].find("INSERT PART117 1, INSERT PART118 1, … (first"), std::string::npos)
      << lines[0];
  // Beyond some, they are only counted.
  EXPECT_EQ(conversion.result.losses.size(), 101U);
  EXPECT_EQ(convert::lossCount(conversion.result.losses), 200U);
}

TEST(Findings, OffersTheToleranceWithWhichOpenEndsWouldMeet) {
  const std::string offer = "With a tolerance of 0.25 mm for joining, 2 of these ends would meet.";
  EXPECT_TRUE(has(findingsOf(openOutline()), offer));
  EXPECT_TRUE(has(findingsOf(openOutline(), texts::kGerman),
                  "Mit einer Toleranz von 0.25 mm beim Verbinden träfen sich 2 dieser Enden."));
  convert::ConversionJob job = exactJob();
  job.exact.joinTolerance = 0.25;
  EXPECT_FALSE(has(findingsOf(openOutline(), texts::kEnglish, job), offer));
}

TEST(Findings, EndsMoreThanAMillimetreApartAreNotOfferedToBeJoined) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  dxf.entity("LINE", {{8, "0"}, {10, "11.5"}, {20, "0"}, {11, "10"}, {21, "10"}});
  for (const std::string& line : findingsOf(dxf)) {
    EXPECT_EQ(line.find("for joining"), std::string::npos) << line;
  }
}

TEST(Findings, TwentyOpenEndsAreShownAndTheOthersCounted) {
  DxfBuilder dxf;
  std::vector<std::string> numbers;
  for (int i = 0; i < 30; ++i) numbers.push_back(std::to_string(10 * i));
  for (const std::string& x : numbers) {
    dxf.entity("LINE", {{8, "0"}, {10, x}, {20, "0"}, {11, x}, {21, "5"}});
  }
  const std::vector<std::string> lines = findingsOf(dxf);
  EXPECT_TRUE(has(lines, "40 more open ends"));
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& l) { return l.starts_with("Outline open"); }),
            20);
}

TEST(Findings, SaysHowFarEndsWereMoved) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  dxf.entity("LINE", {{8, "0"}, {10, "10.005"}, {20, "0"}, {11, "10"}, {21, "10"}});
  EXPECT_TRUE(has(findingsOf(dxf), "1 ends joined, moved by at most 0.005 mm"));
}

TEST(Findings, ProposesOffsetsForWhatIsOutOfRange) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "5000"}, {20, "0"}, {11, "5010"}, {21, "0"}});
  EXPECT_TRUE(has(findingsOf(dxf),
                  "With the offsets -5005 and 0 everything is within EAGLE's drawing area."));
}

TEST(Findings, TheProposedOffsetsReplaceThoseOfTheJob) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "5000"}, {20, "0"}, {11, "5010"}, {21, "0"}});
  convert::ConversionJob job = exactJob();
  job.offsetX = 7.0;
  EXPECT_TRUE(has(findingsOf(dxf, texts::kEnglish, job),
                  "With the offsets -5005 and 0 everything is within EAGLE's drawing area."));
}

TEST(Findings, TheSizeIsThatOfCurvesAndNotOfTheirEnds) {
  DxfBuilder dxf;
  dxf.entity("CIRCLE", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "10"}});
  dxf.entity("ARC", {{8, "0"}, {10, "50"}, {20, "0"}, {40, "30"}, {50, "0"}, {51, "180"}});
  EXPECT_TRUE(has(findingsOf(dxf), "Size: 90 x 40 mm (3.5433 x 1.5748 inches)"));
}

TEST(Findings, PlacesAreThoseInTheScript) {
  DxfBuilder dxf = openOutline();
  dxf.entity("TEXT", {{8, "0"}, {10, "1"}, {20, "2"}, {40, "1"}, {1, "x"}});
  convert::ConversionJob job = exactJob();
  job.exact.place = exact::Place::LowerLeft;
  job.offsetX = 100.0;
  job.offsetY = 50.0;
  // The drawing begins at (0 0) already; moved by 3 and 4 it is a drawing that does not.
  DxfBuilder moved;
  moved.entity("LINE", {{8, "0"}, {10, "3"}, {20, "4"}, {11, "13"}, {21, "4"}});
  moved.entity("LINE", {{8, "0"}, {10, "13.25"}, {20, "4"}, {11, "13"}, {21, "14"}});
  moved.entity("TEXT", {{8, "0"}, {10, "4"}, {20, "6"}, {40, "1"}, {1, "x"}});
  for (const DxfBuilder* const drawing : {&dxf, &moved}) {
    const Conversion conversion(drawing->text(), job);
    EXPECT_TRUE(has(convert::findingLines(conversion.result, texts::Texts(texts::kEnglish)),
                    "Outline open at (110 50), layer 20 (line 7): next end 0.25 mm away at "
                    "(110.25 50) (line 19)"));
    ASSERT_EQ(conversion.result.losses.size(), 1U);
    EXPECT_EQ(conversion.result.losses[0].at.x, 101.0);
    EXPECT_EQ(conversion.result.losses[0].at.y, 52.0);
  }
}

TEST(Findings, TheReportHasEachLossOnALineAfterItsOwnText) {
  DxfBuilder dxf = openOutline();
  dxf.entity("BODY", {{8, "PART"}, {1, "x"}});
  convert::ConversionJob job = exactJob();
  job.report = true;
  const Conversion conversion(dxf.text(), job);
  EXPECT_NE(conversion.result.report.find("What the exact conversion shows differently:"),
            std::string::npos);
  EXPECT_NE(conversion.result.report.find(
                "\r\nNot drawn, kind not supported: 1 BODY (layer PART, first in line 31)"),
            std::string::npos)
      << conversion.result.report;
}

/// What is said after a conversion by the classic rules.
std::vector<std::string> classicLinesOf(const DxfBuilder& dxf, std::string_view option = {},
                                        int language = texts::kEnglish) {
  const Conversion conversion(dxf.text());
  EXPECT_EQ(conversion.result.report, "");
  return convert::classicLossLines(conversion.result, texts::Texts(language), option);
}

using Lines = std::vector<std::string>;

TEST(ClassicFindings, AreALineForEachRuleAndTheHint) {
  EXPECT_EQ(classicLinesOf(openOutline()), Lines{});
  DxfBuilder dxf = openOutline();
  dxf.entity("ELLIPSE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "5"}, {40, "0.5"}, {42, "3"}});
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}});
  EXPECT_EQ(classicLinesOf(dxf, "--exact"),
            (Lines{"Not drawn, dimension without block: DIMENSION 1 (first in line 45)",
                   "Ellipse as circle: ELLIPSE 1 (first in line 31)",
                   "Elliptical arc closed: ELLIPSE 1 (first in line 31)",
                   "The exact rules would keep these: --exact."}));
  EXPECT_EQ(classicLinesOf(dxf, {}, texts::kGerman).back(),
            "Die exakten Regeln würden dies erhalten.");
}

TEST(ClassicFindings, KindsThatWereNamedAreNotNamedAgain) {
  DxfBuilder dxf = openOutline();
  dxf.entity("HATCH", {{8, "0"}, {2, "SOLID"}});
  EXPECT_EQ(classicLinesOf(dxf), (Lines{"The exact rules would keep these."}));
  // Among others that no rules draw, they are: it has to be said which would be kept.
  dxf.entity("BODY", {{8, "0"}});
  EXPECT_EQ(classicLinesOf(dxf), (Lines{"Not drawn, kind not supported: HATCH 1 (first in line 31)",
                                        "The exact rules would keep these."}));
}

TEST(ClassicFindings, AreNotInTheReport) {
  DxfBuilder dxf = openOutline();
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}});
  convert::ConversionJob job;
  job.report = true;
  const Conversion conversion(dxf.text(), job);
  EXPECT_EQ(conversion.result.losses.size(), 1U);
  EXPECT_EQ(conversion.result.report.find("dimension without block"), std::string::npos);
  EXPECT_TRUE(conversion.result.report.ends_with("Script file\r\n  "));
}

TEST(ClassicFindings, KindsOfOtherRulesAreTheOnesThatTheExactRulesKnow) {
  for (const std::string_view name : classic::kindsOfOtherRules()) {
    EXPECT_NE(exact::kindOf(name), exact::Kind::Other) << name;
    EXPECT_EQ(dxf::entityKind(name), dxf::EntityKind::None) << name;
  }
}

TEST(Findings, ExactRulesRefuseEagle3) {
  convert::ConversionJob job = exactJob();
  job.version = convert::kEagle3;
  const Conversion conversion(openOutline().text(), job);
  ASSERT_EQ(conversion.host.messages.size(), 1U);
  EXPECT_EQ(conversion.host.messages[0].text, "Exact conversion needs EAGLE 4.1 or later.");
  EXPECT_FALSE(conversion.folder.has("drawing.scr"));
}

}  // namespace
}  // namespace quillon::testing
