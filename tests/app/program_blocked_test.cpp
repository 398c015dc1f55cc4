// Pipes among the drawings of a folder, and Ctrl-C while a run is blocked on a pipe.
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <thread>

#include "app/json_value.h"
#include "app/program_fixture.h"
#include "support/timing.h"

namespace quillon::headless {
namespace {

using namespace std::chrono_literals;
using testing::ProgramResult;
using testing::RunningProgram;

class PipeTest : public ProgramTest {
 protected:
  std::string pipe(const std::string& name) const {
    const std::string path = folder.file(name);
    if (!testing::makePipe(path)) throw std::runtime_error("no pipe");
    return path;
  }
};

TEST_F(PipeTest, APipeInAFolderIsNamedAndLeftOut) {
  std::filesystem::create_directory(folder.path() / "in");
  pipe("in/a.dxf");
  write("in/b.dxf", oneLine());
  const std::string leftOut =
      "quillon-convert: warning: in/a.dxf is not a regular file and was left out. To convert it, "
      "give the file itself instead of its folder.\n";
  expectResult(run({"in", "--quiet"}), 0, "", leftOut);
  EXPECT_EQ(files(), (Strings{"in", "in/a.dxf", "in/b.dxf", "in/b.scr"}));
}

TEST_F(PipeTest, TheSecondOfTwoDrawingsWithOneScriptFailsAlone) {
  std::filesystem::create_directory(folder.path() / "in");
  for (const char* const name : {"in/x.DXF", "in/x.dxf", "in/y.dxf"}) write(name, oneLine());
  for (const char* const jobs : {"1", "3"}) {
    const ProgramResult result = run({"in", "--force", "--json", "--jobs", jobs});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.error.find(errorLine("in/x.dxf was not converted because its script in/x.scr "
                                          "already belongs to in/x.DXF. Please rename one of the "
                                          "drawings.")),
              std::string::npos)
        << result.error;
    EXPECT_TRUE(result.error.ends_with("2 of 3 drawings converted\n")) << result.error;
    const std::size_t second = result.output.find('\n') + 1;
    const auto value = testing::JsonValue::parse(
        result.output.substr(second, result.output.find('\n', second) - second));
    EXPECT_EQ(value.at("dxf").text(), "in/x.dxf");
    EXPECT_EQ(value.at("outcome").text(), "failed");
    EXPECT_EQ(files(), (Strings{"in", "in/x.DXF", "in/x.dxf", "in/x.scr", "in/y.dxf", "in/y.scr"}));
  }
}

/// Runs that block on a pipe until they are interrupted.
class BlockedTest : public PipeTest {
 protected:
  /// Interrupts a blocked program, which has to end within a second.
  static ProgramResult interrupt(RunningProgram& program) {
    std::this_thread::sleep_for(200ms * testing::patience());
    const auto begin = std::chrono::steady_clock::now();
    program.interrupt();
    ProgramResult result = program.finish();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s * testing::patience());
    EXPECT_EQ(result.exitCode, 130);
    return result;
  }
  /// Converts a.dxf, which shows that the program is running, then blocks on further arguments.
  ProgramResult interruptAfterFirst(Strings arguments) {
    write("a.dxf", oneLine());
    arguments.insert(arguments.begin(), "a.dxf");
    arguments.emplace_back("--force");
    call.arguments = std::move(arguments);
    RunningProgram program(call);
    EXPECT_TRUE(testing::waitUntil([this] { return folder.has("a.scr"); }));
    return interrupt(program);
  }
};

TEST_F(BlockedTest, PipesWithoutAWriterWithAllJobs) {
  for (const char* const name : {"p.dxf", "q.dxf", "r.dxf"}) pipe(name);
  for (const char* const jobs : {"1", "2", "4"}) {
    const ProgramResult result =
        interruptAfterFirst({"p.dxf", "q.dxf", "r.dxf", "--jobs", jobs, "--quiet"});
    EXPECT_TRUE(result.error.starts_with(
        "quillon-convert: warning: p.dxf: Interrupt by user in line 0 of DXF file!\n"))
        << result.error;
    EXPECT_EQ(files(), (Strings{"a.dxf", "a.scr", "p.dxf", "q.dxf", "r.dxf"}));
    std::filesystem::remove(folder.path() / "a.scr");
  }
}

TEST_F(BlockedTest, PipesWhoseWritersStopInTheMiddle) {
  Strings arguments = {"--jobs", "3"};
  std::vector<int> writers;
  for (const char* const name : {"p.dxf", "q.dxf"}) {
    // Opened for reading and writing, so that open() does not block.
    writers.push_back(open(pipe(name).c_str(), O_RDWR | O_CLOEXEC));
    const std::string half = "  0\nSECTION\n  2\nENTITIES\n";
    EXPECT_EQ(::write(writers.back(), half.data(), half.size()), static_cast<ssize_t>(half.size()));
    arguments.emplace_back(name);
  }
  interruptAfterFirst(arguments);
  for (const char* const script : {"p.scr", "q.scr"}) {
    EXPECT_TRUE(folder.read(script).ends_with("Set Undo_Log on;\r\nWindow Fit;\r\n")) << script;
  }
  for (const int writer : writers) close(writer);
}

