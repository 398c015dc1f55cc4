// Scripts that may have so many lines.
#include "convert/driver_fixture.h"
#include "convert/script_frame.h"
#include "support/script_grammar.h"

namespace quillon::convert {
namespace {

class LimitTest : public DriverTest {
 protected:
  LimitTest() { surroundings.maxLines = 20; }

  /// The script is closed properly, no longer than the limit and one entity, and incomplete.
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
  draw(lines(6));  // 5 lines before, 2 for each, 2 behind
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(result.commandCount, 19U);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(LimitTest, AreToldInGerman) {
  draw(lines(100));
  speakGerman();
  convert();
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].text, job.dxfFile +
                                       ": Das Script hat die erlaubten 20 Zeilen erreicht "
                                       "(--max-lines) und ist unvollständig.");
}

}  // namespace
}  // namespace quillon::convert
