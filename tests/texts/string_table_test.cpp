#include "texts/string_table.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "texts/expect_texts.h"

namespace quillon::texts {
namespace {

TEST(StringTable, HoldsTheEntriesOfThePolylineAndBlockLists) {
  expectTexts(
      std::to_array<Row>({{950, "Wire mit Breite 0", "Wire without width"},
                          {951, "Wire mit def. Breite", "Wire with width"},
                          {952, "Polyline", "Polyline"},
                          {953, "Erzeuge keine Library (zeichne direkt in die Zeichnung)",
                           "Create no Library (Create Blocks direct in Drawing)"},
                          {954, "Erzeuge nur benutzte Blocks in Library (Name wie Board)",
                           "Create only used Blocks in Library named like Board"},
                          {955, "Erzeuge alle beinhaltete Blocks in Library (Name wie Board)",
                           "Create all included Blocks in Library named like Board"}}));
}

TEST(StringTable, HoldsTitleAndFilterOfTheDrawingDialog) {
  expectTexts(std::to_array<Row>(
      {{961, "DXF-Dateien", "DXF files"}, {962, "DXF Datei auswählen", "DXF File open"}}));
}

TEST(StringTable, HoldsTheFileAndScaleMessagesOfAConversion) {
  expectTexts(std::to_array<Row>({{2802, "Gewähle DXF-Datei", "Can't find the specified"},
                                  {2803, "konnte nicht gefunden werden!", "DXF file!"},
                                  {2804, "Dateifehler", "File Error"},
                                  {2805, "Warnung", "Warning"},
                                  {2806, "Gewälte Scriptdatei", "Scripfile exists already."},
                                  {2807, "existiert bereits. Überschreiben?", "Overwrite?"},
                                  {2808, "Es wurde noch kein Board- bzw. Schematicname festgelegt!",
                                   "There isn't determined a Board or Schematic File!"},
                                  {2809, "Dateifehler", "File Error"},
                                  {2810, "Skalierungsfaktor muß größer als 0 sein!",
                                   "Scaling factor must be greater then 0.00!"},
                                  {2811, "Fehler", "Error"},
                                  {2812, "Gewählte Scriptdatei", "Can't open the specified"},
                                  {2813, "konnte nicht geöffnet werden!", "Script file!"},
                                  {2814, "Dateifehler", "File Error"}}));
}

TEST(StringTable, HoldsTheCancelMessageAndTheProgressTexts) {
  expectTexts(std::to_array<Row>(
      {{2816, "Konvertierung durch Benutzer in Zeile ", "Interrupt by user in line "},
       {2817, "der DXF-Datei abgebrochen!", "of DXF file!"},
       {2834, "Verarbeiten des DXF Kopfes", "Processing Header of DXF"},
       {2835, "Verarbeiten der DXF BLöcke ", "Processing Blocks of DXF"},
       {2836, "Verarbeiten der DXF Entities ", "Processing Entities of DXF"},
       {2838, "Lesen der Layer-Definitions-Datei", "Loading Layer Definition File"},
       {2839, "Konvertiere Daten", "Converting Data"}}));
}

TEST(StringTable, HoldsTheRangeWarning) {
  expectTexts(std::to_array<Row>(
      {{2930, "Die Koordinatenbereich von EAGLE wurde überschritten! Dies könnte zu einer",
        "The Coordinates are out of range of EAGLE. This can cause an incomplete"},
       {2931, "unvollständigen Darstellung führen. Bitte überprüfen Sie die Einstellungen",
        "import into EAGLE. Please check your adjustment of scaling factor and unit."},
       {2932, "des Skalierungsfaktors und der Einheit.", "        "},
       {2933, "Warnung", "Warning"}}));
}

TEST(StringTable, HoldsTheSettingsLinesOfTheReport) {
  expectTexts(std::to_array<Row>(
      {{2900, "Konversionsreport ", "Conversion Report "},
       {2901, "Konvertierungsdatum/Zeit    : ", "Time of conversion         : "},
       {2902, "DXF-Datei                   : ", "DXF File                   : "},
       {2903, "EAGLE-Script-Datei          : ", "EAGLE Script File          : "},
       {2904, "Board/Library Name          : ", "Board/Library Name         : "},
       {2905, "Library Name                : ", "Library Name                : "},
       {2906, "Sheet/Library Name          : ", "Sheet/Library Name         : "},
       {2907, "Konvertiert für EAGLE Ver.  : ", "Converted for EAGLE version: "},
       {2908, "Vergrößerungsfaktor         : ", "Scale Factor               : "},
       {2909, "Einheit                     : ", "Unit                       : "},
       {2910, "Emul. v. Punkt-Strich-Linien: ", "Emulation of dotted Lines  : "},
       {2911, "an", "on"},
       {2912, "aus", "off"},
       {2913, "Emul. von Ellipsen          : ", "Emulation of Ellipses      : "},
       {2914, "Erzeugung von Polylinien als: ", "Creation of Polylines as   : "},
       {2915, "Block Verarbeitung          : ", "Block Handling             : "},
       {2916, "Layer-Definitions-Datei     : ", "Layer Definition File      : "},
       {2917, "Kein", "None"},
       {2918, "Standard Layer              : ", "Standard Layer             : "}}));
}

TEST(StringTable, HoldsTheListLinesOfTheReport) {
  const std::string doubleRule(76, '=');
  const std::string rule(76, '-');
  expectTexts(std::to_array<Row>(
      {{2919, "Layer Konvertierung", "Layer Conversion"},
       {2920, "DXF Layer                ==>                EAGLE Layer",
        "DXF Layer                ==>                EAGLE Layer"},
       {2921, "Beinhaltete DXF Blöcke", "Included DXF Blocks"},
       {2922, "Benutzt  DXF Name   ==>   EAGLE Name", "Used   DXF Name    ==>    EAGLE Name"},
       {2923, "Ja     ", "Yes    "},
       {2924, "Nein   ", "No     "},
       {2925, "Alle Blöcke wurden direkt in die Zeichnung gezeichnet",
        "All Blocks were written directly in Drawing"},
       {2926, "Konvertierte DXF Einträge:", "Converted DXF Entries:"},
       {2927, "Eintrag         Anzahl konvertierter Elemente",
        "Entity         Count of converted Elements"},
       {2928, "Zeilen in der DXF-Datei gelesen", "Lines read in DXF"},
       {2929, "Zeilen in die Script-Datei geschrieben", "Lines written in Script file"},
       {2934, doubleRule, doubleRule},
       {2935, rule, rule}}));
}

TEST(StringTable, GivesNothingForAnIdWithoutAnEntry) {
  EXPECT_EQ(loadString(0), "");
  EXPECT_EQ(loadString(-1), "");
  EXPECT_EQ(loadString(1000), "");
  EXPECT_EQ(loadString(9999), "");
  EXPECT_EQ(loadString(11000), "");
  EXPECT_EQ(loadString(32767), "");
}

TEST(StringTable, AnOffsetThatIsNotALanguageHitsUnrelatedEntriesOrNone) {
  const Texts texts(1);
  EXPECT_EQ(texts(TextId::FileErrorTitle), "Warnung");  // 2805
  EXPECT_EQ(texts(TextId::EditorDeleteHint), "");       // 1115
}

TEST(StringTable, FindsEveryNameUnderItsNumber) {
  for (const TextId id : kTextIds) EXPECT_NE(loadString(id), "") << static_cast<int>(id);
  EXPECT_EQ(loadString(TextId::ErrorTitle), loadString(2811));
  EXPECT_EQ(loadString(TextId::LayerUnconverted), loadString(20058));
}

TEST(TextRow, IncludesBothEndsAndSkipsUnusedNumbers) {
  constexpr TextRow kRow = textRow(TextId::TipStartScript, TextId::TipPolylines);
  ASSERT_EQ(kRow.size(), 4U);
  EXPECT_EQ(kRow[0], TextId::TipStartScript);  // 989
  EXPECT_EQ(kRow[1], TextId::TipUnit);         // 991
  EXPECT_EQ(kRow[2], TextId::TipVersion);      // 992
  EXPECT_EQ(kRow[3], TextId::TipPolylines);    // 994
}

TEST(Texts, TakeNamesAlone) {
  EXPECT_TRUE((std::is_invocable_v<Texts, TextId>));
  EXPECT_FALSE((std::is_invocable_v<Texts, int>));
}

TEST(Texts, AddTheLanguageOffsetToTheId) {
  EXPECT_EQ(Texts(kGerman)(TextId::ReportNoLayerFile), "Kein");
  EXPECT_EQ(Texts(kEnglish)(TextId::ReportNoLayerFile), "None");
  EXPECT_EQ(Texts(kGerman).languageOffset(), 0);
  EXPECT_EQ(Texts(kEnglish).languageOffset(), 10000);
}

TEST(Texts, FillArgumentsIntoATextOfTheTable) {
  EXPECT_EQ(Texts(kEnglish)(TextId::DrawingsConverted, {"2", "3"}), "2 of 3 drawings converted");
  EXPECT_EQ(Texts(kGerman)(TextId::DrawingsConverted, {"2", "3"}),
            "2 von 3 Zeichnungen konvertiert");
}

TEST(FillIn, ReplacesNumberedMarksByTheirArguments) {
  EXPECT_EQ(fillIn("%1: %2", {"a", "b"}), "a: b");
  EXPECT_EQ(fillIn("%2%1%2", {"a", "b"}), "bab");
}

TEST(FillIn, LeavesMarksWithoutAnArgumentAndLonelyPercentSigns) {
  EXPECT_EQ(fillIn("%1 %2 %0 % %x %", {"a"}), "a %2 %0 % %x %");
  EXPECT_EQ(fillIn("%1", {}), "%1");
}

TEST(FillIn, DoesNotLookInsideWhatItFilledIn) { EXPECT_EQ(fillIn("%1 %2", {"%2", "b"}), "%2 b"); }

}  // namespace
}  // namespace quillon::texts