TEST_F(BlockedTest, ListsOfDrawingsWhoseWritersStop) {
  write("a.dxf", oneLine());
  const std::string list = pipe("list");
  call.arguments = {"--files-from", "list"};
  RunningProgram program(call);
  const int writer = open(list.c_str(), O_WRONLY | O_CLOEXEC);  // once the program reads the list
  const std::string part = "a.dxf\nb";
  EXPECT_EQ(::write(writer, part.data(), part.size()), static_cast<ssize_t>(part.size()));
  const ProgramResult result = interrupt(program);
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(files(), (Strings{"a.dxf", "list"}));
  close(writer);
}

TEST_F(BlockedTest, ScriptsWithoutAReader) {
  std::filesystem::create_directory(folder.path() / "out");
  for (const char* const name : {"b", "c", "d"}) {
    write(std::string(name) + ".dxf", oneLine());
    pipe("out/" + std::string(name) + ".scr");
  }
  write("a.dxf", oneLine());
  call.arguments = {"a.dxf", "b.dxf", "c.dxf", "d.dxf", "-o", "out", "--jobs", "4", "--force"};
  RunningProgram program(call);
  ASSERT_TRUE(testing::waitUntil([this] { return folder.has("out/a.scr"); }));
  const ProgramResult result = interrupt(program);
  EXPECT_NE(result.error.find("warning: b.dxf: Interrupt by user in line "), std::string::npos)
      << result.error;
  EXPECT_EQ(result.error.find("b.scr"), std::string::npos) << result.error;
}

TEST_F(BlockedTest, StreamsWithoutAReader) {
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  std::filesystem::create_directory(folder.path() / "in");
  for (int i = 0; i < 400; ++i) write("in/" + std::to_string(1000 + i) + ".dxf", oneLine());
  // More lines than fit in the pipe; in the second run it is full from the start.
  for (const bool json : {true, false}) {
    call.arguments = {"in", "--force", "--jobs", "2"};
    if (json) call.arguments.insert(call.arguments.end(), {"--json", "--quiet"});
    (json ? call.outputStream : call.errorStream) = ends[1];
    const std::string begun = json ? "in/1100.scr" : "in/1000.scr";
    std::filesystem::remove(folder.path() / begun);
    RunningProgram program(call);
    ASSERT_TRUE(testing::waitUntil([&] { return folder.has(begun); }));
    interrupt(program);
    call.outputStream = call.errorStream = -1;
  }
  close(ends[0]);
  close(ends[1]);
}

TEST_F(BlockedTest, AnUnattendedRunToo) {
  std::filesystem::create_directory(folder.path() / "program");
  call.program = folder.file("program/quillon");
  std::filesystem::copy_file(QUILLON_PROGRAM, call.program);
  folder.write("program/larkspur.ini", "[global]\nlanguage=10000\n[dxf]\nreport=0\n");
  pipe("p.dxf");
  call.arguments = {"/x:p.dxf", "/s:p.scr", "/ru"};
  RunningProgram program(call);
  int writer = -1;  // succeeds once there is a reader
  ASSERT_TRUE(testing::waitUntil([&] {
    writer = open(folder.file("p.dxf").c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    return writer >= 0;
  }));
  EXPECT_NE(interrupt(program).error.find(": Interrupt by user in line "), std::string::npos);
  close(writer);
}

TEST_F(BlockedTest, ABatchLeavesPipesOutAndTheSecondOfTwoDrawingsWithOneScript) {
  std::filesystem::create_directory(folder.path() / "program");
  std::filesystem::create_directory(folder.path() / "in");
  call.program = folder.file("program/quillon");
  std::filesystem::copy_file(QUILLON_PROGRAM, call.program);
  folder.write("program/larkspur.ini", "[global]\nlanguage=10000\n[dxf]\nreport=0\n");
  pipe("in/p.dxf");
  write("in/x.dxf", oneLine());
  write("in/x.DXF", oneLine());
  write("in/y.dxf", oneLine());
  const ProgramResult result = run({"/x:in", "/s:in", "/w:o", "/rx"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("quillon: Warning: " + folder.file("in/p.dxf") +
                              " is not a regular file and was left out. To convert it, give the "
                              "file itself instead of its folder.\n"),
            std::string::npos)
      << result.error;
  EXPECT_NE(result.error.find("quillon: File Error: "), std::string::npos) << result.error;
  EXPECT_NE(result.error.find(" was not converted because its script " + folder.file("in/x.scr") +
                              " already belongs to "),
            std::string::npos)
      << result.error;
  EXPECT_TRUE(result.error.ends_with("2 drawings converted, 1 not converted\n")) << result.error;
}

}  // namespace
}  // namespace quillon::headless
