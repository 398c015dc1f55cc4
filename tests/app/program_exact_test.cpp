// The exact rules on the command line: each option, and what is wrong with values.
#include "app/json_value.h"
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::DxfBuilder;
using testing::JsonValue;

class ExactProgramTest : public ProgramTest {
 protected:
  testing::ProgramResult runExact(const DxfBuilder& dxf, const Strings& options,
                                  const Strings& further = {"--quiet"}) {
    write("part.dxf", dxf);
    Strings arguments = {"part.dxf", "-o", "-", "--rules", "exact"};
    const auto addUnlessGiven = [&](const char* option, const char* value) {
      if (std::count(options.begin(), options.end(), option) > 0) return;
      arguments.insert(arguments.end(), {option, value});
    };
    addUnlessGiven("--name", "");
    addUnlessGiven("--eagle", "6");
    arguments.insert(arguments.end(), further.begin(), further.end());
    arguments.insert(arguments.end(), options.begin(), options.end());
    return run(arguments);
  }
  /// The commands between the settings of the exact rules and the end of the frame.
  std::string drawn(const DxfBuilder& dxf, const Strings& options = {}) {
    const testing::ProgramResult result = runExact(dxf, options);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    const std::string_view start = "Change Ratio 8;\r\n";
    const std::size_t from = result.output.find(start);
    const std::size_t to = result.output.find("Set Undo_Log on;");
    if (from == std::string::npos || to == std::string::npos) return result.output;
    std::string text = result.output.substr(from + start.size(), to - from - start.size());
    const std::string align = "Change Align Bottom Left;\r\n";
    if (text.starts_with(align)) text.erase(0, align.size());
    return text;
  }
  std::string usageError(const Strings& options, const DxfBuilder& dxf = oneLine()) {
    const testing::ProgramResult result = runExact(dxf, options);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    return result.error;
  }
  static DxfBuilder line(std::string_view layer = "0") {
    DxfBuilder dxf;
    dxf.entity("LINE", {{8, layer}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
    return dxf;
  }
};

TEST_F(ExactProgramTest, DrawsInMillimetresWithPlainPoints) {
  EXPECT_EQ(drawn(line()),
            "Layer  20 ;\r\n"
            "Wire 0.0000000 (0.0000000 0.0000000) (10.0000000 0.0000000);\r\n");
}

TEST_F(ExactProgramTest, ItsOptionsNeedItsRules) {
  write("part.dxf", oneLine());
  for (const char* const option :
       {"--hidden", "--lineweights", "--closed-as-areas", "--plain-letters", "--keep-duplicates"}) {
    const testing::ProgramResult result = run({"part.dxf", option});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.error.find(std::string(option) + " needs --rules exact"), std::string::npos)
        << result.error;
  }
  const testing::ProgramResult result = run({"part.dxf", "--join", "0.1", "--rules", "classic"});
  EXPECT_NE(result.error.find("--join needs --rules exact"), std::string::npos) << result.error;
}

TEST_F(ExactProgramTest, RefusesEagle3) {
  write("part.dxf", oneLine());
  const testing::ProgramResult result = run({"part.dxf", "--rules", "exact", "--eagle", "3.5"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_NE(result.error.find("Exact conversion needs EAGLE 4.1 or later."), std::string::npos);
}

/// The block B with a line, inserted once, and the block C.
DxfBuilder twoBlocks() {
  DxfBuilder dxf;
  for (const char* const name : {"B", "C"}) {
    dxf.beginBlock(name)
        .entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
        .endBlock();
  }
  return dxf.entity("INSERT", {{8, "A"}, {2, "B"}, {10, "5"}, {20, "5"}, {50, "90"}});
}

constexpr std::string_view kHeader =
    "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mm;\r\nSet Optimizing off;\r\n"
    "Set Undo_Log off;\r\n";

/// A part of the library "my board" with the line of a block.
std::string partOfBoard(const std::string& name, const std::string& settings) {
  return "Write;\r\nOpen 'my board';\r\nEdit '" + name + ".pac';\r\n" + std::string(kHeader) +
         settings +
         "Layer  20 ;\r\nWire 0.0000000 (0.0000000 0.0000000) (1.0000000 0.0000000);\r\n";
}

TEST_F(ExactProgramTest, BlocksBecomePartsOfALibraryNamedLikeTheBoard) {
  const std::string openBoard = "Write;\r\nEdit 'my board.brd';\r\n" + std::string(kHeader);
  const std::string settings =
      "Change Style Continuous;\r\nChange Cap Round;\r\nChange Font Vector;\r\n"
      "Change Ratio 8;\r\n";
  const std::string align = "Change Align Bottom Left;\r\n";
  for (const std::string version : {"4", "6"}) {
    for (const std::string blocks : {"used", "all"}) {
      const std::string all = version == "6" ? settings + align : settings;
      const testing::ProgramResult result =
          runExact(twoBlocks(), {"--name", "my board", "--blocks", blocks, "--eagle", version});
      EXPECT_EQ(result.output, openBoard + partOfBoard("B_1", all) +
                                   (blocks == "all" ? partOfBoard("C_2", all) : "") + openBoard +
                                   "Use 'my board';\r\n" + all +
                                   "Add 'B_1@my board' R90 (5.0000000 5.0000000);\r\n"
                                   "Set Undo_Log on;\r\nWindow Fit;\r\n")
          << result.error;
    }
  }
}

TEST_F(ExactProgramTest, PartsOfASheetAreSymbolsWithDevices) {
  const std::string script =
      runExact(twoBlocks(), {"--name", "sheet", "--blocks", "used", "--target", "schematic"})
          .output;
  EXPECT_NE(script.find("Edit 'B_1.sym';\r\n"), std::string::npos);
  EXPECT_NE(script.find(");\r\nEdit 'B_1.dev';\r\nAdd 'B_1.sym' (0 0);\r\nWrite;\r\n"
                        "Edit 'sheet.sch';\r\n"),
            std::string::npos)
      << script;
  EXPECT_NE(script.find("Add B_1@sheet R90 (5.0000000 5.0000000);\r\n"), std::string::npos);
}

TEST_F(ExactProgramTest, TheReportNamesThePartsOfBlocks) {
  runExact(twoBlocks(), {"--name", "board", "--blocks", "all", "--report", "report.txt"});
  const std::string report = folder.read("report.txt");
  EXPECT_NE(report.find("Yes    B ==> B_1.pac; \r\nNo     C ==> C_2.pac; \r\n"), std::string::npos)
      << report;
}

TEST_F(ExactProgramTest, ClippedInsertionsAreNamed) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock()
      .entity("INSERT", {{102, "{ACAD_XDICTIONARY"}, {360, "1F"}, {102, "}"}, {8, "A"}, {2, "B"}});
  std::string text = dxf.text();
  const std::string start = "OBJECTS\n";
  text.insert(text.find(start) + start.size(),
              "  0\nDICTIONARY\n  5\n1F\n  3\nACAD_FILTER\n360\n20\n"
              "  0\nDICTIONARY\n  5\n20\n  3\nSPATIAL\n360\n21\n"
              "  0\nSPATIAL_FILTER\n  5\n21\n");
  folder.write("clipped.dxf", text);
  const auto said = [this](const char* language) {
    return run({"clipped.dxf", "--rules", "exact", "--force", "--language", language}).error;
  };
  EXPECT_NE(
      said("en").find("\nClipping left out, whole block drawn: INSERT 1 (first in line 39)\n"),
      std::string::npos)
      << said("en");
  EXPECT_NE(said("de").find("\nAusschnitt nicht beachtet, Block ganz gezeichnet: INSERT 1"),
            std::string::npos)
      << said("de");
}

TEST_F(ExactProgramTest, PartsAreRefusedWhereEagleCannotPlaceThem) {
  for (const char* const target : {"package", "symbol"}) {
    EXPECT_NE(usageError({"--name", "a", "--blocks", "used", "--target", target})
                  .find("--rules exact makes parts for --target board and schematic alone"),
              std::string::npos);
  }
}

TEST_F(ExactProgramTest, DrawingUnitScalesToTheUnitOfTheScript) {
  EXPECT_NE(drawn(line(), {"--drawing-unit", "inch"}).find("(254.0000000 0.0000000)"),
            std::string::npos);
  EXPECT_NE(drawn(line(), {"--unit", "mil"}).find("(393.7007874 0.0000000)"), std::string::npos);
  EXPECT_NE(
      usageError({"--drawing-unit", "parsec"}).find("\"parsec\" is not one of auto|inch|foot"),
      std::string::npos);
}

TEST_F(ExactProgramTest, AutoBelievesTheDrawingsUnit) {
  DxfBuilder dxf = line();
  dxf.header("$INSUNITS", 70, "1");
  EXPECT_NE(drawn(dxf).find("(254.0000000 0.0000000)"), std::string::npos);
}

TEST_F(ExactProgramTest, AutoTakesMillimetresWhereTheUnitMakesNoSense) {
  DxfBuilder dxf = line();
  dxf.header("$INSUNITS", 70, "6");
  EXPECT_NE(drawn(dxf).find("(10.0000000 0.0000000)"), std::string::npos);
}

TEST_F(ExactProgramTest, LineWidthIsThatOfLinesWithoutOne) {
  EXPECT_NE(drawn(line(), {"--line-width", "0.2"}).find("Wire 0.2000000 "), std::string::npos);
  EXPECT_NE(usageError({"--line-width", "-1"}).find("is not between 0 and"), std::string::npos);
}

TEST_F(ExactProgramTest, FillWidthIsThatOfTheEdgesOfAreas) {
  DxfBuilder dxf;
  dxf.entity("SOLID",
             {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}, {12, "0"}, {22, "10"}});
  EXPECT_NE(drawn(dxf).find("Polygon 0.0000000 (0.0000000 0.0000000)"), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--fill-width", "0.1"}).find("Polygon 0.1000000 ("), std::string::npos);
}

TEST_F(ExactProgramTest, ToleranceDecidesHowManyArcsACurveHas) {
  DxfBuilder dxf;
  dxf.entity("ELLIPSE", {{8, "0"},
                         {10, "0"},
                         {20, "0"},
                         {11, "50"},
                         {21, "0"},
                         {40, "0.5"},
                         {41, "0"},
                         {42, "6.283185307179586"}});
  EXPECT_LT(drawn(dxf, {"--tolerance", "0.1"}).size(), drawn(dxf).size() / 2);
  EXPECT_NE(usageError({"--tolerance", "2"}).find("\"2\" is not between 0.0001 and 1"),
            std::string::npos);
}

TEST_F(ExactProgramTest, JoinIsHowFarEndsMayBeApart) {
  DxfBuilder dxf = line();
  dxf.entity("LINE", {{8, "0"}, {10, "10.05"}, {20, "0"}, {11, "10.05"}, {21, "10"}});
  const std::string apart = drawn(dxf);
  EXPECT_NE(apart.find("(10.0500000 0.0000000)"), std::string::npos) << apart;
  EXPECT_EQ(drawn(dxf, {"--join", "0.1"}).find("(10.0500000 0.0000000)"), std::string::npos);
  EXPECT_NE(usageError({"--join", "1.5"}).find("\"1.5\" is not between 0 and 1"),
            std::string::npos);
}

TEST_F(ExactProgramTest, SpaceChoosesWhatIsDrawn) {
  DxfBuilder dxf = line();
  dxf.entity("LINE", {{67, "1"}, {8, "0"}, {10, "0"}, {20, "5"}, {11, "7"}, {21, "5"}});
  EXPECT_EQ(drawn(dxf).find("(7.0000000 5.0000000)"), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--space", "both"}).find("(7.0000000 5.0000000)"), std::string::npos);
  EXPECT_EQ(drawn(dxf, {"--space", "paper"}).find("(10.0000000 0.0000000)"), std::string::npos);
}

TEST_F(ExactProgramTest, AnEmptyModelSpaceGivesWayToThePaperSpace) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{67, "1"}, {8, "0"}, {10, "0"}, {20, "5"}, {11, "7"}, {21, "5"}});
  const testing::ProgramResult result = runExact(dxf, {}, {});
  EXPECT_NE(result.output.find("(7.0000000 5.0000000)"), std::string::npos) << result.output;
  EXPECT_NE(result.error.find("The model space is empty; the paper space was converted."),
            std::string::npos)
      << result.error;
}

/// A layout that is kept as a block, with a line from (0 y) to (7 y) and a text that is no block's.
void addLayout(DxfBuilder& dxf, std::string_view name, std::string_view y) {
  dxf.beginBlock(name)
      .entity("VIEWPORT", {{67, "1"}, {8, "0"}, {10, "0"}, {20, "0"}, {69, "1"}})
      .entity("LINE", {{8, "0"}, {10, "0"}, {20, y}, {11, "7"}, {21, y}})
      .entity("ATTDEF", {{8, "0"}, {10, "0"}, {20, y}, {40, "1"}, {1, ""}, {2, "TAG"}})
      .endBlock();
}

constexpr const char* kLayoutNotDrawn =
    "Not drawn, further layout: LAYOUT *PAPER_SPACE2 1 (first in line ";

TEST_F(ExactProgramTest, WhereAllElseIsEmptyTheFirstLayoutWithContentIsDrawn) {
  DxfBuilder dxf;
  dxf.beginBlock("*Paper_Space").endBlock();
  dxf.beginBlock("*Paper_Space0").entity("VIEWPORT", {{67, "1"}, {8, "0"}}).endBlock();
  addLayout(dxf, "*Paper_Space1", "5");
  addLayout(dxf, "*Paper_Space2", "6");
  dxf.entity("VIEWPORT", {{67, "1"}, {8, "0"}, {10, "0"}, {20, "0"}, {69, "1"}});
  const std::string script = drawn(dxf);
  EXPECT_NE(script.find("(7.0000000 5.0000000)"), std::string::npos) << script;
  EXPECT_NE(script.find("'TAG'"), std::string::npos) << script;
  EXPECT_EQ(script.find("(7.0000000 6.0000000)"), std::string::npos) << script;
  EXPECT_EQ(drawn(dxf, {"--space", "paper"}), script);
  EXPECT_EQ(drawn(dxf, {"--space", "both"}), script);
  const std::string told = runExact(dxf, {}, {}).error;
  EXPECT_NE(told.find("The model space is empty; the paper space was converted."),
            std::string::npos)
      << told;
  EXPECT_NE(told.find(kLayoutNotDrawn), std::string::npos) << told;
  EXPECT_NE(told.find("Not drawn, viewport: VIEWPORT 1 (first in line "), std::string::npos)
      << told;
}

TEST_F(ExactProgramTest, LayoutsBesideTheOneThatIsDrawnAreNamed) {
  DxfBuilder dxf;
  addLayout(dxf, "*Paper_Space2", "6");
  dxf.entity("LINE", {{67, "1"}, {8, "0"}, {10, "0"}, {20, "5"}, {11, "7"}, {21, "5"}});
  const testing::ProgramResult alone = runExact(dxf, {}, {});
  EXPECT_NE(alone.output.find("(7.0000000 5.0000000)"), std::string::npos) << alone.output;
  EXPECT_EQ(alone.output.find("(7.0000000 6.0000000)"), std::string::npos) << alone.output;
  EXPECT_NE(alone.error.find(kLayoutNotDrawn), std::string::npos) << alone.error;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  for (const char* const space : {"paper", "both"}) {
    const std::string told = runExact(dxf, {"--space", space}, {}).error;
    EXPECT_NE(told.find(kLayoutNotDrawn), std::string::npos) << told;
  }
  // No layout is what the model space shows.
  const std::string ofModel = runExact(dxf, {}, {}).error;
  EXPECT_NE(ofModel.find("Everything that the drawing shows was converted."), std::string::npos)
      << ofModel;
}

TEST_F(ExactProgramTest, HiddenDrawsLayersThatAreOff) {
  DxfBuilder dxf = line("DARK");
  dxf.layer("DARK", {{70, "0"}, {62, "-7"}, {6, "CONTINUOUS"}, {290, "1"}});
  EXPECT_EQ(drawn(dxf).find("Wire"), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--hidden"}).find("Wire"), std::string::npos);
}

TEST_F(ExactProgramTest, LineTypesCanBeStylesAndDashes) {
  DxfBuilder dxf;
  dxf.dashes("DASHED", "3", {"2", "-1"});
  dxf.entity("LINE", {{8, "0"}, {6, "DASHED"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  EXPECT_EQ(drawn(dxf).find("Style"), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--line-types", "style"}).find("Change Style ShortDash;"),
            std::string::npos);
  const std::string dashes = drawn(dxf, {"--line-types", "dashes"});
  EXPECT_NE(dashes.find("Wire", dashes.find("Wire") + 1), std::string::npos) << dashes;
}

TEST_F(ExactProgramTest, LineWeightsBecomeWidths) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {370, "50"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  EXPECT_NE(drawn(dxf, {"--lineweights"}).find("Wire 0.5000000 "), std::string::npos);
}

TEST_F(ExactProgramTest, ClosedPolylinesCanBeAreas) {
  DxfBuilder dxf;
  dxf.entity("LWPOLYLINE", {{8, "0"},
                            {90, "3"},
                            {70, "1"},
                            {10, "0"},
                            {20, "0"},
                            {10, "10"},
                            {20, "0"},
                            {10, "0"},
                            {20, "10"}});
  EXPECT_EQ(drawn(dxf).find("Polygon"), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--closed-as-areas"}).find("Polygon"), std::string::npos);
  folder.write("a.lay", "[1]\nlayername=0\nlayernr=21\nareas=1\n");
  EXPECT_NE(drawn(dxf, {"--layers", "a.lay"}).find("Polygon"), std::string::npos);
  folder.write("a.lay", "[1]\nlayername=0\nlayernr=21\n");
  EXPECT_EQ(drawn(dxf, {"--layers", "a.lay"}).find("Polygon"), std::string::npos);
}

TEST_F(ExactProgramTest, LayersOfHolesAreFoundInAnyEncoding) {
  for (const auto& [version, layer] :
       {std::pair("AC1015", "l\xF6 cher"), std::pair("AC1021", "l\xC3\xB6 cher")}) {
    DxfBuilder dxf;
    dxf.header("$ACADVER", 1, version);
    dxf.entity("CIRCLE", {{8, layer}, {10, "5"}, {20, "5"}, {40, "1.6"}});
    EXPECT_EQ(drawn(dxf, {"--holes", "L\u00F6 CHER"}), "Hole 3.2000000 (5.0000000 5.0000000);\r\n");
  }
}

TEST_F(ExactProgramTest, WideLinesAreWiresOrAreas) {
  DxfBuilder dxf;
  dxf.entity("LWPOLYLINE",
             {{8, "0"}, {70, "0"}, {43, "2"}, {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}});
  EXPECT_NE(drawn(dxf).find("Polygon 0.0000000 ("), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--wide-lines", "areas"}).find("Polygon 0.0000000 ("), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--wide-lines", "wires"})
                .find("Wire 2.0000000 (0.0000000 0.0000000) (10.0000000 0.0000000);"),
            std::string::npos);
  EXPECT_NE(usageError({"--wide-lines", "thin"}).find("--wide-lines"), std::string::npos);
}

TEST_F(ExactProgramTest, AreasCanBeFilledWhereTheDrawingShowsOutlines) {
  DxfBuilder dxf;
  dxf.header("$FILLMODE", 70, "0");
  dxf.entity("SOLID",
             {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}, {12, "0"}, {22, "10"}});
  EXPECT_NE(drawn(dxf).find("Wire 0.0000000 (0.0000000 0.0000000)"), std::string::npos);
  EXPECT_NE(drawn(dxf, {"--fill-always"}).find("Polygon 0.0000000 ("), std::string::npos);
}

TEST_F(ExactProgramTest, CirclesOfALayerBecomeHoles) {
  DxfBuilder dxf;
  dxf.entity("CIRCLE", {{8, "Drill"}, {10, "5"}, {20, "5"}, {40, "1.6"}});
  EXPECT_EQ(drawn(dxf).find("Hole"), std::string::npos);
  EXPECT_EQ(drawn(dxf, {"--holes", "drill"}), "Hole 3.2000000 (5.0000000 5.0000000);\r\n");
  EXPECT_EQ(drawn(dxf, {"--holes", "drill", "--hole-diameters", "4..5"}).find("Hole"),
            std::string::npos);
  EXPECT_NE(usageError({"--hole-diameters", "5"}).find("is not two numbers such as 0.2..6.5"),
            std::string::npos);
}

TEST_F(ExactProgramTest, PointsAreWhatIsChosen) {
  DxfBuilder dxf;
  dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
  EXPECT_NE(drawn(dxf, {"--points", "dot"}).find("Circle 0.0 "), std::string::npos);
  EXPECT_EQ(drawn(dxf, {"--points", "none"}), "");
  EXPECT_EQ(drawn(dxf, {"--points", "hole:0.8"}), "Hole 0.8000000 (1.0000000 2.0000000);\r\n");
  EXPECT_NE(usageError({"--points", "hole:x"}).find("is not one of glyph|dot|none|hole:D"),
            std::string::npos);
}

TEST_F(ExactProgramTest, PlainLettersAreAscii) {
  DxfBuilder dxf;
  dxf.entity("TEXT", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "2"}, {1, "%%c5 %%p1"}});
  EXPECT_NE(drawn(dxf, {"--plain-letters"}).find("'D5 +/-1'"), std::string::npos);
}

TEST_F(ExactProgramTest, PlaceMovesTheDrawing) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "100"}, {20, "50"}, {11, "110"}, {21, "70"}});
  EXPECT_NE(
      drawn(dxf, {"--place", "lower-left"}).find("(0.0000000 0.0000000) (10.0000000 20.0000000)"),
      std::string::npos);
  EXPECT_NE(
      drawn(dxf, {"--place", "centre"}).find("(-5.0000000 -10.0000000) (5.0000000 10.0000000)"),
      std::string::npos);
}

