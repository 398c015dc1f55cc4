// Links in place of files to be written.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "files/file_system.h"
#include "files/output_file.h"
#include "platform.h"
#include "shared_folder.h"
#include "support/temp_folder.h"

namespace quillon::files {
namespace {

namespace fs = std::filesystem;

using testing::kOther;

using LinksOfOthersTest = testing::SharedFolderTest;

TEST_F(LinksOfOthersTest, ALinkOfSomebodyElseIsNotFollowed) {
  link(at("mine.scr"), "shared/out.scr", kOther);
  EXPECT_EQ(written("shared/out.scr"), "Permission denied");
  EXPECT_EQ(writtenByNobody("shared/out.scr"), "Permission denied");
  EXPECT_EQ(folder.read("mine.scr"), "mine");
  EXPECT_TRUE(fs::is_symlink(at("shared/out.scr")));
  EXPECT_EQ(folder.entries(), 2U);
}

TEST_F(LinksOfOthersTest, ALinkOfSomebodyElseMakesNoFile) {
  link(at("none.scr"), "shared/out.scr", kOther);
  EXPECT_EQ(written("shared/out.scr"), "Permission denied");
  EXPECT_FALSE(folder.has("none.scr"));
}

TEST_F(LinksOfOthersTest, ALinkOfSomebodyElseLeadsToNoDevice) {
  link("/dev/null", "shared/out.scr", kOther);
  EXPECT_EQ(written("shared/out.scr"), "Permission denied");
}

TEST_F(LinksOfOthersTest, ALinkOfSomebodyElseIsNotFollowedByWayOfAnotherLink) {
  link(at("mine.scr"), "shared/out.scr", kOther);
  link(at("shared/out.scr"), "first.scr", 0);
  EXPECT_EQ(written("first.scr"), "Permission denied");
  EXPECT_EQ(folder.read("mine.scr"), "mine");
}

TEST_F(LinksOfOthersTest, LinksOfTheUserAndOfTheFoldersOwnerAreFollowed) {
  link(at("mine.scr"), "shared/own.scr", testing::kNobody);
  link(at("mine.scr"), "shared/root.scr", 0);
  EXPECT_EQ(writtenByNobody("shared/own.scr"), "written");
  folder.write("mine.scr", "mine");
  EXPECT_EQ(writtenByNobody("shared/root.scr"), "written");
  EXPECT_EQ(folder.read("mine.scr"), "new");
}

TEST_F(LinksOfOthersTest, LinksInAFolderThatOthersCannotWriteToAreFollowed) {
  for (const int rights : {0755, 01755, 0777}) {
    fs::permissions(at("shared"), fs::perms(rights));
    folder.write("mine.scr", "mine");
    fs::remove(at("shared/out.scr"));
    link(at("mine.scr"), "shared/out.scr", kOther);
    EXPECT_EQ(written("shared/out.scr"), "written") << rights;
    EXPECT_EQ(folder.read("mine.scr"), "new");
  }
}

TEST_F(LinksOfOthersTest, FilesBesideALinkOfSomebodyElseAreNotCleared) {
  fs::create_directory(at("own"));
  folder.write("own/.quillon-1-1-1.tmp", "");
  link(at("own/a.ini"), "shared/a.ini", kOther);
  EXPECT_THROW(replaceFile(at("shared/a.ini"), "new"), WriteError);
  EXPECT_TRUE(folder.has("own/.quillon-1-1-1.tmp"));
}

TEST(LinksTest, InACircleAreAnError) {
  const testing::TempFolder folder;
  fs::create_symlink("b.scr", folder.file("a.scr"));
  fs::create_symlink("a.scr", folder.file("b.scr"));
  try {
    const OutputFile file(folder.file("a.scr"));
    ADD_FAILURE() << "no error";
  } catch (const WriteError& error) {
    EXPECT_STREQ(error.what(), "Too many levels of symbolic links");
  }
  EXPECT_EQ(folder.entries(), 2U);
}

TEST(LinksTest, OfTheSystemLeadToAPipeThatHasNoName) {
  std::FILE* reader = nullptr;
  std::FILE* writer = nullptr;
  ASSERT_TRUE(testing::openPipe(reader, writer));
  const FileHandle readEnd(reader);
  {
    const FileHandle writeEnd(writer);
    OutputFile file("/dev/fd/" + std::to_string(fileno(writer)));
    file.write("new");
    file.commit();
  }
  char text[4] = {};
  EXPECT_EQ(std::fread(text, 1, sizeof text, reader), 3U);
  EXPECT_STREQ(text, "new");
}

TEST(LinksTest, OfTheSystemToAFileWithoutANameAreAnError) {
  const testing::TempFolder folder;
  const FileHandle open = openFile(folder.write("a.scr", "old"), "r+b");
  ASSERT_NE(open, nullptr);
  fs::remove(folder.file("a.scr"));
  EXPECT_THROW(OutputFile("/dev/fd/" + std::to_string(fileno(open.get()))), WriteError);
  EXPECT_EQ(folder.entries(), 0U);
}

TEST(LinksTest, AreInTheWayThoughTheyLeadNowhere) {
  const testing::TempFolder folder;
  fs::create_symlink("none", folder.file("link"));
  fs::create_directory(folder.file("sub"));
  folder.write("file", "");
  ASSERT_TRUE(testing::makePipe(folder.file("pipe")));
  for (const char* const name : {"link", "file"}) EXPECT_TRUE(isInTheWay(folder.file(name)));
  for (const char* const name : {"none", "sub", "pipe", "file/below"}) {
    EXPECT_FALSE(isInTheWay(folder.file(name))) << name;
  }
  EXPECT_FALSE(isInTheWay("/dev/null"));
  EXPECT_FALSE(isInTheWay(folder.file(std::string(300, 'x'))));
}

}  // namespace
}  // namespace quillon::files
