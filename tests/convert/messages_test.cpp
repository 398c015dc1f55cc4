#include "convert/messages.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace quillon::convert {
namespace {

using dxf::Fault;

std::string textOf(Fault fault, std::string_view subject, std::uint64_t line, int language) {
  const resources::Texts texts(language);
  dxf::RunTimeError error(fault, subject);
  error.setLine(line);
  return Messages(texts).faultText(error, "a.dxf");
}

TEST(FaultText, NamesFileLineReasonAndRemedyInEnglish) {
  constexpr int kLanguage = resources::kEnglish;
  EXPECT_EQ(textOf(Fault::BadGroupCode, "x", 7, kLanguage),
            "a.dxf:7: The line \"x\" is no group code. The file is damaged; please export the "
            "drawing again.");
  EXPECT_EQ(textOf(Fault::TextEndsTooEarly, "", 9, kLanguage),
            "a.dxf:9: The file ends inside a table, a block or an entity. It is incomplete; "
            "please export the drawing again.");
  EXPECT_EQ(textOf(Fault::TooManyPoints, "1", 3, kLanguage),
            "a.dxf:3: A spline has fit points in a form that cannot be read. Please turn splines "
            "into polylines before exporting.");
  EXPECT_EQ(textOf(Fault::BadNumber, "", 3, kLanguage),
            "a.dxf:3: A coordinate or size is no finite number. Please correct the entity in the "
            "drawing or check the scale factor.");
  EXPECT_EQ(textOf(Fault::BadLayerNumber, "70000", 3, kLanguage),
            "a.dxf:3: \"70000\" is no EAGLE layer number. Please correct the layer assignment or "
            "the standard layer.");
  EXPECT_EQ(textOf(Fault::NestingTooDeep, "B", 3, kLanguage),
            "a.dxf:3: Blocks are nested more than 1000 levels deep (\"B\"). Please explode blocks "
            "in the drawing.");
  EXPECT_EQ(textOf(Fault::BadDashLength, "", 3, kLanguage),
            "a.dxf:3: The length of a dash or of a dashed line is no finite number. Please "
            "correct the line type or switch off the emulation of dotted lines.");
}

TEST(FaultText, NamesFileLineReasonAndRemedyInGerman) {
  constexpr int kLanguage = resources::kGerman;
  EXPECT_EQ(textOf(Fault::BadGroupCode, "x", 7, kLanguage),
            "a.dxf:7: Die Zeile \"x\" ist kein Gruppencode. Die Datei ist beschädigt; bitte die "
            "Zeichnung neu exportieren.");
  EXPECT_EQ(textOf(Fault::TextEndsTooEarly, "", 9, kLanguage),
            "a.dxf:9: Die Datei endet mitten in einer Tabelle, einem Block oder einem Element. "
            "Sie ist unvollständig; bitte die Zeichnung neu exportieren.");
  EXPECT_EQ(textOf(Fault::BadLayerNumber, "70000", 3, kLanguage),
            "a.dxf:3: \"70000\" ist keine EAGLE-Layernummer. Bitte die Layerzuweisung oder den "
            "Standardlayer berichtigen.");
  EXPECT_EQ(textOf(Fault::NestingTooDeep, "B", 3, kLanguage),
            "a.dxf:3: Blöcke sind tiefer als 1000 Stufen ineinander geschachtelt (\"B\"). Bitte "
            "die Blöcke in der Zeichnung auflösen.");
}

TEST(FaultText, LeavesOutALineThatIsNotKnown) {
  EXPECT_TRUE(textOf(Fault::BadNumber, "", 0, resources::kEnglish).starts_with("a.dxf: A coord"));
}

TEST(FaultText, QuotesTheSubjectAsValidUtf8WithoutControlCharacters) {
  const std::string text = textOf(Fault::BadGroupCode, "T\xFCr\t\x1b", 1, resources::kEnglish);
  EXPECT_NE(text.find("\"Tür\\x09\\x1b\""), std::string::npos) << text;
}

TEST(Quotable, EscapesControlCharacters) {
  EXPECT_EQ(quotable("a\nb\r\tc\x7f\x01"), "a\\x0ab\\x0d\\x09c\\x7f\\x01");
  EXPECT_EQ(quotable("Grundriß 1.dxf"), "Grundriß 1.dxf");
}

TEST(Quotable, EscapesTheControlCharactersBeyondAscii) {
  // U+009B alone starts a terminal's control sequence as ESC [ does.
  const std::string quoted = quotable(
      "a\xC2\x9B"
      "b");
  EXPECT_EQ(quoted.find("\xC2\x9B"), std::string::npos);
  EXPECT_TRUE(quoted.starts_with("a"));
  EXPECT_TRUE(quoted.ends_with("b"));
}

TEST(Quotable, CutsALongTextBetweenCharacters) {
  EXPECT_EQ(quotable(std::string(200, 'x')), std::string(200, 'x'));
  EXPECT_EQ(quotable(std::string(201, 'x')), std::string(200, 'x') + "…");
  EXPECT_EQ(quotable(std::string(199, 'x') + "äöü"), std::string(199, 'x') + "ä…");
}

class MessagesTest : public ::testing::Test {
 protected:
  static void expectMessage(const Message& message, MessageKind kind, std::string_view title,
                            std::string_view text, std::string_view detail) {
    EXPECT_EQ(message.kind, kind);
    EXPECT_EQ(message.title, title);
    EXPECT_EQ(message.text, text);
    EXPECT_EQ(message.detail, detail);
  }

  resources::Texts englishTexts{resources::kEnglish};
  resources::Texts germanTexts{resources::kGerman};
  Messages english{englishTexts};
  Messages german{germanTexts};
};

TEST_F(MessagesTest, WordTheReasonsOfTheSystem) {
  EXPECT_EQ(english.reasonText(ENOENT), "No such file or directory");
  EXPECT_EQ(english.reasonText(EACCES), "Permission denied");
  EXPECT_EQ(english.reasonText(EPERM), "Permission denied");
  EXPECT_EQ(english.reasonText(EISDIR), "Is a directory");
  EXPECT_EQ(english.reasonText(ENOSPC), "No space left on device");
  EXPECT_EQ(english.reasonText(EROFS), "Read-only file system");
  EXPECT_EQ(english.reasonText(EPIPE), "Broken pipe");
  EXPECT_EQ(german.reasonText(ENOENT), "Datei oder Verzeichnis nicht gefunden");
  EXPECT_EQ(german.reasonText(EACCES), "Keine Berechtigung");
  EXPECT_EQ(german.reasonText(EISDIR), "Ist ein Verzeichnis");
  EXPECT_EQ(german.reasonText(ENOSPC), "Kein Speicherplatz mehr frei");
  EXPECT_EQ(german.reasonText(EROFS), "Das Dateisystem ist schreibgeschützt");
}

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
