#include "classic/dash_pattern.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "classic/translation.h"

namespace quillon::classic {
namespace {

using testing::Definitions;
using testing::DxfBuilder;

TEST(DashPatterns, HoldTheDashesOfALineType) {
  Definitions read(DxfBuilder().dashes("DASHDOT", "1.4", {"0.5", "-0.45", "0", "-.45"}));
  DashPatterns patterns(read.drawing);
  const DashPattern* const pattern = patterns.find("DASHDOT");
  ASSERT_NE(pattern, nullptr);
  EXPECT_EQ(*pattern, (DashPattern{0.5, -0.45, 0.0, -0.45}));
}

TEST(DashPatterns, AreFoundWhateverTheCase) {
  Definitions read(DxfBuilder().dashes("Dashed", "2", {"1", "-1"}));
  DashPatterns patterns(read.drawing);
  ASSERT_NE(patterns.find("DASHED"), nullptr);
  ASSERT_NE(patterns.find("dashed"), nullptr);
}

TEST(DashPatterns, AreFoundByNamesThatDoNotLast) {
  Definitions read(DxfBuilder().dashes("ONE", "2", {"1", "-1"}).dashes("TWO", "4", {"3", "-1"}));
  DashPatterns patterns(read.drawing);
  std::string name = "ONE";
  EXPECT_EQ(*patterns.find(name), (DashPattern{1.0, -1.0}));
  name = "TWO";
  EXPECT_EQ(*patterns.find(name), (DashPattern{3.0, -1.0}));
  name = "SIX";
  EXPECT_EQ(patterns.find(name), nullptr);
  EXPECT_EQ(*patterns.find("ONE"), (DashPattern{1.0, -1.0}));
}

TEST(DashPatterns, StayTheSameHoweverOftenTheyAreAskedFor) {
  DxfBuilder dxf;
  std::vector<std::string> names;
  names.reserve(40);
  for (int i = 0; i < 40; ++i) names.push_back("TYPE" + std::to_string(i));
  for (const std::string& name : names) dxf.dashes(name, "2", {"1", "-1"});
  Definitions read(dxf);
  DashPatterns patterns(read.drawing);
  const DashPattern* const first = patterns.find("TYPE0");
  for (const std::string& name : names) EXPECT_NE(patterns.find(name), nullptr) << name;
  EXPECT_EQ(patterns.find("TYPE0"), first);
  EXPECT_EQ(*first, (DashPattern{1.0, -1.0}));
}

TEST(DashPatterns, AreMissingForALineTypeThatTheTableLacks) {
  Definitions read(DxfBuilder().dashes("DASHED", "2", {"1", "-1"}));
  DashPatterns patterns(read.drawing);
  EXPECT_EQ(patterns.find("BYLAYER"), nullptr);
  EXPECT_EQ(patterns.find("DASHED2"), nullptr);
  EXPECT_EQ(patterns.find(""), nullptr);
}

TEST(DashPatterns, AreMissingForALineTypeWithATotalLengthOfZero) {
  Definitions read(DxfBuilder()
                       .dashes("ZERO", "0.0", {"1", "-1"})
                       .dashes("NONE", "", {"1", "-1"})
                       .dashes("LEFT", "-2", {"1", "-1"}));
  DashPatterns patterns(read.drawing);
  EXPECT_EQ(patterns.find("ZERO"), nullptr);
  EXPECT_EQ(patterns.find("NONE"), nullptr);
  EXPECT_NE(patterns.find("LEFT"), nullptr) << "only a length of 0 makes a line continuous";
}

TEST(DashPatterns, ComeFromTheFirstOfSeveralLineTypesWithOneName) {
  Definitions read(
      DxfBuilder().dashes("TWICE", "3", {"2", "-1"}).dashes("twice", "9", {"8", "-1"}));
  DashPatterns patterns(read.drawing);
  ASSERT_NE(patterns.find("TWICE"), nullptr);
  EXPECT_EQ(*patterns.find("TWICE"), (DashPattern{2.0, -1.0}));
}

TEST(DashWalk, GivesTheDashesInOrderOverAndOver) {
  const DashPattern pattern = {3.0, -2.0, 0.0};
  DashWalk walk(pattern);
  std::vector<double> dashes;
  double dash = 0.0;
  for (int i = 0; i < 7 && walk.next(i, dash); ++i) dashes.push_back(dash);
  EXPECT_EQ(dashes, (std::vector<double>{3.0, -2.0, 0.0, 3.0, -2.0, 0.0, 3.0}));
}

TEST(DashWalk, EndsAfterAPassThatDidNotGetOn) {
  const DashPattern pattern = {1.0, -1.0};
  DashWalk walk(pattern);
  double dash = 0.0;
  EXPECT_TRUE(walk.next(5.0, dash));
  EXPECT_TRUE(walk.next(5.0, dash));
  EXPECT_FALSE(walk.next(5.0, dash));
}

TEST(DashWalk, GoesOnAfterAPassInWhichOneStepGotOn) {
  const DashPattern pattern = {0.0, 1.0};
  DashWalk walk(pattern);
  double dash = 0.0;
  EXPECT_TRUE(walk.next(0.0, dash));
  EXPECT_TRUE(walk.next(0.0, dash));
  EXPECT_TRUE(walk.next(1.0, dash));
  EXPECT_TRUE(walk.next(1.0, dash));
  EXPECT_FALSE(walk.next(1.0, dash));
}

TEST(DashWalk, EndsAfterAPassThatWentBack) {
  const DashPattern pattern = {1.0};
  DashWalk walk(pattern);
  double dash = 0.0;
  EXPECT_TRUE(walk.next(5.0, dash));
  EXPECT_FALSE(walk.next(4.0, dash));
}

TEST(DashWalk, EndsAtOnceForAPatternWithoutDashes) {
  const DashPattern pattern;
  DashWalk walk(pattern);
  double dash = 0.0;
  EXPECT_FALSE(walk.next(0.0, dash));
}

TEST(DashWalk, GivesAllDashesOfALongListOverAndOver) {
  std::string list;
  for (int i = 1; i <= 150; ++i) list += std::to_string(i) + ";;";
  const DashPattern pattern(list);
  DashWalk walk(pattern);
  double travelled = 0.0;
  for (int pass = 0; pass < 3; ++pass) {
    for (int i = 1; i <= 150; ++i) {
      double dash = 0.0;
      ASSERT_TRUE(walk.next(travelled, dash));
      EXPECT_EQ(dash, i);
      travelled += dash;
    }
  }
}

TEST(DashWalk, StopsAfterOnePassOfALongListWithoutProgress) {
  std::string list;
  for (int i = 0; i < 150; ++i) list += "0;";
  const DashPattern pattern(list);
  DashWalk walk(pattern);
  double dash = 1.0;
  for (int i = 0; i < 150; ++i) EXPECT_TRUE(walk.next(0.0, dash));
  EXPECT_FALSE(walk.next(0.0, dash));
}

TEST(DashPatterns, OfEmptyListsHaveNoDashes) {
  for (const char* const list : {"", ";", ";;;"}) {
    const DashPattern pattern{std::string_view(list)};
    DashWalk walk(pattern);
    double dash = 0.0;
    EXPECT_FALSE(walk.next(0.0, dash)) << list;
  }
}

}  // namespace
}  // namespace quillon::classic
