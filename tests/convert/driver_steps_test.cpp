// The checks before a conversion: their order, their messages, and what they leave on disk.
#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;

/// The one message of a run.
const Message& onlyMessage(const testing::RecordingHost& host) {
  static const Message kNone;
  EXPECT_EQ(host.messages.size(), 1U);
  return host.messages.empty() ? kNone : host.messages.front();
}

TEST_F(DriverTest, AMissingDrawingIsAskedFor) {
  job.dxfFile = folder.file("none.dxf");
  host.chosenFile = folder.file("drawing.dxf");
  EXPECT_EQ(convert(), Outcome::Converted);
  ASSERT_EQ(host.fileQuestions.size(), 1U);
  EXPECT_EQ(host.fileQuestions[0].title, "DXF File open");
  EXPECT_EQ(host.fileQuestions[0].filterText, "DXF files");
  EXPECT_EQ(host.fileQuestions[0].filterPattern, "*.*");
  EXPECT_EQ(host.fileQuestions[0].startPath, folder.file("none.dxf"));
  EXPECT_EQ(result.dxfFile, folder.file("drawing.dxf"));
  EXPECT_EQ(script(), oneLineScript());
}

TEST_F(DriverTest, AMissingDrawingIsAskedForInGerman) {
  speakGerman();
  job.dxfFile = "";
  convert();
  ASSERT_EQ(host.fileQuestions.size(), 1U);
  EXPECT_EQ(host.fileQuestions[0].title, "DXF Datei auswählen");
  EXPECT_EQ(host.fileQuestions[0].filterText, "DXF-Dateien");
  EXPECT_EQ(host.fileQuestions[0].startPath, "");
}

TEST_F(DriverTest, AnExistingDrawingIsNotAskedFor) {
  convert();
  EXPECT_TRUE(host.fileQuestions.empty());
}

TEST_F(DriverTest, AFolderIsNotADrawing) {
  job.dxfFile = folder.path().string();
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(host.fileQuestions.size(), 1U);
  EXPECT_NE(onlyMessage(host).detail.find("Is a directory"), std::string::npos);
}

TEST_F(DriverTest, ADrawingThatIsNotChosenEndsTheRun) {
  job.dxfFile = "C:\\none.dxf";
  EXPECT_EQ(convert(), Outcome::Ended);
  const Message& message = onlyMessage(host);
  EXPECT_EQ(message.kind, MessageKind::Error);
  EXPECT_EQ(message.title, "File Error");
  EXPECT_EQ(message.text, "Can't find the specified\rC:\\none.dxf\rDXF file!");
  EXPECT_EQ(message.detail,
            "C:\\none.dxf cannot be read: No such file or directory. Please check the path and "
            "its permissions.");
  EXPECT_FALSE(hasScript());
  EXPECT_TRUE(host.statuses.empty());
  EXPECT_TRUE(host.questions.empty());
}

TEST_F(DriverTest, ADrawingThatIsNotChosenEndsTheRunInGerman) {
  speakGerman();
  job.dxfFile = "none.dxf";
  convert();
  const Message& message = onlyMessage(host);
  EXPECT_EQ(message.title, "Dateifehler");
  EXPECT_EQ(message.text, "Gewähle DXF-Datei\rnone.dxf\rkonnte nicht gefunden werden!");
  EXPECT_EQ(message.detail,
            "none.dxf kann nicht gelesen werden: Datei oder Verzeichnis nicht gefunden. Bitte "
            "Pfad und Zugriffsrechte prüfen.");
}

TEST_F(DriverTest, AChosenFileThatDoesNotExistEndsTheRun) {
  job.dxfFile = "none.dxf";
  host.chosenFile = "other.dxf";
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(onlyMessage(host).text, "Can't find the specified\rother.dxf\rDXF file!");
}

TEST_F(DriverTest, AnExistingScriptIsReplacedAfterAYes) {
  folder.write("drawing.scr", "old");
  host.answer = true;
  EXPECT_EQ(convert(), Outcome::Converted);
  ASSERT_EQ(host.questions.size(), 1U);
  EXPECT_EQ(host.questions[0].kind, MessageKind::Question);
  EXPECT_EQ(host.questions[0].title, "Warning");
  EXPECT_EQ(host.questions[0].text,
            "Scripfile exists already.\r" + job.scriptFile + "\rOverwrite?");
  EXPECT_EQ(script(), oneLineScript());
}

