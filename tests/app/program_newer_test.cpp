// --newer, and the limits of a conversion.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using std::chrono::hours;
using testing::ProgramResult;
using testing::RunningProgram;
using testing::waitUntil;

class NewerTest : public ProgramTest {
 protected:
  /// Sets a file's time back by some hours.
  void date(const std::string& name, int hoursAgo) const {
    fs::last_write_time(folder.path() / name, fs::file_time_type::clock::now() - hours(hoursAgo));
  }
};

TEST_F(NewerTest, SkipsADrawingWhoseScriptIsNewer) {
  write("part.dxf", oneLine());
  folder.write("part.scr", "kept");
  date("part.dxf", 1);
  expectResult(run({"part.dxf", "--newer"}), 0, "",
               "1 drawings skipped because their scripts are newer\n");
  EXPECT_EQ(folder.read("part.scr"), "kept");
  expectResult(run({"part.dxf", "--newer", "--quiet"}), 0, "", "");
}

TEST_F(NewerTest, PrintsAnObjectForADrawingThatItSkips) {
  write("part.dxf", oneLine());
  write("other.dxf", oneLine());
  folder.write("part.scr", "kept");
  date("part.dxf", 1);
  const ProgramResult result = run({"part.dxf", "other.dxf", "--newer", "--json", "--quiet"});
  EXPECT_EQ(result.exitCode, 0);
  const std::string skipped =
      R"({"dxf":"part.dxf","script":"part.scr","report":null,"preview":null,"outcome":"skipped",)"
      R"("linesRead":0,"linesWritten":0,"entities":{},"leftOut":{},"notRecognised":{},)"
      R"("damaged":null,"extents":null,"rangeWarning":false,"messages":[]})"
      "\n";
  EXPECT_TRUE(result.output.starts_with(skipped + R"({"dxf":"other.dxf")")) << result.output;
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 2);
}

TEST_F(NewerTest, ReplacesAnOlderScriptAndReportWithoutForce) {
  write("part.dxf", oneLine());
  folder.write("part.scr", "old");
  folder.write("part.txt", "old");
  date("part.scr", 1);
  expectResult(run({"part.dxf", "--newer", "--report", "part.txt"}), 0, "",
               summary("part.dxf", 1, "part.scr", 11));
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
  EXPECT_NE(folder.read("part.txt"), "old");
}

TEST_F(NewerTest, ConvertsWhereTheTimesAreTheSame) {
  write("part.dxf", oneLine());
  folder.write("part.scr", "old");
  fs::last_write_time(folder.path() / "part.scr", fs::last_write_time(folder.path() / "part.dxf"));
  EXPECT_EQ(run({"part.dxf", "--newer"}).exitCode, 0);
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
}

TEST_F(NewerTest, ConvertsADrawingWithoutAScript) {
  write("part.dxf", oneLine());
  expectResult(run({"part.dxf", "--newer"}), 0, "", summary("part.dxf", 1, "part.scr", 11));
}

