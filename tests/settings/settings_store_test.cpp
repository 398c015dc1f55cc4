#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace quillon::settings {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

class SettingsStoreTest : public ::testing::Test {
 protected:
  TempFolder folder;
  SettingsStore store{folder.path()};
  std::string root = folder.path().string();
};

TEST_F(SettingsStoreTest, WritesAndReadsLarkspurIni) {
  EXPECT_TRUE(store.WriteIni("global", "language", "10000"));
  EXPECT_EQ(folder.read("larkspur.ini"), "[global]\r\nlanguage=10000\r\n");
  EXPECT_EQ(store.ReadIni("global", "language"), "10000");
}

TEST_F(SettingsStoreTest, FindsAFileOfAnyCase) {
  folder.write("LARKSPUR.INI", "[dxf]\nunit=3\n");
  EXPECT_EQ(store.ReadIni("dxf", "unit"), "3");
  EXPECT_TRUE(store.WriteIni("dxf", "unit", "1"));
  EXPECT_EQ(folder.read("LARKSPUR.INI"), "[dxf]\r\nunit=1\r\n");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(SettingsStoreTest, ReadsNothingWithoutAProgramFolder) {
  const SettingsStore nowhere{fs::path()};
  EXPECT_EQ(nowhere.ReadIni("dxf", "unit"), "");
  EXPECT_FALSE(nowhere.WriteIni("dxf", "unit", "1"));
}

TEST_F(SettingsStoreTest, ReadsAnyOtherFile) {
  folder.write("a.lay", "[1]\nlayername= OUTLINE \n");
  EXPECT_EQ(ReadIniFrom(folder.file("a.lay"), "1", "layername"), "OUTLINE");
  EXPECT_EQ(ReadIniFrom(folder.file("A.LAY"), "1", "layername"), "OUTLINE");
  EXPECT_EQ(ReadIniFrom(folder.file("none"), "1", "layername"), "");
}

TEST_F(SettingsStoreTest, TheFolderOfAFileEndsInASeparator) {
  EXPECT_EQ(store.GetDirectory(root + "/part.dxf"), root + "/");
  EXPECT_EQ(store.GetDirectory(root + "/"), root + "/");
}

TEST_F(SettingsStoreTest, AFolderWithoutASeparatorIsTakenForAName) {
  const std::string above = root.substr(0, root.find_last_of("\\/") + 1);
  EXPECT_EQ(store.GetDirectory(root), above);
}

TEST_F(SettingsStoreTest, ThePathIsCutBeforeItsFirstStar) {
  EXPECT_EQ(store.GetDirectory(root + "/*.dxf"), root + "/");
  EXPECT_EQ(store.GetDirectory(root + "/a*/b/part.dxf"), root + "/");
}

TEST_F(SettingsStoreTest, GoesUpToAFolderThatExists) {
  EXPECT_EQ(store.GetDirectory(root + "/none/deeper/part.dxf"), root + "/");
}

TEST_F(SettingsStoreTest, FindsFoldersWithEitherSeparatorAndWithoutRegardToCase) {
  fs::create_directory(folder.path() / "In");
  std::string windows = root + "/IN/PART.DXF";
  std::replace(windows.begin(), windows.end(), '/', '\\');
  EXPECT_EQ(store.GetDirectory(windows), windows.substr(0, windows.size() - 8));
}

TEST_F(SettingsStoreTest, WithoutAFolderTheDriveIsLeft) {
  EXPECT_EQ(store.GetDirectory("Q:\\none\\part.dxf"), "Q:\\");
  EXPECT_EQ(store.GetDirectory("C:\\*.DXF"), "C:\\");
  EXPECT_EQ(store.GetDirectory("C:"), "C:\\");
  EXPECT_EQ(store.GetDirectory("part.dxf"), "pa");
  EXPECT_EQ(store.GetDirectory("x"), "x");
}

TEST_F(SettingsStoreTest, AnEmptyPathGivesTheProgramFolder) {
  EXPECT_EQ(store.GetDirectory(""), root);
  EXPECT_EQ(store.GetDirectory("*.dxf"), root);
}

}  // namespace
}  // namespace quillon::settings
