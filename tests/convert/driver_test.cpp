#include "convert/driver.h"

#include "convert/driver_fixture.h"
#include "killed_writer.h"
#include "platform.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;
using Strings = std::vector<std::string>;

TEST_F(DriverTest, WritesFrameAndLine) {
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(), oneLineScript());
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(host.questions.empty());
}

TEST_F(DriverTest, ClearsWhatAKilledConversionLeftBesideTheScript) {
  testing::killAWriter(folder.path());
  ASSERT_EQ(folder.entries(), 2U);
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(folder.entries(), 2U);
  EXPECT_TRUE(hasScript());
}

TEST_F(DriverTest, ShowsWhatItIsDoingInTheOrderOfItsSteps) {
  DxfBuilder dxf = oneLine();
  dxf.beginBlock("A").endBlock().beginBlock("B").endBlock();
  draw(dxf);
  convert();
  EXPECT_EQ(host.statuses, (Strings{"Loading Layer Definition File", "Processing Header of DXF",
                                    "Processing Blocks of DXF", "Processing Blocks of DXF 1",
                                    "Processing Blocks of DXF 2", "Processing Entities of DXF",
                                    "Processing Entities of DXF 1", "Converting Data"}));
}

TEST_F(DriverTest, ShowsWhatItIsDoingInGerman) {
  speakGerman();
  convert();
  EXPECT_EQ(host.statuses, (Strings{"Lesen der Layer-Definitions-Datei",
                                    "Verarbeiten des DXF Kopfes", "Verarbeiten der DXF Entities ",
                                    "Verarbeiten der DXF Entities  1", "Konvertiere Daten"}));
}

TEST_F(DriverTest, SetsBothBarsBackAndCarriesThemToTheEnd) {
  DxfBuilder dxf;  // with every section: a missing one rewinds the file and the progress bar
  dxf.header("$LTSCALE", 40, "1").layer("0").beginBlock("A").endBlock();
  for (int i = 0; i < 2000; ++i) dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
  draw(dxf);
  convert();
  ASSERT_GE(host.progress.size(), 4U);
  EXPECT_EQ(host.progress[0], (std::pair{false, 0}));
  EXPECT_EQ(host.progress[1], (std::pair{true, 0}));
  int last[2] = {0, 0};
  for (const auto& [writing, percent] : host.progress) {
    EXPECT_GE(percent, last[writing ? 1 : 0]);
    last[writing ? 1 : 0] = percent;
  }
  EXPECT_EQ(last[0], 100);
  EXPECT_EQ(last[1], 100);
}

TEST_F(DriverTest, TrimsTheDrawingName) {
  job.drawingName = "  PART ";
  convert();
  EXPECT_TRUE(script().starts_with("Write;\r\nEdit 'PART.brd';\r\nSet Wire_Bend 2;\r\n"));
}

TEST_F(DriverTest, ANameOfBlanksWritesNoTargetCommands) {
  job.drawingName = "   ";
  convert();
  EXPECT_EQ(script(), oneLineScript());
}

TEST_F(DriverTest, NothingCarriesOverFromAnEarlierConversion) {
  DxfBuilder dxf = oneLine();
  dxf.header("$FILLMODE", 70, "0").header("$ANGDIR", 70, "1").header("$PDSIZE", 40, "8");
  draw(dxf);
  convert();
  EXPECT_NE(script().find("Change Pour Hatch;"), std::string::npos);
  job.overwriteScript = true;
  DxfBuilder plain;
  plain.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
  plain.entity("ARC", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {50, "0"}, {51, "90"}});
  draw(plain);
  convert();
  EXPECT_EQ(script(),
            framed("Layer  20 ;\r\nCircle 0.0 (R1.0000000 2.0000000) (R1.0000000 2.3940000);\r\n"
                   "Layer  20 ;\r\nArc CCW 0.00 (R1.0000000 0.0000000) (R-1.0000000 0.0000000) "
                   "(R0.0000000 1.0000000);\r\n"));
}

TEST_F(DriverTest, CountsTheLinesReadAndWritten) {
  convert();
  // ENTITIES 6 lines and 12 for the line, OBJECTS 6, EOF 2. Searching for a missing section rewinds
  // the file and restarts the count.
  EXPECT_EQ(result.linesRead, 26U);
  EXPECT_EQ(result.commandCount, 9U);
  EXPECT_EQ(result.counts[static_cast<std::size_t>(dxf::EntityKind::Line)], 1U);
}

TEST_F(DriverTest, GivesTheExtentsOfWhatItWrote) {
  job.offsetX = 10.0;
  convert();
  EXPECT_EQ(result.extents.minX, 10.0);
  EXPECT_EQ(result.extents.maxX, 11.0);
  EXPECT_EQ(result.extents.minY, 0.0);
  EXPECT_EQ(result.extents.maxY, 2.0);
}

TEST_F(DriverTest, CountsTheKindsThatItDoesNotKnow) {
  DxfBuilder dxf = oneLine();
  dxf.entity("HATCH", {{8, "0"}}).entity("IMAGE", {{8, "0"}}).entity("HATCH", {{8, "0"}});
  draw(dxf);
  convert();
  EXPECT_EQ(result.unknownKinds,
            (std::map<std::string, std::uint64_t>{{"HATCH", 2}, {"IMAGE", 1}}));
}

TEST_F(DriverTest, ADrawingWithoutEntitiesConvertsToTheFrame) {
  draw(DxfBuilder());
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(), framed(""));
}

