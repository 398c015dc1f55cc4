#include "files/output_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <thread>

#include "platform.h"
#include "support/temp_folder.h"

namespace quillon::files {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;
using testing::Unprivileged;

class OutputFileTest : public ::testing::Test {
 protected:
  fs::path at(std::string_view name) const { return folder.path() / name; }
  /// Writes a whole file.
  void writeOut(const fs::path& target, std::string_view bytes) const {
    OutputFile file(target);
    file.write(bytes);
    file.commit();
  }
  static std::string reasonOf(const fs::path& target) {
    try {
      OutputFile file(target);
      file.write("new");
      file.commit();
    } catch (const WriteError& error) {
      return error.what();
    }
    return "written";
  }

  TempFolder folder;
};

TEST_F(OutputFileTest, AppearsUnderItsNameOnlyWhenItIsComplete) {
  OutputFile file(at("a.scr"));
  file.write("one ");
  EXPECT_FALSE(folder.has("a.scr"));
  file.write("two");
  file.commit();
  EXPECT_EQ(folder.read("a.scr"), "one two");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(OutputFileTest, KeepsTheOldFileUntilTheNewOneIsComplete) {
  folder.write("a.scr", "old");
  OutputFile file(at("a.scr"));
  file.write("new");
  EXPECT_EQ(folder.read("a.scr"), "old");
  file.commit();
  EXPECT_EQ(folder.read("a.scr"), "new");
}

TEST_F(OutputFileTest, WithoutACommitLeavesTheOldFileAndNoTemporaryOne) {
  folder.write("a.scr", "old");
  { OutputFile(at("a.scr")).write("new"); }
  EXPECT_EQ(folder.read("a.scr"), "old");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(OutputFileTest, WithoutACommitMakesNoNewFile) {
  { OutputFile(at("a.scr")).write("new"); }
  EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(OutputFileTest, MayBeEmpty) {
  writeOut(at("a.scr"), "");
  EXPECT_TRUE(folder.has("a.scr"));
  EXPECT_EQ(folder.read("a.scr"), "");
}

TEST_F(OutputFileTest, FollowsALink) {
  folder.write("real.scr", "old");
  fs::create_symlink("real.scr", at("link.scr"));
  writeOut(at("link.scr"), "new");
  EXPECT_TRUE(fs::is_symlink(at("link.scr")));
  EXPECT_EQ(folder.read("real.scr"), "new");
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(OutputFileTest, FollowsLinksThroughFoldersToAFileThatIsYetToBeMade) {
  fs::create_directory(at("sub"));
  fs::create_symlink(at("sub/second.scr"), at("first.scr"));
  fs::create_symlink("real.scr", at("sub/second.scr"));
  writeOut(at("first.scr"), "new");
  EXPECT_TRUE(fs::is_symlink(at("first.scr")));
  EXPECT_TRUE(fs::is_symlink(at("sub/second.scr")));
  EXPECT_EQ(folder.read("sub/real.scr"), "new");
}

TEST_F(OutputFileTest, KeepsThePermissionsOfTheOldFile) {
  folder.write("a.scr", "old");
  fs::permissions(at("a.scr"), fs::perms(0640));
  writeOut(at("a.scr"), "new");
  EXPECT_EQ(fs::status(at("a.scr")).permissions(), fs::perms(0640));
}

TEST_F(OutputFileTest, MakesANewFileWithTheUsualPermissions) {
  const auto mask = umask(027);
  writeOut(at("a.scr"), "new");
  umask(mask);
  EXPECT_EQ(fs::status(at("a.scr")).permissions(), fs::perms(0640));
}

TEST_F(OutputFileTest, WritesADeviceDirectly) {
  EXPECT_EQ(reasonOf("/dev/null"), "written");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(OutputFileTest, WritesAPipeDirectly) {
  ASSERT_TRUE(testing::makePipe(folder.file("pipe")));
  std::string got;
  std::thread reader([&] { got = folder.read("pipe"); });
  writeOut(at("pipe"), "new");
  reader.join();
  EXPECT_EQ(got, "new");
  EXPECT_TRUE(fs::is_fifo(at("pipe")));
}

TEST_F(OutputFileTest, AFullDeviceIsAnErrorWithTheSystemsReason) {
  EXPECT_EQ(reasonOf("/dev/full"), "No space left on device");
}

TEST_F(OutputFileTest, AFolderCannotBeWritten) {
  fs::create_directory(at("sub"));
  EXPECT_EQ(reasonOf(at("sub")), "Is a directory");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(OutputFileTest, AMissingFolderIsAnError) {
  EXPECT_EQ(reasonOf(at("none/a.scr")), "No such file or directory");
}

TEST_F(OutputFileTest, AFileThatMayNotBeWrittenIsAnErrorAndStaysAsItWas) {
  folder.write("a.scr", "old");
  fs::permissions(folder.path(), fs::perms(0777));
  fs::permissions(at("a.scr"), fs::perms(0444));
  {
    const Unprivileged user;
    EXPECT_EQ(reasonOf(at("a.scr")), "Permission denied");
  }
  EXPECT_EQ(folder.read("a.scr"), "old");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(OutputFileTest, ANewFileInAFolderThatMayNotBeWrittenIsAnError) {
  fs::permissions(folder.path(), fs::perms(0555));
  {
    const Unprivileged user;
    EXPECT_EQ(reasonOf(at("a.scr")), "Permission denied");
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(OutputFileTest, WritesAFileDirectlyWhereNoTemporaryOneCanBeMade) {
  folder.write("a.scr", "a longer old text");
  fs::permissions(at("a.scr"), fs::perms(0666));
  fs::permissions(folder.path(), fs::perms(0555));
  {
    const Unprivileged user;
    EXPECT_EQ(reasonOf(at("a.scr")), "written");
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.read("a.scr"), "new");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(OutputFileTest, WithoutACommitAFileThatIsToBeWrittenDirectlyStaysAsItWas) {
  folder.write("a.scr", "old");
  fs::permissions(at("a.scr"), fs::perms(0666));
  fs::permissions(folder.path(), fs::perms(0555));
  {
    const Unprivileged user;
    OutputFile(at("a.scr")).write("new and longer");
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.read("a.scr"), "old");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(OutputFileTest, AFileThatIsWrittenDirectlyMayBeLargerThanTheOldOne) {
  folder.write("a.scr", "old");
  fs::permissions(at("a.scr"), fs::perms(0666));
  fs::permissions(folder.path(), fs::perms(0555));
  const std::string bytes(300'000, 'x');
  {
    const Unprivileged user;
    writeOut(at("a.scr"), bytes);
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.read("a.scr"), bytes);
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(OutputFileTest, AStreamOfTheProcessStaysOpen) {
  std::FILE* const stream = std::fopen(folder.file("stream").c_str(), "wb");
  ASSERT_NE(stream, nullptr);
  {
    OutputFile file(stream);
    file.write("one ");
    file.commit();
  }
  EXPECT_EQ(folder.read("stream"), "one ");
  EXPECT_GE(std::fputs("two", stream), 0);
  std::fclose(stream);
  EXPECT_EQ(folder.read("stream"), "one two");
}

TEST_F(OutputFileTest, AStreamOfTheProcessHasAllBytesAlsoWithoutACommit) {
  const FileHandle stream = openFile(folder.path() / "stream", "wb");
  ASSERT_NE(stream, nullptr);
  {
    OutputFile file(stream.get());
    file.write("cut off");
  }
  EXPECT_EQ(folder.read("stream"), "cut off");
}

TEST_F(OutputFileTest, AStreamThatCannotTakeItsBytesIsAnError) {
  std::FILE* const stream = std::fopen("/dev/full", "wb");
  ASSERT_NE(stream, nullptr);
  {
    OutputFile file(stream);
    file.write("new");
    EXPECT_THROW(file.commit(), WriteError);
  }
  std::fclose(stream);
}

TEST_F(OutputFileTest, ReplacingAFileMakesItsFolder) {
  replaceFile(at("new/deep/a.ini"), "text");
  EXPECT_EQ(folder.read("new/deep/a.ini"), "text");
}

TEST_F(OutputFileTest, ReplacingAFileFollowsALinkAndKeepsThePermissions) {
  folder.write("real.ini", "old");
  fs::permissions(at("real.ini"), fs::perms(0640));
  fs::create_symlink(at("real.ini"), at("a.ini"));
  replaceFile(at("a.ini"), "new");
  EXPECT_EQ(folder.read("real.ini"), "new");
  EXPECT_TRUE(fs::is_symlink(at("a.ini")));
  EXPECT_EQ(fs::status(at("real.ini")).permissions(), fs::perms(0640));
}

TEST_F(OutputFileTest, ReplacingAFileNeverWritesIntoTheOldOne) {
  folder.write("a.ini", "old");
  fs::permissions(at("a.ini"), fs::perms(0666));
  fs::permissions(folder.path(), fs::perms(0555));
  {
    const Unprivileged user;
    EXPECT_THROW(replaceFile(at("a.ini"), "new"), WriteError);
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.read("a.ini"), "old");
  EXPECT_THROW(replaceFile("/dev/full", "new"), WriteError);
}

}  // namespace
}  // namespace quillon::files
