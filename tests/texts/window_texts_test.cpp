#include "texts/expect_texts.h"

namespace quillon::texts {
namespace {

TEST(StringTable, HoldsTheCaptionsOfTheMainWindow) {
  expectTexts(std::to_array<Row>(
      {{900, "Quillon", "Quillon"},
       {901, "&Einstellungen speichern", "Sa&ve Configuration"},
       {902, "&Hilfe", "&Help"},
       {903, "&Layerzuweisung", "&Layer Definition"},
       {904, "&Start", "&Start"},
       {905, "&Beenden", "E&xit"},
       {906, "D&XF-Datei:", "DXF File:"},
       {907, "S&criptdatei:", "S&cript File:"},
       {908, "&Durchsuchen", "&Browse"},
       {909, "Durch&suchen", "Bro&wse"},
       {910, "BRD/SCH/LBR &Name (ohne Extension)", "BRD/SCH/LBR Name (without extension):"},
       {911, "Erstelle ein...", "Create a..."},
       {912, "S&kalierung", "S&caling:"},
       {913, "S&tandardlayer", "Standard Layer:"},
       {914, "E&inheit", "Unit"},
       {915, "Optionen", "Options"},
       {916, "Board", "Board"},
       {917, "Schematic", "Schematic"},
       {918, "Elli&psenemulation", "Elli&psesemulation"},
       {919, "E&mulation von Punkt-Strich-Linien", "Emulation of dotted Lines"},
       {920, "Anzeige eines Konvertierungsreports", "Show Conversion Report"},
       {922, "Layer-Definitions-Datei:", "Layer Definition File:"},
       {923, "Layer &Zuweisung", "Layer Definition"},
       {925, "EAGLE Version", "EAGLE version"},
       {926, "erzeuge Polylinien als", "Create Polylines as"},
       {927, "Blockverarbeitung", "Block Handling"},
       {928, "Festlegen", "Browse"},
       {929, "Package", "Package"},
       {930, "Symbol", "Symbol"},
       {931, "Bögen mit sehr großen Radien als Linie", "Arc with very large radius as line"},
       {932, "Kostenlosen DXF Viewer gesucht? Hier finden Sie einen empfehlenswerten:",
        "Are you searching for a free DXF viewer? Here you can find a nice one:"}}));
}

TEST(StringTable, HoldsTheFileErrorsAndFileDialogs) {
  expectTexts(
      std::to_array<Row>({{956, "Dateifehler", "File Error"},
                          {957, "Hilfedatei konnte nicht gefunden werden!", "Can't find Help file"},
                          {960, "Board- und Schaltplanname ohne Extension eingeben",
                           "Please put in Board- or Schematicname without Extension"},
                          {961, "DXF-Dateien", "DXF files"},
                          {962, "DXF Datei auswählen", "DXF File open"},
                          {963, "Script Dateien", "Script Files"},
                          {964, "Alle Dateien", "All Files"},
                          {965, "Script Datei auswählen", "Script File open"}}));
}

TEST(StringTable, HoldsTheCaptionsOfTheLayerEditor) {
  expectTexts(std::to_array<Row>(
      {{1100, "Layerzuweisungen bearbeiten", "Configure Layer Assignments"},
       {1101, "&Abbrechen", "&Cancel"},
       {1102, "&Ok", "&Ok"},
       {1103, "&Durchsuchen", "&Browse"},
       {1104, "Da&tei lesen", "&Read file"},
       {1105, "Datei s&peichern", "&Save file"},
       {1106, "Layerzuweisungsdatei:", "&Layer Definition File:"},
       {1108, "&Hilfe", "&Help"},
       {1109, "&Neu", "&New"},
       {1110, "&Speichern unter...", "S&ave file as..."},
       {1111, "Ermittelte DXF-Layer:", "Scaned DXF Layers:"},
       {1112, "Zugewiesene DXF ==> EAGLE-Layer:", "Defined Layer assignments:"},
       {1113, "markiert = bereits definiert", "Checked = already defined"},
       {1114, "zum Löschen DXF-Layer löschen", "delete ==> set DXF Layer to nothing"}}));
}

TEST(StringTable, HoldsTheMessagesOfTheLayerEditor) {
  expectTexts(std::to_array<Row>(
      {{1300, "Warnung", "Warning"},
       {1301, "Die geänderte Layerdefinitionsdatei wurde noch nicht gepeichert. Jetzt Speichern?",
        "Layer Definition File file wasn't saved. Save now?"},
       {1302, "Fehler", "Error"},
       {1304, "Dieser Layername wird schon benutzt!", "This Layername will be used already!"},
       {1305, "Layerdefinitionsdatei speichern", "Save Layer Definition File"}}));
}

TEST(StringTable, HoldsTheErrorsOfOpeningADocument) {
  expectTexts(std::to_array<Row>(
      {{4000, "Speicher zu klein", "Out of memory"},
       {4001, "Datei konnte nicht gefunden werden", "File not found"},
       {4002, "Pfad konnte nicht gefunden werden", "Path not found"},
       {4003, "Die Programmdatei ist defekt oder manipuliert",
        "The executable file is invalid or corrupt"},
       {4004, "Datei/Pfad Zugriffsfehler", "Path/file access error"},
       {4005, "Dieser Dateityp hat keine gültige Dateiverknüpfung.",
        "This file type does not have a valid file association."},
       {4006,
        "Diese Datei konnte nicht geöffnet werden, da die Ursprungsapplikation beschäftigt ist. "
        "Bitte versuchen Sie es später noch einmal.",
        "The file could not be opened because the target application is busy. Please try again in "
        "a moment."},
       {4007,
        "Diese Datei konnte nicht geöffnet werden, da die DDE Verknüpfung fehl schlug. Bitte "
        "versuchen Sie es später noch einmal.",
        "The file could not be opened because the DDE transaction failed. Please try again in a "
        "moment."},
       {4008,
        "Diese Datei konnte nicht wegen einem Timeout geöffnet werden. Bitte versuchen Sie es "
        "später noch einmal.",
        "The file could not be opened due to time out. Please try again in a moment."},
       {4009, "Die gesuchte DLL Datei konnte nicht gefunden werden.",
        "The specified dynamic-link library was not found."},
       {4011, "Dieser Dateityp hat keine gültige Dateiverknüpfung.",
        "No application is associated with this file type."},
       {4012, "Speicher zu klein", "Out of memory"},
       {4014, "Zugriffsverletzung trat auf.", "A sharing violation occurred."},
       {4015, "Ein Fehler trat beim Öffnen der selektierten Datei auf.",
        "An error occurred while trying to open the selected file."}}));
}

TEST(StringTable, HoldsTheTextsOfTheProgressDialog) {
  expectTexts(
      std::to_array<Row>({{2600, "Konvertierung", "Conversion"},
                          {2601, "&Abbruch", "&Cancel"},
                          {2602, "Einlesen der DXF-Datei", "Read in DXF file"},
                          {2603, "Schreiben in die Scriptdatei", "Write into Script file"}}));
}

TEST(StringTable, HoldsTheGridHeaderInBothLanguages) {
  const std::string_view header =
      "^                 DXF Layer                 |^  EAGLE Layer         ";
  expectTexts(std::to_array<Row>({{1107, header, header}}));
}

TEST(StringTable, HoldsTheLayerNamesOnceAndTheirSuffixInBothLanguages) {
  EXPECT_EQ(loadString(20000), "1  Top (B)");
  EXPECT_EQ(loadString(20019), "20 Dimension (B)");
  EXPECT_EQ(loadString(20050), "52 bDocu (B)");
  EXPECT_EQ(loadString(20055), "94 Symbols (S)");
  EXPECT_EQ(loadString(30000), "");
  EXPECT_EQ(loadString(30055), "");
  expectTexts(std::to_array<Row>({{20051, " Nutzerdefiniert", " Userdefined"},
                                  {20058, "999 nicht konv.", "999 unconverted"}}));
}

}  // namespace
}  // namespace quillon::texts
