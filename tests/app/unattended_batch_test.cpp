#include <gtest/gtest.h>

#include <algorithm>
#include <map>

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
  /// Sorted, as the system may list files in any order.
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

TEST_F(BatchTest, NamesTheFolderOfTheDrawingsThatIsMissing) {
  folder.write("a.dxf", "");
  folder.write("in/a.dxf", "");
  for (const auto& [drawing, missing] :
       std::map<std::string, std::string>{{"Q:\\none\\a.dxf", "Q:\\none\\"},
                                          {"Q:a.dxf", "Q:\\"},
                                          {root + "/none/*.dxf", root + "/none/"},
                                          {root + "/none/deeper/a.dxf", root + "/none/deeper/"},
                                          {root + "/in/none", root + "/in/none/"},
                                          {root + "/in/none/", root + "/in/none/"},
                                          {root + "/in/a.dxf/", root + "/in/a.dxf/"}}) {
    settings.dxfFile = drawing;
    const Batch batch = listBatch(settings, store);
    EXPECT_EQ(batch.missing.folder, missing) << drawing;
    EXPECT_EQ(batch.missing.item, "/x:") << drawing;
    EXPECT_TRUE(batch.files.empty()) << drawing;
  }
}

TEST_F(BatchTest, NamesTheFolderOfTheScriptsThatIsMissing) {
  folder.write("in/a.dxf", "");
  for (const char* const script : {"/none/x.scr", "/none/", "/none"}) {
    settings.scriptFile = root + script;
    const Batch batch = listBatch(settings, store);
    EXPECT_EQ(batch.missing.folder, root + "/none/") << script;
    EXPECT_EQ(batch.missing.item, "/s:") << script;
    EXPECT_TRUE(batch.files.empty()) << script;
  }
}

TEST_F(BatchTest, AFolderNeedsNoSeparatorAtItsEnd) {
  folder.write("a.dxf", "");
  folder.write("in/b.dxf", "");
  fs::create_directory(folder.path() / "v1.2");
  folder.write("v1.2/c.dxf", "");
  settings.dxfFile = root + "/in";
  settings.scriptFile = root + "/out";
  EXPECT_EQ(sortedFiles(), (std::vector<BatchFile>{{root + "/in/b.dxf", root + "/out/b.scr"}}));
  settings.dxfFile = root + "/v1.2";
  settings.scriptFile = root + "/v1.2";
  EXPECT_EQ(sortedFiles(), (std::vector<BatchFile>{{root + "/v1.2/c.dxf", root + "/v1.2/c.scr"}}));
}

TEST_F(BatchTest, ADrawingWithoutAnExtensionMeansItsFolder) {
  folder.write("in/a.dxf", "");
  folder.write("in/drawing", "");
  settings.dxfFile = root + "/in/drawing";
  EXPECT_EQ(sortedFiles(), (std::vector<BatchFile>{{root + "/in/a.dxf", root + "/out/a.scr"}}));
}

}  // namespace
}  // namespace quillon::unattended
