#include "files/file_state.h"

#include <gtest/gtest.h>

#include <chrono>

#include "support/temp_folder.h"

namespace quillon::files {
namespace {

class FileStateTest : public ::testing::Test {
 protected:
  std::optional<FileState> state(const char* name) const {
    return fileStateOf(folder.path() / name);
  }

  testing::TempFolder folder;
};

TEST_F(FileStateTest, StaysAsLongAsNothingIsWritten) {
  folder.write("a.dxf", "0\n");
  const std::optional<FileState> before = state("a.dxf");
  ASSERT_TRUE(before);
  EXPECT_EQ(before->size, 2U);
  EXPECT_EQ(state("a.dxf"), before);
}

TEST_F(FileStateTest, ChangesWithTheSize) {
  folder.write("a.dxf", "0\n");
  const std::optional<FileState> before = state("a.dxf");
  folder.write("a.dxf", "0\nEOF\n");
  EXPECT_NE(state("a.dxf"), before);
}

TEST_F(FileStateTest, ChangesWithTheTime) {
  folder.write("a.dxf", "0\n");
  const std::optional<FileState> before = state("a.dxf");
  ASSERT_TRUE(before);
  std::filesystem::last_write_time(folder.path() / "a.dxf",
                                   before->written + std::chrono::seconds(2));
  EXPECT_NE(state("a.dxf"), before);
}

TEST_F(FileStateTest, OnlyAFileHasOne) {
  EXPECT_FALSE(fileStateOf({}));
  EXPECT_FALSE(state("missing.dxf"));
  EXPECT_FALSE(fileStateOf(folder.path()));
}

}  // namespace
}  // namespace quillon::files
