// Runs of the windowed program with "/ru" and "/rx".
#include <chrono>
#include <thread>

#include "app/program_fixture.h"
#include "base/encoding.h"
#include "platform.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;

/// The program is in its own folder "program", with its settings; drawings are beside it.
class UnattendedTest : public ProgramTest {
 protected:
  UnattendedTest() {
    std::filesystem::create_directory(folder.path() / "program");
    std::filesystem::create_directory(folder.path() / "in");
    call.program = folder.file("program/quillon");
    std::filesystem::copy_file(QUILLON_PROGRAM, call.program);
    folder.write("program/larkspur.ini", "[global]\nlanguage=10000\n[dxf]\nreport=0\n");
  }
  std::string drawings(const std::string& name) {
    return folder.write("in/" + name, oneLine().text());
  }
  static std::string written(const std::string& path, int lines) {
    return path + ": " + std::to_string(lines) + " lines written\n";
  }
  static constexpr int kLines = 11;  ///< of oneLine() in a board that has a name
};

TEST_F(UnattendedTest, HelpAndVersionAnswerOnTheConsole) {
  expectResult(run({"--version"}), 0, "Quillon " QUILLON_VERSION "\n", "");
  const ProgramResult english = run({"--help"});
  EXPECT_EQ(english.exitCode, 0);
  EXPECT_EQ(english.error, "");
  EXPECT_EQ(
      english.output,
      "Usage: quillon [DRAWING.dxf]\n"
      "       quillon /x:DRAWING.dxf [/s:SCRIPT.scr] [ITEM...] /ru\n"
      "       quillon /x:FOLDER\\*.dxf [/s:FOLDER\\x.scr] [ITEM...] /rx\n"
      "\n"
      "Turns DXF drawings into scripts for EAGLE, in its window or, with /ru and /rx, without it.\n"
      "Each item replaces a saved setting; paths in items are written with \"\\\".\n"
      "\n"
      "  /x: /s: /d:                  drawing, script, layer assignment file\n"
      "  /b:                          name of the board, schematic or library\n"
      "  /o:s /o:p /o:y               schematic, package, symbol\n"
      "  /l:                          standard layer, an entry such as 16 Bottom (B)\n"
      "  /v:4 /v:6                    EAGLE 4.x and 5.x; 6 and later; any other value 3.5\n"
      "  /g:exact                     the exact rules\n"
      "  /u:mic /u:mm /u:mil /u:inch  unit\n"
      "  /f:                          scale\n"
      "  /p:0 /p:1 /p:2               polylines\n"
      "  /k:0 /k:1 /k:2               blocks\n"
      "  /t:t /e:t /a:t /r:t          dotted lines, ellipses, arcs as lines, report\n"
      "  /w:o                         replace existing scripts\n"
      "  /ru                          convert the drawing, then end\n"
      "  /rx                          convert all drawings of its folder, then end\n"
      "  --help, --version            print this help, or the version\n");
  folder.write("program/larkspur.ini", "");
  EXPECT_TRUE(run({"--help"}).output.starts_with("Aufruf: quillon [ZEICHNUNG.dxf]\n"));
  const Strings nothingNew = {"in", "program", "program/larkspur.ini", "program/quillon"};
  EXPECT_EQ(files(), nothingNew);
}

TEST_F(UnattendedTest, ConvertsOneDrawingWithTheSettingsOfTheFile) {
  write("part.dxf", oneLine());
  folder.write("program/larkspur.ini",
               "[global]\nlanguage=10000\n[dxf]\nreport=0\ndxffile=part.dxf\nscr=out.scr\n"
               "brdsch=PART\n");
  expectResult(run({"/ru"}), 0, "", written("out.scr", kLines));
  EXPECT_EQ(folder.read("out.scr"), lineScript("PART"));
}

TEST_F(UnattendedTest, AScriptThatIsNotNamedGoesBesideItsDrawing) {
  drawings("Part.dxf");
  const testing::ProgramResult one = run({"/x:IN\\PART.DXF", "/b:p", "/ru"});
  expectResult(one, 0, "", written("in/Part.scr", kLines));
  EXPECT_EQ(run({"/x:in\\*.dxf", "/w:o", "/rx"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"in", "in/Part.dxf", "in/Part.scr", "program", "program/larkspur.ini",
                              "program/quillon", "program/quillon.cfh"}));
}

