// Files and names that are refused before anything is written.
#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

using namespace std::string_literals;

class RefusalTest : public DriverTest {
 protected:
  /// Converts a drawing with these bytes, which must be refused; gives the message's text.
  std::string refusal(std::string_view bytes) {
    folder.write("drawing.dxf", bytes);
    return refusal();
  }
  std::string refusal() {
    host.messages.clear();
    EXPECT_EQ(convert(), Outcome::Ended);
    EXPECT_FALSE(hasScript());
    EXPECT_EQ(folder.entries(), 1U);
    EXPECT_TRUE(host.questions.empty());
    EXPECT_EQ(result.report, "");
    if (host.messages.size() != 1) return "no single message";
    const Message& message = host.messages.front();
    EXPECT_EQ(message.kind, MessageKind::Error);
    EXPECT_EQ(message.detail, message.text);
    title = message.title;
    return message.text;
  }

  std::string title;
};

TEST_F(RefusalTest, AnEmptyFile) {
  EXPECT_EQ(refusal(""), job.dxfFile + " is empty. Please export the drawing again.");
  EXPECT_EQ(title, "File Error");
}

TEST_F(RefusalTest, ABinaryDxf) {
  EXPECT_EQ(refusal("AutoCAD Binary DXF\r\n\x1a\0"s),
            job.dxfFile + " is a binary DXF file. Please save the drawing as ASCII DXF.");
}

TEST_F(RefusalTest, ADwg) {
  EXPECT_EQ(refusal("AC1015\0\0\0\0\0\0"s),
            job.dxfFile + " is a DWG file. Please save the drawing as ASCII DXF.");
}

TEST_F(RefusalTest, AFileWithANulByte) {
  EXPECT_EQ(
      refusal("  0\nSECTION\n  2\nENTIT\0ES\n"s),
      job.dxfFile +
          " is not a text file, so it cannot be an ASCII DXF file. Please choose a DXF file.");
}

TEST_F(RefusalTest, AFileWithoutALineEndAtItsBeginning) {
  EXPECT_EQ(
      refusal(std::string(4096, '0') + "\n"),
      job.dxfFile +
          " is not a text file, so it cannot be an ASCII DXF file. Please choose a DXF file.");
}

TEST_F(RefusalTest, EachReasonInGerman) {
  speakGerman();
  EXPECT_EQ(refusal(""), job.dxfFile + " ist leer. Bitte die Zeichnung noch einmal exportieren.");
  EXPECT_EQ(title, "Dateifehler");
  EXPECT_EQ(
      refusal("AutoCAD Binary DXF\r\n\x1a\0"s),
      job.dxfFile + " ist eine binäre DXF-Datei. Bitte die Zeichnung als ASCII-DXF speichern.");
  EXPECT_EQ(refusal("AC1015\0\0"s),
            job.dxfFile + " ist eine DWG-Datei. Bitte die Zeichnung als ASCII-DXF speichern.");
  EXPECT_EQ(refusal("\0\n"s), job.dxfFile +
                                  " ist keine Textdatei und kann daher keine ASCII-DXF-Datei sein. "
                                  "Bitte eine DXF-Datei wählen.");
}

TEST_F(RefusalTest, ATextWithoutASectionWhereThatIsRefused) {
  surroundings.refuseWithoutSections = true;
  EXPECT_EQ(refusal("Dear reader,\nthis is no drawing.\n"),
            job.dxfFile + " contains no section of a DXF drawing. Please choose a DXF file.");
  speakGerman();
  EXPECT_EQ(
      refusal("Dear reader,\nthis is no drawing.\n"),
      job.dxfFile + " enthält keinen Abschnitt einer DXF-Zeichnung. Bitte eine DXF-Datei wählen.");
}