TEST_F(ExactProgramTest, WhatIsDrawnTwiceCanStay) {
  DxfBuilder dxf = line();
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "10"}, {21, "0"}});
  const std::string once = drawn(dxf);
  EXPECT_EQ(once.find("Wire", once.find("Wire") + 1), std::string::npos) << once;
  const std::string twice = drawn(dxf, {"--keep-duplicates", "--join", "0"});
  EXPECT_NE(twice.find("Wire", twice.find("Wire") + 1), std::string::npos) << twice;
}

TEST_F(ExactProgramTest, SaysThatNothingIsLost) {
  const testing::ProgramResult result = runExact(line(), {}, {});
  EXPECT_NE(result.error.find("Everything that the drawing shows was converted."),
            std::string::npos)
      << result.error;
  EXPECT_NE(result.error.find("Size: 10 x 0 mm (0.3937 x 0 inches)"), std::string::npos);
}

TEST_F(ExactProgramTest, NamesWhatIsLost) {
  DxfBuilder dxf = line();
  dxf.entity("BODY", {{8, "0"}, {1, "x"}});
  const testing::ProgramResult result = runExact(dxf, {}, {});
  EXPECT_NE(result.error.find("Not drawn, kind not supported: BODY 1 (first in line 19)"),
            std::string::npos)
      << result.error;
  EXPECT_EQ(result.error.find("Everything that the drawing shows"), std::string::npos);
}

