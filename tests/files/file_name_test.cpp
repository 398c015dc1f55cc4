#include "files/file_name.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <vector>

#include "files/file_system.h"
#include "files/paths.h"
#include "support/temp_folder.h"

namespace quillon::files {
namespace {

namespace fs = std::filesystem;

/// Paths with a plain name in a folder, as the system writes them.
const std::vector<fs::path> kPlain = {"a.dxf",
                                      "a",
                                      "a.",
                                      "a.b.c",
                                      "a .dxf",
                                      fs::path("f") / "a.dxf",
                                      fs::path("f.g") / "a",
                                      fs::path("..") / "f" / "a.dxf",
                                      fs::path(".") / "a.dxf"};

TEST(FileName, CutsAsThePathsOfTheLibraryDo) {
  for (const fs::path& path : kPlain) {
    const std::string text = fromPath(path);
    const auto cut = cutFileName(text);
    ASSERT_TRUE(cut) << text;
    EXPECT_EQ(toPath(cut->name), path.filename());
    EXPECT_EQ(toPath(cut->folder), path.has_parent_path() ? path.parent_path() / "" : "");
    EXPECT_EQ(toPath(stemOf(cut->name)), path.stem());
    EXPECT_EQ(prefixOf(path.parent_path()), cut->folder);
  }
}

TEST(FileName, LeavesRarePathsToTheLibrary) {
  for (const char* const path :
       {"", "/", "/a.dxf", "f/", "f//a.dxf", ".dxf", "f/.dxf", ".", "..", "f/.."}) {
    EXPECT_FALSE(cutFileName(path)) << path;
  }
}

TEST(FileName, ABackslashSeparatesOnlyWhereItDoesForTheSystem) {
  const auto cut = cutFileName("f\\a.dxf");
  ASSERT_TRUE(cut);
  EXPECT_EQ(toPath(cut->name), fs::path("f\\a.dxf").filename());
}

TEST(FileName, ADriveIsLeftToTheLibrary) {
  const auto cut = cutFileName("c:a.dxf");
  EXPECT_TRUE(!cut || toPath(cut->name) == fs::path("c:a.dxf").filename());
}

TEST(ListNames, TellsAsMuchAsLookingAtEachDoes) {
  const testing::TempFolder folder;
  folder.write("a.dxf", "");
  fs::create_directory(folder.path() / "inner");
  int reason = -1;
  const std::vector<FolderEntry> entries = listNames(folder.path(), reason);
  EXPECT_EQ(reason, 0);
  EXPECT_EQ(entries.size(), 2U);
  for (const FolderEntry& entry : entries) {
    const FileKind kind = fileKind(folder.path() / toPath(entry.name));
    EXPECT_EQ(kind, entry.name == "inner" ? FileKind::Folder : FileKind::Regular);
    EXPECT_TRUE(entry.kind == kind || entry.kind == FileKind::Unknown);
  }
  EXPECT_TRUE(listNames(folder.path() / "none", reason).empty());
  EXPECT_EQ(reason, ENOENT);
}

TEST(Vacant, IsOnlyWhereNothingIs) {
  const testing::TempFolder folder;
  folder.write("a.scr", "");
  EXPECT_FALSE(isVacant(folder.path() / "a.scr"));
  EXPECT_FALSE(isVacant(folder.path()));
  EXPECT_TRUE(isVacant(folder.path() / "b.scr"));
  EXPECT_TRUE(isVacant(folder.path() / "none" / "b.scr"));
  EXPECT_TRUE(isVacant(""));
}

}  // namespace
}  // namespace quillon::files