TEST_F(RefusalTest, NoTextWithASection) {
  surroundings.refuseWithoutSections = true;
  folder.write("drawing.dxf", "  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(), framed(""));
}

TEST_F(RefusalTest, ANulByteBehindTheFirstFourKilobytesIsNone) {
  std::string text = oneLine().text() + std::string(4096, '\n');
  text += '\0';
  folder.write("drawing.dxf", text);
  EXPECT_EQ(convert(), Outcome::Converted);
}

TEST_F(RefusalTest, ADrawingNameThatCouldEndItsQuotesOrItsCommand) {
  for (const std::string name : {"PART'", "A;B", "A\nB", "A\tB", "A\x7f"}) {
    job.drawingName = name;
    EXPECT_TRUE(refusal().starts_with("The drawing name \"")) << name;
  }
  job.drawingName = "PART'; DELETE";
  EXPECT_EQ(refusal(),
            "The drawing name \"PART'; DELETE\" contains an apostrophe, a semicolon or a control "
            "character. Please choose another name.");
  EXPECT_EQ(title, "File Error");
  job.drawingName = "A\x1b[B";
  EXPECT_NE(refusal().find("\"A\\x1b[B\""), std::string::npos);
}

TEST_F(RefusalTest, ADrawingNameWithAControlCharacterBeyondAscii) {
  job.drawingName =
      "A\xC2\x85"
      "B";
  EXPECT_TRUE(refusal().starts_with("The drawing name \"A"));
}

TEST_F(RefusalTest, ADrawingNameInGerman) {
  speakGerman();
  job.drawingName = "A;B";
  EXPECT_EQ(refusal(),
            "Der Zeichnungsname \"A;B\" enthält ein Hochkomma, ein Semikolon oder ein "
            "Steuerzeichen. Bitte einen anderen Namen wählen.");
}

TEST_F(RefusalTest, NoTarget) {
  for (const int kind : {4, -1}) {
    job.targetKind = kind;
    EXPECT_EQ(
        refusal(),
        "Nothing is chosen for the script to create. Please choose a board, schematic, package "
        "or symbol.");
  }
  EXPECT_EQ(title, "Error");
  speakGerman();
  EXPECT_EQ(refusal(),
            "Es ist nicht ausgewählt, was das Script erstellen soll. Bitte Board, Schematic, "
            "Package oder "
            "Symbol wählen.");
}

TEST_F(RefusalTest, AStandardLayerWithoutANumberWhereOneIsNeeded) {
  for (const char* const none : {"", " Userdefined"}) {
    job.defaultLayer = none;
    EXPECT_EQ(refusal(),
              "The DXF layer \"0\" is not assigned to an EAGLE layer, and the standard layer has "
              "no number. Please choose a standard layer with a number.");
  }
  EXPECT_EQ(title, "Error");
  speakGerman();
  EXPECT_EQ(refusal(),
            "Der DXF-Layer \"0\" ist keinem EAGLE-Layer zugewiesen, und der Standardlayer hat "
            "keine Nummer. Bitte einen Standardlayer mit Nummer wählen.");
}

TEST_F(RefusalTest, NoStandardLayerWhereEveryLayerIsAssigned) {
  job.defaultLayer = "";
  job.layerFile = folder.write("a.lay", "[1]\nlayername=0\nlayernr=16\n");
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_NE(script().find("Layer  16 ;"), std::string::npos);
}

TEST_F(RefusalTest, AnExistingScriptStaysWithoutAStandardLayer) {
  folder.write("drawing.scr", "old");
  job.overwriteScript = true;
  job.defaultLayer = " Userdefined";
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(script(), "old");
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(RefusalTest, TheDrawingAsItsOwnScript) {
  job.scriptFile = job.dxfFile;
  job.overwriteScript = true;
  EXPECT_EQ(refusal(), job.dxfFile + " is the drawing itself. Please choose another script file.");
  EXPECT_EQ(folder.read("drawing.dxf"), oneLine().text());
  speakGerman();
  EXPECT_EQ(refusal(), job.dxfFile +
                           " ist die Zeichnung selbst. Bitte eine andere Scriptdatei "
                           "wählen.");
}

TEST_F(RefusalTest, TheDrawingUnderAnotherSpellingOfItsPath) {
  job.scriptFile = folder.path().string() + "/./drawing.dxf";
  job.overwriteScript = true;
  EXPECT_NE(refusal().find("is the drawing itself"), std::string::npos);
}

TEST_F(RefusalTest, ALinkToTheDrawingAsItsScript) {
  std::filesystem::create_symlink("drawing.dxf", folder.file("drawing.scr"));
  job.overwriteScript = true;
  EXPECT_EQ(convert(), Outcome::Ended);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_NE(host.messages[0].text.find("is the drawing itself"), std::string::npos);
  EXPECT_EQ(folder.read("drawing.dxf"), oneLine().text());
}

}  // namespace
}  // namespace quillon::convert
