// The effect of each option.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::DxfBuilder;

class OptionsTest : public ProgramTest {
 protected:
  OptionsTest() { write("part.dxf", oneLine()); }

  /// The script of part.dxf without a board, on standard output.
  std::string script(const Strings& options) {
    Strings arguments = {"part.dxf", "-o", "-", "--quiet", "--name", ""};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return outputOf(arguments);
  }
  std::string outputOf(const Strings& arguments) {
    const testing::ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    return result.output;
  }
  /// What is inside the default frame.
  std::string drawn(const Strings& options) {
    const std::string text = script(options);
    const std::string frame = framed("");
    const std::size_t head = frame.find("Set Undo_Log on;");
    const std::size_t tail = frame.size() - head;
    EXPECT_TRUE(text.starts_with(frame.substr(0, head))) << text;
    EXPECT_TRUE(text.ends_with(frame.substr(head))) << text;
    return text.substr(head, text.size() - head - tail);
  }
  static std::string wire(std::string_view width, std::string_view from, std::string_view to) {
    return "Layer  20 ;\r\nWire " + std::string(width) + " (R" + std::string(from) + ") (R" +
           std::string(to) + ");\r\n";
  }
};

TEST_F(OptionsTest, TheDefaultsAreThoseOfTheProgramWithoutSettings) {
  EXPECT_EQ(script({}), framed(wire("0.0000000", "0.0000000 0.0000000", "1.0000000 2.0000000")));
}

TEST_F(OptionsTest, NameNamesTheBoard) {
  EXPECT_EQ(outputOf({"part.dxf", "-o", "-", "--name", " my board "}), lineScript("my board"));
}

TEST_F(OptionsTest, TargetOpensTheDrawingOfItsKind) {
  const auto opening = [this](const char* target) {
    const std::string text =
        outputOf({"part.dxf", "-o", "-", "--name", "lib/A", "--target", target});
    return text.substr(0, text.find("Set Wire"));
  };
  EXPECT_EQ(opening("board"), "Write;\r\nEdit 'lib/A.brd';\r\n");
  EXPECT_EQ(opening("schematic"), "Write;\r\nEdit 'lib/A.sch';\r\n");
  EXPECT_EQ(opening("package"), "Open 'lib/A.lbr';\r\nEdit 'A.pac';\r\n");
  EXPECT_EQ(opening("symbol"), "Open 'lib/A.lbr';\r\nEdit 'A.sym';\r\n");
}

TEST_F(OptionsTest, UnitSetsTheGrid) {
  EXPECT_NE(script({"--unit", "mic"}).find("\r\nGrid mic;\r\n"), std::string::npos);
  EXPECT_NE(script({"--unit", "mm"}).find("\r\nGrid mm;\r\n"), std::string::npos);
  EXPECT_NE(script({"--unit=mil"}).find("\r\nGrid mil;\r\n"), std::string::npos);
  EXPECT_NE(script({"--unit", "inch"}).find("\r\nGrid inch;\r\n"), std::string::npos);
}

TEST_F(OptionsTest, ScaleMultipliesEveryCoordinate) {
  EXPECT_EQ(drawn({"--scale", "2.5"}),
            wire("0.0000000", "0.0000000 0.0000000", "2.5000000 5.0000000"));
  EXPECT_EQ(drawn({"--scale", "-1"}),
            wire("0.0000000", "0.0000000 0.0000000", "-1.0000000 -2.0000000"));
  EXPECT_EQ(drawn({"--scale=+1.5E+1"}),
            wire("0.0000000", "0.0000000 0.0000000", "15.0000000 30.0000000"));
}

TEST_F(OptionsTest, OffsetsMoveEveryCoordinate) {
  EXPECT_EQ(drawn({"--offset-x", "-5", "--offset-y=.25", "--scale", "2"}),
            wire("0.0000000", "-5.0000000 0.2500000", "-3.0000000 4.2500000"));
}

TEST_F(OptionsTest, EagleChoosesTheVersion) {
  EXPECT_EQ(script({"--eagle", "4"}), script({}));
  const std::string old = script({"--eagle", "3.5"});
  EXPECT_TRUE(old.starts_with("Set Wire_Style 2;\r\n"));
  EXPECT_NE(old.find("Wire 0.0000000 (0.0000000 0.0000000) (1.0000000 2.0000000);"),
            std::string::npos);
}

TEST_F(OptionsTest, LayerTakesATextOrANumber) {
  EXPECT_TRUE(drawn({"--layer", "16 Bottom (B)"}).starts_with("Layer  16 ;\r\n"));
  EXPECT_TRUE(drawn({"--layer", "7"}).starts_with("Layer  7 ;\r\n"));
  EXPECT_EQ(drawn({"--layer", "999"}), "");
}

