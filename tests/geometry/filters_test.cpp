#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <set>
#include <vector>

#include "geometry/degrees.h"
#include "geometry/end_filter.h"
#include "geometry/hash_index.h"
#include "geometry/repeat_filter.h"
#include "geometry/shared_hashes.h"
#include "geometry/stroke_cells.h"
#include "geometry/wide_cell.h"

namespace quillon::geometry {
namespace {

constexpr double kFilterResolution = 1e-4;

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
    EndFilter filter(ends.size(), kTolerance,
                     seed % 2 == 0 ? EndFilter::Grid::Coarse : EndFilter::Grid::Fine);
    for (std::size_t i = 0; i < ends.size(); ++i) filter.add(ends[i], i);
    const std::vector<bool> meets = filter.meeting(ends.size());
    for (std::size_t i = 0; i < ends.size(); ++i) {
      const bool isNear = std::any_of(ends.begin(), ends.end(), [&](const Point& other) {
        return &other != &ends[i] && norm(other - ends[i]) <= kTolerance;
      });
      EXPECT_TRUE(!isNear || meets[i]) << seed << " " << i;
    }
  }
}

TEST(EndFilter, TellsMostScatteredEndsApart) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(0.0, 1000.0);
  std::vector<Point> ends(10000);
  for (Point& end : ends) end = {place(random), place(random)};
  EndFilter filter(ends.size(), 0.001);
  for (std::size_t i = 0; i < ends.size(); ++i) filter.add(ends[i], i);
  const std::vector<bool> meets = filter.meeting(ends.size());
  EXPECT_LT(std::count(meets.begin(), meets.end(), true), 100);
}

TEST(EndFilter, TheFineGridLeavesFewer) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(0.0, 1.0);
  std::vector<Point> ends(1000);
  for (Point& end : ends) end = {place(random), place(random)};
  const auto countOf = [&](EndFilter::Grid grid) {
    EndFilter filter(ends.size(), 0.005, grid);
    for (std::size_t i = 0; i < ends.size(); ++i) filter.add(ends[i], i);
    const std::vector<bool> meets = filter.meeting(ends.size());
    return std::count(meets.begin(), meets.end(), true);
  };
  EXPECT_LT(2 * countOf(EndFilter::Grid::Fine), countOf(EndFilter::Grid::Coarse));
}

TEST(EndFilter, WithoutAToleranceEqualEndsMeet) {
  EndFilter filter(3, 0.0);
  filter.add({1, 2}, 0);
  filter.add({1, 2}, 1);
  filter.add({5, 5}, 2);
  EXPECT_EQ(filter.meeting(3), (std::vector<bool>{true, true, false}));
}

TEST(EndFilter, EndsOfOneOwnerMeet) {
  EndFilter filter(2, 0.01);
  filter.add({1, 2}, 0);
  filter.add({1.005, 2}, 0);
  EXPECT_EQ(filter.meeting(1), std::vector<bool>{true});
}

TEST(EndFilter, HugeEndsMayMeetAnything) {
  EndFilter filter(1, 0.01);
  filter.add({1e30, 0}, 0);
  EXPECT_EQ(filter.meeting(1), std::vector<bool>{true});
}

