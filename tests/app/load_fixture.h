#pragma once

#include <chrono>

#include "app/program_fixture.h"
#include "support/timing.h"

namespace quillon::headless {

/// AddressSanitizer holds freed memory back, so that the peak says little about small amounts.
inline constexpr bool kReusesFreedMemory = QUILLON_FLAT_MEGABYTES < 100;

/// Memory that the program may use for any drawing. The process starts as a copy of the test, which
/// valgrind makes larger.
inline std::size_t flatMemory() {
  constexpr std::size_t kMegabytes = QUILLON_FLAT_MEGABYTES;
  return (testing::patience() > 10 ? 8 * kMegabytes : kMegabytes) << 20;
}

/// Runs on folders of many drawings.
class FolderLoad : public ProgramTest {
 protected:
  void makeDrawings(int count) {
    std::filesystem::create_directory(folder.path() / "in");
    const std::string text = oneLine().text();
    for (int i = 0; i < count; ++i) folder.write("in/" + nameOf(i) + ".dxf", text);
  }
  static std::string nameOf(int number) { return "d" + std::to_string(100000 + number); }
  int scripts() const {
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "in")) {
      found += entry.path().extension() == ".scr" ? 1 : 0;
    }
    return found;
  }

  /// One bad drawing in the middle does not stop the others.
  void convertWithABadFile(int count) {
    makeDrawings(count);
    folder.write("in/" + nameOf(count / 2) + ".dxf", std::string(5000, '\0'));
    const testing::ProgramResult result = run({"in", "--jobs", "2"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.error.ends_with(std::to_string(count - 1) + " of " + std::to_string(count) +
                                       " drawings converted\n"));
    EXPECT_EQ(scripts(), count - 1);
    EXPECT_LT(result.peakBytes, flatMemory());
    EXPECT_EQ(folder.read("in/" + nameOf(count - 1) + ".scr"), lineScript(nameOf(count - 1)));
  }

  /// A cancelled run is resumed by the next one. Its last drawing is endless, so that it is still
  /// running however late the cancel comes.
  void cancelAndTakeUp(int count) {
    makeDrawings(count);
    const std::string last = "in/" + nameOf(count - 1);
    write(last + ".dxf", endless());
    const auto drawn = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    for (int i = 0; i < count; ++i) {
      std::filesystem::last_write_time(folder.path() / ("in/" + nameOf(i) + ".dxf"), drawn);
    }
    call.arguments = {"in", "--jobs", "2", "--newer"};
    testing::RunningProgram program(call);
    ASSERT_TRUE(testing::waitUntil([&] { return scripts() > count / 10; }));
    program.interrupt();
    EXPECT_EQ(program.finish().exitCode, 130);
    EXPECT_NE(folder.read(last + ".scr"), lineScript(nameOf(count - 1)));
    write(last + ".dxf", oneLine());
    std::filesystem::last_write_time(folder.path() / (last + ".dxf"), drawn);
    const testing::ProgramResult rest = run({"in", "--jobs", "2", "--newer"});
    EXPECT_EQ(rest.exitCode, 0);
    EXPECT_LT(rest.peakBytes, flatMemory());
    EXPECT_EQ(scripts(), count);
    for (int i = 0; i < count; i += 7) {
      EXPECT_EQ(folder.read("in/" + nameOf(i) + ".scr"), lineScript(nameOf(i)));
    }
    EXPECT_EQ(folder.read(last + ".scr"), lineScript(nameOf(count - 1)));
    const testing::ProgramResult again = run({"in", "--newer"});
    EXPECT_EQ(again.error, std::to_string(count) +
                               " drawings skipped because their scripts are newer\n0 of " +
                               std::to_string(count) + " drawings converted\n");
  }
};

}  // namespace quillon::headless