TEST_F(DriverTest, ATextWithoutAnySectionConvertsToTheFrameWhereThatIsAllowed) {
  folder.write("drawing.dxf", "Dear reader,\nthis is no drawing.\n");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(), framed(""));
}

TEST_F(DriverTest, AScaleOfMinusOneMirrorsEveryCoordinate) {
  job.scale = -1.0;
  convert();
  EXPECT_EQ(script(), framed("Layer  20 ;\r\nWire 0.0000000 (R0.0000000 0.0000000) "
                             "(R-1.0000000 -2.0000000);\r\n"));
}

TEST_F(DriverTest, AddsTheOffsetsAfterTheScale) {
  job.scale = 2.0;
  job.offsetX = 0.5;
  job.offsetY = -10.0;
  convert();
  EXPECT_EQ(script(), framed("Layer  20 ;\r\nWire 0.0000000 (R0.5000000 -10.0000000) "
                             "(R2.5000000 -6.0000000);\r\n"));
}

TEST_F(DriverTest, ReadsTheLayerFileOfTheJob) {
  job.layerFile = folder.write("a.lay", "[1]\nlayername=0\nlayernr=21\n");
  convert();
  EXPECT_NE(script().find("Layer  21 ;\r\n"), std::string::npos);
}

TEST_F(DriverTest, FindsTheLayerFileWithoutRegardToCase) {
  folder.write("a.lay", "[1]\nlayername=0\nlayernr=21\n");
  job.layerFile = folder.file("A.LAY");
  convert();
  EXPECT_NE(script().find("Layer  21 ;\r\n"), std::string::npos);
}

TEST_F(DriverTest, AMissingLayerFileSendsEverythingToTheDefaultLayer) {
  job.layerFile = folder.file("none.lay");
  job.defaultLayer = "16 Bottom (B)";
  convert();
  EXPECT_NE(script().find("Layer  16 ;\r\n"), std::string::npos);
}

TEST_F(DriverTest, CopiesTheFrameFile) {
  surroundings.frame.path =
      folder.write("quillon.cfh", "[start]\nGrid mm;\nendblock\n[end]\nWindow Fit;\n");
  convert();
  EXPECT_EQ(script(),
            "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mil;\r\nGrid mm;\r\nLayer  20 ;\r\n"
            "Wire 0.0000000 (R0.0000000 0.0000000) (R1.0000000 2.0000000);\r\nWindow Fit;\r\n");
  EXPECT_EQ(result.commandCount, 7U);
}

TEST_F(DriverTest, CreatesAMissingFrameFileWhereItMay) {
  surroundings.frame = {folder.file("quillon.cfh"), false, true};
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(folder.read("quillon.cfh"), defaultFrameText());
  EXPECT_EQ(script(), oneLineScript());
}

TEST_F(DriverTest, FindsTheDrawingWithoutRegardToCaseAndReportsItAsFound) {
  job.dxfFile = folder.file("DRAWING.DXF");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(result.dxfFile, folder.file("drawing.dxf"));
  EXPECT_EQ(result.scriptFile, folder.file("drawing.scr"));
}

TEST_F(DriverTest, WritesTheScriptWhereALinkLeads) {
  folder.write("real.scr", "old");
  std::filesystem::create_symlink("real.scr", job.scriptFile);
  job.overwriteScript = true;
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_TRUE(std::filesystem::is_symlink(job.scriptFile));
  EXPECT_EQ(folder.read("real.scr"), oneLineScript());
}

TEST_F(DriverTest, WritesADeviceWithoutAQuestion) {
  job.scriptFile = "/dev/null";
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_TRUE(host.questions.empty());
}

TEST_F(DriverTest, AsksBeforeItFollowsALinkWhereverThatLeads) {
  folder.write("real.scr", "old");
  std::filesystem::create_directory(folder.file("sub"));
  for (const char* const target : {"real.scr", "none.scr", "/dev/null", "drawing.scr", "sub"}) {
    host.questions.clear();
    std::filesystem::remove(job.scriptFile);
    std::filesystem::create_symlink(target, job.scriptFile);
    EXPECT_EQ(convert(), Outcome::Ended);
    ASSERT_EQ(host.questions.size(), 1U) << target;
    EXPECT_EQ(host.questions[0].detail, job.scriptFile);
  }
  EXPECT_EQ(folder.read("real.scr"), "old");
  EXPECT_FALSE(folder.has("none.scr"));
}

TEST_F(DriverTest, AsksWhereItCannotKnowWhetherAScriptExists) {
  std::filesystem::create_directory(folder.file("closed"));
  std::filesystem::permissions(folder.file("closed"), std::filesystem::perms::none);
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  job.scriptFile = folder.file("closed/a.scr");
  {
    const testing::Unprivileged user;
    EXPECT_EQ(convert(), Outcome::Ended);
  }
  EXPECT_EQ(host.questions.size(), 1U);
  EXPECT_TRUE(host.messages.empty());
  std::filesystem::permissions(folder.file("closed"), std::filesystem::perms::all);
}

TEST_F(DriverTest, BuildsAndShowsTheReportOnlyWhenAskedFor) {
  convert();
  EXPECT_TRUE(host.reports.empty());
  EXPECT_EQ(result.report, "");
  job.overwriteScript = true;
  job.report = true;
  convert();
  ASSERT_EQ(host.reports.size(), 1U);
  EXPECT_EQ(host.reports[0], result.report);
}

}  // namespace
}  // namespace quillon::convert
