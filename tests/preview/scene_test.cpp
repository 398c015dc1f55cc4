#include "preview/scene.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "preview/figure.h"
#include "preview/scene_parts.h"

namespace quillon::preview {
namespace {

using geometry::Box;
using geometry::Point;

void expectNear(Point point, Point expected) {
  EXPECT_NEAR(point.x, expected.x, 1e-9);
  EXPECT_NEAR(point.y, expected.y, 1e-9);
}

void expectOneLine(const Scene& scene, Point from, Point to) {
  const SceneParts parts = partsOf(scene);
  ASSERT_EQ(parts.straight.size(), 1U);
  expectNear(parts.straight[0].from, from);
  expectNear(parts.straight[0].to, to);
}

TEST_F(SceneTest, NothingIsASceneWithoutLayers) {
  EXPECT_TRUE(scene()->layers().empty());
  EXPECT_TRUE(scene()->bounds().empty());
  EXPECT_EQ(scene()->segmentCount(), 0U);
}

TEST_F(SceneTest, LengthsAreMillimetresWhateverTheUnit) {
  recorder = eagle::Recorder{eagle::Coordinates{base::Unit::Inch}};
  recorder.layer(1);
  line({1.0, 2.0}, {3.0, 4.0}, 0.0, 0.5);
  const auto inches = scene();
  const SceneParts parts = partsOf(*inches);
  ASSERT_EQ(parts.straight.size(), 1U);
  expectNear(parts.straight[0].from, {25.4, 50.8});
  expectNear(parts.straight[0].to, {76.2, 101.6});
  EXPECT_FLOAT_EQ(parts.widths[0], 12.7F);
  EXPECT_NEAR(inches->limit(), 838.86, 0.01);
}

TEST_F(SceneTest, LayersComeByNumberWithTheirCountsAndBounds) {
  line({0.0, 0.0}, {1.0, 1.0});
  recorder.layer(1);
  line({0.0, 0.0}, {5.0, 5.0}, 90.0);
  line({0.0, 0.0}, {8.0, 0.0}, 0.0, 2.0);
  recorder.circle({eagle::CircleKind::Disc, 0.0, {0.0, 0.0}, {3.0, 0.0}});
  const auto all = scene();
  ASSERT_EQ(all->layers().size(), 2U);
  EXPECT_EQ(all->layers()[0].number(), 1);
  EXPECT_EQ(all->layers()[0].objectCount(), 3U);
  EXPECT_EQ(all->layers()[0].segmentCount(), 2U);
  EXPECT_EQ(all->layers()[0].bounds(), (Box{{-3.0, -3.0}, {9.0, 5.0}}));
  EXPECT_EQ(all->layers()[1].number(), 20);
  EXPECT_EQ(all->layers()[1].bounds(), (Box{{0.0, 0.0}, {1.0, 1.0}}));
  EXPECT_EQ(all->layer(20), &all->layers()[1]);
  EXPECT_EQ(all->layer(2), nullptr);
  EXPECT_EQ(all->segmentCount(), 3U);
}

TEST_F(SceneTest, ArcsStayArcs) {
  line({0.0, 0.0}, {10.0, 0.0}, -90.0, 0.5);
  const SceneParts parts = partsOf(*scene());
  ASSERT_EQ(parts.arcs.size(), 1U);
  EXPECT_EQ(parts.arcs[0].arc, (geometry::Arc{{0.0, 0.0}, {10.0, 0.0}, -90.0}));
  EXPECT_FLOAT_EQ(parts.arcs[0].width, 0.5F);
}

TEST_F(SceneTest, HolesAreCirclesOfTheOutlines) {
  recorder.hole({4.0, {30.0, 10.0}});
  const auto holes = scene();
  ASSERT_NE(holes->layer(20), nullptr);
  const SceneParts parts = partsOf(*holes);
  ASSERT_EQ(parts.circles.size(), 1U);
  EXPECT_EQ(parts.circles[0].radius, 2.0);
  EXPECT_FALSE(parts.circles[0].filled);
}

TEST_F(SceneTest, AreasKeepTheirCorners) {
  square({0.0, 0.0}, 2.0);
  square({10.0, 0.0}, 3.0);
  const SceneParts parts = partsOf(*scene(), {{12.0, 1.0}, {12.5, 1.5}});
  ASSERT_FALSE(parts.areas.empty());
  EXPECT_EQ(parts.areas.back().front().at, (Point{10.0, 0.0}));
}

TEST_F(SceneTest, WhatIsOutOfSightIsLeftOut) {
  line({0.0, 0.0}, {1.0, 1.0});
  line({0.0, 0.0}, {1e200, 1.0});
  line({0.0, 0.0}, {std::nan(""), 1.0});
  recorder.circle({eagle::CircleKind::Ring, 1.0, {1e50, 20.0}, {1e50, 21.0}});
  recorder.hole({3.0, {-1e50, 10.0}});
  const eagle::Corner corners[] = {{{0.0, 0.0}, 0.0}, {{1e50, 0.0}, 0.0}, {{0.0, 1e300}, 0.0}};
  recorder.area({0.0, corners});
  recorder.change(eagle::Property::Size, 1.0);
  recorder.text({{}, "A", {1e50, 0.0}});
  EXPECT_EQ(scene()->objectCount(), 1U);
  EXPECT_EQ(scene()->bounds(), (Box{{0.0, 0.0}, {1.0, 1.0}}));
}

TEST_F(SceneTest, CurvesThatMakeNoArcAreStraight) {
  line({0.0, 0.0}, {1.0, 1.0}, std::nan(""));
  line({2.0, 2.0}, {2.0, 2.0}, 90.0);
  line({0.0, 0.0}, {1.0, 2.0}, 360.0);
  EXPECT_EQ(partsOf(*scene()).straight.size(), 3U);
}

TEST_F(SceneTest, PartsAreWhereTheyArePlaced) {
  recorder.edit("plate", ".brd");
  recorder.edit("PART_1", ".pac");
  recorder.layer(21);
  line({0.0, 0.0}, {10.0, 1.0});
  recorder.edit("plate", ".brd");
  part("PART_1", {100.0, 50.0}, 90.0);
  part("UNKNOWN", {500.0, 500.0});
  expectOneLine(*scene(), {100.0, 50.0}, {99.0, 60.0});
}

TEST_F(SceneTest, TextsOfTurnedPartsStayReadable) {
  recorder.edit("plate", ".brd");
  recorder.edit("PART_1", ".pac");
  recorder.layer(21);
  recorder.change(eagle::Property::Size, 2.0);
  recorder.text({{}, "L", {1.0, 0.0}});
  recorder.edit("plate", ".brd");
  part("PART_1", {100.0, 50.0}, 180.0);
  const auto all = scene();
  const SceneParts parts = partsOf(*all);
  ASSERT_EQ(parts.texts.size(), 1U);
  EXPECT_EQ(parts.texts[0].degrees, 180.0);
  EXPECT_FALSE(parts.texts[0].spin);
  expectNear(parts.texts[0].at, {99.0, 50.0});
  EXPECT_NEAR(all->bounds().low.y, 48.0 - 0.08, 1e-6);
}

TEST_F(SceneTest, PartsWithinPartsArePlacedToo) {
  recorder.edit("plate", ".brd");
  recorder.edit("INNER", ".pac");
  recorder.layer(21);
  line({0.0, 0.0}, {1.0, 0.0});
  recorder.edit("OUTER", ".pac");
  part("INNER", {5.0, 0.0}, 90.0);
  recorder.edit("plate", ".brd");
  part("OUTER", {10.0, 0.0}, 90.0);
  expectOneLine(*scene(), {10.0, 5.0}, {9.0, 5.0});
}

TEST_F(SceneTest, APartWithinItselfIsDrawnOnce) {
  recorder.edit("plate", ".brd");
  recorder.edit("LOOP", ".pac");
  recorder.layer(21);
  line({0.0, 0.0}, {1.0, 0.0});
  part("LOOP", {5.0, 0.0});
  recorder.edit("plate", ".brd");
  part("LOOP", {10.0, 0.0});
  EXPECT_EQ(scene()->segmentCount(), 1U);
}

TEST_F(SceneTest, PartsThatMultiplyBeyondMeasureAreLeftOut) {
  recorder.edit("plate", ".brd");
  recorder.edit("P0", ".pac");
  recorder.layer(21);
  line({0.0, 0.0}, {1.0, 0.0});
  for (int level = 1; level < 12; ++level) {
    recorder.edit("P" + std::to_string(level), ".pac");
    for (int i = 0; i < 10; ++i) part("P" + std::to_string(level - 1), {i * 2.0, 0.0});
  }
  recorder.edit("plate", ".brd");
  part("P11", {0.0, 0.0});
  const auto some = makeScene(recorder.recording(), {}, 1000);
  EXPECT_LE(some->segmentCount(), 1000U);
  EXPECT_GT(some->segmentCount(), 100U);
  EXPECT_GT(some->partsLeftOut(), 0U);
}

TEST_F(SceneTest, IsNullWhenStopped) {
  line({0.0, 0.0}, {1.0, 1.0});
  EXPECT_EQ(makeScene(recorder.recording(), geometry::StopCheck([] { return true; })), nullptr);
  int questions = 0;
  makeScene(recorder.recording(), geometry::StopCheck([&] { return ++questions, false; }));
  const int all = questions;
  questions = 0;
  const geometry::StopCheck last([&] { return ++questions == all; });
  EXPECT_EQ(makeScene(recorder.recording(), last), nullptr);
}

struct ManySegments : SceneTest {
  /// Short lines all over a square of 1000 mm, and a few across it.
  void scatter(int count) {
    std::mt19937 dice(7);
    std::uniform_real_distribution<double> place(0.0, 1000.0);
    std::uniform_real_distribution<double> step(-2.0, 2.0);
    for (int i = 0; i < count; ++i) {
      const Point from{place(dice), place(dice)};
      const bool isLong = i % 100 == 0;
      line(from, isLong ? Point{place(dice), place(dice)}
                        : Point{from.x + step(dice), from.y + step(dice)});
    }
  }
  static bool mayTouch(const SceneLine& line, const Box& box) {
    Box own;
    own.add(line.from);
    own.add(line.to);
    return touch(own, box);
  }
};

TEST_F(ManySegments, AVisitFindsAllThatTouchesABoxAndLittleElse) {
  scatter(20000);
  const auto all = scene();
  const SceneParts everything = partsOf(*all);
  ASSERT_EQ(everything.straight.size(), 20000U);
  for (const Box& box : {Box{{100.0, 100.0}, {150.0, 140.0}}, Box{{990.0, 0.0}, {1100.0, 1100.0}},
                         Box{{500.0, 500.0}, {500.0, 500.0}}}) {
    const SceneParts found = partsOf(*all, box);
    const auto matches = [&](const SceneLine& line) { return mayTouch(line, box); };
    const auto wanted =
        std::count_if(everything.straight.begin(), everything.straight.end(), matches);
    EXPECT_EQ(std::count_if(found.straight.begin(), found.straight.end(), matches), wanted);
    EXPECT_LT(found.straight.size(), static_cast<std::size_t>(wanted) + 1200);
  }
}

TEST_F(ManySegments, AStraightSegmentTakesAtMostFortyBytes) {
  scatter(20000);
  EXPECT_LE(scene()->bytes(), 20000U * 40U);
}

}  // namespace
}  // namespace quillon::preview
