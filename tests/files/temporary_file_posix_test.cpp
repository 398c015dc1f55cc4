#include <gtest/gtest.h>

#include "files/temporary_file.h"
#include "support/temp_folder.h"

namespace quillon::files {
namespace {

namespace fs = std::filesystem;

TEST(TemporaryFileClaim, KeepsAFileThatIsClosed) {
  const testing::TempFolder folder;
  std::optional<TemporaryFile> made = makeTemporaryFile(folder.path());
  ASSERT_TRUE(made);
  made->file.reset();
  clearAbandonedFiles(folder.path());
  EXPECT_TRUE(fs::exists(made->path));
  made->claim.reset();
  clearAbandonedFiles(folder.path());
  EXPECT_FALSE(fs::exists(made->path));
}

TEST(TemporaryFileClaim, IsNotSearchedThroughALink) {
  const testing::TempFolder folder;
  folder.write("target", "kept");
  fs::create_symlink(folder.path() / "target", folder.path() / ".quillon-2-2-2.tmp");
  clearAbandonedFiles(folder.path());
  EXPECT_EQ(folder.entries(), 2U);
}

}  // namespace
}  // namespace quillon::files
