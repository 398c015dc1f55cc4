#include "exact/cleaning.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "geometry/duplicates.h"
#include "geometry/vectors.h"
#include "shape_log.h"
#include "support/test_monitor.h"
#include "support/timing.h"

namespace quillon::testing {
namespace {

/// Shapes that are cleaned in millimetres for EAGLE 6.
class CleaningTest : public ::testing::Test {
 protected:
  void line(double x1, double y1, double x2, double y2, int layer = 20) {
    exact::Chain chain;
    chain.path = {{{{x1, y1}}, {{x2, y2}}}, false};
    put(layer, std::move(chain));
  }
  void arc(double x1, double y1, double curve, double x2, double y2, int layer = 20) {
    exact::Chain chain;
    chain.path = {{{{x1, y1}, curve}, {{x2, y2}}}, false};
    chain.isArc = true;
    put(layer, std::move(chain));
  }
  void circle(double x, double y, double radius, int layer = 20) {
    exact::Chain chain;
    chain.path = {{{{x - radius, y}, 180.0}, {{x + radius, y}, 180.0}}, true};
    chain.isCircle = true;
    put(layer, std::move(chain));
  }
  void put(int layer, exact::Chain&& chain) {
    cleaning().take({layer, "LINE", "OUTLINE", ++line_}, std::move(chain));
  }
  exact::Cleaning& cleaning() {
    if (!cleaning_) cleaning_.emplace(options, losses, log_, &poll);
    return *cleaning_;
  }
  const std::string& cleaned() {
    cleaning().finish();
    return log_.text();
  }

  ShapeLog& log() { return log_; }

  exact::Options options;
  exact::LossList losses;
  TestMonitor monitor;
  rules::CancelPoll poll{monitor};

 private:
  ShapeLog log_;
  std::optional<exact::Cleaning> cleaning_;
  std::uint64_t line_ = 0;
};

TEST_F(CleaningTest, LinesThatFollowEachOtherBecomeOneWire) {
  line(0, 0, 10, 0);
  line(10, 5, 10, 0);
  line(10, 5, 0, 5);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0) (10 5) (0 5)\n");
}

TEST_F(CleaningTest, AnOutlineOfPiecesEndsOnItsFirstPoint) {
  line(0, 0, 10, 0);
  arc(10, 0, 90, 15, 5);
  line(15, 5, 0, 5);
  line(0, 5, 0, 0);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0) +90 (15 5) (0 5) (0 0)\n");
  EXPECT_EQ(cleaning().report().closedChains, 1U);
  EXPECT_TRUE(cleaning().report().gaps.empty());
}

TEST_F(CleaningTest, EndsWithinTheToleranceMeetWhereTheLineEnds) {
  arc(10.004, 0, 90, 15, 5);
  line(0, 0, 10, 0);
  // The arc keeps its radius, so that it turns a little further.
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0) +90.045855 (15 5)\n");
  EXPECT_EQ(cleaning().report().joinedEnds, 1U);
}

TEST_F(CleaningTest, EndsFurtherApartStayApart) {
  line(0, 0, 10, 0);
  line(10.02, 0, 20, 0);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0)\n20 wire 0 (10.02 0) (20 0)\n");
}

TEST_F(CleaningTest, ThreePiecesThatMeetStayPieces) {
  line(0, 0, 10, 0);
  line(10, 0, 20, 0);
  line(10, 0, 10, 10);
  EXPECT_EQ(cleaned(),
            "20 wire 0 (0 0) (10 0)\n20 wire 0 (10 0) (20 0)\n20 wire 0 (10 0) (10 10)\n");
}

TEST_F(CleaningTest, LayersAreKeptApart) {
  line(0, 0, 10, 0, 20);
  line(10, 0, 20, 0, 21);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0)\n21 wire 0 (10 0) (20 0)\n");
}

