#include "files/paths.h"

#include <gtest/gtest.h>

#include "base/read_error.h"
#include "support/temp_folder.h"

namespace quillon::files {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

/// A folder with in/Part.dxf and a known full path.
class PathsTest : public ::testing::Test {
 protected:
  PathsTest() {
    fs::create_directory(folder.path() / "In");
    folder.write("In/Part.dxf", "x");
  }
  fs::path below(std::string_view path) const {
    return folder.path() / std::u8string(path.begin(), path.end());
  }

  TempFolder folder;
};

TEST_F(PathsTest, AnExistingPathStaysAsWritten) {
  EXPECT_EQ(findExisting(folder.file("In/Part.dxf")), below("In/Part.dxf"));
}

TEST_F(PathsTest, FindsEveryComponentWithoutRegardToCase) {
  EXPECT_EQ(findExisting(folder.file("iN/PART.DXF")), below("In/Part.dxf"));
  EXPECT_EQ(findExisting(folder.file("IN")), below("In"));
}

TEST_F(PathsTest, TakesBackslashesForSeparators) {
  EXPECT_EQ(findExisting(folder.path().string() + "\\in\\part.dxf"), below("In/Part.dxf"));
  std::string path = folder.file("In/Part.dxf");
  std::replace(path.begin(), path.end(), '/', '\\');
  EXPECT_EQ(findExisting(path), below("In/Part.dxf"));
}

TEST_F(PathsTest, FindsAccentedLettersWithoutRegardToCase) {
  folder.write("Gehäuse.dxf", "x");
  EXPECT_EQ(findExisting(folder.file("GEHÄUSE.DXF")), below("Gehäuse.dxf"));
}

TEST_F(PathsTest, PrefersTheExactNameThenTheFirstInOrder) {
  folder.write("a.dxf", "1");
  folder.write("A.dxf", "2");
  folder.write("A.DXF", "3");
  EXPECT_EQ(findExisting(folder.file("a.dxf")), below("a.dxf"));
  EXPECT_EQ(findExisting(folder.file("a.DXF")), below("A.DXF"));
}

TEST_F(PathsTest, APathThatIsNotFoundStaysAsWritten) {
  EXPECT_EQ(findExisting(folder.file("In/None.dxf")), below("In/None.dxf"));
  EXPECT_EQ(findExisting(folder.file("Out/Part.dxf")), below("Out/Part.dxf"));
  EXPECT_EQ(findExisting(""), fs::path());
}

TEST_F(PathsTest, ANewFileTakesItsFolderWithoutRegardToCaseAndItsNameAsWritten) {
  EXPECT_EQ(findForCreation(folder.file("IN/New.SCR")), below("In/New.SCR"));
  EXPECT_EQ(findForCreation(folder.path().string() + "\\in\\New.SCR"), below("In/New.SCR"));
}

TEST_F(PathsTest, ANewFileDoesNotTakeTheNameOfAnExistingOneInAnotherCase) {
  EXPECT_EQ(findForCreation(folder.file("in/PART.DXF")), below("In/PART.DXF"));
  EXPECT_EQ(findForCreation(folder.file("In/PART.DXF")), below("In/PART.DXF"));
}

TEST_F(PathsTest, ANewFileInAMissingFolderStaysInIt) {
  EXPECT_EQ(findForCreation(folder.file("Out/New.scr")), below("Out/New.scr"));
  EXPECT_TRUE(isInMissingFolder(findForCreation(folder.file("Out/New.scr"))));
  EXPECT_FALSE(isInMissingFolder(findForCreation(folder.file("In/New.scr"))));
  EXPECT_FALSE(isInMissingFolder(findForCreation("New.scr")));
  EXPECT_EQ(findForCreation("New.scr"), fs::path("New.scr"));
  EXPECT_EQ(findForCreation(""), fs::path());
}

TEST_F(PathsTest, ABackslashNeverBecomesPartOfANewFilesName) {
  EXPECT_EQ(findForCreation(folder.path().string() + "\\Out\\New.scr"), below("Out/New.scr"));
  EXPECT_EQ(findForCreation(folder.path().string() + "\\IN\\Out\\New.scr"),
            below("IN/Out/New.scr"));
  EXPECT_EQ(findForCreation("none\\New.scr"), fs::path("none/New.scr"));
  EXPECT_EQ(findForCreation("\\New.scr"), fs::path("/New.scr"));
  EXPECT_EQ(findForCreation("\\"), fs::path("/"));
  EXPECT_EQ(findForCreation("none\\").parent_path(), fs::path("none"));
}

TEST_F(PathsTest, ADriveIsAMissingFolderWherePathsHaveNone) {
  for (const char* const path :
       {"C:\\OUT\\NEW.SCR", "c:/out/new.scr", "C:\\NEW.SCR", "C:NEW.SCR"}) {
    EXPECT_TRUE(isInMissingFolder(findForCreation(path))) << path;
  }
  EXPECT_EQ(findForCreation("C:\\OUT\\NEW.SCR"), fs::path("C:/OUT/NEW.SCR"));
  EXPECT_EQ(findForCreation("C:NEW.SCR"), fs::path("C:/NEW.SCR"));
  EXPECT_EQ(findForCreation("1:2.scr"), fs::path("1:2.scr"));
}

TEST_F(PathsTest, OnlyAnExistingPathOtherThanAFolderIsAFile) {
  EXPECT_TRUE(namesFile(below("In/Part.dxf")));
  EXPECT_TRUE(namesFile("/dev/null"));
  EXPECT_FALSE(namesFile(below("In")));
  EXPECT_FALSE(namesFile(below("In/None.dxf")));
  EXPECT_FALSE(namesFile({}));
}

TEST_F(PathsTest, ReadsAWholeFileOfAnySizeUnderAnyCase) {
  const std::string bytes(100'000, 'x');
  folder.write("Big.lay", bytes);
  EXPECT_EQ(readWholeFile(folder.file("BIG.LAY")), bytes);
  EXPECT_EQ(readWholeFile(folder.file("none")), "");
  EXPECT_EQ(readWholeFile(folder.file("In")), "");
  EXPECT_EQ(readWholeFile(""), "");
}

TEST_F(PathsTest, DoesNotReadADeviceWithoutAnEnd) {
  EXPECT_THROW(readFile("/dev/zero"), base::ReadError);
  EXPECT_EQ(readWholeFile("/dev/zero"), "");
}

TEST_F(PathsTest, IsMissingOnlyWhereThereIsSurelyNothing) {
  EXPECT_TRUE(isMissing(folder.path() / "none"));
  EXPECT_FALSE(isMissing(folder.path()));
}

TEST(PathText, KeepsItsBytesBothWays) {
  EXPECT_EQ(fromPath(toPath("Ordner/Gehäuse.dxf")), "Ordner/Gehäuse.dxf");
  EXPECT_EQ(fromPath(toPath("a\xFF"
                            "b")),
            "a\xFF"
            "b");
}

TEST(LastComponent, FollowsTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(lastComponent("PART"), "PART");
  EXPECT_EQ(lastComponent("C:\\lib\\PART"), "PART");
  EXPECT_EQ(lastComponent("/lib/PART"), "PART");
  EXPECT_EQ(lastComponent("a/b\\c"), "c");
  EXPECT_EQ(lastComponent("a\\b/c"), "c");
  EXPECT_EQ(lastComponent("lib/"), "");
  EXPECT_EQ(lastComponent(""), "");
}

TEST(FolderPart, EndsBeforeTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(folderPart("C:\\out\\a.scr"), "C:\\out");
  EXPECT_EQ(folderPart("/out//a.scr"), "/out");
  EXPECT_EQ(folderPart("\\a.scr"), "\\");
  EXPECT_EQ(folderPart("out/"), "out");
  EXPECT_EQ(folderPart("C:a.scr"), "C:");
  EXPECT_EQ(folderPart("a.scr"), "");
  EXPECT_EQ(folderPart(""), "");
}

TEST(ScriptBeside, HasTheFolderAndTheNameOfTheDrawing) {
  EXPECT_EQ(scriptBeside("part.dxf"), "part.scr");
  EXPECT_EQ(scriptBeside("/in/a.part.DXF"), "/in/a.part.scr");
  EXPECT_EQ(scriptBeside("\\in.old\\part"), "\\in.old\\part.scr");
}

}  // namespace
}  // namespace quillon::files