TEST_F(ExactProgramTest, HatchChoosesWhatPatternsBecome) {
  DxfBuilder dxf;
  dxf.entity("HATCH",
             {{8, "0"},  {10, "0"}, {20, "0"}, {2, "LINE"}, {70, "0"}, {71, "0"}, {91, "1"},
              {92, "3"}, {72, "0"}, {73, "1"}, {93, "4"},   {10, "0"}, {20, "0"}, {10, "9"},
              {20, "0"}, {10, "9"}, {20, "9"}, {10, "0"},   {20, "9"}, {97, "0"}, {75, "0"},
              {76, "1"}, {52, "0"}, {41, "1"}, {77, "0"},   {78, "1"}, {53, "0"}, {43, "0"},
              {44, "1"}, {45, "0"}, {46, "3"}, {79, "0"},   {98, "0"}});
  EXPECT_NE(drawn(dxf).find("(0.0000000 4.0000000) (9.0000000 4.0000000)"), std::string::npos)
      << drawn(dxf);
  const std::string border = drawn(dxf, {"--hatch", "border"});
  EXPECT_EQ(border.find("4.0000000)"), std::string::npos) << border;
  EXPECT_NE(border.find("Wire"), std::string::npos) << border;
  EXPECT_NE(drawn(dxf, {"--hatch", "solid"}).find("Polygon"), std::string::npos);
  EXPECT_EQ(drawn(dxf, {"--hatch", "none"}), "");
}