TEST_F(UnattendedTest, WhatIsLeftOutIsNamed) {
  folder.write("part.dxf",
               "  0\nSECTION\n  2\nENTITIES\n  0\nHATCH\n  8\n0\n  0\nLINE\nx\n0\n  0\nENDSEC\n"
               "  0\nEOF\n");
  const testing::ProgramResult result = run({"/x:part.dxf", "/s:out.scr", "/ru"});
  EXPECT_TRUE(result.error.ends_with(
      "lines written\n"
      "quillon: Warning: part.dxf: Left out because the drawing is damaged: 1 (first damage in "
      "line 11)\nquillon: Warning: part.dxf: Not recognised and left out: HATCH 1\n"))
      << result.error;
  EXPECT_NE(result.error.find("quillon: Warning: Nothing was converted: all entities of part.dxf "
                              "were left out."),
            std::string::npos);
}

TEST_F(UnattendedTest, NamesOfADrawingReachNoTerminalAsTheyAre) {
  testing::DxfBuilder dxf = oneLine();
  dxf.layer("a\x1b[2J").beginBlock("b\x1b[2J").endBlock().entity("X\x1b[2J", {{8, "0"}});
  dxf.entity("TEXT", {{8, "0"}, {40, "1"}, {1, "t\x1b[2J"}});
  write("part.dxf", dxf);
  const ProgramResult result = run({"/x:part.dxf", "/s:out.scr", "/b:part", "/k:1", "/r:t", "/ru"});
  EXPECT_EQ(result.exitCode, 0);
  for (const char* const shown :
       {"\nA\\x1b[2J ==> ", "\nNo     B\\x1b[2J ==> ", "left out: X\\x1b[2J 1\n"}) {
    EXPECT_NE(result.error.find(testing::withSlashes(shown)), std::string::npos)
        << shown << " in " << result.error;
  }
  EXPECT_EQ(result.error.find('\x1b'), std::string::npos);
  const std::string script = folder.read("out.scr");
  EXPECT_NE(script.find("Text R0 't [2J '"), std::string::npos) << script;
  EXPECT_EQ(script.find('\x1b'), std::string::npos);
}

TEST_F(UnattendedTest, OptionsReplaceTheSettings) {
  write("part.dxf", oneLine());
  expectResult(run({"/x:part.dxf", "/s:out.scr", "/o:s", "/b:sheet", "/v:3", "/u:mm", "/f:2",
                    "/l:91 nets (s)", "/ru"}),
               0, "", written("out.scr", kLines));
  EXPECT_EQ(folder.read("out.scr"),
            "Write;\r\nEdit 'sheet.sch';\r\nSet Wire_Style 2;\r\nChange Pour Solid;\r\nGrid mm;\r\n"
            "Set Optimizing off;\r\nSet Undo_Log off;\r\nLayer  91 ;\r\n"
            "Wire 0.0000000 (0.0000000 0.0000000) (2.0000000 4.0000000);\r\n"
            "Set Undo_Log on;\r\nWindow Fit;\r\n");
}

TEST_F(UnattendedTest, AScaleOfZeroOnTheCommandLineIsRefused) {
  write("part.dxf", oneLine());
  expectResult(run({"/x:part.dxf", "/s:out.scr", "/f:0", "/ru"}), 1, "",
               "quillon: Error: Scaling factor must be greater then 0.00!\n");
  EXPECT_EQ(folder.read("out.scr"), "");
  for (const std::string text : {"abc", "0,5"}) {
    expectResult(
        run({"/x:part.dxf", "/s:out.scr", "/f:" + text, "/w:o", "/ru"}), 1, "",
        "quillon: Warning: /f: \"" + text +
            "\" counts as 0, because something follows that is not part of a number. Please "
            "correct the number; the decimal sign is a point.\n"
            "quillon: Error: Scaling factor must be greater then 0.00!\n");
  }
}

TEST_F(UnattendedTest, RunsWithoutATargetAreRefused) {
  drawings("a.dxf");
  folder.write("program/larkspur.ini", "[global]\nlanguage=10000\n[dxf]\nreport=0\nbrd=4\n");
  for (const char* const item : {"/ru", "/rx"}) {
    expectResult(
        run({"/x:in\\a.dxf", "/s:in\\a.scr", item}), 1, "",
        "quillon: Error: Nothing is chosen for the script to create. Please choose a board, "
        "schematic, package or symbol.\n");
  }
  EXPECT_FALSE(folder.has("in/a.scr"));
  EXPECT_EQ(run({"/x:in\\a.dxf", "/s:in\\a.scr", "/o:s", "/ru"}).exitCode, 0);
}