TEST_F(CleaningTest, AGapOfAnOutlineIsNamedWithBothPlaces) {
  line(0, 0, 10, 0);
  line(10, 0.25, 10, 5);
  line(10, 5, 0, 0);
  cleaned();
  ASSERT_EQ(cleaning().report().gaps.size(), 2U);
  const exact::OpenEnd& gap = cleaning().report().gaps[0];
  EXPECT_EQ(gap.layer, 20);
  EXPECT_EQ(gap.at, (exact::Point{10, 0}));
  EXPECT_EQ(gap.line, 1U);
  EXPECT_EQ(gap.next, (exact::Point{10, 0.25}));
  EXPECT_EQ(gap.nextLine, 2U);
  EXPECT_DOUBLE_EQ(gap.distance, 0.25);
}

TEST_F(CleaningTest, OpenEndsOfOtherLayersAreNoGaps) {
  line(0, 0, 10, 0, 51);
  line(10, 0.25, 10, 5, 51);
  cleaned();
  EXPECT_TRUE(cleaning().report().gaps.empty());
}

TEST_F(CleaningTest, WhatIsDrawnTwiceIsDrawnOnce) {
  line(0, 0, 10, 0);
  line(10, 0, 0, 0);
  circle(50, 50, 2);
  circle(50, 50, 2);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0)\n20 circle 0 (48 50) +180 (52 50) +180 (48 50)\n");
  EXPECT_EQ(losses.countOf(exact::LossRule::Duplicate), 2U);
}

TEST_F(CleaningTest, LinesThatOverlapBecomeOne) {
  line(0, 0, 10, 0);
  line(5, 0, 20, 0);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (20 0)\n");
}

TEST_F(CleaningTest, DuplicatesCanBeKept) {
  options.dropDuplicates = false;
  options.chains = false;
  line(0, 0, 10, 0);
  line(0, 0, 10, 0);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0)\n20 wire 0 (0 0) (10 0)\n");
}

TEST_F(CleaningTest, CirclesOnChosenLayersBecomeHoles) {
  options.holeLayers = {"OUTLINE"};
  circle(5, 5, 1.6);
  arc(20, 1, 180, 20, -1);
  arc(20, -1, 180, 20, 1);
  EXPECT_EQ(cleaned(), "20 hole 3.2 (5 5)\n20 hole 2 (20 0)\n");
}

TEST_F(CleaningTest, CirclesBeyondTheRangeStayOutlines) {
  options.holeLayers = {"OUTLINE"};
  circle(5, 5, 4);
  EXPECT_EQ(cleaned(), "20 circle 0 (1 5) +180 (9 5) +180 (1 5)\n");
}

TEST_F(CleaningTest, OfCirclesAroundOnePointTheSmallestIsTheHole) {
  options.holeLayers = {"OUTLINE"};
  circle(5, 5, 2);
  circle(5, 5, 1);
  EXPECT_EQ(cleaned(), "20 circle 0 (3 5) +180 (7 5) +180 (3 5)\n20 hole 2 (5 5)\n");
}

TEST_F(CleaningTest, WhatJoiningLaysUponOthersIsDrawnOnce) {
  line(0, 0, 10, 0);
  line(10, 0.008, 0, 0.008);
  line(10, 0, 10, 5);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0) (10 5)\n");
  EXPECT_EQ(losses.countOf(exact::LossRule::Duplicate), 1U);
  EXPECT_EQ(cleaning().report().openChains, 1U);
  EXPECT_EQ(cleaning().report().gapCount, 2U);
}

TEST_F(CleaningTest, WhatJoiningLaysUponOthersIsKeptIfWanted) {
  options.dropDuplicates = false;
  line(0, 0, 10, 0);
  line(0, 0.008, 10, 0.008);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (10 0) (0 0)\n");
  EXPECT_EQ(losses.countOf(exact::LossRule::Duplicate), 0U);
}

TEST_F(CleaningTest, EndlessLinesEndALittleOutsideOfEverythingElse) {
  line(0, 0, 100, 100);
  exact::EndlessLine endless{{50, 50}, {1, 0}, true, 0.0};
  cleaning().take({20, "XLINE", "0", 9}, endless);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (100 100)\n20 wire 0 (-5 50) (105 50) as it is\n");
  EXPECT_EQ(losses.countOf(exact::LossRule::EndlessCut), 1U);
}