TEST_F(NewerTest, CountsWhatItSkipsInAFolder) {
  fs::create_directory(folder.path() / "in");
  for (const char* const name : {"in/a.dxf", "in/b.dxf", "in/c.dxf"}) write(name, oneLine());
  folder.write("in/b.scr", "kept");
  date("in/b.dxf", 1);
  const ProgramResult result = run({"in", "--newer"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(
      result.error.ends_with("1 drawings skipped because their scripts are newer\n"
                             "2 of 3 drawings converted\n"))
      << result.error;
  EXPECT_EQ(folder.read("in/b.scr"), "kept");
}

TEST_F(NewerTest, DoesNotTakeACancelledScriptForAConvertedOne) {
  write("part.dxf", endless());
  date("part.dxf", 1);
  call.arguments = {"part.dxf", "--quiet"};
  RunningProgram program(call);
  ASSERT_TRUE(waitUntil([this] { return files().size() == 2; }));
  program.interrupt();
  EXPECT_EQ(program.finish().exitCode, 130);
  ASSERT_TRUE(folder.has("part.scr"));
  write("part.dxf", oneLine());
  fs::last_write_time(folder.path() / "part.dxf", fs::last_write_time(folder.path() / "part.scr"));
  EXPECT_EQ(run({"part.dxf", "--newer"}).exitCode, 0);
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
}

TEST_F(NewerTest, NeedsFiles) {
  write("part.dxf", oneLine());
  for (const Strings& arguments :
       {Strings{"-", "--newer"}, Strings{"part.dxf", "-o", "-", "--newer"}}) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.error,
              "quillon-convert: --newer needs scripts that are files\n"
              "Try 'quillon-convert --help'.\n");
  }
  const ProgramResult result = run({"-", "-o", "a.scr", "--newer"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.error,
            "quillon-convert: --newer needs drawings that are files\n"
            "Try 'quillon-convert --help'.\n");
}

TEST_F(NewerTest, TellsWhatItSkipsInGerman) {
  write("part.dxf", oneLine());
  folder.write("part.scr", "kept");
  date("part.dxf", 1);
  EXPECT_EQ(run({"part.dxf", "--newer", "--language", "de"}).error,
            "1 Zeichnungen übersprungen, weil ihr Script neuer ist\n");
}

class LimitsTest : public ProgramTest {
 protected:
  static testing::DxfBuilder manyLines() {
    testing::DxfBuilder dxf;
    for (int i = 0; i < 100; ++i) {
      dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    }
    return dxf;
  }
  /// A line with a line type that needs a billion steps and draws nothing.
  static testing::DxfBuilder billionsOfGaps() {
    testing::DxfBuilder dxf;
    dxf.header("$LTSCALE", 40, "1");
    dxf.dashes("GAPS", "1", {"-1e-9", "-1e-9"});
    dxf.entity("LINE", {{8, "0"}, {6, "GAPS"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
    return dxf;
  }
};

TEST_F(LimitsTest, EndAScriptThatGetsTooLongAndKeepTheOldOne) {
  write("part.dxf", manyLines());
  folder.write("part.scr", "old");
  expectResult(run({"part.dxf", "--max-lines", "50", "--force"}), 1, "",
               errorLine("part.dxf: The script has reached the limit of 50 lines. The script is "
                         "not kept. --max-lines and --max-steps allow more, and --keep-partial "
                         "keeps the incomplete script."));
  EXPECT_EQ(folder.read("part.scr"), "old");
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
}

TEST_F(LimitsTest, AreDecimalAlsoAfterAZeroAndInAConfigurationFile) {
  write("part.dxf", manyLines());
  const std::string text = "the limit of 50 lines";
  EXPECT_NE(run({"part.dxf", "--max-lines", "050"}).error.find(text), std::string::npos);
  folder.write("mine.toml", "max-lines = 050\n");
  EXPECT_NE(run({"part.dxf", "--config", "mine.toml"}).error.find(text), std::string::npos);
}

TEST_F(LimitsTest, EndWorkThatWritesNothing) {
  write("part.dxf", endless());
  expectResult(run({"part.dxf", "--max-steps", "1000", "--language", "de"}), 1, "",
               "quillon-convert: Fehler: part.dxf: Die Konvertierung hat die Grenze von 1000 "
               "Schritten erreicht. Das Script wird nicht behalten. --max-lines und --max-steps "
               "erlauben mehr, mit --keep-partial bleibt das unvollständige Script.\n");
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(LimitsTest, EndWorkWithoutAnEndWithoutBeingAsked) {
  write("part.dxf", billionsOfGaps());
  const ProgramResult result = run({"part.dxf", "--dotted"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("the limit of 50000000 steps"), std::string::npos) << result.error;
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(LimitsTest, GiveNoReportOfWhatTheyEnd) {
  write("part.dxf", manyLines());
  const ProgramResult result =
      run({"part.dxf", "--max-lines", "50", "--report", "part.txt", "--json"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.output.find(R"("outcome":"failed")"), std::string::npos) << result.output;
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

TEST_F(LimitsTest, KeepTheIncompleteScriptWhenAskedTo) {
  write("part.dxf", manyLines());
  const ProgramResult result = run({"part.dxf", "--max-lines", "50", "--keep-partial"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.starts_with(
      "quillon-convert: warning: part.dxf: The script has reached the 50 lines that --max-lines "
      "allows and is incomplete.\n"))
      << result.error;
  const std::string script = folder.read("part.scr");
  EXPECT_TRUE(script.ends_with("Set Undo_Log on;\r\nWindow Fit;\r\n"));
  EXPECT_EQ(std::count(script.begin(), script.end(), '\n'), 53);  // 7, 22 times 2, and 2
}

TEST_F(LimitsTest, NameTheStepsOfAnIncompleteScript) {
  write("part.dxf", endless());
  const ProgramResult result = run({"part.dxf", "--max-steps", "1000", "--keep-partial"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.starts_with(
      "quillon-convert: warning: part.dxf: The conversion has reached the 1000 steps that "
      "--max-steps allows, and the script is incomplete.\n"))
      << result.error;
  EXPECT_TRUE(folder.read("part.scr").ends_with("Set Undo_Log on;\r\nWindow Fit;\r\n"));
}

TEST_F(LimitsTest, LeaveTheOtherDrawingsAlone) {
  write("a.dxf", manyLines());
  write("b.dxf", oneLine());
  const ProgramResult result = run({"a.dxf", "b.dxf", "--max-lines", "50"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.ends_with("1 of 2 drawings converted\n")) << result.error;
  EXPECT_EQ(folder.read("b.scr"), lineScript("b"));
}

TEST_F(LimitsTest, AreFarAwayUnlessGiven) {
  write("part.dxf", manyLines());
  EXPECT_EQ(run({"part.dxf"}).exitCode, 0);
}

TEST_F(LimitsTest, ArePositiveNumbers) {
  for (const char* const text : {"0", "-1", "1.5", "x", "", "99999999999999999999"}) {
    for (const std::string things : {"lines", "steps"}) {
      const ProgramResult result = run({"part.dxf", "--max-" + things, text});
      EXPECT_EQ(result.exitCode, 2) << text;
      EXPECT_NE(result.error.find("is not a number of " + things), std::string::npos)
          << result.error;
    }
  }
}

}  // namespace
}  // namespace quillon::headless
