#include "convert/report.h"

#include <gtest/gtest.h>

#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;

/// Reports of conversions in a folder whose path is shown as "~".
class ReportTest : public DriverTest {
 protected:
  /// A drawing with two layers, two blocks and some entities.
  static DxfBuilder sample() {
    DxfBuilder dxf;
    dxf.layer("0").layer("Umri\xDF").layer("unused");
    dxf.beginBlock("Door").entity("LINE", {{8, "0"}, {11, "1"}}).endBlock();
    dxf.beginBlock("T\xFCr").endBlock();
    dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}});
    dxf.entity("INSERT", {{8, "0"}, {2, "DOOR"}, {41, "2"}, {42, "2"}});
    dxf.entity("MTEXT", {{8, "Umri\xDF"}, {1, "a"}, {40, "1"}});
    dxf.entity("SHAPE", {{8, "0"}});
    return dxf;
  }
  std::string reportOf(const DxfBuilder& dxf) {
    draw(dxf);
    job.overwriteScript = true;
    job.report = true;
    EXPECT_EQ(convert(), Outcome::Converted);
    std::string text = result.report;
    const std::string path = folder.path().string();
    for (std::size_t at = 0; (at = text.find(path)) != std::string::npos;) {
      text.replace(at, path.size() + 1, "~/");  // followed by either separator
    }
    return text;
  }
  /// The rest of the line that starts with a label.
  static std::string lineAfter(const std::string& report, const std::string& label) {
    const std::size_t at = report.find("\r\n" + label);
    if (at == std::string::npos) return "(no such line)";
    const std::size_t from = at + 2 + label.size();
    return report.substr(from, report.find("\r\n", from) - from);
  }
};

std::string lines(std::initializer_list<std::string_view> texts) {
  std::string out;
  for (const std::string_view text : texts) out.append("\r\n").append(text);
  return out;
}

const std::string kDoubleRule(76, '=');
const std::string kRule(76, '-');

TEST_F(ReportTest, IsCompleteInEnglish) {
  job.drawingName = "PART";
  job.blocks = kAllBlocksAsParts;
  job.layerFile = folder.write("a.lay", "[1]\nlayername=umri\xDF\nlayernr=21\n");
  const std::string allBlocks = "Create all included Blocks in Library named like Board";
  EXPECT_EQ(reportOf(sample()), lines({"Conversion Report ",
                                       kDoubleRule,
                                       "",
                                       "Time of conversion         : 21.11.2026    09:30:00",
                                       "DXF File                   : ~/drawing.dxf",
                                       "EAGLE Script File          : ~/drawing.scr",
                                       "Board/Library Name         : PART",
                                       "",
                                       "Converted for EAGLE version: 4.x/5.x",
                                       "Scale Factor               : 1.000",
                                       "Unit                       : mil",
                                       "Emulation of dotted Lines  : off",
                                       "Emulation of Ellipses      : off",
                                       "Creation of Polylines as   : Polyline",
                                       "Block Handling             : " + allBlocks,
                                       "",
                                       "Layer Definition File      : ~/a.lay",
                                       "Standard Layer             : 20 Dimension (B)",
                                       "",
                                       "",
                                       "Layer Conversion",
                                       "",
                                       "DXF Layer                ==>                EAGLE Layer",
                                       kRule,
                                       "0 ==> 20 Dimension (B)",
                                       "UMRIß ==> 21",
                                       "UNUSED ==> 20 Dimension (B)",
                                       "",
                                       "Included DXF Blocks",
                                       "",
                                       "Used   DXF Name    ==>    EAGLE Name",
                                       kRule,
                                       "Yes    DOOR ==> DOOR_1.pac; DOOR_2.pac; ",
                                       "No     TÜR ==> T_R_3.pac; ",
                                       "",
                                       "Converted DXF Entries:",
                                       "",
                                       "Entity         Count of converted Elements",
                                       kRule,
                                       "ARC           :0",
                                       "ATTDEF        :0",
                                       "ATTRIB        :0",
                                       "INSERT(Blocks):2",
                                       "CIRCLE        :0",
                                       "DIMENSION     :0",
                                       "ELLIPSE       :0",
                                       "3DFACE        :0",
                                       "3DLINE        :0",
                                       "LINE          :2",
                                       "LWPOLYLINE    :0",
                                       "SPLINE        :0",
                                       "POINT         :0",
                                       "POLYLINE      :0",
                                       "SHAPE         :1",
                                       "SOLID         :0",
                                       "TEXT          :1",
                                       "TRACE         :0",
                                       kRule,
                                       "132 Lines read in DXF",
                                       "58 Lines written in Script file",
                                       "  "}));
}