TEST_F(UnattendedTest, LayersThatEagleDoesNotHaveAreNamed) {
  write("part.dxf", oneLine());
  folder.write("a.lay", "[1]\nlayername=0\nlayernr=-20\n");
  expectResult(run({"/x:part.dxf", "/s:out.scr", "/d:a.lay", "/l:300", "/ru"}), 0, "",
               "quillon: Warning: /l: \"300\" is not an EAGLE layer from 1 to 255. The standard "
               "layer is \"20 Dimension (B)\" instead.\n"
               "quillon: Warning: a.lay: These numbers are not EAGLE layers from 1 to 255 (or "
               "999). What lies on them is left out: 0 (-20)\n"
               "quillon: Warning: Nothing was converted: all entities of part.dxf were left out. "
               "Please check the drawing and the layer assignment.\n" +
                   written("out.scr", 7) +
                   "Left out because their layer is assigned to 999 or to no EAGLE layer: 1\n");
  EXPECT_EQ(folder.read("out.scr"), framed(""));
  folder.write("program/larkspur.ini", "[dxf]\nreport=0\n");
  EXPECT_TRUE(run({"/x:part.dxf", "/s:out.scr", "/l:-1", "/w:o", "/ru"})
                  .error.starts_with("quillon: Warnung: /l: \"-1\" ist kein EAGLE-Layer von 1 bis "
                                     "255. Der Standardlayer ist stattdessen \"20 Dimension "
                                     "(B)\".\n"));
}

TEST_F(UnattendedTest, ALayerFileThatDoesNotExistIsAWarning) {
  write("part.dxf", oneLine());
  expectResult(run({"/x:part.dxf", "/s:out.scr", "/d:none.lay", "/ru"}), 0, "",
               "quillon: Warning: The layer definition file none.lay cannot be read: No such file "
               "or directory. All layers go to the standard layer.\n" +
                   written("out.scr", 9));
}