TEST_F(ExactProgramTest, WhatIsNotDrawnIsAWarningThatQuietDoesNotHide) {
  DxfBuilder dxf = line();
  dxf.entity("BODY", {{8, "0"}, {1, "x"}});
  EXPECT_EQ(runExact(dxf, {}).error,
            "quillon-convert: warning: part.dxf: Not drawn, kind not supported: BODY 1 (first in "
            "line 19)\n");
}

TEST_F(ExactProgramTest, CopperIsSaidToHaveASignal) {
  const testing::ProgramResult result = runExact(line(), {"--layer", "1"}, {});
  EXPECT_NE(result.error.find("Wires and polygons on layers 1 to 16 belong to the signal DXF"),
            std::string::npos)
      << result.error;
}

TEST_F(ExactProgramTest, JsonCountsKindsByTheirNames) {
  DxfBuilder dxf = line();
  dxf.entity("MLINE", {{8, "0"}}).entity("BODY", {{8, "0"}, {1, "x"}});
  write("part.dxf", dxf);
  const testing::ProgramResult result =
      run({"part.dxf", "--rules", "exact", "--eagle", "6", "--json", "--quiet"});
  const JsonValue value =
      JsonValue::parse(std::string_view(result.output).substr(0, result.output.find('\n')));
  EXPECT_EQ(value.at("entities").names(), (Strings{"LINE", "MLINE"}));
}

