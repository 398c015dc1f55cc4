#include "convert/messages.h"

#include <gtest/gtest.h>

namespace quillon::convert {
namespace {

class MessagesTest : public ::testing::Test {
 protected:
  static void expectMessage(const Message& message, MessageKind kind, std::string_view title,
                            std::string_view text, std::string_view detail) {
    EXPECT_EQ(message.kind, kind);
    EXPECT_EQ(message.title, title);
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.detail, detail);
  }

  texts::Texts englishTexts{texts::kEnglish};
  texts::Texts germanTexts{texts::kGerman};
  Messages english{englishTexts};
  Messages german{germanTexts};
};

TEST_F(MessagesTest, ADrawingIsMissing) {
  expectMessage(english.drawingMissing("C:\\A.DXF", "why"), MessageKind::Error, "File Error",
                "Can't find the specified\rC:\\A.DXF\rDXF file!",
                "C:\\A.DXF cannot be read: why. Please check the path and its permissions.");
  expectMessage(german.drawingMissing("C:\\A.DXF", "why"), MessageKind::Error, "Dateifehler",
                "Gewähle DXF-Datei\rC:\\A.DXF\rkonnte nicht gefunden werden!",
                "C:\\A.DXF kann nicht gelesen werden: why. Bitte Pfad und Zugriffsrechte prüfen.");
}

TEST_F(MessagesTest, AScriptExists) {
  expectMessage(english.scriptExists("C:\\A.SCR"), MessageKind::Question, "Warning",
                "Scripfile exists already.\rC:\\A.SCR\rOverwrite?", "C:\\A.SCR");
  expectMessage(german.scriptExists("C:\\A.SCR"), MessageKind::Question, "Warnung",
                "Gewälte Scriptdatei\rC:\\A.SCR\rexistiert bereits. Überschreiben?", "C:\\A.SCR");
}

TEST_F(MessagesTest, TheNameIsMissing) {
  const std::string_view text = "There isn't determined a Board or Schematic File!";
  expectMessage(english.nameMissing(), MessageKind::Error, "File Error", text, text);
  const std::string_view inGerman = "Es wurde noch kein Board- bzw. Schematicname festgelegt!";
  expectMessage(german.nameMissing(), MessageKind::Error, "Dateifehler", inGerman, inGerman);
}

TEST_F(MessagesTest, TheScaleIsZero) {
  const std::string_view text = "Scaling factor must be greater then 0.00!";
  expectMessage(english.scaleIsZero(), MessageKind::Error, "Error", text, text);
  const std::string_view inGerman = "Skalierungsfaktor muß größer als 0 sein!";
  expectMessage(german.scaleIsZero(), MessageKind::Error, "Fehler", inGerman, inGerman);
}

TEST_F(MessagesTest, TheScriptCannotBeMade) {
  expectMessage(english.scriptError("C:\\A.SCR", "why"), MessageKind::Error, "File Error",
                "Can't open the specified\rC:\\A.SCR\rScript file!", "why");
  expectMessage(german.scriptError("C:\\A.SCR", "why"), MessageKind::Error, "Dateifehler",
                "Gewählte Scriptdatei\rC:\\A.SCR\rkonnte nicht geöffnet werden!", "why");
}

TEST_F(MessagesTest, CoordinatesAreOutOfRange) {
  expectMessage(english.outOfRange("a.dxf"), MessageKind::Warning, "Warning",
                "The Coordinates are out of range of EAGLE. This can cause an incomplete\r"
                "import into EAGLE. Please check your adjustment of scaling factor and unit.\r"
                "        ",
                "a.dxf: The Coordinates are out of range of EAGLE. This can cause an incomplete "
                "import into EAGLE. Please check your adjustment of scaling factor and unit.");
  expectMessage(german.outOfRange("a.dxf"), MessageKind::Warning, "Warnung",
                "Die Koordinatenbereich von EAGLE wurde überschritten! Dies könnte zu einer\r"
                "unvollständigen Darstellung führen. Bitte überprüfen Sie die Einstellungen\r"
                "des Skalierungsfaktors und der Einheit.",
                "a.dxf: Die Koordinatenbereich von EAGLE wurde überschritten! Dies könnte zu einer "
                "unvollständigen Darstellung führen. Bitte überprüfen Sie die Einstellungen des "
                "Skalierungsfaktors und der Einheit.");
}

TEST_F(MessagesTest, TheUserCancelledInALine) {
  expectMessage(english.cancelled("a.dxf", 1234), MessageKind::Warning, "Warning",
                "Interrupt by user in line 1234 of DXF file!",
                "a.dxf: Interrupt by user in line 1234 of DXF file!");
  expectMessage(german.cancelled("a.dxf", 1234), MessageKind::Warning, "Warnung",
                "Konvertierung durch Benutzer in Zeile 1234 der DXF-Datei abgebrochen!",
                "a.dxf: Konvertierung durch Benutzer in Zeile 1234 der DXF-Datei abgebrochen!");
}

}  // namespace
}  // namespace quillon::convert