TEST_F(CleaningTest, AnEndlessLineAcrossALevelLineIsSeen) {
  line(0, 0, 100, 0);
  cleaning().take({20, "XLINE", "0", 9}, exact::EndlessLine{{50, 80}, {0, 1}, true, 0.0});
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (100 0)\n20 wire 0 (50 -5) (50 5) as it is\n");
  EXPECT_EQ(losses.countOf(exact::LossRule::EndlessCut), 1U);
  EXPECT_EQ(losses.countOf(exact::LossRule::EndlessAlone), 0U);
}

/// What is left of an endless line across a text of two letters at (0 0), which is 17 mm long.
std::string acrossText(exact::TextLine text, const exact::EndlessLine& endless,
                       const exact::Options& options = {}) {
  exact::LossList losses;
  ShapeLog log;
  exact::Cleaning cleaning(options, losses, log);
  text.content = "ab";
  text.height = 10.0;
  cleaning.take({20, "TEXT", "0", 1}, std::move(text));
  cleaning.take({20, "XLINE", "0", 9}, endless);
  cleaning.finish();
  const std::string& all = log.text();
  const std::size_t place = all.rfind(" (", all.rfind(" (") - 1);
  return place == std::string::npos ? "" : all.substr(place + 1, all.rfind(')') - place);
}

TEST_F(CleaningTest, EndlessLinesEndOutsideOfTheLettersOfTexts) {
  const auto level = [](double y) { return exact::EndlessLine{{50, y}, {1, 0}, true, 0.0}; };
  exact::TextLine text;
  EXPECT_EQ(acrossText(text, level(5)), "(-0.85 5) (17.85 5)");
  exact::Options asItIs;
  asItIs.chains = false;
  asItIs.joinTolerance = 0.0;
  asItIs.dropDuplicates = false;
  EXPECT_EQ(acrossText(text, level(5), asItIs), "(-0.85 5) (17.85 5)");
  text.columns = exact::Columns::Right;
  text.rows = exact::Rows::Top;
  EXPECT_EQ(acrossText(text, level(-5)), "(-17.85 -5) (0.85 -5)");
  text.mirrored = true;
  EXPECT_EQ(acrossText(text, level(-5)), "(-0.85 -5) (17.85 -5)");
  text.columns = exact::Columns::Centre;
  text.rows = exact::Rows::Centre;
  EXPECT_EQ(acrossText(text, level(0)), "(-9.35 0) (9.35 0)");
  exact::TextLine turned;
  turned.angle = 90.0;
  EXPECT_EQ(acrossText(turned, {{-5, 50}, {0, 1}, true, 0.0}), "(-5 -0.85) (-5 17.85)");
}

TEST_F(CleaningTest, EndlessLinesHaveTheirStyleOrDashes) {
  line(0, 0, 100, 100);
  exact::EndlessLine endless{{50, 50}, {1, 0}, false, 0.0};
  endless.style = exact::Style::LongDash;
  cleaning().take({20, "RAY", "0", 8}, endless);
  endless.style = exact::Style::Continuous;
  endless.dashes = {20, -10, 0, -10};
  cleaning().take({20, "RAY", "0", 9}, endless);
  EXPECT_EQ(cleaned(),
            "20 wire 0 (0 0) (100 100)\n20 wire 0 style 1 (50 50) (105 50) as it is\n"
            "20 wire 0 (50 50) (67.5 50) as it is\n20 wire 0 (87.5 50) (105 50) as it is\n"
            "20 dot 0.1 (77.5 50)\n");
  EXPECT_EQ(losses.countOf(exact::LossRule::DrawnSolid), 0U);
}

TEST_F(CleaningTest, DashedEndlessLinesThatAreSolidInsteadAreNamed) {
  line(0, 0, 100, 100);
  exact::EndlessLine endless{{50, 50}, {1, 0}, true, 0.0};
  endless.hasSolidInstead = true;
  cleaning().take({20, "XLINE", "0", 9}, endless);
  EXPECT_EQ(cleaned(), "20 wire 0 (0 0) (100 100)\n20 wire 0 (-5 50) (105 50) as it is\n");
  EXPECT_EQ(losses.countOf(exact::LossRule::DrawnSolid), 1U);
}

