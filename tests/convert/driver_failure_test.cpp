// Run-time errors: they end in the driver's handler.
#include <thread>

#include "convert/driver_fixture.h"
#include "platform.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;

class FailureTest : public DriverTest {
 protected:
  /// Converts over an existing script, which must stay; gives the message's detail.
  std::string failure() {
    folder.write("drawing.scr", "old");
    job.overwriteScript = true;
    const std::size_t before = folder.entries();
    host.messages.clear();
    EXPECT_EQ(convert(), Outcome::Ended);
    EXPECT_EQ(script(), "old");
    EXPECT_EQ(folder.entries(), before);
    EXPECT_TRUE(host.reports.empty());
    if (host.messages.size() != 1) return "no single message";
    const Message& message = host.messages.front();
    EXPECT_EQ(message.kind, MessageKind::Error);
    EXPECT_EQ(message.title, "File Error");
    EXPECT_EQ(message.text, "Can't open the specified\r" + job.scriptFile + "\rScript file!");
    return message.detail;
  }
};

TEST_F(FailureTest, ABadGroupCodeInsideABlockNamesFileAndLine) {
  folder.write("drawing.dxf",
               "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  2\nA\n  0\nLINE\n  8\n0\n x1\n5\n"
               "  0\nENDBLK\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n");
  EXPECT_EQ(failure(), job.dxfFile +
                           ":13: The line \"x1\" is not a group code. The file is damaged; please "
                           "export the drawing again.");
}

TEST_F(FailureTest, ABadGroupCodeInsideATableNamesFileAndLine) {
  folder.write("drawing.dxf",
               "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLTYPE\n  0\nLTYPE\n  2\nA\n x\n5\n"
               "  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n");
  EXPECT_TRUE(failure().starts_with(job.dxfFile + ":13: The line \"x\" is not a group code."));
}

TEST_F(FailureTest, ABadGroupCodeInTheEntitiesDropsItsEntityOnly) {
  folder.write("drawing.dxf",
               "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n x1\n5\n"
               "  0\nPOINT\n  8\n0\n 10\n1\n 20\n2\n  0\nENDSEC\n  0\nEOF\n");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(),
            framed("Layer  20 ;\r\nCircle 0.0 (R1.0000000 2.0000000) (R1.0000000 2.3940000);\r\n"));
  EXPECT_EQ(result.dropped, (dxf::DroppedEntities{1, 9}));
}

TEST_F(FailureTest, AFileThatIsCutInsideABlockNamesItsLastLine) {
  folder.write("drawing.dxf", "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  2\nA\n  0\nLINE\n  8\n0\n");
  EXPECT_EQ(failure(), job.dxfFile +
                           ":12: The file ends inside a table, a block or an entity. It is "
                           "incomplete; please export the drawing again.");
}

TEST_F(FailureTest, AFileThatIsCutBetweenBlocksIsIncompleteToo) {
  folder.write("drawing.dxf", "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  2\nA\n  0\nENDBLK\n");
  EXPECT_NE(failure().find("The file ends inside"), std::string::npos);
}

TEST_F(FailureTest, FitPointsInsideABlockNameFileAndLine) {
  folder.write("drawing.dxf",
               "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  2\nA\n  0\nSPLINE\n  8\n0\n 11\n1\n 12\n"
               "2\n  0\nENDBLK\n  0\nENDSEC\n  0\nEOF\n");
  EXPECT_EQ(failure(), job.dxfFile +
                           ":16: A spline has fit points in a form that cannot be read. Please "
                           "turn splines into polylines before exporting.");
}

TEST_F(FailureTest, ANumberThatIsNotFiniteNamesTheEntitysLine) {
  DxfBuilder dxf = oneLine();
  dxf.entity("LINE", {{8, "0"}, {10, "1e308"}, {20, "0"}, {11, "0"}, {21, "0"}});
  draw(dxf);
  job.scale = 100.0;
  // The first line takes lines 5 to 16; the second one's first group stands in line 19.
  EXPECT_EQ(failure(), job.dxfFile +
                           ":19: A coordinate or size is not a finite number. Please correct the "
                           "entity in the drawing or check the scale factor.");
}

