// Conflicting files, and streams and folders that fail.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;

class ProgramFailureTest : public ProgramTest {
 protected:
  ProgramFailureTest() { write("part.dxf", oneLine()); }

  /// Runs the program with a standard output that accepts nothing.
  ProgramResult runWithFullOutput(Strings arguments) {
    call.outputStream = testing::openFullDevice();
    const ProgramResult result = run(std::move(arguments));
    ::close(call.outputStream);
    return result;
  }
};

TEST_F(ProgramFailureTest, NoResultReplacesAFileThatIsRead) {
  folder.write("a.lay", "[1]\nlayername=0\nlayernr=21\n");
  folder.write("a.cfh", "[start]\nendblock\n");
  for (const Strings& arguments : {Strings{"part.dxf", "-o", "./a.lay", "--layers", "a.lay"},
                                   Strings{"part.dxf", "-o", "a.cfh", "--frame", "./a.cfh"},
                                   Strings{"part.dxf", "--report", "part.dxf"},
                                   Strings{"part.dxf", "--report", "./part.dxf"}}) {
    const Strings before = files();
    Strings forced = arguments;
    forced.push_back("--force");
    const ProgramResult result = run(forced);
    EXPECT_EQ(result.exitCode, 2) << arguments[2];
    EXPECT_EQ(result.error, "quillon-convert: " + arguments[2] +
                                " would replace a file that is read\n"
                                "Try 'quillon-convert --help'.\n");
    EXPECT_EQ(files(), before);
  }
  EXPECT_EQ(folder.read("a.lay"), "[1]\nlayername=0\nlayernr=21\n");
  EXPECT_EQ(folder.read("a.cfh"), "[start]\nendblock\n");
  EXPECT_EQ(folder.read("part.dxf"), oneLine().text());
}

TEST_F(ProgramFailureTest, TwoResultsDoNotShareAFileUnderTwoSpellings) {
  const ProgramResult result = run({"part.dxf", "-o", "x", "--report", "./x"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_TRUE(result.error.starts_with("quillon-convert: two results would be written to ./x\n"))
      << result.error;
}

TEST_F(ProgramFailureTest, SeveralResultsMayShareADevice) {
  EXPECT_EQ(run({"part.dxf", "-o", "/dev/null", "--report", "/dev/null"}).exitCode, 0);
}

TEST_F(ProgramFailureTest, AReportGoesIntoAnExistingFolder) {
  std::filesystem::create_directory(folder.path() / "reports");
  EXPECT_EQ(run({"part.dxf", "--report", "reports"}).exitCode, 0);
  EXPECT_TRUE(folder.has("reports/part.txt"));
}

TEST_F(ProgramFailureTest, AFolderThatCannotBeListedIsNotTakenForAnEmptyOne) {
  namespace fs = std::filesystem;
  fs::create_directory(folder.path() / "in");
  fs::permissions(folder.path() / "in", fs::perms(0));
  dropRights();
  expectResult(run({"in"}), 1, "",
               errorLine("in cannot be listed. Please check its permissions.") +
                   "0 of 0 drawings converted\n");
  fs::permissions(folder.path() / "in", fs::perms(0755));
}

TEST_F(ProgramFailureTest, AScriptRefusedByStandardOutputIsAnError) {
  const ProgramResult result = runWithFullOutput({"part.dxf", "-o", "-"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.error,
            errorLine("- cannot be written: No space left on device. Please check the path, its "
                      "permissions and the free space."));
}

TEST_F(ProgramFailureTest, JsonRefusedByStandardOutputIsAnError) {
  const ProgramResult result = runWithFullOutput({"part.dxf", "--json", "--quiet"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.error,
            errorLine("Standard output cannot be written. Please check where it goes and the free "
                      "space."));
  EXPECT_TRUE(folder.has("part.scr"));
}

TEST_F(ProgramFailureTest, ReasonsAreGivenInGermanToo) {
  EXPECT_EQ(run({"none.dxf", "--language", "de"}).error,
            "quillon-convert: Fehler: none.dxf kann nicht gelesen werden: Datei oder Verzeichnis "
            "nicht gefunden. Bitte Pfad und Zugriffsrechte prüfen.\n");
  EXPECT_EQ(run({"part.dxf", "--language", "de", "-o", "/dev/full"}).error,
            "quillon-convert: Fehler: /dev/full kann nicht geschrieben werden: Kein Speicherplatz "
            "mehr frei. Bitte Pfad, Zugriffsrechte und freien Platz prüfen.\n");
}

TEST_F(ProgramFailureTest, AnInterruptIsSeenWhileTheProgramWaitsForItsInput) {
  call.arguments = {"-", "-o", "x.scr", "--quiet"};
  RunningProgram program(call);
  program.write(oneLine().text() + std::string(8192, '\n'));
  // The script is opened once the first bytes look like text; then the input blocks.
  const auto isWriting = [this] {
    for (const std::string& file : files()) {
      if (file.ends_with(".tmp")) return true;
    }
    return false;
  };
  ASSERT_TRUE(testing::waitUntil(isWriting));
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  program.interrupt();
  EXPECT_TRUE(testing::waitUntil([this] { return folder.has("x.scr"); }));
  EXPECT_EQ(program.finish().exitCode, 130);
}

}  // namespace
}  // namespace quillon::headless
