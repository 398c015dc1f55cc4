#include "files/program_folder.h"

#include <gtest/gtest.h>

namespace quillon::files {
namespace {

namespace fs = std::filesystem;

TEST(ProgramFolder, IsTheFolderOfTheExecutableWhereThatCanBeWrittenTo) {
  // Tests run from a build folder, which their user can write to.
  EXPECT_EQ(programFolder(), fs::read_symlink("/proc/self/exe").parent_path());
}

TEST(ProgramFolder, HoldsTheFrameFile) {
  EXPECT_EQ(frameFilePath(), programFolder() / "quillon.cfh");
}

}  // namespace
}  // namespace quillon::files
