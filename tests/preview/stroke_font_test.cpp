#include "preview/stroke_font.h"

#include <gtest/gtest.h>

namespace quillon::preview {
namespace {

using geometry::Point;

std::size_t strokeCount(std::string_view text) { return strokesOf(text).ends.size(); }

TEST(StrokeFont, ACapitalReachesFromTheBaselineToOne) {
  for (char c = 'A'; c <= 'Z'; ++c) {
    const Strokes strokes = strokesOf(std::string(1, c));
    ASSERT_FALSE(strokes.points.empty()) << c;
    double low = 1.0;
    double high = 0.0;
    for (const Point point : strokes.points) {
      low = std::min(low, point.y);
      high = std::max(high, point.y);
    }
    EXPECT_DOUBLE_EQ(low, 0.0) << c;
    EXPECT_DOUBLE_EQ(high, 1.0) << c;
  }
}

TEST(StrokeFont, EveryPrintableCharacterIsDrawnInItsPlace) {
  for (char c = '!'; c <= '~'; ++c) {
    const Strokes strokes = strokesOf(std::string("A") + c);
    const std::size_t first = strokesOf("A").points.size();
    ASSERT_GT(strokes.points.size(), first) << c;
    for (std::size_t i = first; i < strokes.points.size(); ++i) {
      EXPECT_GE(strokes.points[i].x, kLetterPitch) << c;
      EXPECT_LE(strokes.points[i].x, kLetterPitch + 4.0 / 6.0 + 1e-12) << c;
      EXPECT_GE(strokes.points[i].y, -2.0 / 6.0 - 1e-12) << c;
    }
  }
}

TEST(StrokeFont, NoTwoCharactersLookAlike) {
  std::set<std::vector<std::pair<double, double>>> seen;
  for (char c = '!'; c <= '~'; ++c) {
    std::vector<std::pair<double, double>> points;
    for (const Point point : strokesOf(std::string(1, c)).points) {
      points.emplace_back(point.x, point.y);
    }
    EXPECT_TRUE(seen.insert(points).second) << c;
  }
}

TEST(StrokeFont, ADotIsAStrokeOfOnePoint) {
  const Strokes dot = strokesOf(".");
  EXPECT_EQ(dot.points.size(), 1U);
  EXPECT_EQ(dot.ends, std::vector<std::size_t>{1});
}

TEST(StrokeFont, BlanksTakeTheirWidth) {
  EXPECT_EQ(strokeCount("   "), 0U);
  EXPECT_DOUBLE_EQ(widthOf("A A"), 2.0 * kLetterPitch + 4.0 / 6.0);
  EXPECT_DOUBLE_EQ(widthOf(""), 0.0);
}

TEST(StrokeFont, MarksStandAboveTheirLetters) {
  EXPECT_EQ(strokeCount("ä"), strokeCount("a") + 2);
  EXPECT_EQ(strokeCount("é"), strokeCount("e") + 1);
  EXPECT_EQ(strokeCount("ç"), strokeCount("c") + 1);
  EXPECT_EQ(strokeCount("ÿ"), strokeCount("y") + 2);
  EXPECT_EQ(strokeCount("ï"), strokeCount("i") - 1 + 2);  // instead of its dot
  double highest = 0.0;
  for (const Point point : strokesOf("Ä").points) highest = std::max(highest, point.y);
  EXPECT_GT(highest, 1.0);
}

TEST(StrokeFont, SignsOfDrawingsAreThere) {
  const Strokes box = strokesOf("漢");
  for (const char* sign : {"Ø", "°", "±", "µ", "ß", "×", "²", "€", "Ω", "⌀", "–"}) {
    const Strokes strokes = strokesOf(sign);
    EXPECT_NE(strokes.points, box.points) << sign;
    EXPECT_FALSE(strokes.points.empty()) << sign;
  }
}

TEST(StrokeFont, WhatItDoesNotHaveIsABox) {
  EXPECT_EQ(strokeCount("漢字"), 2U);
  EXPECT_EQ(strokesOf("漢").points.size(), 5U);
  EXPECT_EQ(strokesOf("\xFF").points.size(), 5U);
  EXPECT_EQ(strokesOf("\xC3").points.size(), 5U);
}

}  // namespace
}  // namespace quillon::preview
