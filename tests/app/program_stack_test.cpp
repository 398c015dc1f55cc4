// How much stack a drawing needs.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;

/// Runs with a main stack of 512 KiB. Stacks of other threads are no larger then.
class SmallStack : public ProgramTest {
 protected:
  static constexpr int kLevels = 1000;

  ProgramResult runOnSmallStack(const Strings& arguments) {
    testing::ProgramCall shell = call;
    shell.program = "/bin/sh";
    shell.arguments = {"-c", "ulimit -s 512 && exec \"$0\" \"$@\"", QUILLON_CONVERT};
    shell.arguments.insert(shell.arguments.end(), arguments.begin(), arguments.end());
    return testing::runProgram(shell);
  }
  /// A chain of blocks, each in the one before, down to a point.
  static testing::DxfBuilder nested() {
    testing::DxfBuilder dxf;
    for (int level = 1; level <= kLevels; ++level) {
      dxf.beginBlock("B" + std::to_string(level));
      if (level < kLevels) {
        dxf.entity("INSERT", {{8, "0"}, {2, "B" + std::to_string(level + 1)}});
      } else {
        dxf.entity("POINT", {{8, "0"}, {10, "1"}, {20, "2"}});
      }
      dxf.endBlock();
    }
    dxf.entity("INSERT", {{8, "0"}, {2, "B1"}});
    return dxf;
  }
};

TEST_F(SmallStack, HoldsAThousandNestedBlocks) {
  write("part.dxf", nested());
  const ProgramResult result = runOnSmallStack({"part.dxf"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_NE(folder.read("part.scr").find("(R1.0000000 2.0000000)"), std::string::npos);
}

TEST_F(SmallStack, HoldsAThousandNestedBlocksInALibraryPart) {
  write("part.dxf", nested());
  const ProgramResult result = runOnSmallStack({"part.dxf", "--blocks", "used"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_NE(folder.read("part.scr").find("(R1.0000000 2.0000000)"), std::string::npos);
}

TEST_F(SmallStack, HoldsAThousandNestedBlocksInEachOfSeveralConversions) {
  Strings arguments = {"--jobs", "4"};
  for (const char* const name : {"a", "b", "c", "d"}) {
    write(std::string(name) + ".dxf", nested());
    arguments.push_back(std::string(name) + ".dxf");
  }
  const ProgramResult result = runOnSmallStack(arguments);
  EXPECT_EQ(result.exitCode, 0) << result.error;
  for (const char* const name : {"a", "b", "c", "d"}) {
    EXPECT_NE(folder.read(std::string(name) + ".scr").find("(R1.0000000 2.0000000)"),
              std::string::npos);
  }
}

}  // namespace
}  // namespace quillon::headless
