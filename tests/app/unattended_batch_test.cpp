#include <gtest/gtest.h>

#include <algorithm>

#include "app/unattended/batch.h"
#include "platform.h"
#include "support/temp_folder.h"

namespace quillon::unattended {

bool operator==(const BatchFile& a, const BatchFile& b) {
  return a.dxfFile == b.dxfFile && a.scriptFile == b.scriptFile;
}
void PrintTo(const BatchFile& file, std::ostream* out) {
  *out << file.dxfFile << " -> " << file.scriptFile;
}

namespace {

namespace fs = std::filesystem;

class BatchTest : public ::testing::Test {
 protected:
  BatchTest() {
    settings.dxfFile = root + "/in/any.dxf";
    settings.scriptFile = root + "/out/any.scr";
    fs::create_directory(folder.path() / "in");
    fs::create_directory(folder.path() / "out");
  }
  /// The system may list files in any order.
  std::vector<BatchFile> sortedFiles() const {
    std::vector<BatchFile> files = listBatch(settings, store).files;
    std::sort(files.begin(), files.end(),
              [](const BatchFile& a, const BatchFile& b) { return a.dxfFile < b.dxfFile; });
    return files;
  }

  testing::TempFolder folder;
  std::string root = folder.path().string();
  settings::SettingsStore store{folder.path()};
  settings::Settings settings;
};

TEST_F(BatchTest, ListsDrawingsOfAnyCaseAndNamesScriptsInTheScriptFolder) {
  for (const char* name : {"a.dxf", "B.DXF", "c.v2.Dxf", "d.dwg", "dxf", "e.dxfx"}) {
    folder.write("in/" + std::string(name), "");
  }
  fs::create_directory(folder.path() / "in" / "folder.dxf");
  const std::vector<BatchFile> expected = {{root + "/in/B.DXF", root + "/out/B.scr"},
                                           {root + "/in/a.dxf", root + "/out/a.scr"},
                                           {root + "/in/c.v2.Dxf", root + "/out/c.v2.scr"}};
  EXPECT_EQ(sortedFiles(), expected);
}

TEST_F(BatchTest, TakesTheDrawingsFolderFromAPathWithAStar) {
  folder.write("in/a.dxf", "");
  settings.dxfFile = "  " + root + "/in/*.dxf ";
  EXPECT_EQ(sortedFiles(), (std::vector<BatchFile>{{root + "/in/a.dxf", root + "/out/a.scr"}}));
}

TEST_F(BatchTest, TakesAPathWithoutAFolderFromTheCurrentOne) {
  settings.dxfFile = "any.dxf";
  EXPECT_EQ(testing::withSlashes(listBatch(settings, store).folder),
            fs::current_path().generic_string() + "/");
}

TEST_F(BatchTest, AnEmptyPathMeansTheProgramFolder) {
  folder.write("a.dxf", "");
  settings.dxfFile = "";
  settings.scriptFile = "";
  EXPECT_EQ(sortedFiles(), (std::vector<BatchFile>{{root + "/a.dxf", root + "/a.scr"}}));
}

TEST_F(BatchTest, SaysWhyAFolderCannotBeListed) {
  settings.dxfFile = "Q:\\none\\a.dxf";
  const Batch batch = listBatch(settings, store);
  EXPECT_EQ(batch.folder, "Q:\\");
  EXPECT_EQ(batch.reason, ENOENT);
  EXPECT_TRUE(batch.files.empty());
}

}  // namespace
}  // namespace quillon::unattended
