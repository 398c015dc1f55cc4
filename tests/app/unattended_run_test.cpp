// Runs of the window's program with "/ru" and "/rx".
#include <thread>

#include "app/program_fixture.h"
#include "platform.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;

/// The program stands in a folder "program" of its own, with its settings; drawings stand beside.
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
  EXPECT_NE(result.error.find("\nA\\x1b[2J ==> "), std::string::npos) << result.error;
  EXPECT_NE(result.error.find("\nNo     B\\x1b[2J ==> "), std::string::npos);
  EXPECT_NE(result.error.find("left out: X\\x1b[2J 1\n"), std::string::npos);
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

TEST_F(UnattendedTest, ABatchOverAFolderThatIsMissingIsAnError) {
  expectResult(run({"/x:Q:\\none\\*.dxf", "/rx"}), 1, "",
               "quillon: q:\\ cannot be read: No such file or directory. Please check the path and "
               "its permissions.\n");
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

TEST_F(UnattendedTest, AnExistingFileAsTheOnlyArgumentIsNoOption) {
  const std::string path = folder.write("ru", oneLine().text());
  const ProgramResult result = run({path});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_FALSE(folder.has("program/quillon.cfh"));
}

#ifdef QUILLON_WINDOWS

/// The same program where there is a display: the progress dialog shows, nothing else does.
class WindowRunTest : public UnattendedTest {
 protected:
  WindowRunTest() {
    call.environment.push_back(std::string("QT_QPA_PLATFORM=") + testing::kQtPlatform);
  }
};

TEST_F(WindowRunTest, ConvertsOneDrawingBehindTheSplash) {
  write("part.dxf", oneLine());
  const ProgramResult result = run({"/x:part.dxf", "/s:out.scr", "/b:board", "/ru"});
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