TEST_F(CleaningTest, AnEndlessLineAloneIsLeftOut) {
  cleaning().take({20, "RAY", "0", 9}, exact::EndlessLine{{50, 50}, {1, 0}, false, 0.0});
  EXPECT_EQ(cleaned(), "");
  EXPECT_EQ(losses.countOf(exact::LossRule::EndlessAlone), 1U);
}

TEST_F(CleaningTest, HeldShapesCountAsSteps) {
  line(0, 0, 10, 0);
  const std::uint64_t steps = poll.steps();
  for (int i = 0; i < 100; ++i) line(0, i, 10, i);
  EXPECT_GE(poll.steps() - steps, 400U);
}

TEST_F(CleaningTest, PastTheLimitOfStepsShapesAreHandedOnAsTheyAre) {
  poll.setLimit(10);
  line(0, 0, 10, 0);
  circle(50, 50, 2);
  line(10, 0, 20, 0);
  EXPECT_EQ(cleaned(),
            "20 wire 0 (0 0) (10 0)\n20 circle 0 (48 50) +180 (52 50) +180 (48 50)\n"
            "20 wire 0 (10 0) (20 0)\n");
}

TEST_F(CleaningTest, WhereverTheStepsEndGapsHaveTheLinesOfTheirEnds) {
  std::size_t most = 0;
  for (std::uint64_t limit = 1; limit < 200; ++limit) {
    rules::CancelPoll limited(monitor);
    limited.setLimit(limit);
    ShapeLog shapes;
    exact::Cleaning some(options, losses, shapes, &limited);
    for (std::uint64_t i = 1; i <= 5; ++i) {
      const double y = 10.0 * static_cast<double>(i);
      exact::Chain chain;
      chain.path = {{{{0.0, y}}, {{9.5, y}}}, false};
      some.take({20, "LINE", "OUTLINE", i}, std::move(chain));
    }
    some.finish();
    for (const exact::OpenEnd& gap : some.report().gaps) {
      EXPECT_EQ(static_cast<double>(gap.line), gap.at.y / 10.0) << limit;
    }
    most = std::max(most, some.report().gaps.size());
  }
  EXPECT_EQ(most, 10U);
}

TEST_F(CleaningTest, AfterACancelNothingMoreIsHandedOn) {
  for (int i = 0; i < 1000; ++i) line(i, 0, i + 1, 0);
  for (int i = 0; i < 1000; ++i) line(0, i, 0.5, i, 21);
  monitor.cancelWhen = [] { return true; };
  const std::string shapes = cleaned();
  EXPECT_LT(std::count(shapes.begin(), shapes.end(), '\n'), 200);
}

/// Each of the first lines lies along what those before it have become together, a little turned,
/// and along none of them alone.
TEST_F(CleaningTest, FindsAllThatUnionsMeet) {
  constexpr int kOthers = 500;
  const double resolution = exact::Measures(options).resolution;
  std::vector<geometry::Stroke> strokes;
  const auto draw = [&](exact::Point from, exact::Point to) {
    strokes.push_back({{from, to, 0.0}});
    line(from.x, from.y, to.x, to.y, 21);
  };
  exact::Point end{200 * resolution, 0};
  draw({0, 0}, end);
  for (int i = 0; i < 30; ++i) {
    const exact::Point way = geometry::unit(end);
    const exact::Point aside = geometry::leftOf(way) * (0.9 * resolution);
    const exact::Point from = end - way * (30 * resolution) + aside;
    end = end + way * (120 * resolution) + aside;
    draw(from, end);
  }
  for (int i = 0; i < kOthers; ++i) {
    const exact::Point from{1.0 + i % 80, 1.0 + i / 80};
    draw(from, from + exact::Point{0.5, 0.0001 * i});
  }
  cleaning().finish();
  const std::size_t wanted = geometry::withoutDuplicates(strokes, resolution).merged;
  EXPECT_GT(wanted, 4U);
  EXPECT_EQ(losses.countOf(exact::LossRule::Duplicate), wanted);
}

