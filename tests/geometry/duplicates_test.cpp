#include "geometry/duplicates.h"

#include <gtest/gtest.h>

#include "base/ranges.h"
#include "geometry/path_samples.h"

namespace quillon::geometry {
namespace {

Stroke line(Point from, Point to, std::size_t layer = 0) { return {{from, to, 0.0}, layer, false}; }
Stroke arc(double start, double end, double radius = 1.0) {
  const auto at = [radius](double angle) {
    return Point{radius * std::cos(radiansOf(angle)), radius * std::sin(radiansOf(angle))};
  };
  return {{at(start), at(end), end - start}, 0, false};
}
Stroke whole(Point centre, double radius) {
  return {{centre, {centre.x + radius, centre.y}, 0.0}, 0, true};
}

std::vector<Stroke> cleaned(const std::vector<Stroke>& strokes) {
  return withoutDuplicates(strokes, 1e-4).strokes;
}

TEST(WithoutDuplicates, KeepsTheFirstOfEqualStrokes) {
  const std::vector<Stroke> strokes = {line({0, 0}, {1, 1}), line({1, 1.00005}, {0, 0}),
                                       line({0, 0}, {1, 1}), line({0, 0}, {1, 1}, 1),
                                       arc(0, 90),           {reversed(arc(0, 90).edge), 0, false},
                                       whole({5, 5}, 2),     whole({5, 5.00001}, 2)};
  const Cleaned result = withoutDuplicates(strokes, 1e-4);
  EXPECT_EQ(result.strokes, (std::vector<Stroke>{strokes[0], strokes[3], strokes[4], strokes[6]}));
  EXPECT_EQ(result.from, (std::vector<std::size_t>{0, 3, 4, 6}));
  EXPECT_EQ(result.equal, 4U);
  EXPECT_EQ(result.merged, 0U);
}

TEST(WithoutDuplicates, KeepsArcsBetweenTheSameEnds) {
  const std::vector<Stroke> strokes = {
      line({0, 0}, {1, 0}), {{{0, 0}, {1, 0}, 90}, 0, false}, {{{0, 0}, {1, 0}, -90}, 0, false}};
  EXPECT_EQ(cleaned(strokes), strokes);
}

TEST(WithoutDuplicates, FindsEqualOnesOnBothSidesOfACell) {
  for (int i = -40; i < 40; ++i) {
    const double x = i * 0.0001;
    EXPECT_EQ(cleaned({line({x, x}, {1, 1}), line({x - 0.00006, x + 0.00006}, {1, 1})}).size(), 1U);
    EXPECT_EQ(cleaned({line({x, x}, {1, 1}), line({x, x + 0.0005}, {1, 1})}).size(), 2U);
  }
}

TEST(WithoutDuplicates, DropsWhatHasNoLength) {
  const Cleaned result = withoutDuplicates(std::vector<Stroke>{line({1, 1}, {1, 1}),
                                                               line({1, 1}, {1.00005, 1}),
                                                               whole({1, 1}, 0),
                                                               line({std::nan(""), 0}, {1, 1}),
                                                               {{{0, 0}, {1, 0}, 400}, 0, false},
                                                               {{{0, 0}, {0, 0}, 90}, 0, false},
                                                               line({1, 1}, {1.0002, 1})},
                                           1e-4);
  EXPECT_EQ(result.zeroLength, 6U);
  EXPECT_EQ(result.strokes.size(), 1U);
}

TEST(WithoutDuplicates, JoinsLinesThatOverlap) {
  const Cleaned result = withoutDuplicates(
      std::vector<Stroke>{line({3, 0}, {0, 0}), line({10, 10}, {20, 20}), line({2, 0}, {5, 0}),
                          line({1, 0}, {2, 0}), line({4.5, 0.00005}, {7, 0})},
      1e-4);
  EXPECT_EQ(result.strokes, (std::vector<Stroke>{line({7, 0}, {0, 0}), line({10, 10}, {20, 20})}));
  EXPECT_EQ(result.merged, 3U);
}

TEST(WithoutDuplicates, LeavesLinesThatTouchOrAreBesideEachOther) {
  const std::vector<Stroke> strokes = {line({0, 0}, {1, 0}), line({1, 0}, {2, 0}),
                                       line({0, 0.001}, {2, 0.001}), line({0, 0}, {2, 0.01}),
                                       line({0, -1}, {0, 1})};
  EXPECT_EQ(cleaned(strokes), strokes);
}

TEST(WithoutDuplicates, JoinsSteepLinesOfBothSenses) {
  EXPECT_EQ(cleaned({line({1e-5, 0}, {0, 5}), line({0, 10}, {0, 3})}),
            (std::vector<Stroke>{line({1e-5, 0}, {0, 10})}));
}

TEST(WithoutDuplicates, JoinsArcsOfOneCircle) {
  const auto joined = cleaned({arc(10, 100), arc(80, 200)});
  ASSERT_EQ(joined.size(), 1U);
  EXPECT_EQ(joined[0].edge.from, arc(10, 100).edge.from);
  EXPECT_EQ(joined[0].edge.to, arc(80, 200).edge.to);
  EXPECT_NEAR(joined[0].edge.curve, 190, 1e-9);
  EXPECT_EQ(cleaned({arc(10, 200), arc(80, 100)}), (std::vector<Stroke>{arc(10, 200)}));
  const auto across =
      cleaned({arc(150, 200), arc(-170, -20), {reversed(arc(-30, 30).edge), 0, false}});
  ASSERT_EQ(across.size(), 1U);
  EXPECT_NEAR(across[0].edge.curve, 240, 1e-9);
}

TEST(WithoutDuplicates, ClosesArcsToACircle) {
  const auto joined = cleaned({arc(0, 200), arc(180, 380)});
  ASSERT_EQ(joined.size(), 1U);
  EXPECT_TRUE(joined[0].isCircle);
  EXPECT_NEAR(norm(joined[0].edge.from), 0.0, 1e-12);
  EXPECT_NEAR(norm(joined[0].edge.to), 1.0, 1e-12);
  EXPECT_EQ(cleaned({arc(0, 90), whole({0, 0}, 1)}).size(), 1U);
  EXPECT_TRUE(cleaned({arc(0, 90), whole({0, 0}, 1)})[0].isCircle);
}

TEST(WithoutDuplicates, LeavesArcsThatTouchOrAreOfOtherCircles) {
  const std::vector<Stroke> strokes = {arc(0, 90), arc(90, 180), arc(180, 360), arc(0, 90, 1.001),
                                       whole({0, 0}, 2)};
  EXPECT_EQ(cleaned(strokes), strokes);
}

TEST(WithoutDuplicates, CoversTheSameWithRandomLines) {
  std::mt19937 random(37);
  std::uniform_real_distribution<double> along(0, 100);
  std::uniform_int_distribution<int> row(0, 3);
  std::vector<Stroke> strokes;
  const Point way{std::cos(0.3), std::sin(0.3)};
  for (int i = 0; i < 60; ++i) {
    const Point base = leftOf(way) * row(random);
    const double start = along(random);
    strokes.push_back(line(base + way * start, base + way * (start + along(random) / 20)));
  }
  const auto result = cleaned(strokes);
  EXPECT_LT(result.size(), 60U);
  for (int k = 0; k < 4; ++k) {
    for (double at = -1; at < 120; at += 0.13) {
      const Point p = leftOf(way) * k + way * at;
      const auto covers = [p](const Stroke& stroke) { return distanceTo(stroke.edge, p) < 1e-9; };
      EXPECT_EQ(base::ranges::count_if(result, covers),
                base::ranges::any_of(strokes, covers) ? 1 : 0);
    }
  }
}

TEST(WithoutDuplicates, TakesLittleTimeForManyStrokes) {
  std::vector<Stroke> strokes;
  for (int i = 0; i < 20000; ++i) {
    // Spokes through one point, parallels, and circles around one centre.
    const double angle = i * 1e-5;
    strokes.push_back(
        line({-std::cos(angle), -std::sin(angle)}, {std::cos(angle), std::sin(angle)}));
    strokes.push_back(line({0, i * 0.01}, {1e4, i * 0.01 + 1e4}));
    strokes.push_back(whole({0, 0}, 1 + i * 0.01));
  }
  EXPECT_GT(cleaned(strokes).size(), 40000U);
}

TEST(WithoutDuplicates, SurvivesHostileStrokes) {
  const std::vector<double> values = {
      0.0, 1.0, -1.0, 1e300, 1e99, 1e-300, std::nan(""), std::numeric_limits<double>::infinity()};
  std::vector<Stroke> strokes;
  for (const double a : values) {
    for (const double b : values) {
      for (const double curve : {0.0, 1e-12, 90.0, 359.999999, a}) {
        strokes.push_back({{{a, b}, {b, 1.0}, curve}, 0, false});
        strokes.push_back({{{a, b}, {b, 1.0}, curve}, 0, true});
      }
    }
  }
  for (const double resolution : {1e-4, 1.0, 1e-300, 1e300}) {
    const Cleaned result = withoutDuplicates(strokes, resolution);
    EXPECT_EQ(result.strokes.size() + result.zeroLength + result.equal + result.merged,
              strokes.size());
  }
}

}  // namespace
}  // namespace quillon::geometry
