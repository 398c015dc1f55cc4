// Endless inputs, and more jobs than the system can handle.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "app/headless/options.h"
#include "app/load_fixture.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;

class InputLimit : public ProgramTest {
 protected:
  static std::string tooLarge(const std::string& drawing, const std::string& bytes) {
    return errorLine(drawing + " has more than the " + bytes +
                     " bytes that are allowed. Please check that it is a drawing; --max-input "
                     "allows more.");
  }
  /// A drawing of this size.
  static std::string drawingOf(std::size_t bytes) {
    std::string text = oneLine().text();
    text += std::string(bytes - text.size(), '\n');
    return text;
  }
};

TEST_F(InputLimit, EndsAnEndlessStandardInput) {
  folder.write("part.scr", "old");
  call.arguments = {"-", "-o", "part.scr", "--force", "--max-input", "1M"};
  RunningProgram program(call);
  const std::string block = drawingOf(std::size_t{1} << 20);
  for (int i = 0; i < 100; ++i) program.write(block);  // it ends before reading everything
  const ProgramResult result = program.finish();
  expectResult(result, 1, "", tooLarge("-", "1048576"));
  EXPECT_LT(result.peakBytes, flatMemory());
  EXPECT_EQ(folder.read("part.scr"), "old");
  EXPECT_EQ(files(), Strings{"part.scr"});
}

TEST_F(InputLimit, IsTheLastByteThatIsAllowed) {
  EXPECT_EQ(run({"-", "--max-input", "5K"}, drawingOf(5120)).exitCode, 0);
  expectResult(run({"-", "--max-input", "5K"}, drawingOf(5121)), 1, "", tooLarge("-", "5120"));
  folder.write("part.dxf", drawingOf(5120));
  EXPECT_EQ(run({"part.dxf", "--max-input", "5120"}).exitCode, 0);
  expectResult(run({"part.dxf", "--force", "--max-input", "5119"}), 1, "",
               tooLarge("part.dxf", "5119"));
}

TEST_F(InputLimit, HoldsForNamedPipesAndInGerman) {
  ASSERT_EQ(mkfifo((folder.path() / "part.dxf").c_str(), 0600), 0);
  call.arguments = {"part.dxf", "--max-input", "1k", "--language", "de"};
  RunningProgram program(call);
  std::ofstream(folder.file("part.dxf")) << drawingOf(5000);
  expectResult(program.finish(), 1, "",
               "quillon-convert: Fehler: part.dxf hat mehr als die erlaubten 1024 Bytes. Bitte "
               "prüfen, ob es eine Zeichnung ist; --max-input erlaubt mehr.\n");
}

TEST_F(InputLimit, IsFourGigabytesFromAPipeUnlessGiven) {
  std::optional<int> exitCode;
  const Options usual = parseOptions({"-"}, exitCode);
  EXPECT_EQ(usual.input.pipe, std::uint64_t{4} << 30);
  EXPECT_EQ(usual.input.file, dxf::InputLimits::kNone);
  const Options given = parseOptions({"-", "--max-input", "3G"}, exitCode);
  EXPECT_EQ(given.input.pipe, std::uint64_t{3} << 30);
  EXPECT_EQ(given.input.file, std::uint64_t{3} << 30);
  EXPECT_FALSE(exitCode);
}

TEST_F(InputLimit, IsAPositiveSize) {
  for (const std::string size :
       {"0", "0K", "-1", "1.5M", "x", "", "K", "1T", "1KB", "1 K", "99999999999G"}) {
    const ProgramResult result = run({"-", "--max-input", size});
    EXPECT_EQ(result.exitCode, 2) << size;
    EXPECT_NE(result.error.find("\"" + size + "\" is not a size"), std::string::npos)
        << result.error;
  }
}

class ManyJobs : public ProgramTest {
 protected:
  static constexpr int kDrawings = 48;

  /// Runs under a shell limit; every drawing is read from a pipe that is filled once all jobs have
  /// had time to open theirs.
  ProgramResult runWithLimit(const std::string& limit) {
    Strings arguments = {"-c", "ulimit " + limit + " && exec \"$0\" \"$@\"", QUILLON_CONVERT,
                         "--jobs", std::to_string(kDrawings)};
    for (int i = 0; i < kDrawings; ++i) {
      EXPECT_EQ(mkfifo(drawing(i).c_str(), 0600), 0);
      arguments.push_back(drawing(i));
    }
    testing::ProgramCall shell = call;
    shell.program = "/bin/sh";
    shell.arguments = arguments;
    RunningProgram program(shell);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    std::vector<std::jthread> writers;
    for (int i = 0; i < kDrawings; ++i) {
      writers.emplace_back([this, i] { std::ofstream(drawing(i)) << oneLine().text(); });
    }
    const ProgramResult result = program.finish();
    // The writer of a pipe that the program did not open would block forever.
    std::vector<int> readers;
    for (int i = 0; i < kDrawings; ++i) {
      readers.push_back(open(drawing(i).c_str(), O_RDONLY | O_NONBLOCK));
    }
    writers.clear();
    for (const int reader : readers) close(reader);
    return result;
  }
  std::string drawing(int number) const {
    return folder.file("d" + std::to_string(100 + number) + ".dxf");
  }
};

TEST_F(ManyJobs, AreFewerWhereFilesAreFew) {
  const ProgramResult result = runWithLimit("-n 40");
  EXPECT_EQ(result.exitCode, 0) << result.error;
}

TEST_F(ManyJobs, AreFewerWhereMemoryIsLittle) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "AddressSanitizer takes terabytes of addresses";
#else
  const ProgramResult result = runWithLimit("-v 400000");
  EXPECT_EQ(result.exitCode, 0) << result.error;
#endif
}

/// Room for what a large drawing might need is asked for at the start.
TEST_F(ProgramTest, NeedsNoRoomThatALargeDrawingOnlyMightTake) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "AddressSanitizer takes terabytes of addresses";
#else
  const std::string drawing = oneLine().text();
  folder.write("part.dxf", drawing + std::string((std::size_t{40} << 20) - drawing.size(), '\n'));
  for (const std::string limit : {"70000", "150000", "unlimited"}) {
    testing::ProgramCall shell = call;
    shell.program = "/bin/sh";
    shell.arguments = {"-c", "ulimit -v " + limit + " && exec \"$0\" \"$@\"", QUILLON_CONVERT,
                       "--force", "part.dxf"};
    const ProgramResult result = RunningProgram(shell).finish();
    EXPECT_EQ(result.exitCode, 0) << limit << ": " << result.error;
    EXPECT_EQ(folder.read("part.scr"), lineScript("part")) << limit;
  }
#endif
}

}  // namespace
}  // namespace quillon::headless
