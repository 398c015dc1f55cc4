#include "convert/findings.h"

#include <gtest/gtest.h>

#include <algorithm>

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
  EXPECT_TRUE(has(findingsOf(metres, texts::kGerman),
                  "Die Einheit, die in der Zeichnung steht, ergibt keine sinnvolle Größe; mm "
                  "wurden angenommen."));
}

TEST(Findings, NamesOpenEndsWithBothPlacesAndLines) {
  EXPECT_TRUE(has(findingsOf(openOutline()),
                  "Outline open at (10 0), layer 20 (line 7): next end 0.25 mm away at (10.25 0) "
                  "(line 19)"));
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