/// Lines, arcs and circles of which many equal or overlap others, in all directions.
std::vector<Stroke> crowdedStrokes(int seed) {
  std::mt19937 random(static_cast<unsigned>(seed));
  std::uniform_int_distribution<int> place(-3, 3);
  std::uniform_int_distribution<int> kind(0, 5);
  std::uniform_real_distribution<double> beside(-0.5 * kFilterResolution, 0.5 * kFilterResolution);
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

/// Lines with arcs over them that hardly bend, in all directions; most are about so long that the
/// filter treats them as long ones.
std::vector<Stroke> almostFlatStrokes(int seed) {
  std::mt19937 random(static_cast<unsigned>(seed));
  std::uniform_real_distribution<double> place(-500.0, 500.0);
  std::uniform_real_distribution<double> beside(-0.3 * kFilterResolution, 0.3 * kFilterResolution);
  std::uniform_real_distribution<double> part(0.0, 1.0);
  std::vector<Stroke> strokes;
  for (int i = 0; i < 40; ++i) {
    const double length = kFilterResolution *
                          (i % 4 == 0 ? 1e4 + 1e6 * part(random) : 1e5 - 4.0 + 8.0 * part(random));
    const double turn = 6.3 * part(random);
    const Point from{place(random), place(random)};
    const Point to = from + Point{std::cos(turn), std::sin(turn)} * length;
    const double sagitta = 1.3 * kFilterResolution * part(random);
    const double curve = degreesOf(4.0 * std::atan(2.0 * sagitta / length));
    const Point moved{beside(random), beside(random)};
    if (i % 5 == 0) {  // drawn once
      strokes.push_back({{from, to, i % 10 == 0 ? 0.0 : 20.0 * curve + 0.1}});
      continue;
    }
    strokes.push_back({{from, to, 0.0}});
    strokes.push_back({{from + moved, to - moved, i % 3 == 0 ? -curve : curve}});
    if (part(random) < 0.5) std::swap(strokes[strokes.size() - 2], strokes.back());
    if (part(random) < 0.3) std::swap(strokes.back().edge.from, strokes.back().edge.to);
  }
  return strokes;
}

/// Counts the strokes that the filter left out.
std::size_t expectNoChangeOfWhatIsLeftOut(const std::vector<Stroke>& strokes, int seed,
                                          RepeatFilter::Grid grid) {
  std::size_t leftOut = 0;
  Box box;
  for (const Stroke& stroke : strokes) RepeatFilter::addTo(box, stroke, kFilterResolution);
  RepeatFilter filter(strokes.size(), StrokeCells(box, kFilterResolution), grid);
  for (std::size_t i = 0; i < strokes.size(); ++i) filter.add(strokes[i], i);
  const std::vector<bool> repeats = filter.repeating(strokes.size());
  const Cleaned all = withoutDuplicates(strokes, kFilterResolution);
  std::set<std::size_t> changed;
  for (std::size_t i = 0; i < strokes.size(); ++i) changed.insert(i);
  for (std::size_t i = 0; i < all.from.size(); ++i) {
    if (all.strokes[i] == strokes[all.from[i]]) changed.erase(all.from[i]);
  }
  for (std::size_t i = 0; i < strokes.size(); ++i) {
    if (repeats[i]) continue;
    ++leftOut;
    EXPECT_FALSE(changed.contains(i)) << seed << " " << i;
  }
  return leftOut;
}

TEST(RepeatFilter, WhatItLeavesOutChangesNothing) {
  std::array<std::size_t, 2> leftOut{};
  for (int seed = 0; seed < 200; ++seed) {
    const std::vector<Stroke> strokes = crowdedStrokes(seed);
    leftOut[0] += expectNoChangeOfWhatIsLeftOut(strokes, seed, RepeatFilter::Grid::Coarse);
    leftOut[1] += expectNoChangeOfWhatIsLeftOut(strokes, seed, RepeatFilter::Grid::Fine);
  }
  EXPECT_GT(leftOut[0], 500U);
  EXPECT_GT(leftOut[1], leftOut[0]);
}

TEST(RepeatFilter, FindsLongLinesThatEqualArcs) {
  std::size_t leftOut = 0;
  for (int seed = 0; seed < 50; ++seed) {
    const std::vector<Stroke> strokes = almostFlatStrokes(seed);
    leftOut += expectNoChangeOfWhatIsLeftOut(strokes, seed, RepeatFilter::Grid::Coarse);
    expectNoChangeOfWhatIsLeftOut(strokes, seed, RepeatFilter::Grid::Fine);
  }
  EXPECT_GT(leftOut, 100U);
}

TEST(RepeatFilter, FindsWhatIsNothingAndWhatIsTooLarge) {
  RepeatFilter filter(2, StrokeCells({}, kFilterResolution));
  const Stroke nothing{{{1, 1}, {1, 1}, 0.0}};
  const Stroke huge{{{1e50, 1}, {1, 1}, 0.0}};
  filter.add(nothing, 0);
  filter.add(huge, 1);
  EXPECT_EQ(filter.repeating(2), (std::vector<bool>{true, true}));
}

TEST(StrokeCells, TellWhetherAUnionHasLeftItsLine) {
  const StrokeCells cells({{0, 0}, {100, 100}}, kFilterResolution);
  const Stroke line{{{0, 0}, {10, 0}, 0.0}};
  EXPECT_TRUE(cells.areOnOne(line, {{{0, 0}, {30, 0}, 0.0}}));
  EXPECT_FALSE(cells.areOnOne(line, {{{0, 0}, {10, 5}, 0.0}}));
  EXPECT_FALSE(cells.reachToSame(line, {{{0, 0}, {30, 0}, 0.0}}));
  EXPECT_TRUE(cells.reachToSame(line, {{{10, 0}, {0, 0}, 0.0}}));
}

TEST(RepeatFilter, TellsWhatIsBesideEachOtherOnOneLine) {
  const std::vector<Stroke> strokes{{{{0, 0}, {10, 0}, 0.0}},
                                    {{{20, 0}, {30, 0}, 0.0}},
                                    {{{60, 0}, {40, 0}, 0.0}},
                                    {{{50, 0}, {70, 0}, 0.0}}};
  const StrokeCells cells({{0, -50}, {100, 50}}, kFilterResolution, 1.0);
  for (const auto grid : {RepeatFilter::Grid::Coarse, RepeatFilter::Grid::Fine}) {
    RepeatFilter filter(strokes.size(), cells, grid);
    for (std::size_t i = 0; i < strokes.size(); ++i) filter.add(strokes[i], i);
    const bool isCoarse = grid == RepeatFilter::Grid::Coarse;
    EXPECT_EQ(filter.repeating(4), (std::vector<bool>{isCoarse, isCoarse, true, true}));
  }
}

TEST(CarrierFilter, FindsWhatIsOnTheSameLine) {
  CarrierFilter filter(1, StrokeCells({{0, 0}, {100, 100}}, kFilterResolution, 4.0));
  filter.add({{{0, 0}, {10, 0}, 0.0}});
  EXPECT_TRUE(filter.mayHave({{{50, 0}, {9, 0}, 0.0}}));
  EXPECT_FALSE(filter.mayHave({{{50, 0}, {40, 0}, 0.0}}));
  EXPECT_FALSE(filter.mayHave({{{8, 3}, {4, 3}, 0.0}}));
}

TEST(CarrierFilter, TakesAllOfTheLineForWhatReachesFar) {
  CarrierFilter filter(1, StrokeCells({{0, 0}, {100, 100}}, kFilterResolution, 4.0));
  filter.add({{{0, 0}, {40, 0}, 0.0}});
  EXPECT_TRUE(filter.mayHave({{{60, 0}, {70, 0}, 0.0}}));
}

TEST(SharedHashes, MarksTheOwnersOfHashesThatCameTwice) {
  for (const std::size_t count : {0U, 5U, 100'000U}) {
    SharedHashes hashes(count);
    std::mt19937_64 random(1);
    for (std::size_t i = 0; i < 50'000; ++i) {
      hashes.add(mixedBits(i % 30'000), i);
      hashes.add(random(), i);
    }
    std::vector<bool> shares(50'000, false);
    hashes.mark(shares);
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < shares.size(); ++i) {
      const bool isShared = i < 20'000 || i >= 30'000;
      EXPECT_TRUE(shares[i] || !isShared) << i;
      wrong += shares[i] && !isShared ? 1 : 0;
    }
    EXPECT_LT(wrong, 20U) << count;
  }
}

TEST(SharedHashes, OneSearchTakesTheMemoryOfTheOneBefore) {
  HashMemory memory;
  HashMemory::Chunk* const first = memory.take();
  memory.giveBack(first);
  for (int round = 0; round < 3; ++round) {
    SharedHashes hashes(1000, &memory);
    std::mt19937_64 random(static_cast<unsigned>(round));
    for (std::size_t i = 0; i < 1000; ++i) hashes.add(random(), i);
    hashes.add(mixedBits(5), 10);
    hashes.add(mixedBits(5), 20);
    std::vector<bool> shares(1000, false);
    if (round != 1) hashes.mark(shares);  // else what was added is forgotten
    EXPECT_EQ(std::count(shares.begin(), shares.end(), true), round == 1 ? 0 : 2) << round;
  }
}

TEST(WideCell, SharesACellWithWhatIsNearerThanAUnit) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(-100.0, 100.0);
  std::uniform_real_distribution<double> beside(-1.0, 1.0);
  const auto isIn = [](const WideCell& cell, std::int64_t number) {
    return cell.own == number || (cell.isInPrevious && cell.own - 1 == number);
  };
  for (int i = 0; i < 10'000; ++i) {
    const double at = place(random);
    const WideCell one(at, 4.0);
    const WideCell other(at + beside(random), 4.0);
    EXPECT_TRUE(isIn(one, other.own) || isIn(other, one.own)) << at;
  }
}

TEST(WideCell, TakesWhatIsHugeOrNoNumberForAlike) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::int64_t huge = wholeBelow(1e300);
  EXPECT_EQ(wholeBelow(-1e300), huge);
  EXPECT_EQ(wholeBelow(infinity), huge);
  EXPECT_EQ(wholeBelow(std::nan("")), huge);
  EXPECT_EQ(wholeBelow(-0.5), -1);
  EXPECT_EQ(wholeBelow(-2.0), -2);
  EXPECT_EQ(wholeBelow(2.75), 2);
}

/// As in drawings whose ends are all in one place.
TEST(SharedHashes, TakesOneHashManyTimes) {
  SharedHashes hashes(10);
  for (std::size_t i = 0; i < 300'000; ++i) hashes.add(7, i);
  std::vector<bool> shares(300'000, false);
  hashes.mark(shares);
  EXPECT_EQ(std::count(shares.begin(), shares.end(), true), 300'000);
}

}  // namespace
}  // namespace quillon::geometry
