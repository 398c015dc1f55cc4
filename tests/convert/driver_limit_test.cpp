// Limits on what a conversion writes and does.
#include "convert/driver_fixture.h"
#include "convert/script_frame.h"
#include "support/script_grammar.h"

namespace quillon::convert {
namespace {

class LimitTest : public DriverTest {
 protected:
  LimitTest() {
    surroundings.limits.lines = 20;
    surroundings.keepPartial = true;
  }

  /// Expects a script that is properly closed, incomplete, and at most one entity longer than the
  /// limit.
  void expectLimit() {
    EXPECT_EQ(convert(), Outcome::Cancelled);
    const ScriptFrame frame = parseFrame(defaultFrameText());
    const testing::ScriptFacts facts =
        testing::checkScript(script(), {true, frame.startBlock, frame.endBlock});
    EXPECT_EQ(facts.fault, "");
    EXPECT_GE(facts.lines, 20U);
    EXPECT_LE(facts.lines, 26U);
    ASSERT_GE(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].kind, MessageKind::Warning);
    EXPECT_EQ(host.messages[0].detail,
              job.dxfFile +
                  ": The script has reached the 20 lines that --max-lines allows and is "
                  "incomplete.");
  }
  static testing::DxfBuilder lines(int count) {
    testing::DxfBuilder dxf;
    for (int i = 0; i < count; ++i) {
      dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    }
    return dxf;
  }
};

TEST_F(LimitTest, EndBetweenEntities) {
  draw(lines(100));
  expectLimit();
}

TEST_F(LimitTest, EndInsideAnEntity) {
  testing::DxfBuilder dxf;
  dxf.entity("ELLIPSE", {{8, "0"},
                         {10, "0"},
                         {20, "0"},
                         {11, "1"},
                         {21, "0"},
                         {40, "0.5"},
                         {41, "0"},
                         {42, "1e300"}});
  draw(dxf);
  job.ellipses = true;
  expectLimit();
}

TEST_F(LimitTest, EndInsideADashedLine) {
  testing::DxfBuilder dxf;
  dxf.dashes("D", "1", {"1e-9", "-1e-9"});
  dxf.header("$LTSCALE", 40, "1");
  dxf.entity("LINE", {{8, "0"}, {6, "D"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  draw(dxf);
  job.dotted = true;
  expectLimit();
}

TEST_F(LimitTest, EndInsideBlocksThatMultiply) {
  testing::DxfBuilder dxf;
  for (int level = 0; level < 10; ++level) {
    dxf.beginBlock("L" + std::to_string(level));
    for (int i = 0; i < 10; ++i) {
      dxf.entity("INSERT", {{8, "0"}, {2, "L" + std::to_string(level + 1)}});
    }
    dxf.endBlock();
  }
  dxf.beginBlock("L10").entity("POINT", {{8, "0"}, {10, "1"}, {20, "1"}}).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "L0"}});
  draw(dxf);
  expectLimit();
}

TEST_F(LimitTest, EndBetweenThePartsOfALibrary) {
  testing::DxfBuilder dxf;
  for (int i = 0; i < 50; ++i) {
    dxf.beginBlock("B" + std::to_string(i)).endBlock();
  }
  draw(dxf);
  job.blocks = kAllBlocksAsParts;
  job.drawingName = "x";
  EXPECT_EQ(convert(), Outcome::Cancelled);
  EXPECT_LT(result.commandCount, 20U + 10U);
}

TEST_F(LimitTest, DoNotTouchAScriptThatFits) {
  draw(lines(6));  // 5 lines before, 2 for each, 2 after
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(result.commandCount, 19U);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(LimitTest, AreReportedInGerman) {
  draw(lines(100));
  speakGerman();
  convert();
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].text, job.dxfFile +
                                       ": Das Script hat die erlaubten 20 Zeilen erreicht "
                                       "(--max-lines) und ist unvollständig.");
}

TEST_F(LimitTest, KeepNoScriptUnlessAskedTo) {
  surroundings.keepPartial = false;
  draw(lines(100));
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_FALSE(hasScript());
  ASSERT_EQ(host.limits.size(), 1U);
  EXPECT_EQ(host.limits[0].kind, MessageKind::Error);
  EXPECT_EQ(host.limits[0].text, job.dxfFile + ": The script has reached the limit of 20 lines.");
  EXPECT_EQ(host.limits[0].detail, host.limits[0].text + " The script is not kept.");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(result.report, "");
}

TEST_F(LimitTest, LeaveTheOldScript) {
  surroundings.keepPartial = false;
  job.overwriteScript = true;
  folder.write("drawing.scr", "old");
  draw(lines(100));
  EXPECT_EQ(convert(), Outcome::Ended);
  EXPECT_EQ(script(), "old");
}

