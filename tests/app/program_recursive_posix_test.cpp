// --recursive where there are links and folders that may not be read.
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::ProgramResult;

TEST_F(ProgramTest, FollowsNoLinksToFoldersWhenItSearchesSubfolders) {
  fs::create_directories(folder.path() / "in/one");
  write("in/a.dxf", oneLine());
  write("in/one/b.dxf", oneLine());
  fs::create_directory_symlink("..", folder.path() / "in/one/up");
  fs::create_directory_symlink(".", folder.path() / "in/self");
  fs::create_directory_symlink("in", folder.path() / "link");
  const ProgramResult result = run({"--recursive", "in", "-o", "out"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_TRUE(result.error.ends_with("2 of 2 drawings converted\n")) << result.error;
  // The folder that is given may be a link itself.
  EXPECT_EQ(run({"--recursive", "link", "-o", "other", "--quiet"}).exitCode, 0);
  EXPECT_TRUE(folder.has("other/one/b.scr"));
}

TEST_F(ProgramTest, NamesTheSubfolderThatCannotBeListed) {
  fs::create_directories(folder.path() / "in/closed");
  write("in/a.dxf", oneLine());
  fs::permissions(folder.path() / "in", fs::perms::all);
  fs::permissions(folder.path() / "in/closed", fs::perms::none);
  dropRights();
  const ProgramResult result = run({"--recursive", "in"});
  fs::permissions(folder.path() / "in/closed", fs::perms::all);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.starts_with("quillon-convert: error: in/closed")) << result.error;
  EXPECT_TRUE(result.error.ends_with("1 of 1 drawings converted\n")) << result.error;
}

}  // namespace
}  // namespace quillon::headless
