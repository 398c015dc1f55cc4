#include "settings/profile.h"

#include <gtest/gtest.h>

#include "platform.h"
#include "settings/own_profile.h"
#include "settings/profile_text.h"
#include "support/temp_folder.h"

namespace quillon::settings {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

class ProfileTest : public ::testing::Test {
 protected:
  std::string valueIn(std::string_view bytes, std::string_view key = "key") const {
    folder.write("a.ini", bytes);
    return readOwnProfile(path, "dxf", key);
  }
  bool write(std::string_view key, const std::string& value) const {
    return writeOwnProfile(path, "dxf", {{key, value}});
  }

  TempFolder folder;
  fs::path path = folder.path() / "a.ini";
};

TEST_F(ProfileTest, ReadsAValueWithoutRegardToCase) {
  EXPECT_EQ(valueIn("[DXF]\r\nKEY = a b \r\n"), "a b");
}

TEST_F(ProfileTest, ReadsAMissingFileSectionOrKeyAsEmpty) {
  EXPECT_EQ(readOwnProfile(folder.path() / "none.ini", "dxf", "key"), "");
  EXPECT_EQ(readOwnProfile(folder.path(), "dxf", "key"), "");
  EXPECT_EQ(valueIn("[other]\r\nkey=1\r\n"), "");
  EXPECT_EQ(valueIn("[dxf]\r\nother=1\r\n"), "");
}

TEST_F(ProfileTest, ReadsWindows1252) { EXPECT_EQ(valueIn("[dxf]\r\nkey=M\xE4rz\r\n"), "März"); }

TEST_F(ProfileTest, ReadsUtf8WhenAllOfItIsWellFormed) {
  EXPECT_EQ(valueIn("[dxf]\r\nkey=März 国\r\n"), "März 国");
  EXPECT_EQ(valueIn("\xEF\xBB\xBF[dxf]\r\nkey=März\r\n"), "März");
  EXPECT_EQ(valueIn("; \xE4\r\n[dxf]\r\nkey=\xC3\xA4\r\n"), "Ã¤");
}

TEST_F(ProfileTest, ReadsAtMost254Characters) {
  EXPECT_EQ(valueIn("[dxf]\r\nkey=" + std::string(300, 'x')), std::string(254, 'x'));
  std::string umlauts;
  for (int i = 0; i < 254; ++i) umlauts += "ä";
  EXPECT_EQ(valueIn("[dxf]\r\nkey=" + umlauts + "öü"), umlauts);
}

TEST_F(ProfileTest, MakesAMissingFileAndItsFolder) {
  path = folder.path() / "new" / "deep" / "a.ini";
  EXPECT_TRUE(write("key", "1"));
  EXPECT_EQ(folder.read("new/deep/a.ini"), "[dxf]\r\nkey=1\r\n");
}

TEST_F(ProfileTest, KeepsCommentsAndUnknownLines) {
  folder.write("a.ini", "; mine\n[other]\nkey=1\n[dxf]\nodd\nkey=2\n");
  EXPECT_TRUE(write("key", "3"));
  EXPECT_EQ(folder.read("a.ini"), "; mine\r\n[other]\r\nkey=1\r\n[dxf]\r\nodd\r\nkey=3\r\n");
}

TEST_F(ProfileTest, WritesSeveralKeysAtOnce) {
  EXPECT_TRUE(writeOwnProfile(path, "dxf", {{"b", "2"}, {"a", "1"}}));
  EXPECT_EQ(folder.read("a.ini"), "[dxf]\r\nb=2\r\na=1\r\n");
}

TEST_F(ProfileTest, WritesWindows1252) {
  EXPECT_TRUE(write("key", "März €"));
  EXPECT_EQ(folder.read("a.ini"), "[dxf]\r\nkey=M\xE4rz \x80\r\n");
}

TEST_F(ProfileTest, TurnsTheFileIntoUtf8AsSoonAsACharacterAsksForIt) {
  folder.write("a.ini", "; M\xE4rz\r\n");
  EXPECT_TRUE(write("key", "国"));
  EXPECT_EQ(folder.read("a.ini"), "; März\r\n[dxf]\r\nkey=国\r\n");
  EXPECT_TRUE(write("key", "x"));
  EXPECT_EQ(folder.read("a.ini"), "; M\xE4rz\r\n[dxf]\r\nkey=x\r\n");
}

TEST_F(ProfileTest, ReadsBackWhatItWrote) {
  for (const std::string value : {"C:\\Ü\\part.dxf", "国", "Ã¤", "Ã", "€", "ä", "a=b", "; c"}) {
    EXPECT_TRUE(write("key", value));
    EXPECT_EQ(readOwnProfile(path, "dxf", "key"), value);
  }
}

TEST_F(ProfileTest, KnowsWhatWillBeReadOfAValue) {
  std::string umlauts;
  for (int i = 0; i < 254; ++i) umlauts += "ä";
  for (const std::string& value : {std::string("C:\\Ü €\\part.dxf"), std::string("国.dxf"),
                                   std::string(300, 'x'), umlauts, umlauts + "ö"}) {
    EXPECT_TRUE(writeProfile(path, "dxf", {{"key", value}}));
    EXPECT_EQ(keptByProfile(value), readProfile(path, "dxf", "key"));
  }
  EXPECT_EQ(keptByProfile(umlauts), umlauts);
}

TEST_F(ProfileTest, AFileInAFolderThatCannotBeWrittenStaysAsItWas) {
  folder.write("a.ini", "[dxf]\r\nkey=1\r\n");
  fs::permissions(path, fs::perms(0666));
  fs::permissions(folder.path(), fs::perms(0555));
  {
    const testing::Unprivileged user;
    EXPECT_FALSE(write("key", "2"));
  }
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(folder.read("a.ini"), "[dxf]\r\nkey=1\r\n");
}

TEST_F(ProfileTest, AFileThatCannotBeReadIsNotReplaced) {
  folder.write("a.ini", "[dxf]\r\nkey=1\r\n");
  fs::permissions(path, fs::perms(0222));
  fs::permissions(folder.path(), fs::perms(0777));
  {
    const testing::Unprivileged user;
    EXPECT_FALSE(write("other", "2"));
  }
  EXPECT_EQ(folder.read("a.ini"), "[dxf]\r\nkey=1\r\n");
}

TEST_F(ProfileTest, WritingWhereNoFileCanBeFails) {
  EXPECT_FALSE(writeOwnProfile(folder.path(), "dxf", {{"key", "1"}}));
  folder.write("file", "");
  EXPECT_FALSE(writeOwnProfile(folder.path() / "file" / "a.ini", "dxf", {{"key", "1"}}));
  EXPECT_FALSE(writeOwnProfile("/dev/full", "dxf", {{"key", "1"}}));
}

TEST(FirstCharacters, CountCharactersAndNotBytes) {
  EXPECT_EQ(firstCharacters("äöü", 2), "äö");
  EXPECT_EQ(firstCharacters("abc", 5), "abc");
  EXPECT_EQ(firstCharacters("abc", 0), "");
  EXPECT_EQ(firstCharacters("", 3), "");
}

}  // namespace
}  // namespace quillon::settings
