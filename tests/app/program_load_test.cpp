// Drawings that give more than they hold, and many drawings at once.
#include <csignal>

#include "app/load_fixture.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;
using testing::waitUntil;

TEST_F(FolderLoad, ABadDrawingAmongManyDoesNotStopTheOthers) { convertWithABadFile(200); }

TEST_F(FolderLoad, AFolderIsTakenUpWhereItWasLeft) { cancelAndTakeUp(600); }

class MultiplyingBlocks : public ProgramTest {
 protected:
  /// Ten levels of blocks with ten insertions each, down to a point.
  static testing::DxfBuilder tenLevels() {
    testing::DxfBuilder dxf;
    for (int level = 0; level < 10; ++level) {
      dxf.beginBlock("L" + std::to_string(level));
      for (int i = 0; i < 10; ++i) {
        dxf.entity("INSERT", {{8, "0"}, {2, "L" + std::to_string(level + 1)}, {10, "1"}});
      }
      dxf.endBlock();
    }
    dxf.beginBlock("L10").entity("POINT", {{8, "0"}, {10, "1"}, {20, "1"}}).endBlock();
    dxf.entity("INSERT", {{8, "0"}, {2, "L0"}});
    return dxf;
  }
  std::uintmax_t written() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
      std::error_code gone;
      const auto size = entry.file_size(gone);
      if (entry.path().extension() == ".tmp" && !gone) return size;
    }
    return 0;
  }
};

TEST_F(MultiplyingBlocks, AreWrittenAsTheyGrowAndCanBeCancelled) {
  write("part.dxf", tenLevels());
  call.arguments = {"part.dxf"};
  RunningProgram program(call);
  constexpr std::uintmax_t kMuch = std::uintmax_t{64} << 20;
  ASSERT_TRUE(waitUntil([this] { return written() > kMuch; }));
  program.signal(SIGTERM);
  const auto asked = std::chrono::steady_clock::now();
  const ProgramResult result = program.finish();
  EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::seconds(10));
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_LT(result.peakBytes, flatMemory());
  EXPECT_GT(std::filesystem::file_size(folder.path() / "part.scr"), kMuch);
}

TEST_F(MultiplyingBlocks, EndAtTheLimitOfLines) {
  write("part.dxf", tenLevels());
  const ProgramResult result = run({"part.dxf", "--max-lines", "100000", "--keep-partial"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("100000 lines that --max-lines allows"), std::string::npos);
  const std::string script = folder.read("part.scr");
  const auto lines = std::count(script.begin(), script.end(), '\n');
  EXPECT_GE(lines, 100000);
  EXPECT_LE(lines, 100006);
}

TEST_F(ProgramTest, BlocksOfOneNameTakeNoMoreMemoryThanTheirTextAllows) {
  constexpr int kBlocks = 20'000;
  testing::DxfBuilder dxf;
  for (int i = 0; i < kBlocks; ++i) dxf.beginBlock("B").endBlock();
  for (int i = 0; i < kBlocks; ++i) {
    dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {50, std::to_string(i)}});
  }
  const std::string text = dxf.text();
  folder.write("part.dxf", text);
  for (const Strings& report : {Strings{}, Strings{"--report", "part.txt"}}) {
    Strings arguments = {"part.dxf", "--blocks", "used", "--force"};
    arguments.insert(arguments.end(), report.begin(), report.end());
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_LT(result.peakBytes, flatMemory() + 64 * text.size());
  }
  const std::string lines = folder.read("part.txt");
  EXPECT_NE(lines.find(" more lines for names that are already listed)\r\n"), std::string::npos);
  EXPECT_LT(lines.size(), text.size());
}

}  // namespace
}  // namespace quillon::headless