TEST_F(FailureTest, AnEagleLayerOutsideSixteenBitsNamesItsEntity) {
  job.defaultLayer = "40000";
  EXPECT_EQ(failure(), job.dxfFile +
                           ":7: \"40000\" is not an EAGLE layer number. Please correct the layer "
                           "assignment or the standard layer.");
}

TEST_F(FailureTest, BlocksNestedTooDeepNameTheBlock) {
  DxfBuilder dxf;
  for (int i = 0; i <= 1000; ++i) {
    dxf.beginBlock("B" + std::to_string(i));
    dxf.entity("INSERT", {{8, "0"}, {2, "B" + std::to_string(i + 1)}});
    dxf.endBlock();
  }
  dxf.entity("INSERT", {{8, "0"}, {2, "B0"}});
  draw(dxf);
  const std::string detail = failure();
  EXPECT_NE(detail.find(": Blocks are nested more than 1000 levels deep (\"B1000\"). Please "
                        "explode blocks in the drawing."),
            std::string::npos)
      << detail;
}

TEST_F(FailureTest, AThousandNestedBlocksAreDrawn) {
  DxfBuilder dxf;
  for (int i = 1; i <= 1000; ++i) {
    dxf.beginBlock("B" + std::to_string(i));
    dxf.entity("INSERT", {{8, "0"}, {2, "B" + std::to_string(i + 1)}});
    if (i == 1000) dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
    dxf.endBlock();
  }
  dxf.entity("INSERT", {{8, "0"}, {2, "B1"}});
  draw(dxf);
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(),
            framed("Layer  20 ;\r\nCircle 0.0 (R1.0000000 2.0000000) (R1.0000000 2.3940000);\r\n"));
}

TEST_F(FailureTest, ADashThatIsNotFiniteNamesTheEntitysLine) {
  DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "1e300");
  dxf.dashes("DASHED", "1", {"1", "-1e300"});
  dxf.entity("LINE", {{8, "0"}, {6, "DASHED"}, {10, "0"}, {20, "0"}, {11, "9"}, {21, "0"}});
  draw(dxf);
  job.dotted = true;
  const std::string detail = failure();
  EXPECT_TRUE(
      detail.ends_with(": The length of a dash or of a dashed line is not a finite number. "
                       "Please correct the line type or switch off the emulation of dotted "
                       "lines."))
      << detail;
}

TEST_F(FailureTest, TheMessageOfTheHandlerInGerman) {
  speakGerman();
  job.defaultLayer = "40000";
  convert();
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].title, "Dateifehler");
  EXPECT_EQ(host.messages[0].text,
            "Gewählte Scriptdatei\r" + job.scriptFile + "\rkonnte nicht geöffnet werden!");
  EXPECT_EQ(host.messages[0].detail,
            job.dxfFile +
                ":7: \"40000\" ist keine EAGLE-Layernummer. Bitte die Layerzuweisung "
                "oder den Standardlayer berichtigen.");
}

TEST_F(FailureTest, AnErrorWithoutAnOldScriptMakesNone) {
  job.defaultLayer = "40000";
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(folder.entries(), 1U);  // the drawing
}

TEST_F(FailureTest, AScriptInAMissingFolderCannotBeOpened) {
  job.scriptFile = folder.file("none/drawing.scr");
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].text,
            "Can't open the specified\r" + job.scriptFile + "\rScript file!");
  EXPECT_EQ(host.messages[0].detail,
            job.scriptFile + " cannot be written: the folder " + folder.file("none") +
                " does not exist. Please create the folder or correct the path.");
  EXPECT_TRUE(host.statuses.empty());
}

TEST_F(FailureTest, AScriptOnADriveThatIsNotThereCannotBeOpened) {
  job.scriptFile = "Q:\\OUT\\DRAWING.SCR";
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].text, "Can't open the specified\rQ:\\OUT\\DRAWING.SCR\rScript file!");
  EXPECT_EQ(host.messages[0].detail,
            "Q:\\OUT\\DRAWING.SCR cannot be written: the folder Q:\\OUT does not exist. Please "
            "create the folder or correct the path.");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(FailureTest, AFullDiskIsNoticed) {
  job.scriptFile = "/dev/full";
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].detail,
            "/dev/full cannot be written: No space left on device. Please check the path, its "
            "permissions and the free space.");
}

