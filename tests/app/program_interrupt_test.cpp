// Ctrl-C, and what a terminal shows.
#include <fcntl.h>

#include <thread>

#include "app/json_value.h"
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;

class InterruptTest : public ProgramTest {
 protected:
  /// True while a script is being written in the folder.
  bool isWriting(const std::string& below = ".") const {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path() / below)) {
      if (entry.path().extension() == ".tmp") return true;
    }
    return false;
  }
  RunningProgram start(Strings arguments) {
    call.arguments = std::move(arguments);
    return RunningProgram(call);
  }
};

TEST_F(InterruptTest, CancelsALongConversionAndStillWritesTrailerAndReport) {
  write("part.dxf", endless());
  RunningProgram program = start({"part.dxf", "--report", "part.txt"});
  ASSERT_TRUE(RunningProgram::waitUntil([this] { return isWriting(); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_EQ(result.output, "");
  EXPECT_TRUE(
      result.error.starts_with("quillon-convert: warning: part.dxf: Interrupt by user in line "))
      << result.error;
  EXPECT_NE(result.error.find(" of DXF file!\n"), std::string::npos);
  EXPECT_EQ(folder.read("part.scr"), "Write;\r\nEdit 'part.brd';\r\n" + framed(""));
  EXPECT_TRUE(folder.read("part.txt").starts_with("\r\nConversion Report \r\n"));
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr", "part.txt"}));
}

TEST_F(InterruptTest, CancelsReadingAndStillWritesTheTrailer) {
  RunningProgram program = start({"-", "-o", "part.scr"});
  program.write(std::string(8192, '\n'));
  ASSERT_TRUE(RunningProgram::waitUntil([this] { return isWriting(); }));
  program.interrupt();
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  program.write(oneLine().text());
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_EQ(folder.read("part.scr"), framed(""));
}

TEST_F(InterruptTest, DoesNotBeginTheRemainingDrawings) {
  write("a.dxf", oneLine());
  write("b.dxf", endless());
  write("c.dxf", oneLine());
  write("d.dxf", oneLine());
  RunningProgram program = start({"a.dxf", "b.dxf", "c.dxf", "d.dxf", "--json"});
  ASSERT_TRUE(RunningProgram::waitUntil([this] { return folder.has("a.scr") && isWriting(); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_EQ(files(), (Strings{"a.dxf", "a.scr", "b.dxf", "b.scr", "c.dxf", "d.dxf"}));
  EXPECT_TRUE(result.error.ends_with("1 of 4 drawings converted\n")) << result.error;
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 2);
  const std::size_t second = result.output.find('\n') + 1;
  const auto value = testing::JsonValue::parse(result.output.substr(second));
  EXPECT_EQ(value.at("outcome").text(), "cancelled");
  EXPECT_EQ(value.at("script").text(), "b.scr");
}

TEST_F(InterruptTest, CancelsAllConversionsThatRunAtTheTime) {
  std::filesystem::create_directories(folder.path() / "1");
  std::filesystem::create_directories(folder.path() / "2");
  write("1/a.dxf", endless());
  write("2/b.dxf", endless());
  write("c.dxf", oneLine());
  RunningProgram program = start({"1/a.dxf", "2/b.dxf", "c.dxf", "--jobs", "2"});
  ASSERT_TRUE(RunningProgram::waitUntil([this] { return isWriting("1") && isWriting("2"); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_TRUE(folder.has("1/a.scr"));
  EXPECT_TRUE(folder.has("2/b.scr"));
  EXPECT_FALSE(folder.has("c.scr"));
  EXPECT_TRUE(result.error.ends_with("0 of 3 drawings converted\n")) << result.error;
}

TEST_F(InterruptTest, IsToldInGerman) {
  write("part.dxf", endless());
  RunningProgram program = start({"part.dxf", "--language", "de"});
  ASSERT_TRUE(RunningProgram::waitUntil([this] { return isWriting(); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_TRUE(result.error.starts_with(
      "quillon-convert: Warnung: part.dxf: Konvertierung durch Benutzer in Zeile "))
      << result.error;
  EXPECT_NE(result.error.find(" der DXF-Datei abgebrochen!\n"), std::string::npos);
}

/// The master side of a pseudo terminal, which reads what a program shows there.
class Terminal {
 public:
  Terminal() : master_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
      throw std::runtime_error("no pseudo terminal");
    }
    slave_ = open(ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
  }
  ~Terminal() {
    if (slave_ >= 0) close(slave_);
    close(master_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  int slave() const { return slave_; }
  /// Everything shown, once the program has ended.
  std::string shown() {
    close(slave_);
    slave_ = -1;
    std::string out;
    char block[4096];
    for (ssize_t got = 0; (got = read(master_, block, sizeof block)) > 0;) {
      out.append(block, static_cast<std::size_t>(got));
    }
    return out;
  }

 private:
  int master_;
  int slave_ = -1;
};

class TerminalTest : public InterruptTest {
 protected:
  std::string shown(Strings arguments) {
    Terminal terminal;
    call.errorStream = terminal.slave();
    EXPECT_EQ(run(std::move(arguments)).exitCode, 0);
    return terminal.shown();
  }
};

TEST_F(TerminalTest, ShowsAProgressBarAndTakesItAwayAgain) {
  write("part.dxf", oneLine());
  const std::string text = shown({"part.dxf"});
  EXPECT_NE(text.find("\r[..............................] 0 % part.dxf\x1b[K"), std::string::npos)
      << text;
  const std::size_t erased = text.rfind("\r\x1b[K");
  ASSERT_NE(erased, std::string::npos);
  EXPECT_EQ(text.find("] ", erased), std::string::npos);
  EXPECT_NE(text.find("part.dxf: 1 entities converted", erased), std::string::npos);
}

TEST_F(TerminalTest, ShowsHowManyOfSeveralDrawingsAreDone) {
  write("a.dxf", oneLine());
  write("b.dxf", oneLine());
  EXPECT_NE(shown({"a.dxf", "b.dxf"}).find("[###############...............] 50 % 1/2\x1b[K"),
            std::string::npos);
}

TEST_F(TerminalTest, CutsALongNameBetweenCharacters) {
  const std::string name = std::string(39, 'x') + "äöü.dxf";
  write(name, oneLine());
  EXPECT_EQ(shown({name}).find("\xC3\x1b"), std::string::npos);
}

TEST_F(TerminalTest, EscapesControlCharactersOfTheNameBesideTheBar) {
  write("a\n\x1b[2J.dxf", oneLine());
  const std::string text = shown({"a\n\x1b[2J.dxf"});
  EXPECT_EQ(text.find("\x1b[2J"), std::string::npos);
}

TEST_F(TerminalTest, ShowsNoProgressBarWhenTheProgramShallBeQuiet) {
  write("part.dxf", oneLine());
  EXPECT_EQ(shown({"part.dxf", "--quiet"}), "");
}

}  // namespace
}  // namespace quillon::headless