TEST_F(DriverTest, AnExistingScriptIsAskedAboutInGerman) {
  speakGerman();
  folder.write("drawing.scr", "old");
  convert();
  ASSERT_EQ(host.questions.size(), 1U);
  EXPECT_EQ(host.questions[0].title, "Warnung");
  EXPECT_EQ(host.questions[0].text,
            "Gewälte Scriptdatei\r" + job.scriptFile + "\rexistiert bereits. Überschreiben?");
}

TEST_F(DriverTest, ANoLeavesTheOldScriptUntouched) {
  folder.write("drawing.scr", "old");
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(script(), "old");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_TRUE(host.statuses.empty());
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(DriverTest, AnExistingScriptIsReplacedWithoutAQuestionWhenTheJobSaysSo) {
  folder.write("drawing.scr", std::string(100'000, 'x'));
  job.overwriteScript = true;
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_TRUE(host.questions.empty());
  EXPECT_EQ(script(), oneLineScript());
}

TEST_F(DriverTest, TheDrawingIsAskedForBeforeTheScript) {
  folder.write("drawing.scr", "old");
  job.dxfFile = "none.dxf";
  convert();
  EXPECT_EQ(host.fileQuestions.size(), 1U);
  EXPECT_TRUE(host.questions.empty());
  EXPECT_EQ(script(), "old");
}

TEST_F(DriverTest, BlocksAsPartsWithoutANameLeaveAnEmptyScript) {
  for (const int blocks : {kUsedBlocksAsParts, kAllBlocksAsParts}) {
    job.blocks = blocks;
    std::filesystem::remove(job.scriptFile);
    host.messages.clear();
    EXPECT_EQ(convert(), Outcome::Ended);
    const Message& message = onlyMessage(host);
    EXPECT_EQ(message.kind, MessageKind::Error);
    EXPECT_EQ(message.title, "File Error");
    EXPECT_EQ(message.text, "There isn't determined a Board or Schematic File!");
    EXPECT_TRUE(host.statuses.empty());  // ends before the layer file is read
    EXPECT_EQ(script(), "");
    EXPECT_EQ(folder.entries(), 2U);
    EXPECT_EQ(result.report, "");
  }
}

TEST_F(DriverTest, AnUnreadableLayerFileIsReportedAndTheDrawingConverted) {
  job.layerFile = folder.file("none.lay");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(onlyMessage(host).kind, MessageKind::Warning);
  EXPECT_EQ(onlyMessage(host).title, "Warning");
  EXPECT_EQ(onlyMessage(host).text, "The layer definition file " + job.layerFile +
                                        " cannot be read: No such file or directory. All layers "
                                        "go to the standard layer.");
  EXPECT_EQ(script(), oneLineScript());
  speakGerman();
  host.messages.clear();
  std::filesystem::create_directory(job.layerFile);
  job.overwriteScript = true;
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(onlyMessage(host).text.rfind(
                "Die Layerzuweisungsdatei " + job.layerFile + " kann nicht gelesen werden: ", 0),
            0U);
  EXPECT_TRUE(onlyMessage(host).text.ends_with(". Alle Layer kommen auf den Standardlayer."));
}

TEST_F(DriverTest, LayersThatEagleDoesNotHaveAreNamedAndLeftOut) {
  testing::DxfBuilder dxf = oneLine();
  dxf.entity("LINE", {{8, "low"}}).entity("LINE", {{8, "HIGH"}});
  draw(dxf);
  job.layerFile = folder.write(
      "a.lay", "[1]\nlayername=Low\nlayernr=-20\n[2]\nlayername=high\nlayernr=300 x\n");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(onlyMessage(host).kind, MessageKind::Warning);
  EXPECT_EQ(onlyMessage(host).text,
            job.layerFile +
                ": These numbers are not EAGLE layers from 1 to 255 (or 999). What lies on them is "
                "left out: Low (-20), high (300 x)");
  EXPECT_EQ(script(), oneLineScript());
  EXPECT_EQ(result.leftOut[static_cast<std::size_t>(dxf::EntityKind::Line)], 2U);
  speakGerman();
  host.messages.clear();
  job.overwriteScript = true;
  convert();
  EXPECT_EQ(onlyMessage(host).text,
            job.layerFile +
                ": Diese Nummern sind keine EAGLE-Layer von 1 bis 255 (oder 999). Was darauf "
                "liegt, wird ausgelassen: Low (-20), high (300 x)");
}

TEST_F(DriverTest, LayerNumbersThatEndBeforeTheirTextAreNamed) {
  std::string file;
  for (int i = 1; i <= 11; ++i) {
    const std::string n = std::to_string(i);
    file.append("[").append(n).append("]\nlayername=L").append(n).append("\nlayernr=20,5\n");
  }
  job.layerFile = folder.write("a.lay", file);
  EXPECT_EQ(convert(), Outcome::Converted);
  const std::string& text = onlyMessage(host).text;
  EXPECT_TRUE(text.starts_with(job.layerFile +
                               ": These layer numbers count only up to the first character that "
                               "is not part of a number: L1 (\"20,5\": 20), L2 (\"20,5\": 20), "))
      << text;
  EXPECT_TRUE(text.ends_with(", L10 (\"20,5\": 20), …")) << text;
  EXPECT_EQ(script(), oneLineScript());
  speakGerman();
  host.messages.clear();
  job.overwriteScript = true;
  folder.write("a.lay", "[1]\nlayername=A\nlayernr=\n");
  convert();
  EXPECT_EQ(onlyMessage(host).text, job.layerFile +
                                        ": Diese Layernummern zählen nur bis zum ersten Zeichen, "
                                        "das nicht zu einer Zahl gehört: A (\"\": 0)");
}

TEST_F(DriverTest, AStandardLayerThatEndsBeforeItsTextIsNamed) {
  job.defaultLayer = "20,5";
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_TRUE(onlyMessage(host).text.starts_with("Standard Layer: \"20,5\" counts as 20, "))
      << onlyMessage(host).text;
}

TEST_F(DriverTest, ALayerFileThatCannotBeReadEndsTheRunWhereThatIsAnError) {
  surroundings.refuseUnreadableFiles = true;
  job.layerFile = folder.file("none.lay");
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(onlyMessage(host).kind, MessageKind::Error);
  EXPECT_EQ(onlyMessage(host).text, job.layerFile +
                                        " cannot be read: No such file or directory. Please check "
                                        "the path and its permissions.");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(DriverTest, AnUnreadableFrameFileIsReportedAndTheBuiltInOneUsed) {
  // Longer than any file with just a few commands.
  surroundings.frame.path = folder.write("quillon.cfh", "");
  std::filesystem::resize_file(surroundings.frame.path, std::uintmax_t{100} << 20);
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(onlyMessage(host).kind, MessageKind::Warning);
  EXPECT_EQ(onlyMessage(host).text, "The file " + surroundings.frame.path +
                                        " with the first and last commands cannot be read: File "
                                        "too large. The script gets the built-in ones.");
  EXPECT_EQ(script(), oneLineScript());
  speakGerman();
  host.messages.clear();
  job.overwriteScript = true;
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(onlyMessage(host).text,
            "Die Datei " + surroundings.frame.path +
                " mit den ersten und letzten Befehlen kann nicht gelesen werden: File too large. "
                "Das Script bekommt die eingebauten.");
  surroundings.refuseUnreadableFiles = true;
  host.messages.clear();
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(onlyMessage(host).kind, MessageKind::Error);
}

TEST_F(DriverTest, SettingsThatCannotBeConvertedLeaveAnExistingScriptAsItWas) {
  folder.write("drawing.scr", "old");
  job.overwriteScript = true;
  job.blocks = kUsedBlocksAsParts;
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(onlyMessage(host).text, "There isn't determined a Board or Schematic File!");
  EXPECT_EQ(script(), "old");
  host.messages.clear();
  job.blocks = kDrawBlocks;
  job.scale = 0.0;
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(onlyMessage(host).text, "Scaling factor must be greater then 0.00!");
  EXPECT_EQ(script(), "old");
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(DriverTest, BlocksAsPartsWithoutANameAreRefusedInGerman) {
  speakGerman();
  job.blocks = kUsedBlocksAsParts;
  job.drawingName = "  ";
  convert();
  EXPECT_EQ(onlyMessage(host).title, "Dateifehler");
  EXPECT_EQ(onlyMessage(host).text, "Es wurde noch kein Board- bzw. Schematicname festgelegt!");
  EXPECT_TRUE(hasScript());
}

TEST_F(DriverTest, DrawnBlocksNeedNoName) {
  job.blocks = kDrawBlocks;
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(), oneLineScript());
}

TEST_F(DriverTest, AScaleOfZeroLeavesAnEmptyScript) {
  job.scale = 0.0;
  EXPECT_EQ(convert(), Outcome::Ended);
  const Message& message = onlyMessage(host);
  EXPECT_EQ(message.kind, MessageKind::Error);
  EXPECT_EQ(message.title, "Error");
  EXPECT_EQ(message.text, "Scaling factor must be greater then 0.00!");
  EXPECT_EQ(host.statuses, std::vector<std::string>{"Loading Layer Definition File"});
  EXPECT_TRUE(hasScript());
  EXPECT_EQ(script(), "");
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(DriverTest, AScaleOfZeroIsRefusedInGerman) {
  speakGerman();
  job.scale = -0.0;
  convert();
  EXPECT_EQ(onlyMessage(host).title, "Fehler");
  EXPECT_EQ(onlyMessage(host).text, "Skalierungsfaktor muß größer als 0 sein!");
}

TEST_F(DriverTest, TheMissingNameIsNoticedBeforeTheScale) {
  job.scale = 0.0;
  job.blocks = kAllBlocksAsParts;
  convert();
  EXPECT_EQ(onlyMessage(host).title, "File Error");
}

TEST_F(DriverTest, ASettingThatCannotBeConvertedDoesNotReplaceAScriptAfterANo) {
  folder.write("drawing.scr", "old");
  job.scale = 0.0;
  convert();
  EXPECT_EQ(script(), "old");
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(DriverTest, CoordinatesOutOfRangeAreWrittenAndWarnedAboutAtTheEnd) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "33026"}, {21, "0"}});
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "33026.0000001"}, {21, "0"}});
  draw(dxf);
  job.report = true;
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(),
            framed("Layer  20 ;\r\n"
                   "Wire 0.0000000 (R0.0000000 0.0000000) (R33026.0000000 0.0000000);\r\n"
                   "Layer  20 ;\r\n"
                   "Wire 0.0000000 (R0.0000000 0.0000000) (R33026.0000001 0.0000000);\r\n" +
                   std::string(kRangeNote)));
  EXPECT_TRUE(result.rangeWarning);
  const Message& message = onlyMessage(host);
  EXPECT_EQ(message.kind, MessageKind::Warning);
  EXPECT_EQ(message.title, "Warning");
  EXPECT_EQ(message.text,
            "The Coordinates are out of range of EAGLE. This can cause an incomplete\r"
            "import into EAGLE. Please check your adjustment of scaling factor and unit.\r"
            "        ");
  EXPECT_EQ(message.detail,
            job.dxfFile +
                ": The Coordinates are out of range of EAGLE. This can cause an incomplete import "
                "into EAGLE. Please check your adjustment of scaling factor and unit.");
  EXPECT_EQ(host.reports.size(), 1U);
}