TEST_F(ReportTest, IsCompleteInGerman) {
  speakGerman();
  job.scaleText = " 2.50 ";
  job.unit = base::Unit::Mm;
  job.version = 0;
  job.dotted = true;
  job.ellipses = true;
  job.poly = 0;
  const std::string drawnBlocks = "Erzeuge keine Library (zeichne direkt in die Zeichnung)";
  EXPECT_EQ(reportOf(sample()), lines({"Konversionsreport ",
                                       kDoubleRule,
                                       "",
                                       "Konvertierungsdatum/Zeit    : 21.11.2026    09:30:00",
                                       "DXF-Datei                   : ~/drawing.dxf",
                                       "EAGLE-Script-Datei          : ~/drawing.scr",
                                       "Board/Library Name          : ",
                                       "",
                                       "Konvertiert für EAGLE Ver.  : 3.5",
                                       "Vergrößerungsfaktor         : 2.50",
                                       "Einheit                     : mm",
                                       "Emul. v. Punkt-Strich-Linien: an",
                                       "Emul. von Ellipsen          : an",
                                       "Erzeugung von Polylinien als: Wire mit Breite 0",
                                       "Block Verarbeitung          : " + drawnBlocks,
                                       "",
                                       "Layer-Definitions-Datei     : Kein",
                                       "Standard Layer              : 20 Dimension (B)",
                                       "",
                                       "",
                                       "Layer Konvertierung",
                                       "",
                                       "DXF Layer                ==>                EAGLE Layer",
                                       kRule,
                                       "0 ==> 20 Dimension (B)",
                                       "UMRIß ==> 20 Dimension (B)",
                                       "UNUSED ==> 20 Dimension (B)",
                                       "",
                                       "Beinhaltete DXF Blöcke",
                                       "",
                                       "Benutzt  DXF Name   ==>   EAGLE Name",
                                       kRule,
                                       "Alle Blöcke wurden direkt in die Zeichnung gezeichnet",
                                       "",
                                       "Konvertierte DXF Einträge:",
                                       "",
                                       "Eintrag         Anzahl konvertierter Elemente",
                                       kRule,
                                       "ARC           :0",
                                       "ATTDEF        :0",
                                       "ATTRIB        :0",
                                       "INSERT(Blocks):2",
                                       "CIRCLE        :0",
                                       "DIMENSION     :0",
                                       "ELLIPSE       :0",
                                       "3DFACE        :0",
                                       "3DLINE        :0",
                                       "LINE          :2",
                                       "LWPOLYLINE    :0",
                                       "SPLINE        :0",
                                       "POINT         :0",
                                       "POLYLINE      :0",
                                       "SHAPE         :1",
                                       "SOLID         :0",
                                       "TEXT          :1",
                                       "TRACE         :0",
                                       kRule,
                                       "132 Zeilen in der DXF-Datei gelesen",
                                       "14 Zeilen in die Script-Datei geschrieben",
                                       "  "}));
}

TEST_F(ReportTest, GivesTheLinesReadAndWritten) {
  const std::string report = reportOf(oneLine());
  EXPECT_TRUE(
      report.ends_with(kRule + "\r\n26 Lines read in DXF\r\n9 Lines written in Script file\r\n  "));
}

TEST_F(ReportTest, LabelsTheNameByTheTargetKind) {
  job.drawingName = "PART";
  const auto label = [this](int kind, int language) {
    job.targetKind = kind;
    surroundings.languageOffset = language;
    const std::string report = reportOf(oneLine());
    const std::size_t at = report.find(": PART\r\n");
    const std::size_t from = report.rfind("\r\n", at) + 2;
    return report.substr(from, at + 6 - from);
  };
  EXPECT_EQ(label(kBoard, texts::kEnglish), "Board/Library Name         : PART");
  EXPECT_EQ(label(kSchematic, texts::kEnglish), "Sheet/Library Name         : PART");
  EXPECT_EQ(label(kPackage, texts::kEnglish), "Library Name                : PART");
  EXPECT_EQ(label(kSymbol, texts::kEnglish), "Library Name                : PART");
  EXPECT_EQ(label(kBoard, texts::kGerman), "Board/Library Name          : PART");
  EXPECT_EQ(label(kSchematic, texts::kGerman), "Sheet/Library Name          : PART");
  EXPECT_EQ(label(kPackage, texts::kGerman), "Library Name                : PART");
}