TEST_F(OptionsTest, LayersNamesTheAssignmentFile) {
  folder.write("a.lay", "[1]\r\nlayername=0\r\nlayernr=21\r\n");
  EXPECT_TRUE(drawn({"--layers", "a.lay"}).starts_with("Layer  21 ;\r\n"));
}

TEST_F(OptionsTest, PolyTakesAWordOrANumber) {
  DxfBuilder dxf;
  dxf.entity("LWPOLYLINE", {{8, "0"},
                            {70, "1"},
                            {10, "0"},
                            {20, "0"},
                            {10, "4"},
                            {20, "0"},
                            {40, "0.5"},
                            {10, "4"},
                            {20, "3"}});
  write("part.dxf", dxf);
  const std::string polygon =
      "Layer  20 ;\r\nPolygon 0.0000000 '1' (R0.0000000 0.0000000) (R4.0000000 0.0000000)\\\r\n"
      "(R4.0000000 3.0000000)\\\r\n(R0.0000000 0.0000000)(R0.0000000 0.0000000);\r\n";
  EXPECT_EQ(drawn({}), polygon);
  EXPECT_EQ(drawn({"--poly", "2"}), polygon);
  EXPECT_EQ(drawn({"--poly", "polyline"}), polygon);
  EXPECT_EQ(drawn({"--poly", "-1"}), polygon);
  EXPECT_EQ(drawn({"--poly=-1"}), polygon);
  const auto wires = [](const std::string& first, const std::string& second) {
    return wire(first, "0.0000000 0.0000000", "4.0000000 0.0000000") +
           wire(second, "4.0000000 0.0000000", "4.0000000 3.0000000") +
           wire(first, "4.0000000 3.0000000", "0.0000000 0.0000000");
  };
  EXPECT_EQ(drawn({"--poly", "0", "--poly-width", "0.25"}), wires("0.0000000", "0.0000000"));
  EXPECT_EQ(drawn({"--poly", "wire0"}), wires("0.0000000", "0.0000000"));
  EXPECT_EQ(drawn({"--poly", "1"}), wires("0.0000000", "0.5000000"));
  EXPECT_EQ(drawn({"--poly", "wire"}), wires("0.0000000", "0.5000000"));
  EXPECT_EQ(drawn({"--poly", "wire", "--poly-width", "0.25"}), wires("0.2500000", "0.5000000"));
}

TEST_F(OptionsTest, BlocksTakesAWordOrANumber) {
  DxfBuilder dxf;
  dxf.beginBlock("A").entity("POINT", {{8, "0"}}).endBlock();
  dxf.beginBlock("B").endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}});
  write("part.dxf", dxf);
  const auto parts = [this](const char* blocks) {
    const std::string text = outputOf({"part.dxf", "-o", "-", "--blocks", blocks});
    const auto has = [&text](const char* part) { return text.find(part) != std::string::npos; };
    return std::pair{has("Edit 'A_1.pac';"), has("Edit 'B_2.pac';")};
  };
  EXPECT_EQ(parts("0"), (std::pair{false, false}));
  EXPECT_EQ(parts("draw"), (std::pair{false, false}));
  EXPECT_EQ(parts("1"), (std::pair{true, false}));
  EXPECT_EQ(parts("used"), (std::pair{true, false}));
  EXPECT_EQ(parts("2"), (std::pair{true, true}));
  EXPECT_EQ(parts("all"), (std::pair{true, true}));
}

TEST_F(OptionsTest, DottedDrawsDashes) {
  DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "1").dashes("DASHED", "1.5", {"1", "-0.5"});
  dxf.entity("LINE", {{8, "0"}, {6, "Dashed"}, {10, "0"}, {20, "0"}, {11, "2.5"}, {21, "0"}});
  write("part.dxf", dxf);
  EXPECT_EQ(drawn({}), wire("0.0000000", "0.0000000 0.0000000", "2.5000000 0.0000000"));
  EXPECT_EQ(drawn({"--dotted"}),
            wire("0.0000000", "0.0000000 0.0000000", "1.0000000 0.0000000") +
                "Wire 0.0000000 (R1.5000000 0.0000000) (R2.5000000 0.0000000);\r\n");
}

