#include "workbench/hints.h"

#include "workbench/bench_drawing.h"

namespace quillon::workbench {
namespace {

using settings::Settings;

class HintsTest : public BenchTest {
 protected:
  /// Text and button of each hint.
  std::vector<std::string> hintLines() {
    std::vector<std::string> lines;
    for (const Hint& hint : hintsOf(result, &whole, texts)) {
      lines.push_back(hint.text + " [" + hint.button + "]");
    }
    return lines;
  }
  bool hasHint(const std::string& line) {
    const std::vector<std::string> lines = hintLines();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }
  /// The settings of the job, with an offer taken.
  Settings takenBy(Offer offer) {
    Settings shown;
    shown.unit = job.unit;
    shown.rules = job.rules == convert::Rules::Exact ? settings::kExactRules : "";
    return taken(offer, shown, result, &whole);
  }
};

TEST_F(HintsTest, AFilledOutlineCanBeDrawnAsLines) {
  addPlate();
  readBoth();
  EXPECT_TRUE(hasHint("1 closed outline would be filled. [Draw as lines]"));
  EXPECT_EQ(takenBy(Offer::DrawAsLines).poly, 1);
  job.poly = 1;
  readBoth();
  EXPECT_FALSE(hasHint("1 closed outline would be filled. [Draw as lines]"));
}

TEST_F(HintsTest, SeveralFilledOutlinesAreCounted) {
  addPlate();
  addPlate("LID");
  readBoth();
  EXPECT_TRUE(hasHint("2 closed outlines would be filled. [Draw as lines]"));
}

TEST_F(HintsTest, ExactRulesWouldKeepTheArcsOfOutlines) {
  addPlate();
  readBoth();
  EXPECT_TRUE(hasHint("The exact rules would keep the arcs of 1 outline. [Use them]"));
  EXPECT_EQ(takenBy(Offer::UseExact).rules, "exact");
  addPlate("LID");
  readBoth();
  EXPECT_TRUE(hasHint("The exact rules would keep the arcs of 2 outlines. [Use them]"));
}

TEST_F(HintsTest, ExactRulesWouldKeepOtherThings) {
  addTriangle(0.0, 0.0);
  readBoth();
  EXPECT_TRUE(hasHint("The exact rules would show 1 more object as it is drawn. [Use them]"));
  addTriangle(5.0, 0.0);
  readBoth();
  EXPECT_TRUE(hasHint("The exact rules would show 2 more objects as they are drawn. [Use them]"));
}

TEST_F(HintsTest, NothingIsOfferedWhereNothingIsLost) {
  drawing.header("$INSUNITS", 70, "4");
  addLine("0", "0", "10", "0");
  addLine("10", "0", "10", "10");
  addLine("10", "10", "0", "0");
  readBoth();
  EXPECT_EQ(hintLines(), std::vector<std::string>{});
}

TEST_F(HintsTest, OpenEndsAreShown) {
  addLine("0", "0", "10", "0");
  addLine("10", "0", "10", "10");
  addLine("10", "10", "0", "0.5");
  readBoth();
  EXPECT_TRUE(hasHint("2 ends of outlines are open. [Show]"));
  const std::vector<Hint> hints = hintsOf(result, &whole, texts);
  ASSERT_EQ(hints.back().places.size(), 2U);
  EXPECT_NEAR(hints.back().places[0].x, 0.0, 1e-9);
}

TEST_F(HintsTest, EndsThatNearlyMeetCanBeJoined) {
  addLine("0", "0", "10", "0");
  addLine("10.25", "0", "10", "10");
  addLine("10", "10", "0", "0");
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  readBoth();
  EXPECT_TRUE(hasHint("Open ends no more than 0.25 mm apart: 2 [Join them]"));
  const Settings changed = takenBy(Offer::JoinEnds);
  EXPECT_EQ(changed.exact.joinTolerance, 0.25);
  job.exact = changed.exact;
  readBoth();
  EXPECT_EQ(result.result.exact->outlines.gapCount, 0U);
  EXPECT_FALSE(hasHint("Open ends no more than 0.25 mm apart: 2 [Join them]"));
}

TEST_F(HintsTest, ASingleOpenEndIsShown) {
  addLine("0", "0", "10", "0");
  addLine("10", "0", "10", "10");
  addLine("10", "10", "0", "0");
  addLine("10", "10", "5", "20");  // its other end meets the rest
  readBoth();
  EXPECT_TRUE(hasHint("1 end of an outline is open. [Show]"));
}

TEST_F(HintsTest, TheDrawingsUnitIsOfferedAndNeverTakenByItself) {
  drawing.header("$INSUNITS", 70, "4");
  addPlate();
  job.unit = base::Unit::Mil;
  readBoth();
  EXPECT_EQ(hintLines().front(), "Unit named in the drawing: mm [Take it]");
  EXPECT_TRUE(namesAnotherUnit(result, &whole));
  const Settings changed = takenBy(Offer::TakeUnit);
  EXPECT_EQ(changed.unit, base::Unit::Mm);
  EXPECT_EQ(changed.scale, "1.000");
}

TEST_F(HintsTest, AUnitThatEagleHasNotBecomesAScale) {
  drawing.header("$INSUNITS", 70, "5");
  addPlate();
  readBoth();
  const Settings changed = takenBy(Offer::TakeUnit);
  EXPECT_EQ(changed.unit, base::Unit::Mm);
  EXPECT_EQ(changed.scale, "10");
  job.scale = 10.0;
  readBoth();
  EXPECT_FALSE(namesAnotherUnit(result, &whole));
  // The exact rules take the unit by themselves.
  Settings shown;
  shown.scale = "10";
  EXPECT_EQ(taken(Offer::UseExact, shown, result, &whole).scale, "1.000");
}

TEST_F(HintsTest, ADrawingThatIsTurnedByItsScaleStaysTurned) {
  drawing.header("$INSUNITS", 70, "4");
  addPlate();
  job.unit = base::Unit::Mil;
  job.scale = -1.0;
  readBoth();
  EXPECT_EQ(takenBy(Offer::TakeUnit).scale, "-1.000");
  drawing.header("$INSUNITS", 70, "5");
  job.scale = -10.0;
  job.unit = base::Unit::Mm;
  readBoth();
  EXPECT_EQ(takenBy(Offer::TakeUnit).scale, "-10");
  EXPECT_EQ(takenBy(Offer::UseExact).scale, "-1.000");
}

TEST_F(HintsTest, AUnitOtherThanTheOneSetByHandIsOffered) {
  drawing.header("$INSUNITS", 70, "4");
  addPlate();
  job.rules = convert::Rules::Exact;
  job.version = convert::kEagle6;
  job.drawingUnit = convert::DrawingUnit::Centimetre;
  readBoth();
  EXPECT_TRUE(namesAnotherUnit(result, &whole));
  EXPECT_EQ(takenBy(Offer::TakeUnit).drawingUnit, convert::DrawingUnit::Auto);
}

TEST_F(HintsTest, SaysWhatTheDrawingNames) {
  addPlate();
  readBoth();
  EXPECT_EQ(unitText(result, &whole, texts), "The drawing does not state a unit.");
  drawing.header("$INSUNITS", 70, "4");
  readBoth();
  EXPECT_EQ(unitText(result, &whole, texts), "Unit named in the drawing: mm");
}

TEST_F(HintsTest, AUnitThatDoesNotFitTheSizeIsNotOffered) {
  drawing.header("$INSUNITS", 70, "6");  // metres: a plate of 100 m
  addPlate();
  readBoth();
  EXPECT_EQ(unitText(result, &whole, texts),
            "Unit named in the drawing: m, which does not fit its size; if it is right, please set "
            "it by hand");
  EXPECT_FALSE(namesAnotherUnit(result, &whole));
}

TEST_F(HintsTest, WhatIsOutsideTheAreaCanBeMovedInside) {
  addLine("5000", "6000", "5010", "6020");
  readBoth();
  EXPECT_TRUE(hasHint("Part of it is outside EAGLE's drawing area. [Move it inside]"));
  const Settings changed = takenBy(Offer::MoveIntoArea);
  EXPECT_EQ(changed.offsetX, "-5000");
  EXPECT_EQ(changed.offsetY, "-6000");
  job.offsetX = -5000.0;
  job.offsetY = -6000.0;
  readBoth();
  EXPECT_FALSE(hasHint("Part of it is outside EAGLE's drawing area. [Move it inside]"));
}

TEST_F(HintsTest, WhatIsTooLargeForTheAreaIsCentredOrStays) {
  addLine("0", "0", "1500", "0");
  readBoth();
  EXPECT_EQ(takenBy(Offer::MoveIntoArea).offsetX, "-750");
  addLine("0", "0", "2500", "0");
  readBoth();
  EXPECT_FALSE(hasHint("Part of it is outside EAGLE's drawing area. [Move it inside]"));
}

}  // namespace
}  // namespace quillon::workbench
