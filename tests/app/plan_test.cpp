#include "app/headless/plan.h"

#include <gtest/gtest.h>

#include "platform.h"
#include "support/temp_folder.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::TempFolder;

TEST(NameFromFile, ReplacesWhatAScriptCannotHold) {
  EXPECT_EQ(nameFromFile("Grundplatte 2'ü"), "Grundplatte_2__");
  EXPECT_EQ(nameFromFile("a;b\nc/d\\e"), "a_b_c_d_e");
}

TEST(NameFromFile, KeepsLettersDigitsUnderscoreHyphenAndDot) {
  EXPECT_EQ(nameFromFile("Az_09-b.v2"), "Az_09-b.v2");
  EXPECT_EQ(nameFromFile(""), "");
}

TEST(NameFromFile, ReplacesACharacterOfSeveralBytesByOneUnderscore) {
  EXPECT_EQ(nameFromFile("a→b"), "a_b");
  EXPECT_EQ(nameFromFile("\xFF"), "_");
}

class PlanTest : public ::testing::Test {
 protected:
  Plan planOf(std::vector<std::string> inputs) {
    options.inputs = std::move(inputs);
    return makePlan(options);
  }
  static std::vector<std::string> scripts(const Plan& plan) {
    std::vector<std::string> out;
    for (const PlannedConversion& planned : plan.conversions) {
      out.push_back(planned.job.scriptFile);
    }
    return out;
  }

  TempFolder folder;
  Options options;
};

TEST_F(PlanTest, PutsTheScriptBesideTheDrawing) {
  const Plan plan = planOf({"sub/a.b.dxf"});
  ASSERT_EQ(plan.conversions.size(), 1U);
  EXPECT_FALSE(plan.several);
  EXPECT_EQ(plan.conversions[0].job.dxfFile, "sub/a.b.dxf");
  EXPECT_EQ(testing::withSlashes(plan.conversions[0].job.scriptFile), "sub/a.b.scr");
  EXPECT_EQ(plan.conversions[0].job.drawingName, "a.b");
  EXPECT_EQ(plan.conversions[0].reportFile, "");
}

TEST_F(PlanTest, KeepsTheSettingsForEveryDrawing) {
  options.job.unit = base::Unit::Inch;
  options.job.scaleText = "2.50";
  const Plan plan = planOf({"a.dxf", "b.dxf"});
  for (const PlannedConversion& planned : plan.conversions) {
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
  ASSERT_EQ(plan.conversions.size(), 1U);
  EXPECT_TRUE(plan.conversions[0].readStandardInput);
  EXPECT_TRUE(plan.conversions[0].writeStandardOutput);
  EXPECT_EQ(plan.conversions[0].job.drawingName, "");
}

TEST_F(PlanTest, TakesAnEmptyNameForNone) {
  options.name = "";
  EXPECT_EQ(planOf({"a.dxf"}).conversions.at(0).job.drawingName, "");
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
  ASSERT_EQ(plan.conversions.size(), 3U);
  EXPECT_EQ(plan.conversions[0].sameResultAs, "");
  EXPECT_EQ(plan.conversions[1].job.dxfFile, folder.file("x.dxf"));
  EXPECT_EQ(plan.conversions[1].sameResultAs, folder.file("x.DXF"));
  EXPECT_EQ(plan.conversions[2].sameResultAs, "");
}

TEST_F(PlanTest, ADrawingThatIsTypedAndListedIsConvertedOnce) {
  const std::string path = folder.write("x.dxf", "");
  const Plan plan = planOf({path, folder.path().string()});
  EXPECT_EQ(plan.usageError, "");
  ASSERT_EQ(plan.conversions.size(), 2U);
  EXPECT_EQ(plan.conversions[1].sameResultAs, path);
}

TEST_F(PlanTest, NotesFoldersWithoutADrawing) {
  const Plan plan = planOf({folder.path().string()});
  EXPECT_EQ(plan.emptyFolders, std::vector<std::string>{folder.path().string()});
  EXPECT_TRUE(plan.conversions.empty());
}

TEST_F(PlanTest, RefusesToReplaceADrawingByItsOwnScript) {
  EXPECT_EQ(planOf({"a.scr"}).usageError, "a.scr is the drawing itself");
}

}  // namespace
}  // namespace quillon::headless
