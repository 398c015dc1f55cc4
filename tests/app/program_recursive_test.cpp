// --recursive: folders with their subfolders.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::ProgramResult;

class RecursiveTest : public ProgramTest {
 protected:
  RecursiveTest() {
    for (const char* const name : {"in/a.dxf", "in/one/b.DXF", "in/one/two/c.dxf"}) put(name);
    folder.write("in/one/notes.txt", "x");
  }
  void put(const std::string& name) {
    fs::create_directories((folder.path() / name).parent_path());
    write(name, oneLine());
  }
  Strings scripts() const {
    Strings out;
    for (const std::string& file : files()) {
      if (file.ends_with(".scr") || file.ends_with(".txt") || file.ends_with(".svg")) {
        if (file != "in/one/notes.txt") out.push_back(file);
      }
    }
    return out;
  }
};

TEST_F(RecursiveTest, PutsScriptsBesideTheDrawingsOfAllSubfolders) {
  const ProgramResult result = run({"--recursive", "in"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_TRUE(result.error.ends_with("3 of 3 drawings converted\n")) << result.error;
  EXPECT_EQ(scripts(), (Strings{"in/a.scr", "in/one/b.scr", "in/one/two/c.scr"}));
  EXPECT_EQ(folder.read("in/one/two/c.scr"), lineScript("c"));
}

TEST_F(RecursiveTest, LeavesSubfoldersAloneWithoutTheOption) {
  EXPECT_EQ(run({"in"}).exitCode, 0);
  EXPECT_EQ(scripts(), Strings{"in/a.scr"});
}

TEST_F(RecursiveTest, KeepsTheSubfoldersBelowTheFoldersForResults) {
  const ProgramResult result =
      run({"--recursive", "in/", "-o", "out", "--report", "reports", "--preview", "pictures"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_EQ(scripts(), (Strings{"out/a.scr", "out/one/b.scr", "out/one/two/c.scr", "pictures/a.svg",
                                "pictures/one/b.svg", "pictures/one/two/c.svg", "reports/a.txt",
                                "reports/one/b.txt", "reports/one/two/c.txt"}));
}

TEST_F(RecursiveTest, TakesDrawingsOfOneNameFromSeveralSubfolders) {
  put("in/one/a.dxf");
  put("in/other/a.dxf");
  EXPECT_EQ(run({"--recursive", "in", "-o", "out", "--quiet"}).exitCode, 0);
  EXPECT_EQ(scripts(), (Strings{"out/a.scr", "out/one/a.scr", "out/one/b.scr", "out/one/two/c.scr",
                                "out/other/a.scr"}));
}

TEST_F(RecursiveTest, SaysWhichOfTwoFoldersHasTheSameSubfolderAndName) {
  put("more/one/b.dxf");
  const ProgramResult result = run({"--recursive", "in", "more", "-o", "out"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("more/one/b.dxf"), std::string::npos) << result.error;
  EXPECT_TRUE(result.error.ends_with("3 of 4 drawings converted\n")) << result.error;
}

TEST_F(RecursiveTest, ResumesWithNewer) {
  EXPECT_EQ(run({"--recursive", "in", "-o", "out", "--quiet"}).exitCode, 0);
  for (const char* const name : {"in/a.dxf", "in/one/b.DXF"}) {
    fs::last_write_time(folder.path() / name,
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
  }
  fs::last_write_time(folder.path() / "in/one/two/c.dxf",
                      fs::file_time_type::clock::now() + std::chrono::hours(1));
  const ProgramResult result = run({"--recursive", "in", "-o", "out", "--newer"});
  EXPECT_TRUE(
      result.error.ends_with("2 drawings skipped because their scripts are newer\n"
                             "1 of 3 drawings converted\n"))
      << result.error;
}

TEST_F(RecursiveTest, SaysWhereASubfolderForResultsCannotBeMade) {
  fs::create_directory(folder.path() / "out");
  folder.write("out/one", "a file");
  const ProgramResult result = run({"--recursive", "in", "-o", "out"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("out/one/b.scr"), std::string::npos) << result.error;
  EXPECT_TRUE(result.error.ends_with("1 of 3 drawings converted\n")) << result.error;
  EXPECT_EQ(folder.read("out/one"), "a file");
}

TEST_F(RecursiveTest, AFolderWithDrawingsInSubfoldersAloneIsNotEmpty) {
  put("outer/inner/x.dxf");
  EXPECT_EQ(run({"--recursive", "outer", "--quiet"}).exitCode, 0);
  const ProgramResult flat = run({"outer"});
  EXPECT_EQ(flat.exitCode, 1);
}

}  // namespace
}  // namespace quillon::headless
