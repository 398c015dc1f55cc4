#include "workbench/reading.h"

#include <filesystem>

#include "base/read_error.h"
#include "workbench/bench_drawing.h"
#include "workbench/differing.h"

namespace quillon::workbench {
namespace {

using ReadingTest = BenchTest;

TEST_F(ReadingTest, ShowsWhatTheJobComesToWithoutWritingAnything) {
  addPlate();
  readBoth();
  ASSERT_TRUE(result.isWhole());
  ASSERT_NE(result.scene, nullptr);
  expectNear(result.scene->bounds().high, 100.0, 80.0);
  EXPECT_FALSE(result.result.recording.has_value());
  const auto files = std::filesystem::directory_iterator(folder.path());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1);  // the drawing alone
}

TEST_F(ReadingTest, TheSceneIsInMillimetresWhateverTheScriptsUnit) {
  addPlate();
  job.unit = base::Unit::Inch;
  readBoth();
  expectNear(result.scene->bounds().high, 2540.0, 2032.0);
}

TEST_F(ReadingTest, TheWholeDrawingLiesOnTheResultWhateverTheUnit) {
  drawing.header("$INSUNITS", 70, "4");
  addPlate();
  job.unit = base::Unit::Mil;
  job.scale = 2.0;
  job.offsetX = 1000.0;
  job.offsetY = -500.0;
  readBoth();
  const geometry::Box box = result.scene->bounds();
  expectNear(whole.scene->bounds().low, box.low.x, box.low.y);
  expectNear(whole.scene->bounds().high, box.high.x, box.high.y);
  expectNear(box.high - box.low, 200.0 * 0.0254, 160.0 * 0.0254);
}

TEST_F(ReadingTest, TheWholeDrawingIsTurnedWithANegativeScale) {
  addLine("0", "0", "10", "20");
  job.scale = -1.0;
  readBoth();
  expectNear(result.scene->bounds().low, -10.0, -20.0);
  expectNear(whole.scene->bounds().low, -10.0, -20.0);
}

TEST_F(ReadingTest, TheWholeDrawingFollowsTheExactRulesPlace) {
  addLine("50", "60", "70", "90");
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  job.exact.place = exact::Place::LowerLeft;
  readBoth();
  expectNear(result.scene->bounds().low, 0.0, 0.0);
  expectNear(whole.scene->bounds().low, 0.0, 0.0);
  expectNear(whole.scene->bounds().high, 20.0, 30.0);
}

TEST_F(ReadingTest, TheWholeDrawingHasLayersThatTheResultLeavesOut) {
  drawing.entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  drawing.entity("LINE", {{8, "B"}, {10, "0"}, {20, "5"}, {11, "1"}, {21, "5"}});
  job.layerFile = folder.write("a.lay", "[1]\nlayername=B\nlayernr=999\n");
  readBoth();
  EXPECT_EQ(result.scene->segmentCount(), 1U);
  EXPECT_EQ(whole.scene->segmentCount(), 2U);
}

TEST_F(ReadingTest, ADrawingCanBeReadAgainAndAgain) {
  addPlate();
  const std::string path = folder.write("a.dxf", drawing.text());
  convert::HeldDrawing held(path, never, {});
  std::filesystem::remove(files::toPath(path));  // it is held
  job.dxfFile = path;
  const Reading first = readResult(held, job, surroundings, never);
  job.scale = 3.0;
  const Reading second = readResult(held, job, surroundings, never);
  expectNear(first.scene->bounds().high, 100.0, 80.0);
  expectNear(second.scene->bounds().high, 300.0, 240.0);
}

TEST_F(ReadingTest, ADrawingOfAnySizeIsHeldAsAWhole) {
  for (int i = 0; i < 5000; ++i) {
    const std::string x = std::to_string(i);
    addLine(x.c_str(), "0", x.c_str(), "10");
  }
  readBoth();
  EXPECT_EQ(result.scene->segmentCount(), 5000U);
  EXPECT_EQ(result.result.dropped.count, 0U);
}

TEST_F(ReadingTest, ARefusalIsAMessage) {
  const std::string path = folder.write("a.dxf", "no drawing at all\n");
  convert::HeldDrawing held(path, never, {});
  job.dxfFile = path;
  const Reading reading = readResult(held, job, surroundings, never);
  EXPECT_FALSE(reading.isWhole());
  EXPECT_EQ(reading.scene, nullptr);
  ASSERT_FALSE(reading.messages.empty());
  EXPECT_EQ(reading.messages.back().kind, convert::MessageKind::Error);
}

TEST_F(ReadingTest, AMissingFileIsAnError) {
  EXPECT_THROW(convert::HeldDrawing(folder.file("missing.dxf"), never, {}), base::ReadError);
}

TEST_F(ReadingTest, ACancelLeavesNoScene) {
  addPlate();
  const std::string path = folder.write("a.dxf", drawing.text());
  convert::HeldDrawing held(path, never, {});
  job.dxfFile = path;
  const Reading reading = readResult(held, job, surroundings, [] { return true; });
  EXPECT_EQ(reading.scene, nullptr);
}

TEST_F(ReadingTest, DifferencesNameTheCornersThatTheClassicRulesLose) {
  addPlate();
  readBoth();
  const auto differences = differencesOf(whole, result, never);
  ASSERT_NE(differences, nullptr);
  EXPECT_GT(differences->onlyDrawing.length(), 10.0);  // four quarters of a circle of 5 mm: 31.4
  EXPECT_LT(differences->onlyDrawing.length(), 35.0);
}

TEST_F(ReadingTest, ChosenWidthsAreNoDifference) {
  addPlate();
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  job.unit = base::Unit::Mil;
  job.scale = 2.0;
  job.exact.lineWidth = 10.0;
  readBoth();
  const auto differences = differencesOf(whole, result, never);
  ASSERT_NE(differences, nullptr);
  EXPECT_TRUE(differences->none());
}

TEST_F(ReadingTest, TheDrawingStaysTheSameUnlessItsPlaceOrItsWidthsChange) {
  addPlate();
  readBoth();
  Reading former = result;
  job.poly = 1;
  job.ellipses = true;
  readBoth();
  EXPECT_TRUE(haveSameDrawing(former, result));
  job.offsetX = 5.0;
  readBoth();
  EXPECT_FALSE(haveSameDrawing(former, result));
  former = result;
  job.unit = base::Unit::Inch;
  readBoth();
  EXPECT_FALSE(haveSameDrawing(former, result));
  former = result;
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  job.exact.lineWidth = 0.1;
  readBoth();
  EXPECT_FALSE(haveSameDrawing(former, result));
}

TEST_F(ReadingTest, ExactResultsDoNotDiffer) {
  addPlate();
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  readBoth();
  const auto differences = differencesOf(whole, result, never);
  ASSERT_NE(differences, nullptr);
  EXPECT_EQ(differences->onlyDrawing.length(), 0.0);
  EXPECT_EQ(differences->onlyResult.length(), 0.0);
}

}  // namespace
}  // namespace quillon::workbench
