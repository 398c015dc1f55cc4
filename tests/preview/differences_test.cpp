#include "preview/differences.h"

#include <cmath>
#include <utility>
#include <vector>

#include "preview/differences_finder.h"
#include "preview/scene_parts.h"
#include "support/timing.h"

namespace quillon::preview {
namespace {

using geometry::Point;

constexpr double kTolerance = 0.01;

/// Two scripts to compare: what is drawn goes into the drawing, after other() into the result.
struct DifferencesTest : SceneTest {
  void other() {
    drawing = scene();
    recorder = eagle::Recorder{eagle::Coordinates{base::Unit::Mm}};
    recorder.layer(1);
  }
  Differences compared() const { return compare(*drawing, *scene(), kTolerance); }

  std::shared_ptr<const Scene> drawing;
};

/// All points of the pieces are numbers within these limits.
void expectWithin(const DifferenceSide& side, const geometry::Box& box) {
  for (const SceneLine& piece : side.pieces()) {
    for (const Point point : {piece.from, piece.to}) {
      EXPECT_TRUE(touch({point, point}, box)) << point.x << " " << point.y;
    }
  }
}

TEST_F(DifferencesTest, EmptyScenesAreTheSame) {
  other();
  EXPECT_TRUE(compared().none());
}

TEST_F(DifferencesTest, TheSameOnOtherLayersIsNoDifference) {
  for (int i = 0; i < 2; ++i) {
    line({0.0, 0.0}, {10.0, 5.0}, 0.0, 0.5);
    line({0.0, 0.0}, {10.0, 5.0}, 120.0);
    recorder.circle({eagle::CircleKind::Ring, 0.3, {5.0, 5.0}, {9.0, 5.0}});
    recorder.circle({eagle::CircleKind::Disc, 0.0, {25.0, 5.0}, {29.0, 5.0}});
    square({50.0, 0.0}, 10.0);
    recorder.change(eagle::Property::Size, 3.0);
    recorder.text({{}, "Abc", {0.0, 30.0}});
    if (i == 0) other();
  }
  EXPECT_TRUE(compared().none());
}

TEST_F(DifferencesTest, AMissingLineIsOnOneSideAlone) {
  line({0.0, 0.0}, {10.0, 0.0});
  line({0.0, 5.0}, {10.0, 5.0});
  other();
  line({0.0, 0.0}, {10.0, 0.0});
  const Differences found = compared();
  ASSERT_EQ(found.onlyDrawing.pieces().size(), 1U);
  EXPECT_EQ(found.onlyDrawing.pieces()[0], (SceneLine{{0.0, 5.0}, {10.0, 5.0}}));
  EXPECT_DOUBLE_EQ(found.onlyDrawing.length(), 10.0);
  EXPECT_TRUE(found.onlyResult.pieces().empty());
}

TEST_F(DifferencesTest, AMovedLineIsOnBothSidesBeyondTheTolerance) {
  line({0.0, 0.0}, {10.0, 0.0});
  line({0.0, 20.0}, {10.0, 20.0});
  other();
  line({0.0, 0.1}, {10.0, 0.1});
  line({0.0, 20.0 + 0.9 * kTolerance}, {10.0, 20.0 + 0.9 * kTolerance});
  const Differences found = compared();
  EXPECT_DOUBLE_EQ(found.onlyDrawing.length(), 10.0);
  EXPECT_DOUBLE_EQ(found.onlyResult.length(), 10.0);
  EXPECT_EQ(found.onlyResult.pieces()[0].from.y, 0.1);
}

/// Wherever coordinates are within the cells by which like lines are recognised.
TEST_F(DifferencesTest, WhatIsMovedByMoreThanTheToleranceIsTold) {
  constexpr int kOffsets = 200;
  for (const double shift : {1.2 * kTolerance, 1.5 * kTolerance, 2.5 * kTolerance}) {
    recorder = eagle::Recorder{eagle::Coordinates{base::Unit::Mm}};
    const auto drawAll = [&](double moved, double wider) {
      for (int i = 0; i < kOffsets; ++i) {
        const double at = 3.0 * i + 0.0173 * kTolerance * i;
        line({at, moved}, {at + 2.0, moved});
        line({at, at + 9.0 + moved}, {at + 1.0, at + 10.0 + moved});
        line({at, -1.0}, {at + 2.0, -1.0}, 0.0, 0.1 + 0.05 * kTolerance * i + 2.0 * wider);
      }
    };
    drawAll(0.0, shift);
    other();
    drawAll(shift / 1.1, 0.0);
    const Differences found = compared();
    // Moved, moved askew, and both sides of the wider ones.
    const double askew = shift / 1.1 > 1.42 * kTolerance ? std::sqrt(2.0) : 0.0;
    EXPECT_NEAR(found.onlyDrawing.length(), kOffsets * (2.0 + askew + 4.0), 0.02 * kOffsets)
        << shift;
    EXPECT_NEAR(found.onlyResult.length(), kOffsets * (2.0 + askew), 0.02 * kOffsets) << shift;
  }
}

TEST_F(DifferencesTest, AMovedAreaIsTold) {
  constexpr int kOffsets = 100;
  const auto squares = [&](double moved) {
    for (int i = 0; i < kOffsets; ++i) {
      const double at = 30.0 * i + 0.0173 * kTolerance * i;
      square({at + moved, 0.0}, 10.0);
    }
  };
  squares(0.0);
  other();
  squares(1.5 * kTolerance);
  // Each of both upright edges is inside the one and outside of the other.
  EXPECT_NEAR(compared().onlyDrawing.length(), kOffsets * 20.0, 5.0);
  EXPECT_NEAR(compared().onlyResult.length(), kOffsets * 20.0, 5.0);
}

TEST_F(DifferencesTest, ALineInOtherPartsIsTheSame) {
  line({0.0, 0.0}, {9.0, 6.0});
  line({20.0, 0.0}, {21.0, 0.0});
  line({21.0, 0.0}, {27.0, 0.0});
  other();
  line({9.0, 6.0}, {3.0, 2.0});
  line({0.0, 0.0}, {4.5, 3.0});
  line({27.0, 0.0}, {20.0, 0.0});
  EXPECT_TRUE(compared().none());
}

TEST_F(DifferencesTest, AGapIsToldInItsLength) {
  line({0.0, 0.0}, {100.0, 0.0});
  other();
  line({0.0, 0.0}, {40.0, 0.0});
  line({60.0, 0.0}, {100.0, 0.0});
  const Differences found = compared();
  ASSERT_EQ(found.onlyDrawing.pieces().size(), 1U);
  EXPECT_NEAR(found.onlyDrawing.pieces()[0].from.x, 40.0, 2 * kTolerance);
  EXPECT_NEAR(found.onlyDrawing.pieces()[0].to.x, 60.0, 2 * kTolerance);
  EXPECT_TRUE(found.onlyResult.pieces().empty());
}

TEST_F(DifferencesTest, AChordIsNoArc) {
  line({0.0, 0.0}, {10.0, 0.0}, 90.0);
  other();
  line({0.0, 0.0}, {10.0, 0.0});
  const Differences found = compared();
  EXPECT_NEAR(found.onlyDrawing.length(), 11.1, 0.3);
  EXPECT_NEAR(found.onlyResult.length(), 10.0, 0.3);
}

TEST_F(DifferencesTest, ManyChordsAreAnArcWithinTheTolerance) {
  line({0.0, 0.0}, {10.0, 0.0}, 90.0);
  const geometry::Arc arc{{0.0, 0.0}, {10.0, 0.0}, 90.0};
  other();
  for (int i = 0; i < 64; ++i) {
    line(geometry::pointAt(arc, i / 64.0), geometry::pointAt(arc, (i + 1) / 64.0));
  }
  EXPECT_TRUE(compared().none());
}

TEST_F(DifferencesTest, AnOutlineIsNotFilled) {
  square({0.0, 0.0}, 10.0);
  other();
  line({0.0, 0.0}, {10.0, 0.0});
  line({10.0, 0.0}, {10.0, 10.0});
  line({10.0, 10.0}, {0.0, 10.0});
  line({0.0, 10.0}, {0.0, 0.0});
  const Differences found = compared();
  EXPECT_EQ(found.onlyDrawing.areas(), 1U);
  EXPECT_GT(found.onlyDrawing.length(), 50.0);
  expectWithin(found.onlyDrawing, {{0.0, 0.0}, {10.0, 10.0}});
  EXPECT_TRUE(found.onlyResult.pieces().empty());
}

TEST_F(DifferencesTest, AnAreaInPiecesIsTheSame) {
  square({0.0, 0.0}, 10.0);
  square({10.0, 0.0}, 10.0);
  other();
  const eagle::Corner corners[] = {{{0.0, 0.0}}, {{20.0, 0.0}}, {{20.0, 10.0}}, {{0.0, 10.0}}};
  recorder.area({0.0, corners});
  EXPECT_TRUE(compared().none());
}

/// A level line through it crosses the one far from where it crosses the other.
TEST_F(DifferencesTest, AnAlmostLevelEdgeMovedWithinTheToleranceIsTheSame) {
  const auto area = [&](double moved) {
    const eagle::Corner corners[] = {
        {{0.0, 0.0}},  {{100.0, 0.0}},          {{100.0, 5.0}},
        {{99.0, 5.0}}, {{99.0, 3.748 + moved}}, {{0.0, 3.752 + moved}}};
    recorder.area({0.0, corners});
  };
  area(0.0);
  other();
  area(-0.8 * kTolerance);
  EXPECT_TRUE(compared().none());
}

TEST_F(DifferencesTest, ASmallHoleThatIsFilledIsTold) {
  // A square around a hole of 0.2, as two areas.
  const eagle::Corner left[] = {{{0.0, 0.0}}, {{5.0, 0.0}},  {{5.0, 4.9}}, {{4.9, 5.0}},
                                {{5.0, 5.1}}, {{5.0, 10.0}}, {{0.0, 10.0}}};
  const eagle::Corner right[] = {{{5.0, 0.0}}, {{10.0, 0.0}}, {{10.0, 10.0}}, {{5.0, 10.0}},
                                 {{5.0, 5.1}}, {{5.1, 5.0}},  {{5.0, 4.9}}};
  recorder.area({0.0, left});
  recorder.area({0.0, right});
  other();
  square({0.0, 0.0}, 10.0);
  const Differences found = compared();
  EXPECT_TRUE(found.onlyDrawing.pieces().empty());
  EXPECT_EQ(found.onlyResult.pieces().size(), 4U);
  expectWithin(found.onlyResult, {{4.9, 4.9}, {5.1, 5.1}});
}

TEST_F(DifferencesTest, LinesInsideFilledAreasAreCovered) {
  line({2.0, 2.0}, {8.0, 3.0});
  square({0.0, 0.0}, 10.0);
  other();
  square({0.0, 0.0}, 10.0);
  EXPECT_TRUE(compared().none());
}

TEST_F(DifferencesTest, OfAWideLineItsAreaLacksTheRoundEnd) {
  line({0.0, 0.0}, {10.0, 0.0}, 0.0, 2.0);
  other();
  const eagle::Corner corners[] = {
      {{0.0, -1.0}}, {{10.0, -1.0}, 180.0F}, {{10.0, 1.0}}, {{0.0, 1.0}}};
  recorder.area({0.0, corners});
  // The middle of the line is inside, and both sides are edges.
  EXPECT_TRUE(compared().onlyDrawing.pieces().empty());
  EXPECT_TRUE(compared().onlyResult.pieces().empty());
  line({-1.0, 0.0}, {0.0, 0.0});
  EXPECT_TRUE(compared().none());
  line({-3.0, 0.0}, {-1.0, 0.0});
  const Differences found = compared();
  EXPECT_TRUE(found.onlyDrawing.pieces().empty());
  EXPECT_NEAR(found.onlyResult.length(), 2.0, 2.0 * kTolerance);
  expectWithin(found.onlyResult, {{-3.0, 0.0}, {-1.0, 0.0}});
}

TEST_F(DifferencesTest, AWiderLineInTheResultIsNoDifference) {
  line({0.0, 0.0}, {10.0, 0.0});
  other();
  line({0.0, 0.0}, {10.0, 0.0}, 0.0, 1.0);
  EXPECT_TRUE(compared().none());
}

TEST_F(DifferencesTest, WidthsOfTheDrawingHaveToBeThere) {
  line({0.0, 0.0}, {10.0, 0.0}, 0.0, 2.0);
  line({0.0, 9.0}, {10.0, 9.0}, 0.0, 2.0);
  other();
  line({0.0, 0.0}, {10.0, 0.0}, 0.0, 1.0);
  line({0.0, 9.0}, {10.0, 9.0}, 0.0, 2.0);
  const Differences found = compared();
  EXPECT_NEAR(found.onlyDrawing.length(), 20.0, 1.0);  // both edges
  expectWithin(found.onlyDrawing, {{0.0, -1.0}, {10.0, 1.0}});
  EXPECT_TRUE(found.onlyResult.pieces().empty());
}

TEST_F(DifferencesTest, DotsAreFound) {
  line({5.0, 5.0}, {5.0, 5.0});
  line({7.0, 7.0}, {7.0, 7.0});
  other();
  line({4.0, 7.0}, {9.0, 7.0});
  const Differences found = compared();
  ASSERT_EQ(found.onlyDrawing.pieces().size(), 1U);
  EXPECT_EQ(found.onlyDrawing.pieces()[0], (SceneLine{{5.0, 5.0}, {5.0, 5.0}}));
}

TEST_F(DifferencesTest, HugeAndTinyNumbersGiveNumbers) {
  for (const double size : {1e-7, 1e-3, 1e6, 9e10}) {
    recorder = eagle::Recorder{eagle::Coordinates{base::Unit::Mm}};
    line({0.0, 0.0}, {size, size / 3.0}, 77.0, size / 50.0);
    line({-size, 0.0}, {size, 1.0});
    square({size / 2.0, 0.0}, size / 4.0);
    other();
    line({0.0, 0.0}, {size, size / 2.0}, -270.0, 1.0);
    line({-size, size}, {-size, size});
    recorder.circle({eagle::CircleKind::Disc, 0.0, {0.0, 0.0}, {size / 8.0, 0.0}});
    const Differences found = compared();
    const double distant = 4.0 * size + 2.0;
    expectWithin(found.onlyDrawing, {{-distant, -distant}, {distant, distant}});
    expectWithin(found.onlyResult, {{-distant, -distant}, {distant, distant}});
    EXPECT_TRUE(std::isfinite(found.onlyDrawing.length()));
    EXPECT_TRUE(std::isfinite(found.onlyResult.length()));
  }
}

TEST_F(DifferencesTest, PiecesAreFoundByPlace) {
  for (int i = 0; i < 100; ++i) line({i * 10.0, 0.0}, {i * 10.0, 5.0});
  other();
  const Differences found = compared();
  EXPECT_EQ(found.onlyDrawing.pieces().size(), 100U);
  std::size_t nearby = 0;
  found.onlyDrawing.visit({{495.0, 1.0}, {505.0, 2.0}}, [&](std::span<const SceneLine> pieces) {
    for (const SceneLine& piece : pieces) nearby += piece.from.x == 500.0 ? 1 : 0;
    return true;
  });
  EXPECT_EQ(nearby, 1U);
}

TEST_F(DifferencesTest, TooManyPiecesAreCut) {
  for (int i = 0; i < 100; ++i) line({i * 10.0, 0.0}, {i * 10.0, 5.0});
  other();
  const Differences found = compare(*drawing, *scene(), kTolerance, {}, 30);
  EXPECT_TRUE(found.isCut);
  EXPECT_LE(found.onlyDrawing.pieces().size(), 30U);
}

TEST_F(DifferencesTest, PiecesOfOneLineAreCutAsWell) {
  line({0.0, 0.0}, {1000.0, 0.0});
  other();
  for (int i = 0; i < 400; ++i) line({i * 2.5, 0.0}, {i * 2.5 + 1.0, 0.0});
  const Differences found = compare(*drawing, *scene(), kTolerance, {}, 30);
  EXPECT_TRUE(found.isCut);
  EXPECT_EQ(found.onlyDrawing.pieces().size(), 30U);
}

/// A single line that is compared with very many others.
TEST_F(DifferencesTest, AsksWhetherToStopWithinALine) {
  line({0.0, 0.0}, {1000.0, 0.0});
  other();
  for (int i = 0; i < 40; ++i) {
    for (int k = 0; k < 2000; ++k) line({i * 25.0 + k * 0.01, 3.0}, {i * 25.0 + 5.0, -3.0});
  }
  int asked = 0;
  int most = 1'000'000;
  const geometry::StopCheck stop([&] { return ++asked >= most; });
  const DifferenceShapes one(*drawing, kTolerance, stop);
  DifferenceShapes many(*scene(), kTolerance, stop);
  many.strokes.index(stop);
  asked = 0;
  DifferenceFinder(one, many, kTolerance, stop, kMostPieces).find(true);
  EXPECT_GE(asked, 3);
  const int all = std::exchange(asked, 0);
  most = 1;
  DifferenceFinder(one, many, kTolerance, stop, kMostPieces).find(true);
  EXPECT_EQ(asked, 1) << "of " << all;
}

TEST_F(DifferencesTest, AsksWhetherToStopWithinAnArea) {
  std::vector<eagle::Corner> corners;
  for (int i = 0; i < 300; ++i) corners.push_back({{1000.0 * (i % 2), 0.1 * i}, 170.0F});
  recorder.area({0.0, corners});
  int asked = 0;
  const DifferenceShapes shapes(*scene(), kTolerance,
                                geometry::StopCheck([&] { return ++asked > 4; }));
  EXPECT_EQ(shapes.strokes.all().size(), 0U);
  EXPECT_LT(asked, 12);
}

TEST_F(DifferencesTest, NothingComesOutWhenStopped) {
  line({0.0, 0.0}, {10.0, 0.0});
  other();
  const geometry::StopCheck stop([] { return true; });
  EXPECT_TRUE(compare(*drawing, *scene(), kTolerance, stop).none());
}

/// Many lines, all of them in other parts in the result, so that none is recognised at once, and an
/// area whose edges are all as tall as it is.
TEST_F(DifferencesTest, TimeGrowsWithTheDrawing) {
  const auto secondsFor = [&](int count) {
    recorder = eagle::Recorder{eagle::Coordinates{base::Unit::Mm}};
    const auto grid = [&](double shift) {
      for (int i = 0; i < count; ++i) {
        const double x = (i % 500) * 2.0 + shift;
        const double y = (i / 500) * 2.0;
        line({x, y}, {x + 2.0, y});
      }
      std::vector<eagle::Corner> comb = {{{-9.0, -9.0}}};
      for (int i = 0; i < count / 10; ++i) {
        const double x = -10.0 - 0.1 * i;
        const double left = x - 0.05;
        comb.insert(comb.end(), {{{x, 0.0}}, {{x, 900.0}}, {{left, 900.0}}, {{left, 0.0}}});
      }
      comb.push_back({{-10.0 - 0.01 * count, -9.0}});
      recorder.area({0.0, comb});
    };
    grid(0.0);
    other();
    grid(1.0);
    const auto result = scene();
    Differences found;
    const double seconds =
        testing::leastSeconds([&] { found = compare(*drawing, *result, kTolerance); });
    EXPECT_NEAR(found.onlyDrawing.length(), count / 500.0, 2.0);
    return seconds;
  };
  const double small = secondsFor(10000);
  EXPECT_LT(secondsFor(100000), 25.0 * small + 0.2);
}

}  // namespace
}  // namespace quillon::preview
