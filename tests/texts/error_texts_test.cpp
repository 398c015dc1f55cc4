#include "texts/error_texts.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace quillon::texts {
namespace {

using base::Fault;

std::string textOf(Fault fault, std::string_view subject, std::uint64_t line, int language) {
  const Texts texts(language);
  base::RunTimeError error(fault, subject);
  error.setLine(line);
  return faultText(error, "a.dxf", texts);
}

TEST(FaultText, NamesFileLineReasonAndRemedyInEnglish) {
  constexpr int kLanguage = kEnglish;
  EXPECT_EQ(textOf(Fault::BadGroupCode, "x", 7, kLanguage),
            "a.dxf:7: The line \"x\" is not a group code. The file is damaged; please export the "
            "drawing again.");
  EXPECT_EQ(textOf(Fault::TextEndsTooEarly, "", 9, kLanguage),
            "a.dxf:9: The file ends inside a table, a block or an entity. It is incomplete; "
            "please export the drawing again.");
  EXPECT_EQ(textOf(Fault::TooManyPoints, "1", 3, kLanguage),
            "a.dxf:3: A spline has fit points in a form that cannot be read. Please turn splines "
            "into polylines before exporting.");
  EXPECT_EQ(
      textOf(Fault::BadNumber, "", 3, kLanguage),
      "a.dxf:3: A coordinate or size is not a finite number. Please correct the entity in the "
      "drawing or check the scale factor.");
  EXPECT_EQ(
      textOf(Fault::BadLayerNumber, "70000", 3, kLanguage),
      "a.dxf:3: \"70000\" is not an EAGLE layer number. Please correct the layer assignment or "
      "the standard layer.");
  EXPECT_EQ(textOf(Fault::NestingTooDeep, "B", 3, kLanguage),
            "a.dxf:3: Blocks are nested more than 1000 levels deep (\"B\"). Please explode blocks "
            "in the drawing.");
  EXPECT_EQ(textOf(Fault::BadDashLength, "", 3, kLanguage),
            "a.dxf:3: The length of a dash or of a dashed line is not a finite number. Please "
            "correct the line type or switch off the emulation of dotted lines.");
}

TEST(FaultText, NamesFileLineReasonAndRemedyInGerman) {
  constexpr int kLanguage = kGerman;
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
  EXPECT_TRUE(textOf(Fault::BadNumber, "", 0, kEnglish).starts_with("a.dxf: A coord"));
}

TEST(FaultText, QuotesTheSubjectAsValidUtf8WithoutControlCharacters) {
  const std::string text = textOf(Fault::BadGroupCode, "T\xFCr\t\x1b", 1, kEnglish);
  EXPECT_NE(text.find("\"Tür\\x09\\x1b\""), std::string::npos) << text;
}

TEST(ReasonText, WordsTheReasonsOfTheSystem) {
  const Texts english(kEnglish);
  const Texts german(kGerman);
  EXPECT_EQ(reasonText(ENOENT, english), "No such file or directory");
  EXPECT_EQ(reasonText(EACCES, english), "Permission denied");
  EXPECT_EQ(reasonText(EPERM, english), "Permission denied");
  EXPECT_EQ(reasonText(EISDIR, english), "Is a directory");
  EXPECT_EQ(reasonText(ENOSPC, english), "No space left on device");
  EXPECT_EQ(reasonText(EROFS, english), "Read-only file system");
  EXPECT_EQ(reasonText(EPIPE, english), "Broken pipe");
  EXPECT_EQ(reasonText(ENOENT, german), "Datei oder Verzeichnis nicht gefunden");
  EXPECT_EQ(reasonText(EACCES, german), "Keine Berechtigung");
  EXPECT_EQ(reasonText(EISDIR, german), "Ist ein Verzeichnis");
  EXPECT_EQ(reasonText(ENOSPC, german), "Kein Speicherplatz mehr frei");
  EXPECT_EQ(reasonText(EROFS, german), "Das Dateisystem ist schreibgeschützt");
}

}  // namespace
}  // namespace quillon::texts
