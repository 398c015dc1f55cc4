#include "convert/drawing_unit.h"

#include <gtest/gtest.h>

namespace quillon::convert {
namespace {

geometry::Box boxOf(double size) { return {{0.0, 0.0}, {size, 0.0}}; }

TEST(DrawingUnit, WordsStandForLengths) {
  DrawingUnit unit = DrawingUnit::Auto;
  ASSERT_TRUE(findDrawingUnit("mil", unit));
  EXPECT_DOUBLE_EQ(millimetresOf(unit), 0.0254);
  ASSERT_TRUE(findDrawingUnit("foot", unit));
  EXPECT_DOUBLE_EQ(millimetresOf(unit), 304.8);
  EXPECT_FALSE(findDrawingUnit("MM", unit));
}

TEST(DrawingUnit, UnitsOfBoardsAreBelievedWhereTheSizeFits) {
  for (const auto& [insUnits, millimetres] :
       {std::pair(1.0, 25.4), std::pair(5.0, 10.0), std::pair(9.0, 0.0254), std::pair(10.0, 914.4),
        std::pair(11.0, 1e-7), std::pair(12.0, 1e-6), std::pair(13.0, 0.001),
        std::pair(14.0, 100.0), std::pair(15.0, 1e4), std::pair(16.0, 1e5)}) {
    EXPECT_TRUE(needsSize(insUnits));
    for (const double size : {2.1, 1999.0}) {
      const UnitChoice choice = unitOf(insUnits, boxOf(size / millimetres));
      EXPECT_DOUBLE_EQ(choice.millimetres, millimetres);
      EXPECT_FALSE(choice.isDoubted);
    }
  }
}

TEST(DrawingUnit, MillimetresAreBelievedWhateverTheSize) {
  EXPECT_FALSE(needsSize(4.0));
  EXPECT_EQ(unitOf(4.0, boxOf(1e6)).millimetres, 1.0);
  EXPECT_FALSE(unitOf(4.0, boxOf(1e6)).isDoubted);
}

TEST(DrawingUnit, InchesOfATemplateAreDoubtedWhereOnlyMillimetresMakeSense) {
  const UnitChoice choice = unitOf(1.0, boxOf(100.0));
  EXPECT_EQ(choice.millimetres, 1.0);
  EXPECT_TRUE(choice.isDoubted);
  EXPECT_EQ(choice.named, 25.4);
}

TEST(DrawingUnit, WhereNothingMakesSenseTheDrawingIsBelieved) {
  for (const double size : {0.01, 1e6}) {
    EXPECT_EQ(unitOf(1.0, boxOf(size)).millimetres, 25.4);
    EXPECT_FALSE(unitOf(1.0, boxOf(size)).isDoubted);
    EXPECT_EQ(unitOf(6.0, boxOf(size)).millimetres, 1000.0);
  }
  EXPECT_EQ(unitOf(1.0, {}).millimetres, 25.4);
}

TEST(DrawingUnit, WithoutOneMillimetresAreAssumed) {
  for (const double insUnits : {0.0, -3.0, 17.0, 1e300}) {
    EXPECT_TRUE(unitOf(insUnits, {}).isAssumed) << insUnits;
    EXPECT_EQ(unitOf(insUnits, {}).millimetres, 1.0);
  }
}

TEST(DrawingUnit, CentimetresAreBelievedWhereTheSizeFits) {
  EXPECT_TRUE(needsSize(5.0));
  EXPECT_EQ(unitOf(5.0, boxOf(10.0)).millimetres, 10.0);
  EXPECT_EQ(unitOf(5.0, boxOf(1000.0)).millimetres, 1.0);
  EXPECT_TRUE(unitOf(5.0, boxOf(1000.0)).isDoubted);
}

TEST(DrawingUnit, UnitsOfOtherThingsAreDoubtedWhereMillimetresMakeSense) {
  for (const double insUnits : {2.0, 3.0, 6.0, 7.0, 8.0}) {
    EXPECT_TRUE(needsSize(insUnits));
    EXPECT_EQ(unitOf(insUnits, boxOf(100.0)).millimetres, 1.0) << insUnits;
    EXPECT_TRUE(unitOf(insUnits, boxOf(100.0)).isDoubted) << insUnits;
  }
  EXPECT_EQ(unitOf(6.0, boxOf(0.1)).millimetres, 1000.0);
}

}  // namespace
}  // namespace quillon::convert