TEST_F(ReportTest, ShowsTheTrimmedDrawingName) {
  job.drawingName = "  PART ";
  EXPECT_EQ(lineAfter(reportOf(oneLine()), "Board/Library Name         : "), "PART");
}

TEST_F(ReportTest, NamesTheChosenListEntries) {
  job.poly = 1;
  job.unit = base::Unit::Inch;
  std::string report = reportOf(oneLine());
  EXPECT_EQ(lineAfter(report, "Creation of Polylines as   : "), "Wire with width");
  EXPECT_EQ(lineAfter(report, "Unit                       : "), "inch");
  job.poly = 0;
  job.unit = base::Unit::Mic;
  report = reportOf(oneLine());
  EXPECT_EQ(lineAfter(report, "Creation of Polylines as   : "), "Wire without width");
  EXPECT_EQ(lineAfter(report, "Unit                       : "), "mic");
  EXPECT_EQ(lineAfter(report, "Block Handling             : "),
            "Create no Library (Create Blocks direct in Drawing)");
  job.blocks = kUsedBlocksAsParts;
  job.drawingName = "PART";
  EXPECT_EQ(lineAfter(reportOf(oneLine()), "Block Handling             : "),
            "Create only used Blocks in Library named like Board");
}

TEST_F(ReportTest, AnIndexOutsideItsListHasAnEmptyText) {
  job.poly = -1;
  job.unit = base::Unit::None;
  job.version = 3;
  job.blocks = 7;
  job.drawingName = "PART";
  const std::string report = reportOf(oneLine());
  EXPECT_EQ(lineAfter(report, "Creation of Polylines as   : "), "");
  EXPECT_EQ(lineAfter(report, "Unit                       : "), "");
  EXPECT_EQ(lineAfter(report, "Converted for EAGLE version: "), "");
  EXPECT_EQ(lineAfter(report, "Block Handling             : "), "");
}

TEST_F(ReportTest, NamesSymbolsWithTheirDevices) {
  job.drawingName = "PART";
  job.blocks = kUsedBlocksAsParts;
  for (const int kind : {kSchematic, kPackage, kSymbol}) {
    job.targetKind = kind;
    EXPECT_EQ(lineAfter(reportOf(sample()), "Yes    "),
              "DOOR ==> DOOR_1.sym (DOOR_1.dev ); DOOR_2.sym (DOOR_2.dev ); ");
  }
}

TEST_F(ReportTest, ABlockWithoutAPartHasNothingAfterTheArrow) {
  job.drawingName = "PART";
  job.blocks = kUsedBlocksAsParts;
  EXPECT_EQ(lineAfter(reportOf(sample()), "No     "), "TÜR ==> ");
}

TEST_F(ReportTest, SaysInGermanWhichBlocksAreUsed) {
  speakGerman();
  job.drawingName = "PART";
  job.blocks = kUsedBlocksAsParts;
  const std::string report = reportOf(sample());
  EXPECT_EQ(lineAfter(report, "Ja     "), "DOOR ==> DOOR_1.pac; DOOR_2.pac; ");
  EXPECT_EQ(lineAfter(report, "Nein   "), "TÜR ==> ");
}

TEST_F(ReportTest, AnInsertionInsideAPartDoesNotCountAsUsed) {
  DxfBuilder dxf;
  dxf.beginBlock("OUTER").entity("INSERT", {{8, "0"}, {2, "INNER"}}).endBlock();
  dxf.beginBlock("INNER").endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "OUTER"}});
  job.drawingName = "PART";
  job.blocks = kUsedBlocksAsParts;
  const std::string report = reportOf(dxf);
  EXPECT_EQ(lineAfter(report, "Yes    "), "OUTER ==> OUTER_1.pac; ");
  EXPECT_EQ(lineAfter(report, "No     "), "INNER ==> ");
  EXPECT_EQ(lineAfter(report, "INSERT(Blocks):"), "2");
}