TEST_F(UnattendedTest, ANumberThatEndsBeforeItsTextIsNamedOnce) {
  drawings("a.dxf");
  drawings("b.dxf");
  folder.write("program/larkspur.ini", "[dxf]\nreport=0\nscale=2,5\n");
  const ProgramResult result = run({"/x:in\\*.dxf", "/s:in\\a.scr", "/rx"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(result.error.starts_with(
      "quillon: Warnung: larkspur.ini, scale: \"2,5\" zählt als 2, denn danach folgt etwas, das "
      "nicht zu einer Zahl gehört. Bitte die Zahl berichtigen; das Dezimalzeichen "
      "ist der Punkt.\n"))
      << result.error;
  EXPECT_EQ(result.error.find("Warnung"), result.error.rfind("Warnung"));
  EXPECT_NE(folder.read("in/a.scr").find("(R2.0000000 4.0000000)"), std::string::npos);
}

TEST_F(UnattendedTest, TheFirstConversionMakesTheFrameFileOfNineLines) {
  write("part.dxf", oneLine());
  EXPECT_EQ(run({"/x:part.dxf", "/s:out.scr", "/ru"}).exitCode, 0);
  EXPECT_EQ(folder.read("program/quillon.cfh"),
            "[Start]\r\nSet Optimizing off;\r\nSet Undo_Log off;\r\nEndBlock\r\n\r\n[End]\r\n"
            "Set Undo_Log on;\r\nWindow Fit;\r\nEndBlock\r\n");
}

TEST_F(UnattendedTest, SpeaksGermanWithoutALanguage) {
  write("part.dxf", oneLine());
  folder.write("program/larkspur.ini", "[dxf]\nreport=0\n");
  expectResult(run({"/x:part.dxf", "/s:out.scr", "/ru"}), 0, "", "out.scr: 9 Zeilen geschrieben\n");
}

TEST_F(UnattendedTest, PrintsTheReport) {
  write("part.dxf", oneLine());
  const ProgramResult result = run({"/x:part.dxf", "/s:out.scr", "/r:t", "/ru"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(result.error.starts_with("\nConversion Report \n====")) << result.error;
  EXPECT_NE(result.error.find("\nLINE          :1\n"), std::string::npos);
  EXPECT_EQ(result.error.find('\r'), std::string::npos);
}

TEST_F(UnattendedTest, AnExistingScriptIsKept) {
  write("part.dxf", oneLine());
  folder.write("out.scr", "old");
  expectResult(run({"/x:part.dxf", "/s:out.scr", "/ru"}), 1, "",
               "quillon: Warning: Scripfile exists already. out.scr Overwrite?\n"
               "  The answer is No. Add /w:o to replace the file.\n");
  EXPECT_EQ(folder.read("out.scr"), "old");
}

TEST_F(UnattendedTest, TheOverwriteOptionReplacesAnExistingScript) {
  write("part.dxf", oneLine());
  for (const char* option : {"/w:o", "/w:a"}) {
    folder.write("out.scr", "old");
    EXPECT_EQ(run({"/x:part.dxf", "/s:out.scr", option, "/ru"}).exitCode, 0);
    EXPECT_EQ(folder.read("out.scr"), lineScript(""));
  }
}

TEST_F(UnattendedTest, AMissingDrawingIsAnError) {
  expectResult(
      run({"/x:none.dxf", "/s:out.scr", "/ru"}), 1, "",
      "quillon: File Error: Can't find the specified none.dxf DXF file!\n"
      "  none.dxf cannot be read: No such file or directory. Please check the path and its "
      "permissions.\n");
}

TEST_F(UnattendedTest, AScriptInAMissingFolderIsAnErrorAndGoesNowhereElse) {
  write("part.dxf", oneLine());
  const Strings before = {"in", "part.dxf", "program", "program/larkspur.ini", "program/quillon"};
  std::string root = std::filesystem::canonical(folder.path()).string();
  std::replace(root.begin(), root.end(), '/', '\\');
  for (const std::string& missing :
       {base::lowerCase(root) + "\\nofolder", std::string("q:\\out")}) {
    const std::string script = missing + "\\o.scr";
    expectResult(run({"/x:part.dxf", "/s:" + script, "/ru"}), 1, "",
                 "quillon: File Error: Can't open the specified " + script + " Script file!\n  " +
                     script + " cannot be written: the folder " + missing +
                     " does not exist. Please create the folder or correct the path.\n");
    EXPECT_EQ(files(), before);
  }
}

TEST_F(UnattendedTest, APathWithSlashesGivesAWarningWithTheRightSpelling) {
  const ProgramResult result = run({"/x:/home/me/In.dxf", "/s:out.scr", "/ru"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.starts_with(
      testing::withSlashes("quillon: Warning: \"/\" begins a new item here and has split a path. "
                           "Please write paths with "
                           "\"\\\": /x:\\home\\me\\in.dxf\n")))
      << result.error;
}

TEST_F(UnattendedTest, ATextWithoutSectionsGivesTheFrameAlone) {
  folder.write("part.dxf", "just\nsome\ntext\n");
  EXPECT_EQ(run({"/x:part.dxf", "/s:out.scr", "/ru"}).exitCode, 0);
  EXPECT_EQ(folder.read("out.scr"), framed(""));
}

TEST_F(UnattendedTest, PathsWithBackslashesAreFoundWhateverTheirCase) {
  drawings("Part.dxf");
  std::string path = std::filesystem::canonical(folder.path()).string() + "/in/Part.dxf";
  std::replace(path.begin(), path.end(), '/', '\\');
  EXPECT_EQ(run({"/x:" + path, "/s:in\\out.scr", "/ru"}).exitCode, 0);
  EXPECT_TRUE(folder.has("in/out.scr"));
}

TEST_F(UnattendedTest, ABatchConvertsEveryDrawingOfTheFolder) {
  drawings("a.dxf");
  drawings("B.DXF");
  const ProgramResult result = run({"/x:in\\*.dxf", "/s:in\\x.scr", "/b:board", "/rx"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(result.error.ends_with("2 drawings converted, 0 not converted\n")) << result.error;
  EXPECT_EQ(folder.read("in/a.scr"), lineScript("board"));
  EXPECT_EQ(folder.read("in/B.scr"), lineScript("board"));
}

TEST_F(UnattendedTest, ABatchTakesTheNamesThatItsFolderListsToTheLetter) {
  std::filesystem::create_directory(folder.path() / "out");
  drawings("..\\evil.dxf");
  folder.write("evil.dxf", "not the drawing that was listed");
  EXPECT_EQ(run({"/x:IN\\*.dxf", "/s:OUT\\x.scr", "/b:board", "/rx"}).exitCode, 0);
  EXPECT_EQ(folder.read("out/..\\evil.scr"), lineScript("board"));
  EXPECT_FALSE(folder.has("evil.scr"));
}

TEST_F(UnattendedTest, AScriptBesideItsDrawingHasTheDrawingsNameToTheLetter) {
  write("in\\evil.dxf", oneLine());
  EXPECT_EQ(run({"/x:in\\evil.dxf", "/b:board", "/ru"}).exitCode, 0);
  EXPECT_EQ(folder.read("in\\evil.scr"), lineScript("board"));
  EXPECT_FALSE(folder.has("in/evil.scr"));
}

TEST_F(UnattendedTest, ABatchGoesOnAfterABadFile) {
  for (int i = 0; i < 5; ++i) drawings("good" + std::to_string(i) + ".dxf");
  folder.write("in/bad.dxf", std::string("AC1015\0\0\0\0", 10));
  const ProgramResult result = run({"/x:in\\*.dxf", "/s:in\\x.scr", "/rx"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("bad.dxf is a DWG file. Please save the drawing as ASCII DXF.\n"),
            std::string::npos)
      << result.error;
  EXPECT_TRUE(result.error.ends_with("5 drawings converted, 1 not converted\n")) << result.error;
  EXPECT_FALSE(folder.has("in/bad.scr"));
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(folder.has("in/good" + std::to_string(i) + ".scr"));
}

TEST_F(UnattendedTest, BothRunsTogetherAreABatch) {
  drawings("a.dxf");
  EXPECT_EQ(run({"/x:in\\a.dxf", "/s:in\\x.scr", "/ru", "/rx"}).exitCode, 0);
  EXPECT_TRUE(folder.has("in/a.scr"));
  EXPECT_FALSE(folder.has("in/x.scr"));
}

TEST_F(UnattendedTest, ABatchOverAFolderWithoutDrawingsConvertsNothing) {
  expectResult(run({"/x:in\\*.dxf", "/s:in\\x.scr", "/rx"}), 0, "",
               "0 drawings converted, 0 not converted\n");
}

TEST_F(UnattendedTest, ABatchOverAFolderThatIsMissingIsRefused) {
  write("above.dxf", oneLine());
  drawings("a.dxf");
  const Strings before = files();
  expectResult(run({"/x:Q:\\none\\*.dxf", "/rx"}), 1, "",
               "quillon: The folder q:\\none\\ does not exist. Please create it or "
               "specify another one with /x:.\n");
  for (const char* const drawing : {"/x:nofolder\\*.dxf", "/x:nofolder\\", "/x:nofolder"}) {
    const ProgramResult result = run({drawing, "/s:in\\x.scr", "/rx"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(
        result.error.find("does not exist. Please create it or specify another one with /x:.\n"),
        std::string::npos)
        << result.error;
  }
  expectResult(run({"/x:in\\*.dxf", "/s:q:\\out\\x.scr", "/rx"}), 1, "",
               "quillon: The folder q:\\out\\ does not exist. Please create it or "
               "specify another one with /s:.\n");
  EXPECT_EQ(files(), before);
}

TEST_F(UnattendedTest, ABatchTakesAFolderWithoutItsLastSeparator) {
  write("above.dxf", oneLine());
  std::filesystem::create_directory(folder.path() / "out");
  drawings("a.dxf");
  EXPECT_EQ(run({"/x:in", "/s:out", "/rx"}).exitCode, 0);
  EXPECT_TRUE(folder.has("out/a.scr"));
  EXPECT_FALSE(folder.has("above.scr"));
}

TEST_F(UnattendedTest, AnInterruptEndsTheBatchAndLeavesAWellFormedScript) {
  for (const char* name : {"a.dxf", "b.dxf", "c.dxf"}) {
    drawings(name);
    folder.write("in/" + std::string(name), endless().text());
  }
  call.arguments = {"/x:in\\*.dxf", "/s:in\\x.scr", "/rx"};
  RunningProgram program(call);
  const auto isWriting = [this] {
    const Strings all = files();
    return std::any_of(all.begin(), all.end(),
                       [](const std::string& file) { return file.ends_with(".tmp"); });
  };
  ASSERT_TRUE(testing::waitUntil(isWriting));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_NE(result.error.find(": Interrupt by user in line "), std::string::npos) << result.error;
  EXPECT_TRUE(result.error.ends_with("0 drawings converted, 1 not converted\n")) << result.error;
  const Strings all = files();
  const auto scripts = std::count_if(
      all.begin(), all.end(), [](const std::string& file) { return file.ends_with(".scr"); });
  EXPECT_EQ(scripts, 1);
  for (const std::string& file : all) {
    if (file.ends_with(".scr")) {
      EXPECT_EQ(folder.read(file), framed(""));
    }
  }
}

TEST_F(UnattendedTest, SettingsAreNotWrittenByARun) {
  write("part.dxf", oneLine());
  const std::string before = folder.read("program/larkspur.ini");
  EXPECT_EQ(run({"/x:part.dxf", "/s:out.scr", "/ru"}).exitCode, 0);
  EXPECT_EQ(folder.read("program/larkspur.ini"), before);
}

TEST_F(UnattendedTest, AnExistingFileAsTheOnlyArgumentIsNotAnOption) {
  const std::string path = folder.write("ru", oneLine().text());
  const ProgramResult result = run({path});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_FALSE(folder.has("program/quillon.cfh"));
}

#ifdef QUILLON_WINDOWS

/// The same program with a display: it shows the progress dialog and nothing else.
class WindowRunTest : public UnattendedTest {
 protected:
  WindowRunTest() {
    call.environment.push_back(std::string("QT_QPA_PLATFORM=") + testing::kQtPlatform);
  }
};

TEST_F(WindowRunTest, ConvertsOneDrawingAfterTheSplash) {
  write("part.dxf", oneLine());
  const auto start = std::chrono::steady_clock::now();
  const ProgramResult result = run({"/x:part.dxf", "/s:out.scr", "/b:board", "/ru"});
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(result.error.find(written("out.scr", kLines)), std::string::npos) << result.error;
  EXPECT_EQ(folder.read("out.scr"), lineScript("board"));
}

TEST_F(WindowRunTest, QuestionsAndMessagesDoNotStopABatch) {
  drawings("a.dxf");
  drawings("b.dxf");
  folder.write("in/b.scr", "old");
  folder.write("in/c.dxf", std::string("AC1015\0\0\0\0", 10));
  const ProgramResult result = run({"/x:in\\*.dxf", "/s:in\\x.scr", "/r:t", "/ru", "/rx"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.ends_with("1 drawings converted, 2 not converted\n")) << result.error;
  EXPECT_NE(result.error.find("\nConversion Report \n"), std::string::npos);
  EXPECT_NE(result.error.find("in/b.scr Overwrite?\n"), std::string::npos);
  EXPECT_EQ(folder.read("in/b.scr"), "old");
}

TEST_F(WindowRunTest, AnInterruptCancels) {
  write("part.dxf", endless());
  call.arguments = {"/x:part.dxf", "/s:out.scr", "/ru"};
  RunningProgram program(call);
  ASSERT_TRUE(testing::waitUntil([this] {
    const Strings all = files();
    return std::any_of(all.begin(), all.end(),
                       [](const std::string& file) { return file.ends_with(".tmp"); });
  }));
  program.interrupt();
  EXPECT_EQ(program.finish().exitCode, 130);
  EXPECT_EQ(folder.read("out.scr"), framed(""));
}

TEST_F(UnattendedTest, ADisplayThatIsNotThereDoesNotStopARun) {
  write("part.dxf", oneLine());
  const Strings environment = call.environment;
  for (const char* display : {"DISPLAY=:4711", "DISPLAY=localhost:99", "WAYLAND_DISPLAY=none"}) {
    call.environment = environment;
    call.environment.emplace_back(display);
    expectResult(run({"/x:part.dxf", "/s:out.scr", "/w:o", "/ru"}), 0, "", written("out.scr", 9));
  }
}

TEST_F(UnattendedTest, WithoutADisplayTheWindowIsRefusedWithAHint) {
  expectResult(run({}), 2, "",
               "quillon: There is no display to show the window on. With /ru one drawing, with /rx "
               "all drawings of a folder are converted without it.\n");
}

#endif

}  // namespace
}  // namespace quillon::headless