/// Many lines are on few others, some of them beside each other, some overlapping.
TEST_F(CleaningTest, FindsWhatOverlapsAmongLinesInRows) {
  const double resolution = exact::Measures(options).resolution;
  std::mt19937 random(3);
  std::uniform_int_distribution<int> place(0, 250);
  std::uniform_int_distribution<int> way(0, 3);
  const exact::Point ways[] = {{1, 0}, {0, 1}, {2, 1}, {-3, 3}};
  std::vector<geometry::Stroke> strokes;
  for (int i = 0; i < 4000; ++i) {
    const exact::Point from{1.0 * place(random), 1.0 * (place(random) / 8)};
    const exact::Point to = from + ways[way(random)] * (0.5 + 0.25 * way(random));
    strokes.push_back({{from, to, 0.0}});
    line(from.x, from.y, to.x, to.y, 21);
  }
  cleaning().finish();
  const geometry::Cleaned wanted = geometry::withoutDuplicates(strokes, resolution);
  EXPECT_GT(wanted.merged, 200U);
  EXPECT_GT(wanted.strokes.size(), 2000U);
  EXPECT_EQ(losses.countOf(exact::LossRule::Duplicate), wanted.merged + wanted.equal);
}

/// However few ends are looked at, the gaps are the first ones of all.
TEST_F(CleaningTest, TheNearestGapsAreTheFirstOfAll) {
  std::vector<exact::OpenEnd> all;
  for (const std::size_t most : {std::size_t{100000}, std::size_t{3}, std::size_t{20}}) {
    options.mostGaps = most;
    exact::Cleaning some(options, losses, log(), &poll);
    std::mt19937 random(5);
    std::uniform_real_distribution<double> place(0.0, 60.0);
    std::uniform_real_distribution<double> beside(-0.03, 0.03);
    for (int i = 0; i < 2000; ++i) {
      exact::Point at{place(random), place(random)};
      for (int k = 0; k < 3; ++k) {
        const exact::Point to{at.x + 100.0 * beside(random), at.y + 100.0 * beside(random)};
        exact::Chain chain;
        chain.isArc = i % 4 == 1;
        chain.path = {{{at, chain.isArc ? 40.0 : 0.0}, {to}}, false};
        some.take({20, "LINE", "OUTLINE", static_cast<std::uint64_t>(3 * i + k)}, std::move(chain));
        at = {to.x + beside(random), to.y + beside(random)};
      }
    }
    some.finish();
    const std::vector<exact::OpenEnd>& gaps = some.report().gaps;
    if (all.empty()) all = gaps;
    ASSERT_EQ(gaps.size(), std::min(most, all.size()));
    for (std::size_t i = 0; i < gaps.size(); ++i) {
      EXPECT_EQ(gaps[i].at, all[i].at) << most << " " << i;
      EXPECT_EQ(gaps[i].next, all[i].next) << most << " " << i;
      EXPECT_EQ(gaps[i].distance, all[i].distance) << most << " " << i;
    }
    EXPECT_EQ(some.report().gapCount, all.size());
  }
  EXPECT_GT(all.size(), 3000U);
}

/// The longest time between two looks for a cancel, in seconds.
class SlowestLook {
 public:
  explicit SlowestLook(TestMonitor& monitor) {
    monitor.cancelWhen = [this] {
      const double now = processorSeconds();
      longest_ = std::max(longest_, now - last_);
      last_ = now;
      return false;
    };
  }
  double seconds() { return std::max(longest_, processorSeconds() - last_); }

 private:
  double last_ = processorSeconds();
  double longest_ = 0.0;
};

TEST_F(CleaningTest, LooksForACancelAllTheTime) {
  constexpr int kLines = 50000;
  for (int i = 0; i < kLines; ++i) line(i % 500, i / 500, i % 500 + 1, i / 500);
  for (int i = 0; i < kLines; ++i) line(i % 500, i / 500, i % 500, i / 500 + 0.7);
  SlowestLook look(monitor);
  cleaning().finish();
  // A third of that where nothing else runs.
  EXPECT_LT(look.seconds(), 0.2 * patience());
}

}  // namespace
}  // namespace quillon::testing