TEST_F(DriverTest, CoordinatesOutOfRangeAreWarnedAboutInGerman) {
  speakGerman();
  job.scale = 50000.0;
  convert();
  EXPECT_EQ(onlyMessage(host).title, "Warnung");
  EXPECT_EQ(onlyMessage(host).text,
            "Die Koordinatenbereich von EAGLE wurde überschritten! Dies könnte zu einer\r"
            "unvollständigen Darstellung führen. Bitte überprüfen Sie die Einstellungen\r"
            "des Skalierungsfaktors und der Einheit.");
}

/// Records the order in which a conversion calls its host.
class OrderHost : public testing::RecordingHost {
 public:
  explicit OrderHost(std::string scriptFile) : scriptFile_(std::move(scriptFile)) {}
  void tell(const Message& message) override { note("tell " + message.title); }
  void showReport(std::string_view) override { note("report"); }

  std::vector<std::string> order;

 private:
  void note(const std::string& what) {
    order.push_back(what + (std::filesystem::exists(scriptFile_) ? ", script in place" : ""));
  }
  std::string scriptFile_;
};

TEST_F(DriverTest, TheWarningThenTheReportFollowTheFinishedScript) {
  OrderHost orderHost(job.scriptFile);
  job.scale = 50000.0;
  job.report = true;
  convertDXF(job, orderHost, surroundings);
  EXPECT_EQ(orderHost.order,
            (std::vector<std::string>{"tell Warning, script in place", "report, script in place"}));
}

}  // namespace
}  // namespace quillon::convert
