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

TEST(DrawingUnit, InchesMillimetresAndMilsAreBelieved) {
  for (const auto& [insUnits, millimetres] : {std::pair(1.0, 25.4), std::pair(4.0, 1.0),
                                              std::pair(9.0, 0.0254), std::pair(13.0, 0.001)}) {
    EXPECT_FALSE(needsSize(insUnits));
    EXPECT_DOUBLE_EQ(unitOf(insUnits, {}).millimetres, millimetres);
  }
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

TEST(DrawingUnit, MetresAreDoubtedWhereMillimetresMakeSense) {
  EXPECT_EQ(unitOf(6.0, boxOf(100.0)).millimetres, 1.0);
  EXPECT_EQ(unitOf(6.0, boxOf(0.1)).millimetres, 1000.0);
}

}  // namespace
}  // namespace quillon::convert