TEST_F(OptionsTest, EllipsesDrawsEllipsesAsWires) {
  DxfBuilder dxf;
  dxf.entity("ELLIPSE", {{8, "0"},
                         {10, "1"},
                         {20, "2"},
                         {11, "3"},
                         {21, "4"},
                         {40, "0.5"},
                         {41, "0"},
                         {42, "6.28318530717958"}});
  write("part.dxf", dxf);
  EXPECT_EQ(drawn({}), "Layer  20 ;\r\nCircle (R1.0000000 2.0000000) (R1.0000000 7.0000000);\r\n");
  const std::string wires = drawn({"--ellipses"});
  EXPECT_EQ(std::count(wires.begin(), wires.end(), 'W'), 128);
  EXPECT_EQ(wires.find("Circle"), std::string::npos);
}

TEST_F(OptionsTest, ArcToLineDrawsArcsThatLeaveTheRangeAsWires) {
  DxfBuilder dxf;
  // Upwards from the origin; the point opposite the start is (40000 0).
  dxf.entity("ARC", {{8, "0"}, {10, "20000"}, {20, "0"}, {40, "20000"}, {50, "180"}, {51, "190"}});
  write("part.dxf", dxf);
  EXPECT_NE(drawn({}).find("Arc CCW 0.00 ("), std::string::npos);
  const std::string line = drawn({"--arc-to-line"});
  EXPECT_NE(line.find("Wire 0.00 ("), std::string::npos);
  EXPECT_EQ(line.find("Arc"), std::string::npos);
}

TEST_F(OptionsTest, FrameNamesTheFrameFile) {
  folder.write("my.cfh", "[start]\nA;\nendblock\n[end]\nB;\nendblock\n");
  EXPECT_EQ(script({"--frame", "my.cfh"}),
            "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mil;\r\nA;\r\n" +
                wire("0.0000000", "0.0000000 0.0000000", "1.0000000 2.0000000") + "B;\r\n");
}

TEST_F(OptionsTest, TheFrameIsThatOfEveryDrawing) {
  folder.write("my.cfh", "[start]\nA;\nendblock\n[end]\nB;\nendblock\n");
  folder.write("other.dxf", folder.read("part.dxf"));
  EXPECT_EQ(run({"part.dxf", "other.dxf", "--frame", "my.cfh", "--jobs", "2"}).exitCode, 0);
  for (const std::string script : {"part.scr", "other.scr"}) {
    EXPECT_NE(folder.read(script).find("\r\nA;\r\n"), std::string::npos) << script;
    EXPECT_TRUE(folder.read(script).ends_with("\r\nB;\r\n")) << script;
  }
}

