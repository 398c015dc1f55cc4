#include "workbench/loss_rows.h"

#include "workbench/bench_drawing.h"

namespace quillon::workbench {
namespace {

using LossRowsTest = BenchTest;

TEST_F(LossRowsTest, WhatIsMissingComesBeforeWhatIsChanged) {
  addPlate();
  addTriangle(20.0, 30.0, "MARKS");
  readBoth();
  const std::vector<LossRow> rows = lossRows(result, texts);
  ASSERT_GE(rows.size(), 2U);
  EXPECT_EQ(rows[0].text, "Not drawn, triangle");
  EXPECT_EQ(rows[0].kind, "SOLID");
  EXPECT_EQ(rows[0].layer, "MARKS");
  EXPECT_EQ(rows[0].count, 1U);
  EXPECT_GT(rows[0].line, 0U);
  EXPECT_GT(lossCount(result), 1U);
}

TEST_F(LossRowsTest, PlacesAreThoseOfTheScene) {
  addTriangle(20.0, 30.0);
  job.unit = base::Unit::Inch;
  job.offsetX = 1.0;
  readBoth();
  const std::vector<LossRow> rows = lossRows(result, texts);
  ASSERT_EQ(rows.size(), 1U);
  ASSERT_TRUE(rows[0].at.has_value());
  EXPECT_NEAR(rows[0].at->x, 21.0 * 25.4, 1.1 * 25.4);
  EXPECT_NEAR(rows[0].at->y, 30.0 * 25.4, 1.1 * 25.4);
}

TEST_F(LossRowsTest, DamagedEntitiesHaveNoPlace) {
  addLine("0", "0", "1", "0");
  drawing.entity("POINT", {{8, "CUT"}});
  std::string text = drawing.text();
  // Without the line of its code, the layer reads like the end of the entity.
  const std::size_t value = text.find("CUT");
  const std::size_t code = text.rfind('8', value);
  text.replace(code, value + 3 - code, "0");
  const std::string path = folder.write("a.dxf", text);
  convert::HeldDrawing held(path, never, {});
  job.dxfFile = path;
  result = readResult(held, job, surroundings, never);
  const std::vector<LossRow> rows = lossRows(result, texts);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].text, "Not drawn, damaged");
  EXPECT_EQ(rows[0].count, 1U);
  EXPECT_GT(rows[0].line, 0U);
  EXPECT_FALSE(rows[0].at.has_value());
  EXPECT_EQ(lossCount(result), 1U);
}

TEST_F(LossRowsTest, ASentenceLeavesOutWhatIsNotKnown) {
  LossRow row{"Not drawn, damaged", "", "", 3, 12, {}, false};
  EXPECT_EQ(lossSentence(row, texts), "Not drawn, damaged: 3, first in line 12");
  row.line = 0;
  EXPECT_EQ(lossSentence(row, texts), "Not drawn, damaged: 3");
  row.kind = "SOLID";
  EXPECT_EQ(lossSentence(row, texts), "Not drawn, damaged: 3 SOLID");
  row.layer = "PLATE";
  EXPECT_EQ(lossSentence(row, texts), "Not drawn, damaged: 3 SOLID on layer PLATE");
  row.line = 12;
  EXPECT_EQ(lossSentence(row, texts),
            "Not drawn, damaged: 3 SOLID on layer PLATE, first in line 12");
}

TEST_F(LossRowsTest, WhatWasOnlyCleanedIsNoLoss) {
  addLine("0", "0", "1", "0");
  addLine("0", "0", "1", "0");
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  readBoth();
  const std::vector<LossRow> rows = lossRows(result, texts);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_TRUE(rows[0].isCleaned);
  EXPECT_EQ(lossCount(result), 0U);
}

}  // namespace
}  // namespace quillon::workbench