TEST_F(ReportTest, EmptyStoresGiveNoLines) {
  job.drawingName = "PART";
  job.blocks = kAllBlocksAsParts;
  const std::string report = reportOf(DxfBuilder());
  EXPECT_NE(report.find("EAGLE Layer\r\n" + kRule + "\r\n\r\nIncluded DXF Blocks"),
            std::string::npos);
  EXPECT_NE(report.find("EAGLE Name\r\n" + kRule + "\r\n\r\nConverted DXF Entries:"),
            std::string::npos);
}

TEST_F(ReportTest, ShowsAFractionAsTheLayerFileHoldsIt) {
  job.layerFile = folder.write("a.lay",
                               "[1]\nlayername=0\nlayernr=16.7\n[2]\nlayername=unused\n"
                               "layernr=abc\n");
  const std::string report = reportOf(sample());
  EXPECT_EQ(lineAfter(report, "0 ==> "), "16.7");
  EXPECT_EQ(lineAfter(report, "UNUSED ==> "), "0");
}

TEST_F(ReportTest, CountsEveryKindOnItsOwnLine) {
  DxfBuilder dxf;
  // Each kind occurs as often as its line number in the report.
  const std::vector<std::string> kinds = {"ARC",        "ATTDEF",  "ATTRIB", "INSERT",   "CIRCLE",
                                          "DIMENSION",  "ELLIPSE", "3DFACE", "3DLINE",   "LINE",
                                          "LWPOLYLINE", "SPLINE",  "POINT",  "POLYLINE", "SHAPE",
                                          "SOLID",      "TEXT",    "TRACE"};
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    for (std::size_t n = 0; n <= i; ++n) dxf.entity(kinds[i], {{8, "0"}});
  }
  dxf.entity("MTEXT", {{8, "0"}}).entity("LEADER", {{8, "0"}});
  dxf.entity("VERTEX", {{8, "0"}}).entity("SEQEND", {{8, "0"}});
  const std::string report = reportOf(dxf);
  EXPECT_EQ(lineAfter(report, "ARC           :"), "1");
  EXPECT_EQ(lineAfter(report, "ATTDEF        :"), "2");
  EXPECT_EQ(lineAfter(report, "ATTRIB        :"), "3");
  EXPECT_EQ(lineAfter(report, "INSERT(Blocks):"), "4");
  EXPECT_EQ(lineAfter(report, "CIRCLE        :"), "5");
  EXPECT_EQ(lineAfter(report, "DIMENSION     :"), "6");
  EXPECT_EQ(lineAfter(report, "ELLIPSE       :"), "7");
  EXPECT_EQ(lineAfter(report, "3DFACE        :"), "8");
  EXPECT_EQ(lineAfter(report, "3DLINE        :"), "9");
  EXPECT_EQ(lineAfter(report, "LINE          :"), "10");
  EXPECT_EQ(lineAfter(report, "LWPOLYLINE    :"), "12");  // 11 and the LEADER
  EXPECT_EQ(lineAfter(report, "SPLINE        :"), "12");
  EXPECT_EQ(lineAfter(report, "POINT         :"), "13");
  EXPECT_EQ(lineAfter(report, "POLYLINE      :"), "14");
  EXPECT_EQ(lineAfter(report, "SHAPE         :"), "15");
  EXPECT_EQ(lineAfter(report, "SOLID         :"), "16");
  EXPECT_EQ(lineAfter(report, "TEXT          :"), "18");  // 17 and the MTEXT
  EXPECT_EQ(lineAfter(report, "TRACE         :"), "18");
}

TEST_F(ReportTest, CountsEntitiesThatAreNotConvertedAndThoseOfExpandedBlocks) {
  job.layerFile = folder.write("a.lay", "[1]\nlayername=X\nlayernr=999\n");
  DxfBuilder dxf;
  dxf.beginBlock("A").entity("POINT", {{8, "X"}}).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}});
  dxf.entity("CIRCLE", {{8, "X"}, {40, "1"}});
  const std::string report = reportOf(dxf);
  EXPECT_EQ(lineAfter(report, "POINT         :"), "2");
  EXPECT_EQ(lineAfter(report, "CIRCLE        :"), "1");
}

TEST_F(ReportTest, IsUnicodeTextWhateverTheDrawingHolds) {
  DxfBuilder dxf;
  dxf.layer("\x80\x81\x93").layer("plain");
  EXPECT_NE(reportOf(dxf).find("\r\n€\xC2\x81“ ==> "), std::string::npos);
}

}  // namespace
}  // namespace quillon::convert
