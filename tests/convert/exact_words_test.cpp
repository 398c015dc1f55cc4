#include "convert/exact_words.h"

#include <gtest/gtest.h>

namespace quillon::convert {
namespace {

using exact::Options;
using exact::PointStyle;

TEST(ExactWordsTest, PointsBecomeWhatTheirWordSays) {
  for (const std::string text : {"dot", "none", "hole:0.8", "glyph"}) {
    Options options;
    EXPECT_TRUE(setPoints(options, text));
    EXPECT_EQ(pointsText(options), text);
  }
  Options options;
  ASSERT_TRUE(setPoints(options, "hole:0.8"));
  EXPECT_EQ(options.points, PointStyle::Hole);
  EXPECT_EQ(options.pointDrill, 0.8);
}

TEST(ExactWordsTest, OtherTextsLeaveThePointsAsTheyAre) {
  const Options defaults;
  for (const char* const text :
       {"", "Dot", "hole", "hole:", "hole:x", "hole:0", "hole:-1", "hole:1e300", "hole:0.8mm"}) {
    Options options;
    EXPECT_FALSE(setPoints(options, text)) << text;
    EXPECT_EQ(options, defaults) << text;
  }
}

TEST(ExactWordsTest, LayersOfHolesMayHaveBlanksInsideButNotAround) {
  Options options;
  setHoleLayers(options, " DRILL, NON PLATED ,,");
  EXPECT_EQ(options.holeLayers, (std::vector<std::string>{"DRILL", "NON PLATED"}));
  EXPECT_EQ(holeLayersText(options), "DRILL,NON PLATED");
  setHoleLayers(options, "");
  EXPECT_EQ(holeLayersText(options), "");
}

TEST(ExactWordsTest, DiametersOfHolesAreTheSmallestAndTheLargest) {
  Options options;
  EXPECT_EQ(holeDiametersText(options), "0.2..6.5");
  EXPECT_TRUE(setHoleDiameters(options, "0..12.7"));
  EXPECT_EQ(options.holeLeast, 0.0);
  EXPECT_EQ(options.holeMost, 12.7);
  EXPECT_EQ(holeDiametersText(options), "0..12.7");
}

TEST(ExactWordsTest, OtherTextsLeaveTheDiametersAsTheyAre) {
  const Options defaults;
  for (const char* const text :
       {"", "5", "5..", "..5", "5..4", "-1..4", "1..x", "1...2", "0..1e9"}) {
    Options options;
    EXPECT_FALSE(setHoleDiameters(options, text)) << text;
    EXPECT_EQ(options, defaults) << text;
  }
}

}  // namespace
}  // namespace quillon::convert
