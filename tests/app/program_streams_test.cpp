// Programs that are started without some of the standard streams.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;

class StreamTest : public ProgramTest {
 protected:
  Strings temporaryFiles() const {
    Strings found;
    for (const std::string& file : files()) {
      if (file.ends_with(".tmp")) found.push_back(file);
    }
    return found;
  }

  /// Starts a run without an end, and looks where its standard streams lead while it writes.
  void expectNowhere(const std::string& program, const Strings& arguments) {
    write("part.dxf", endless());
    call.program = program;
    call.arguments = arguments;
    call.closedStreams = {0, 1, 2};
    RunningProgram running(call);
    ASSERT_TRUE(testing::waitUntil([this] { return !temporaryFiles().empty(); }));
    for (const int stream : call.closedStreams) {
      EXPECT_EQ(running.streamTarget(stream), "/dev/null") << stream;
    }
    running.interrupt();
    EXPECT_EQ(running.finish().exitCode, 130);
    EXPECT_EQ(folder.read("part.scr").substr(0, 6), "Write;");
  }
};

TEST_F(StreamTest, ThatAreClosedLeadNowhereWhileAScriptIsWritten) {
  expectNowhere(QUILLON_CONVERT, {"part.dxf", "--force"});
}

TEST_F(StreamTest, ThatAreClosedLeadNowhereInAnUnattendedRun) {
  expectNowhere(QUILLON_PROGRAM, {"/x:part.dxf", "/s:part.scr", "/b:part", "/w:o", "/ru"});
}

TEST_F(StreamTest, ThatAreClosedPutNoMessagesIntoScripts) {
  Strings drawings;
  for (int i = 0; i < 40; ++i) {
    drawings.push_back("d" + std::to_string(i) + ".dxf");
    write(drawings.back(), oneLine());
  }
  Strings arguments = drawings;
  arguments.insert(arguments.end(), {"--json", "--jobs", "4", "--force"});
  for (const std::vector<int>& closed : {std::vector{2}, {1}, {1, 2}, {0, 1, 2}}) {
    call.closedStreams = closed;
    const bool jsonIsLost = closed != std::vector{2};
    EXPECT_EQ(run(arguments).exitCode, jsonIsLost ? 1 : 0);
    for (int i = 0; i < 40; ++i) {
      const std::string name = "d" + std::to_string(i);
      EXPECT_EQ(folder.read(name + ".scr"), lineScript(name)) << closed.size();
    }
  }
}

TEST_F(StreamTest, AClosedOutputDoesNotTakeAScriptInSilence) {
  write("part.dxf", oneLine());
  call.closedStreams = {1};
  expectResult(run({"part.dxf", "-o", "-"}), 1, "",
               errorLine("- cannot be written: Bad file descriptor. Please check the path, its "
                         "permissions and the free space."));
}

TEST_F(StreamTest, AClosedInputIsNotTakenForAnEmptyDrawing) {
  call.closedStreams = {0};
  expectResult(run({"-", "-o", "part.scr"}), 1, "",
               errorLine("- cannot be read: Bad file descriptor. Please check the path and its "
                         "permissions."));
  EXPECT_FALSE(folder.has("part.scr"));
}

}  // namespace
}  // namespace quillon::headless