TEST_F(OptionsTest, AFrameFileThatDoesNotExistIsAnErrorAndIsNotCreated) {
  expectResult(run({"part.dxf", "--frame", "my.cfh"}), 1, "",
               errorLine("my.cfh cannot be read: No such file or directory. Please check the path "
                         "and its permissions."));
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(OptionsTest, LayersThatEagleDoesNotHaveAreWrongUsage) {
  for (const std::string layer : {"-20", "0", "256", "40000", "none"}) {
    expectResult(run({"part.dxf", "--layer=" + layer}), 2, "",
                 "quillon-convert: --layer: \"" + layer +
                     "\" is not an EAGLE layer from 1 to 255, or 999\n"
                     "Try 'quillon-convert --help'.\n");
  }
  for (const std::string layer : {"-20", "0", "300"}) {
    folder.write("a.lay",
                 "[1]\nlayername=A\nlayernr=1\n[2]\nlayername=T\xFCr\nlayernr=" + layer + "\n");
    expectResult(run({"part.dxf", "--layers", "a.lay"}), 2, "",
                 "quillon-convert: a.lay: the layer \"" + layer +
                     "\" of Tür is not from 1 to 255, or 999\nTry 'quillon-convert --help'.\n");
  }
  EXPECT_EQ(files(), (Strings{"a.lay", "part.dxf"}));
}

TEST_F(OptionsTest, ALayerThatEndsBeforeItsTextIsNamed) {
  const testing::ProgramResult result = run({"part.dxf", "--layer", "20,5", "--quiet"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(
      result.error,
      "quillon-convert: warning: Standard Layer: \"20,5\" counts as 20, because something follows "
      "that is not part of a number. Please correct the number; the decimal sign is a point.\n");
}

TEST_F(OptionsTest, ALayerFileThatDoesNotExistIsAnError) {
  expectResult(run({"part.dxf", "--layers", "none.lay"}), 1, "",
               errorLine("none.lay cannot be read: No such file or directory. Please check the "
                         "path and its permissions."));
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(OptionsTest, ReportWritesTheReportWithTheTextsOfScaleAndLayer) {
  run({"part.dxf", "--report", "r.txt", "--scale", "2.50", "--layer", "16 Bottom (B)", "--name",
       "A", "--language", "en"});
  const std::string report = folder.read("r.txt");
  EXPECT_TRUE(report.starts_with("\r\nConversion Report \r\n===="));
  EXPECT_NE(report.find("\r\nDXF File                   : part.dxf\r\n"), std::string::npos);
  EXPECT_NE(report.find("\r\nEAGLE Script File          : part.scr\r\n"), std::string::npos);
  EXPECT_NE(report.find("\r\nBoard/Library Name         : A\r\n"), std::string::npos);
  EXPECT_NE(report.find("\r\nScale Factor               : 2.50\r\n"), std::string::npos);
  EXPECT_NE(report.find("\r\nStandard Layer             : 16 Bottom (B)\r\n"), std::string::npos);
  EXPECT_TRUE(report.ends_with("\r\n26 Lines read in DXF\r\n11 Lines written in Script file\r\n  "))
      << report;
}

TEST_F(OptionsTest, ReportHasTheDateAndTimeOfTheLocale) {
  run({"part.dxf", "--report", "r.txt"});
  const std::string report = folder.read("r.txt");
  const std::size_t at = report.find("Time of conversion         : ") + 29;
  const std::string line = report.substr(at, report.find("\r\n", at) - at);
  // 11/21/26    09:30:00 in the C locale
  ASSERT_EQ(line.size(), 20U) << line;
  std::string shape;
  for (const char c : line) shape += c >= '0' && c <= '9' ? '9' : c;
  EXPECT_EQ(shape, "99/99/99    99:99:99");
}

TEST_F(OptionsTest, ReportGoesToAPipeOrDeviceToo) {
  EXPECT_EQ(run({"part.dxf", "--report", "/dev/null"}).exitCode, 0);
}

TEST_F(OptionsTest, LanguageSpeaksGerman) {
  expectResult(run({"part.dxf", "--language", "de", "--report", "r.txt"}), 0, "",
               "part.dxf: 1 Elemente aus 26 Zeilen konvertiert\npart.scr: 11 Zeilen geschrieben\n"
               "In EAGLE eingeben: SCRIPT '" +
                   std::filesystem::canonical(folder.path()).generic_string() + "/part.scr'\n");
  EXPECT_TRUE(folder.read("r.txt").starts_with("\r\nKonversionsreport \r\n"));
  expectResult(run({"part.dxf", "--language=de"}), 1, "",
               "quillon-convert: Fehler: part.scr existiert bereits. Mit --force wird die Datei "
               "ersetzt.\n");
}

class LanguageTest : public OptionsTest {
 protected:
  bool speaksGerman(const Strings& environment, const Strings& options = {}) {
    call.environment = environment;
    Strings arguments = {"none.dxf"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const std::string error = run(arguments).error;
    EXPECT_NE(error.starts_with("quillon-convert: Fehler: "),
              error.starts_with("quillon-convert: error: "))
        << error;
    return error.starts_with("quillon-convert: Fehler: ");
  }
};

TEST_F(LanguageTest, IsGermanInAGermanLocale) {
  EXPECT_TRUE(speaksGerman({"LANG=de_DE.UTF-8"}));
  EXPECT_TRUE(speaksGerman({"LANG=de_AT"}));
  EXPECT_TRUE(speaksGerman({"LANG=de"}));
}

TEST_F(LanguageTest, IsEnglishInEveryOtherLocale) {
  EXPECT_FALSE(speaksGerman({"LANG=C"}));
  EXPECT_FALSE(speaksGerman({"LANG=en_US.UTF-8"}));
  EXPECT_FALSE(speaksGerman({"LANG=fr_FR"}));
  EXPECT_FALSE(speaksGerman({}));
  EXPECT_FALSE(speaksGerman({"LANG="}));
}

TEST_F(LanguageTest, FollowsTheOrderOfTheLocaleVariables) {
  EXPECT_TRUE(speaksGerman({"LANG=en_US", "LC_MESSAGES=de_DE"}));
  EXPECT_FALSE(speaksGerman({"LANG=de_DE", "LC_MESSAGES=C"}));
  EXPECT_FALSE(speaksGerman({"LANG=de_DE", "LC_MESSAGES=de_DE", "LC_ALL=C"}));
  EXPECT_TRUE(speaksGerman({"LANG=C", "LC_MESSAGES=C", "LC_ALL=de_DE"}));
  EXPECT_TRUE(speaksGerman({"LANG=de_DE", "LC_ALL="}));
  EXPECT_FALSE(speaksGerman({"LANG=C", "LC_TIME=de_DE", "LC_NUMERIC=de_DE"}));
}

TEST_F(LanguageTest, IsWhatTheOptionSays) {
  EXPECT_TRUE(speaksGerman({"LANG=C"}, {"--language", "de"}));
  EXPECT_FALSE(speaksGerman({"LANG=de_DE.UTF-8"}, {"--language", "en"}));
}

TEST_F(LanguageTest, NeverReachesTheNumbersOfTheScript) {
  call.environment = {"LANG=de_DE.UTF-8", "LC_ALL=de_DE.UTF-8", "LC_NUMERIC=de_DE.UTF-8"};
  EXPECT_EQ(drawn({"--scale", "2.5"}),
            wire("0.0000000", "0.0000000 0.0000000", "2.5000000 5.0000000"));
}

TEST_F(LanguageTest, OfARangeWarningIsGermanToo) {
  call.environment = {"LANG=de_DE.UTF-8"};
  const std::string error = run({"part.dxf", "--scale", "50000"}).error;
  EXPECT_TRUE(error.starts_with(
      "quillon-convert: Warnung: part.dxf: Die Koordinatenbereich von EAGLE wurde überschritten! "
      "Dies könnte zu einer unvollständigen Darstellung führen. Bitte überprüfen Sie die "
      "Einstellungen des Skalierungsfaktors und der Einheit.\n"))
      << error;
}

/// The program in its own folder, with a frame file beside it.
class ProgramFolderTest : public OptionsTest {
 protected:
  ProgramFolderTest() {
    namespace fs = std::filesystem;
    fs::create_directories(folder.path() / "bin");
    fs::copy_file(QUILLON_CONVERT, folder.path() / "bin/program");
    fs::permissions(folder.path() / "bin/program", fs::perms(0755));
    call.program = folder.file("bin/program");
    call.environment = {"LANG=C", "HOME=" + folder.file("home"),
                        "XDG_CONFIG_HOME=" + folder.file("config")};
  }
  void writeFrame(const std::string& name, const std::string& line) const {
    std::filesystem::create_directories((folder.path() / name).parent_path());
    folder.write(name, "[start]\n" + line + "\nendblock\n");
  }
  /// The first line of the start block.
  std::string frameLine(const Strings& options = {}) {
    Strings arguments = options;
    arguments.insert(arguments.end(), {"-", "-o", "-", "--quiet"});
    const testing::ProgramResult result = run(arguments, oneLine().text());
    EXPECT_EQ(result.exitCode, 0) << result.error;
    const std::string_view header = "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mil;\r\n";
    const std::string rest = result.output.substr(header.size());
    return rest.substr(0, rest.find("\r\n"));
  }
};

TEST_F(ProgramFolderTest, IsTheFolderOfTheProgram) {
  writeFrame("bin/quillon.cfh", "# beside the program");
  writeFrame("config/quillon/quillon.cfh", "# configuration");
  EXPECT_EQ(frameLine(), "# beside the program");
}

TEST_F(ProgramFolderTest, YieldsToTheFrameOption) {
  writeFrame("bin/quillon.cfh", "# beside the program");
  writeFrame("my.cfh", "# mine");
  EXPECT_EQ(frameLine({"--frame", "my.cfh"}), "# mine");
}

TEST_F(ProgramFolderTest, IsTheConfigurationFolderWhereTheProgramsOwnCannotBeWritten) {
  namespace fs = std::filesystem;
  writeFrame("bin/quillon.cfh", "# beside the program");
  writeFrame("config/quillon/quillon.cfh", "# configuration");
  writeFrame("home/.config/quillon/quillon.cfh", "# home");
  fs::permissions(folder.path() / "bin", fs::perms(0555));
  call.unprivileged = true;
  EXPECT_EQ(frameLine(), "# configuration");
  call.environment = {"LANG=C", "HOME=" + folder.file("home")};
  EXPECT_EQ(frameLine(), "# home");
  call.environment = {"LANG=C", "HOME=" + folder.file("home"), "XDG_CONFIG_HOME=config"};
  EXPECT_EQ(frameLine(), "# home");  // a relative path is ignored
  call.environment = {"LANG=C"};
  EXPECT_EQ(frameLine(), "Set Optimizing off;");
  fs::permissions(folder.path() / "bin", fs::perms(0755));
}

TEST_F(ProgramFolderTest, GetsNoFrameFileFromTheHeadlessProgram) {
  EXPECT_EQ(frameLine(), "Set Optimizing off;");
  EXPECT_EQ(files(), (Strings{"bin", "bin/program", "part.dxf"}));
}

}  // namespace
}  // namespace quillon::headless
