// Reports of drawings that were made to give long ones.
#include <gtest/gtest.h>

#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;

class ReportLimits : public DriverTest {
 protected:
  ReportLimits() {
    job.drawingName = "PART";
    job.report = true;
    job.overwriteScript = true;
  }

  std::string reportOf(const std::string& text) {
    folder.write("drawing.dxf", text);
    EXPECT_EQ(convert(), Outcome::Converted);
    return result.report;
  }
  static std::size_t countOf(std::string_view wanted, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(wanted); at != std::string_view::npos;
         at = text.find(wanted, at + 1)) {
      ++count;
    }
    return count;
  }
  /// Blocks of one name, and as many insertions, each of which makes a part.
  static std::string blocksOfOneName(int count) {
    DxfBuilder dxf;
    for (int i = 0; i < count; ++i) dxf.beginBlock("DOOR").endBlock();
    for (int i = 0; i < count; ++i) {
      dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}, {50, std::to_string(i)}});
    }
    return dxf.text();
  }
};

TEST_F(ReportLimits, BlocksOfOneNameShowTheSame) {
  job.blocks = kUsedBlocksAsParts;
  const std::string report = reportOf(blocksOfOneName(3));
  EXPECT_EQ(countOf("\r\nYes    DOOR ==> DOOR_1.pac; DOOR_2.pac; DOOR_3.pac; \r\n", report), 3U);
  EXPECT_EQ(countOf("DOOR ==>", report), 3U);
  EXPECT_EQ(countOf("already listed", report), 0U);
}

TEST_F(ReportLimits, BlocksOfOneNameAreOnlyCountedWhereTheyWouldFillTheReport) {
  job.blocks = kUsedBlocksAsParts;
  constexpr std::size_t kBlocks = 2'000;
  const std::string report = reportOf(blocksOfOneName(kBlocks));
  EXPECT_LT(report.size(), std::size_t{2} << 20);
  const std::size_t written = countOf("DOOR ==>", report);
  EXPECT_GT(written, 2U);
  EXPECT_EQ(countOf("\r\n(" + std::to_string(kBlocks - written) +
                        " more lines for names that are already listed)\r\n\r\nConverted DXF",
                    report),
            1U);
}

TEST_F(ReportLimits, LayersThatShareALongNameAreOnlyCountedWhereTheyWouldFillTheReport) {
  constexpr std::size_t kLayers = 2'000;
  const std::string name(20'000, 'X');
  // Each entry lies within the one before and has the groups of all that follow.
  std::string nested = "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n";
  for (std::size_t i = 1; i < kLayers; ++i) nested += "1\nLAYER\n";
  nested += "2\n" + name + "\n70\n0\n0\nENDTAB\n0\nENDSEC\n";
  const std::string report = reportOf(nested + "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n");
  EXPECT_LT(report.size(), std::size_t{2} << 20);
  const std::size_t written = countOf(name + " ==> ", report);
  EXPECT_GT(written, 2U);
  EXPECT_NE(report.find("\r\n(" + std::to_string(kLayers - written) +
                        " more lines for names that are already listed)\r\n\r\nIncluded DXF"),
            std::string::npos);
}

}  // namespace
}  // namespace quillon::convert
