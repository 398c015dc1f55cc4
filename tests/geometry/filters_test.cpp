#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

#include "geometry/end_filter.h"
#include "geometry/repeat_filter.h"

namespace quillon::geometry {
namespace {

constexpr double kResolution = 1e-4;

/// Ends on a coarse grid and beside it, so that many are near each other, across cells of all
/// kinds.
std::vector<Point> crowdedEnds(int seed, double tolerance) {
  std::mt19937 random(static_cast<unsigned>(seed));
  std::uniform_int_distribution<int> place(-40, 40);
  std::uniform_real_distribution<double> beside(-1.0, 1.0);
  std::vector<Point> ends;
  for (int i = 0; i < 500; ++i) {
    ends.push_back({tolerance * (4.0 * place(random) + beside(random)),
                    tolerance * (4.0 * place(random) + beside(random))});
  }
  return ends;
}

TEST(EndFilter, NeverOverlooksAnEndThatIsNear) {
  constexpr double kTolerance = 0.01;
  for (int seed = 0; seed < 20; ++seed) {
    const std::vector<Point> ends = crowdedEnds(seed, kTolerance);
    EndFilter filter(ends.size(), kTolerance);
    for (const Point end : ends) filter.add(end);
    for (std::size_t i = 0; i < ends.size(); ++i) {
      const bool isNear = std::any_of(ends.begin(), ends.end(), [&](const Point& other) {
        return &other != &ends[i] && norm(other - ends[i]) <= kTolerance;
      });
      EXPECT_TRUE(!isNear || filter.mayMeet(ends[i])) << seed << " " << i;
    }
  }
}

TEST(EndFilter, TellsMostScatteredEndsApart) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(0.0, 1000.0);
  std::vector<Point> ends(10000);
  for (Point& end : ends) end = {place(random), place(random)};
  EndFilter filter(ends.size(), 0.001);
  for (const Point end : ends) filter.add(end);
  const auto taken =
      std::count_if(ends.begin(), ends.end(), [&](Point end) { return filter.mayMeet(end); });
  EXPECT_LT(taken, 4000);
}

TEST(EndFilter, WithoutAToleranceEqualEndsMeet) {
  EndFilter filter(3, 0.0);
  for (const Point end : {Point{1, 2}, Point{1, 2}, Point{5, 5}}) filter.add(end);
  EXPECT_TRUE(filter.mayMeet({1, 2}));
  EXPECT_FALSE(filter.mayMeet({5, 5}));
}

TEST(EndFilter, HugeEndsMayMeetAnything) {
  EndFilter filter(1, 0.01);
  filter.add({1e30, 0});
  EXPECT_TRUE(filter.mayMeet({1e30, 0}));
}

/// Lines, arcs and circles of which many equal or overlap others, in all directions.
std::vector<Stroke> crowdedStrokes(int seed) {
  std::mt19937 random(static_cast<unsigned>(seed));
  std::uniform_int_distribution<int> place(-3, 3);
  std::uniform_int_distribution<int> kind(0, 5);
  std::uniform_real_distribution<double> beside(-0.5 * kResolution, 0.5 * kResolution);
  const double slope = std::uniform_real_distribution<double>(0.0, 3.2)(random);
  const auto at = [&](double x, double y) {
    return turned(Point{x + beside(random), y + beside(random)},
                  Point{std::cos(slope), std::sin(slope)});
  };
  std::vector<Stroke> strokes;
  for (int i = 0; i < 60; ++i) {
    const double x = place(random);
    const double y = place(random);
    const double length = 0.25 * place(random);
    Stroke stroke;
    stroke.layer = static_cast<std::size_t>(kind(random) == 0);
    switch (kind(random)) {
      case 0:
        stroke.edge = {at(x, y), at(x + 0.5, y), 0.0};
        stroke.isCircle = true;
        break;
      case 1:
        stroke.edge = {at(x, y), at(x + 1.0, y), 90.0 * place(random)};
        break;
      case 2:
        stroke.edge = {at(x, y), at(x, y + length), 0.0};
        break;
      default:
        stroke.edge = {at(x, y), at(x + length, y), 0.0};
    }
    strokes.push_back(stroke);
  }
  return strokes;
}

TEST(RepeatFilter, WhatItLeavesOutChangesNothing) {
  std::size_t leftOut = 0;
  for (int seed = 0; seed < 200; ++seed) {
    const std::vector<Stroke> strokes = crowdedStrokes(seed);
    Box box;
    for (const Stroke& stroke : strokes) RepeatFilter::addTo(box, stroke, kResolution);
    RepeatFilter filter(strokes.size(), box, kResolution);
    for (const Stroke& stroke : strokes) filter.add(stroke);
    const Cleaned all = withoutDuplicates(strokes, kResolution);
    std::set<std::size_t> changed;
    for (std::size_t i = 0; i < strokes.size(); ++i) changed.insert(i);
    for (std::size_t i = 0; i < all.from.size(); ++i) {
      if (all.strokes[i] == strokes[all.from[i]]) changed.erase(all.from[i]);
    }
    for (std::size_t i = 0; i < strokes.size(); ++i) {
      if (filter.mayRepeat(strokes[i])) continue;
      ++leftOut;
      EXPECT_FALSE(changed.contains(i)) << seed << " " << i;
    }
  }
  EXPECT_GT(leftOut, 500U);
}

TEST(RepeatFilter, FindsWhatIsNothingAndWhatIsTooLarge) {
  RepeatFilter filter(2, {}, kResolution);
  const Stroke nothing{{{1, 1}, {1, 1}, 0.0}};
  const Stroke huge{{{1e50, 1}, {1, 1}, 0.0}};
  filter.add(nothing);
  filter.add(huge);
  EXPECT_TRUE(filter.mayRepeat(nothing));
  EXPECT_TRUE(filter.mayRepeat(huge));
}

TEST(RepeatFilter, KnowsWhetherAUnionHasLeftItsLine) {
  const RepeatFilter filter(1, {{0, 0}, {100, 100}}, kResolution);
  const Stroke line{{{0, 0}, {10, 0}, 0.0}};
  EXPECT_TRUE(filter.areOnOneCarrier(line, {{{0, 0}, {30, 0}, 0.0}}));
  EXPECT_FALSE(filter.areOnOneCarrier(line, {{{0, 0}, {10, 5}, 0.0}}));
}

}  // namespace
}  // namespace quillon::geometry