TEST_F(ExactProgramTest, SaysWhichBlockIsMissing) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .entity("INSERT", {{8, "0"}, {2, "Hole3"}, {10, "1"}, {20, "0"}});
  write("part.dxf", dxf);
  const testing::ProgramResult result =
      run({"part.dxf", "--rules", "exact", "--eagle", "6", "--json"});
  EXPECT_NE(result.error.find(": INSERT HOLE3 1 (first in line 19)"), std::string::npos)
      << result.error;
  const JsonValue value =
      JsonValue::parse(std::string_view(result.output).substr(0, result.output.find('\n')));
  EXPECT_EQ(value.at("losses").items().at(0).at("name").text(), "HOLE3");
}

TEST_F(ExactProgramTest, JsonHasNoNumbersThatAreNotFinite) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock()
      .entity("INSERT", {{8, "0"}, {2, "B"}, {10, "1e400"}, {20, "0"}});
  write("part.dxf", dxf);
  const testing::ProgramResult result =
      run({"part.dxf", "--rules", "exact", "--eagle", "6", "--json", "--quiet"});
  EXPECT_NE(result.output.find("\"x\":null"), std::string::npos) << result.output;
  EXPECT_EQ(result.output.find("inf"), std::string::npos) << result.output;
  EXPECT_EQ(result.output.find("nan,"), std::string::npos) << result.output;
}

TEST_F(ExactProgramTest, JsonHasLossesGapsAndTheUnit) {
  DxfBuilder dxf = line();
  dxf.entity("LINE", {{8, "0"}, {10, "10.5"}, {20, "0"}, {11, "20"}, {21, "0"}});
  dxf.entity("BODY", {{8, "0"}, {1, "x"}});
  write("part.dxf", dxf);
  const testing::ProgramResult result =
      run({"part.dxf", "--rules", "exact", "--eagle", "6", "--json", "--quiet"});
  ASSERT_EQ(result.exitCode, 0) << result.error;
  const JsonValue value =
      JsonValue::parse(std::string_view(result.output).substr(0, result.output.find('\n')));
  const JsonValue& loss = value.at("losses").items().at(0);
  EXPECT_EQ(loss.at("rule").text(), "unknown-kind");
  EXPECT_EQ(loss.at("kind").text(), "BODY");
  EXPECT_EQ(value.at("gaps").items().size(), 4U);
  EXPECT_EQ(value.at("unit").names(), (Strings{"assumed", "doubted", "millimetres"}));
}

}  // namespace
}  // namespace quillon::headless