TEST_F(LimitTest, EndWithTheYesOfAUser) {
  surroundings.keepPartial = false;
  surroundings.limits.steps = 20;
  host.goesOn = true;
  testing::DxfBuilder dxf = lines(100);
  for (int i = 0; i < 10; ++i) dxf.entity("LWPOLYLINE", {{8, "0"}, {10, "1"}, {20, "1"}});
  draw(dxf);
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(result.commandCount, 207U);
  EXPECT_EQ(host.limits.size(), 1U);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(LimitTest, AreReportedInGermanWhereTheyLeaveNoScript) {
  surroundings.keepPartial = false;
  speakGerman();
  draw(lines(100));
  convert();
  surroundings.limits = {.steps = 0};
  draw(lines(1));
  convert();
  ASSERT_EQ(host.limits.size(), 2U);
  EXPECT_EQ(host.limits[0].detail, job.dxfFile +
                                       ": Das Script hat die Grenze von 20 Zeilen erreicht. Das "
                                       "Script wird nicht behalten.");
  EXPECT_EQ(host.limits[1].detail, job.dxfFile +
                                       ": Die Konvertierung hat die Grenze von 0 Schritten "
                                       "erreicht. Das Script wird nicht behalten.");
}

class StepLimitTest : public DriverTest {
 protected:
  StepLimitTest() { surroundings.limits.steps = 1000; }

  void expectLimit() {
    EXPECT_EQ(convert(), Outcome::Ended);
    EXPECT_FALSE(hasScript());
    ASSERT_EQ(host.limits.size(), 1U);
    EXPECT_EQ(host.limits[0].text,
              job.dxfFile + ": The conversion has reached the limit of 1000 steps.");
    EXPECT_LT(result.steps, 2000U);
  }
  /// Nested blocks that double the innermost one at each level.
  static testing::DxfBuilder doubled(int levels, const testing::DxfBuilder& items = {}) {
    testing::DxfBuilder dxf = items;
    for (int level = 1; level < levels; ++level) {
      dxf.beginBlock("L" + std::to_string(level));
      const std::string next = "L" + std::to_string(level + 1);
      for (int i = 0; i < 2; ++i) dxf.entity("INSERT", {{8, "0"}, {2, next}});
      dxf.endBlock();
    }
    dxf.entity("INSERT", {{8, "0"}, {2, "L1"}});
    return dxf;
  }
};

TEST_F(StepLimitTest, EndsEmptyBlocksThatDouble) {
  testing::DxfBuilder last;
  last.beginBlock("L60").endBlock();
  draw(doubled(60, last));
  expectLimit();
}

TEST_F(StepLimitTest, EndsBlocksOfLayersThatAreNotConverted) {
  job.defaultLayer = "999";
  testing::DxfBuilder last;
  last.beginBlock("L1");
  for (int i = 0; i < 10; ++i) last.entity("POINT", {{8, "0"}, {10, "1"}, {20, "1"}});
  last.endBlock();
  for (int i = 0; i < 1000; ++i) last.entity("INSERT", {{8, "DRAWN"}, {2, "L1"}});
  job.layerFile = folder.write("part.lay", "[1]\r\nlayername=DRAWN\r\nlayernr=5\r\n");
  draw(last);
  expectLimit();
}

TEST_F(StepLimitTest, EndsGapsOfDashes) {
  testing::DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "1");
  dxf.dashes("GAPS", "1", {"-1e-9", "-1e-9"});
  dxf.entity("LINE", {{8, "0"}, {6, "GAPS"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  draw(dxf);
  job.dotted = true;
  expectLimit();
}

TEST_F(StepLimitTest, CountsLongTextsOfBlocksByTheirLength) {
  const std::string content(6400, 'x');
  testing::DxfBuilder last;
  last.beginBlock("L4").entity("TEXT", {{8, "0"}, {1, content}}).endBlock();
  draw(doubled(4, last));
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_GE(result.steps, 800U);  // eight texts of 100 each
  EXPECT_LT(result.steps, 850U);
}

TEST_F(StepLimitTest, CountsTheGroupsOfSplinesThatDrawNothing) {
  std::vector<std::pair<int, std::string_view>> groups = {{8, "0"}, {10, "1"}, {20, "1"}};
  groups.resize(2000, {40, "1"});
  testing::DxfBuilder last;
  last.beginBlock("L4").entity("SPLINE", groups).endBlock();
  draw(doubled(4, last));
  expectLimit();
}

TEST_F(StepLimitTest, IsFarFromOrdinaryDrawings) {
  surroundings.limits = kUsualLimits;
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_LT(result.steps, 10U);
  EXPECT_TRUE(host.limits.empty());
}

}  // namespace
}  // namespace quillon::convert
