// A cancel while a drawing is read or converted.
#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;

class CancelTest : public DriverTest {
 protected:
  static DxfBuilder manyPoints() {
    DxfBuilder dxf;
    for (int i = 0; i < 20'000; ++i) dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
    return dxf;
  }
  bool showed(std::string_view status) const {
    return std::find(host.statuses.begin(), host.statuses.end(), status) != host.statuses.end();
  }
  /// Cancels some time after the first entity.
  void cancelAmongEntities() {
    host.cancelWhen = [this] { return showed("Processing Entities of DXF") && ++polls_ > 20; };
  }

 private:
  int polls_ = 0;
};

TEST_F(CancelTest, WhileReadingStillWritesTheTrailerAndTheReport) {
  draw(manyPoints());
  host.cancelWhen = [this] { return showed("Processing Header of DXF"); };
  job.report = true;
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_EQ(script(), framed(""));
  ASSERT_EQ(host.reports.size(), 1U);
  EXPECT_NE(host.reports[0].find("\r\nPOINT         :0\r\n"), std::string::npos);
}

TEST_F(CancelTest, WhileConvertingStillWritesTheTrailerAndTheReport) {
  draw(manyPoints());
  cancelAmongEntities();
  job.report = true;
  EXPECT_EQ(convert(), Outcome::Cancelled);
  const std::string text = script();
  EXPECT_TRUE(text.starts_with(kHead));
  EXPECT_TRUE(text.ends_with(kTail));
  const auto points = result.counts[static_cast<std::size_t>(dxf::EntityKind::Point)];
  EXPECT_GT(points, 0U);
  EXPECT_LT(points, 20'000U);
  EXPECT_EQ(host.reports.size(), 1U);
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(CancelTest, ReplacesAnExistingScript) {
  folder.write("drawing.scr", "old");
  job.overwriteScript = true;
  host.cancelWhen = [] { return true; };
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_EQ(script(), framed(""));
}

TEST_F(CancelTest, TellsTheUserInWhichLineItStopped) {
  draw(manyPoints());
  cancelAmongEntities();
  convert();
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_GT(result.linesRead, 4U);
  const std::string line = std::to_string(result.linesRead);
  EXPECT_EQ(host.messages[0].title, "Warning");
  EXPECT_EQ(host.messages[0].text, "Interrupt by user in line " + line + " of DXF file!");
  EXPECT_EQ(host.messages[0].detail,
            job.dxfFile + ": Interrupt by user in line " + line + " of DXF file!");
}

TEST_F(CancelTest, TellsTheUserInGerman) {
  speakGerman();
  host.cancelWhen = [this] { return showed("Verarbeiten des DXF Kopfes"); };
  convert();
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].title, "Warnung");
  EXPECT_EQ(host.messages[0].text, "Konvertierung durch Benutzer in Zeile " +
                                       std::to_string(result.linesRead) +
                                       " der DXF-Datei abgebrochen!");
}

TEST_F(CancelTest, InsideBlocksReadsNoEntities) {
  DxfBuilder dxf = oneLine();
  for (int i = 0; i < 3000; ++i) dxf.beginBlock("B" + std::to_string(i)).endBlock();
  draw(dxf);
  host.cancelWhen = [this] { return showed("Processing Blocks of DXF 1"); };
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_EQ(script(), framed(""));
  EXPECT_FALSE(showed("Processing Entities of DXF"));
}

TEST_F(CancelTest, InsideOneVeryLargeEntityStopsThere) {
  DxfBuilder dxf;
  dxf.dashes("DASHED", "1", {"0.5", "-0.5"});
  dxf.header("$LTSCALE", 40, "1");
  dxf.entity("LINE", {{8, "0"}, {6, "DASHED"}, {10, "0"}, {20, "0"}, {11, "1e9"}, {21, "0"}});
  draw(dxf);
  job.dotted = true;
  cancelAmongEntities();
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_TRUE(script().ends_with(kTail));
  EXPECT_LT(script().size(), 1'000'000U);
}

TEST_F(CancelTest, InsideBlocksThatMultiplyStopsThere) {
  DxfBuilder dxf;
  for (int level = 0; level < 12; ++level) {
    dxf.beginBlock("L" + std::to_string(level));
    for (int i = 0; i < 10; ++i) {
      dxf.entity("INSERT", {{8, "0"}, {2, "L" + std::to_string(level + 1)}});
    }
    dxf.endBlock();
  }
  dxf.entity("INSERT", {{8, "0"}, {2, "L0"}});
  draw(dxf);
  cancelAmongEntities();
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_EQ(script(), framed(""));
}

TEST_F(CancelTest, WritesNoMorePartsOfTheBlockLibrary) {
  DxfBuilder dxf;
  dxf.beginBlock("A").entity("POINT", {{8, "0"}}).endBlock();
  draw(dxf);
  job.drawingName = "PART";
  job.blocks = kAllBlocksAsParts;
  host.cancelWhen = [this] { return showed("Converting Data"); };
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_EQ(script(), "Write;\r\nEdit 'PART.brd';\r\n" + framed(""));
}

TEST_F(CancelTest, EndsAnObjectsSectionThatNeverEndsWhereThereIsACancelButton) {
  folder.write("drawing.dxf",
               "  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n  0\nEOF\n");
  host.cancelButton = true;
  host.cancelWhen = [this] { return host.events > 200; };
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_GT(host.events, 200);
  EXPECT_EQ(script(), framed(""));
}

TEST_F(CancelTest, IsNotNeededForAnEndlessObjectsSectionWithoutACancelButton) {
  folder.write("drawing.dxf",
               "  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n  0\nEOF\n");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(), framed(""));
}

TEST_F(CancelTest, IsNotReportedWhenAnErrorEndedTheRun) {
  job.defaultLayer = "40000";
  convert();
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].title, "File Error");
}

}  // namespace
}  // namespace quillon::convert