TEST_F(FailureTest, AScriptThatMayNotBeWrittenStaysAsItWas) {
  namespace fs = std::filesystem;
  folder.write("drawing.scr", "old");
  fs::permissions(job.scriptFile, fs::perms(0444));
  fs::permissions(folder.path(), fs::perms(0777));
  job.overwriteScript = true;
  {
    const testing::Unprivileged user;
    EXPECT_EQ(convert(), Outcome::Ended);
  }
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_NE(host.messages[0].detail.find("cannot be written: Permission denied."),
            std::string::npos);
  EXPECT_EQ(script(), "old");
}

TEST_F(FailureTest, ADrawingThatMayNotBeReadIsRefused) {
  namespace fs = std::filesystem;
  fs::permissions(job.dxfFile, fs::perms(0000));
  {
    const testing::Unprivileged user;
    EXPECT_EQ(convert(), Outcome::Ended);
  }
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].detail, job.dxfFile +
                                         " cannot be read: Permission denied. Please "
                                         "check the path and its permissions.");
  EXPECT_FALSE(hasScript());
}

TEST_F(FailureTest, AFrameFileThatCannotBeCreatedReachesTheHandler) {
  folder.write("file", "");
  surroundings.frame = {folder.file("file/quillon.cfh"), false, true};
  EXPECT_EQ(failure(), folder.file("file/quillon.cfh") +
                           " cannot be written: Not a directory. Please check the path, "
                           "its permissions and the free space.");
}

TEST_F(FailureTest, AFrameFileThatMustExistAndDoesNotReachesTheHandler) {
  surroundings.frame = {folder.file("my.cfh"), true, false};
  EXPECT_EQ(failure(), folder.file("my.cfh") +
                           " cannot be read: No such file or directory. Please check the path and "
                           "its permissions.");
}

TEST_F(FailureTest, AFrameFileThatMayNotBeReadReachesTheHandler) {
  namespace fs = std::filesystem;
  surroundings.frame.path = folder.write("quillon.cfh", "[start]\nA;\nendblock\n");
  fs::permissions(surroundings.frame.path, fs::perms(0000));
  fs::permissions(folder.path(), fs::perms(0777));
  surroundings.refuseUnreadableFiles = true;
  {
    const testing::Unprivileged user;
    EXPECT_EQ(convert(), Outcome::Ended);
  }
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_NE(host.messages[0].detail.find("quillon.cfh cannot be read: Permission denied."),
            std::string::npos);
  EXPECT_FALSE(hasScript());
}

TEST_F(FailureTest, TooLittleMemoryReachesTheHandler) {
  folder.write("drawing.scr", "old");
  job.overwriteScript = true;
  host.cancelWhen = []() -> bool { throw std::bad_alloc(); };
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].detail, "There is not enough memory. Please split the drawing.");
  EXPECT_EQ(script(), "old");
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(FailureTest, WhateverElseIsThrownReachesTheHandlerToo) {
  host.cancelWhen = []() -> bool { throw std::runtime_error("out of luck"); };
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].detail, job.dxfFile + ": out of luck");
  EXPECT_FALSE(hasScript());
}

TEST_F(FailureTest, TwoConversionsAtOnceDoNotDisturbEachOther) {
  DxfBuilder dxf;
  for (int i = 0; i < 3000; ++i) dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
  draw(dxf);
  ConversionJob other = job;
  other.scriptFile = folder.file("other.scr");
  other.unit = base::Unit::Mm;
  testing::RecordingHost otherHost;
  ConversionResult otherResult;
  std::thread thread([&] { otherResult = convertDXF(other, otherHost, surroundings); });
  convert();
  thread.join();
  EXPECT_EQ(result.outcome, Outcome::Converted);
  EXPECT_EQ(otherResult.outcome, Outcome::Converted);
  EXPECT_EQ(result.commandCount, 6007U);
  EXPECT_EQ(otherResult.commandCount, 6007U);
  EXPECT_NE(script().find("2.3940000"), std::string::npos);
  EXPECT_NE(folder.read("other.scr").find("2.1000000"), std::string::npos);
}

}  // namespace
}  // namespace quillon::convert
