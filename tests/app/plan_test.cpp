#include "app/headless/plan.h"

#include <gtest/gtest.h>

#include "platform.h"
#include "support/temp_folder.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

class PlanTest : public ::testing::Test {
 protected:
  Plan planOf(std::vector<std::string> inputs) {
    options.inputs = std::move(inputs);
    return makePlan(options);
  }
  static std::vector<std::string> scripts(const Plan& plan) {
    std::vector<std::string> out;
    for (std::size_t i = 0; i < plan.size(); ++i) {
      out.push_back(plan.conversion(i).job.scriptFile);
    }
    return out;
  }

  TempFolder folder;
  Options options;
};

TEST_F(PlanTest, PutsTheScriptBesideTheDrawing) {
  const Plan plan = planOf({"sub/a.b.dxf"});
  ASSERT_EQ(plan.size(), 1U);
  EXPECT_FALSE(plan.several);
  EXPECT_EQ(plan.conversion(0).job.dxfFile, "sub/a.b.dxf");
  EXPECT_EQ(testing::withSlashes(plan.conversion(0).job.scriptFile), "sub/a.b.scr");
  EXPECT_EQ(plan.conversion(0).job.drawingName, "a.b");
  EXPECT_EQ(plan.conversion(0).reportFile, "");
}

TEST_F(PlanTest, KeepsTheSettingsForEveryDrawing) {
  options.job.unit = base::Unit::Inch;
  options.job.scaleText = "2.50";
  const Plan plan = planOf({"a.dxf", "b.dxf"});
  ASSERT_EQ(plan.size(), 2U);
  for (std::size_t i = 0; i < plan.size(); ++i) {
    const PlannedConversion planned = plan.conversion(i);
    EXPECT_EQ(planned.job.unit, base::Unit::Inch);
    EXPECT_EQ(planned.job.scaleText, "2.50");
  }
}

TEST_F(PlanTest, PutsTheScriptIntoAnExistingFolder) {
  options.output = folder.path().string();
  EXPECT_EQ(scripts(planOf({"a.dxf"})), std::vector<std::string>{folder.file("a.scr")});
}

TEST_F(PlanTest, GivesStandardInputNoName) {
  const Plan plan = planOf({"-"});
  ASSERT_EQ(plan.size(), 1U);
  EXPECT_TRUE(plan.conversion(0).readStandardInput);
  EXPECT_TRUE(plan.conversion(0).writeStandardOutput);
  EXPECT_EQ(plan.conversion(0).job.drawingName, "");
}

TEST_F(PlanTest, TakesAnEmptyNameForNone) {
  options.name = "";
  EXPECT_EQ(planOf({"a.dxf"}).conversion(0).job.drawingName, "");
}

TEST_F(PlanTest, SortsTheDrawingsOfAFolderByName) {
  for (const char* const name : {"b.dxf", "B.DXF", "a.Dxf", "c.txt", "dxf", ".dxf"}) {
    folder.write(name, "");
  }
  const Plan plan = planOf({folder.path().string()});
  EXPECT_TRUE(plan.several);
  EXPECT_EQ(scripts(plan), (std::vector<std::string>{folder.file("B.scr"), folder.file("a.scr"),
                                                     folder.file("b.scr")}));
}

TEST_F(PlanTest, OnlyTheSecondOfTwoListedDrawingsWithOneScriptIsMarked) {
  for (const char* const name : {"x.dxf", "x.DXF", "y.dxf"}) folder.write(name, "");
  const Plan plan = planOf({folder.path().string()});
  EXPECT_EQ(plan.usageError, "");
  ASSERT_EQ(plan.size(), 3U);
  EXPECT_EQ(plan.conversion(0).sameResultAs, "");
  EXPECT_EQ(plan.conversion(1).job.dxfFile, folder.file("x.dxf"));
  EXPECT_EQ(plan.conversion(1).sameResultAs, folder.file("x.DXF"));
  EXPECT_EQ(plan.conversion(2).sameResultAs, "");
}

TEST_F(PlanTest, ADrawingThatIsTypedAndListedIsConvertedOnce) {
  const std::string path = folder.write("x.dxf", "");
  const Plan plan = planOf({path, folder.path().string()});
  EXPECT_EQ(plan.usageError, "");
  ASSERT_EQ(plan.size(), 2U);
  EXPECT_EQ(plan.conversion(1).sameResultAs, path);
}

TEST_F(PlanTest, NotesFoldersWithoutADrawing) {
  const Plan plan = planOf({folder.path().string()});
  EXPECT_EQ(plan.emptyFolders, std::vector<std::string>{folder.path().string()});
  EXPECT_TRUE(plan.drawings.empty());
}

TEST_F(PlanTest, RefusesToReplaceADrawingByItsOwnScript) {
  EXPECT_EQ(planOf({"a.scr"}).usageError, "a.scr is the drawing itself");
}

}  // namespace
}  // namespace quillon::headless
