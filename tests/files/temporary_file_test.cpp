#include "files/temporary_file.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "files/output_file.h"
#include "full_disk.h"
#include "killed_writer.h"
#include "support/temp_folder.h"

namespace quillon::files {
namespace {

namespace fs = std::filesystem;

class TemporaryFileTest : public ::testing::Test {
 protected:
  void killAWriter() const { testing::killAWriter(folder.path()); }

  testing::TempFolder folder;
};

TEST_F(TemporaryFileTest, OfAKilledWriterIsCleared) {
  killAWriter();
  ASSERT_EQ(folder.entries(), 1U);
  clearAbandonedFiles(folder.path());
  EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(TemporaryFileTest, OfALivingWriterStays) {
  OutputFile file(folder.path() / "a.scr");
  file.write("new");
  clearAbandonedFiles(folder.path());
  EXPECT_EQ(folder.entries(), 1U);
  file.commit();
  EXPECT_EQ(folder.read("a.scr"), "new");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(TemporaryFileTest, StaysBetweenItsEndAndItsNewName) {
  std::optional<TemporaryFile> made = makeTemporaryFile(folder.path());
  ASSERT_TRUE(made);
  made->file.reset();
  clearAbandonedFiles(folder.path());
  EXPECT_TRUE(fs::exists(made->path));
}

TEST_F(TemporaryFileTest, CannotBeMadeInAMissingFolder) {
  errno = 0;
  EXPECT_FALSE(makeTemporaryFile(folder.path() / "none"));
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(TemporaryFileTest, AloneIsCleared) {
  folder.write("a.scr", "");
  folder.write(".quillon-notes", "");
  folder.write("x.tmp", "");
  folder.write("target", "kept");
  fs::create_directory(folder.path() / ".quillon-99999-1-1.tmp");
  clearAbandonedFiles(folder.path());
  EXPECT_EQ(folder.entries(), 5U);
  clearAbandonedFiles(folder.path() / "none");
}

TEST_F(TemporaryFileTest, OfAKilledConversionIsClearedWhenSettingsAreSaved) {
  killAWriter();
  replaceFile(folder.path() / "a.ini", "text");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(TemporaryFileTest, IsGoneWhenTheDiskGetsFull) {
  folder.write("a.scr", "old");
  {
    const testing::FullDisk disk(1000);
    OutputFile file(folder.path() / "a.scr");
    EXPECT_THROW(file.write(std::string(2000, 'x')), WriteError);
    EXPECT_THROW(replaceFile(folder.path() / "a.scr", std::string(2000, 'x')), WriteError);
  }
  EXPECT_EQ(folder.read("a.scr"), "old");
  EXPECT_EQ(folder.entries(), 1U);
}

}  // namespace
}  // namespace quillon::files
