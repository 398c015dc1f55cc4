#include "classic/near.h"

#include <gtest/gtest.h>

namespace quillon::classic {
namespace {

using base::Unit;

TEST(PointsNear, PairsTheFirstWithTheSecondAndTheThirdWithTheFourth) {
  // Two points far apart, but on the diagonal.
  EXPECT_TRUE(pointsNear(5.0, 5.0, -100.0, -100.0, 0, Unit::Mm));
  // The same point twice, off the diagonal.
  EXPECT_FALSE(pointsNear(5.0, 1.0, 5.0, 1.0, 0, Unit::Mm));
}

TEST(PointsNear, MeasuresBothDifferencesTogether) {
  EXPECT_TRUE(pointsNear(0.0, 0.5, 0.0, 0.5, 0, Unit::Mic));   // 0.7071
  EXPECT_FALSE(pointsNear(0.0, 0.8, 0.0, 0.8, 0, Unit::Mic));  // 1.1314
  EXPECT_FALSE(pointsNear(0.0, 0.6, 0.8, 0.0, 0, Unit::Mic));  // exactly 1
  EXPECT_TRUE(pointsNear(0.0, -0.6, 0.79999, 0.0, 0, Unit::Mic));
}

struct Tolerance {
  Unit unit;
  double distance;
};

TEST(PointsNear, IsTrueBelowTheToleranceOfTheUnitOnly) {
  for (const auto& [unit, distance] : {Tolerance{Unit::Mic, 1.0},
                                       {Unit::Mm, 0.03937},
                                       {Unit::Mil, 0.001},
                                       {Unit::Inch, 0.00003937}}) {
    EXPECT_FALSE(pointsNear(distance, 0.0, 0.0, 0.0, 0, unit)) << base::unitRecord(unit).word;
    EXPECT_FALSE(pointsNear(0.0, 0.0, 0.0, distance, 0, unit)) << base::unitRecord(unit).word;
    const double below = distance * 0.999999;
    EXPECT_TRUE(pointsNear(below, 0.0, 0.0, 0.0, 0, unit)) << base::unitRecord(unit).word;
    EXPECT_TRUE(pointsNear(0.0, 0.0, below, 0.0, 0, unit)) << base::unitRecord(unit).word;
    EXPECT_FALSE(pointsNear(distance * 1.000001, 0.0, 0.0, 0.0, 0, unit))
        << base::unitRecord(unit).word;
  }
}

TEST(PointsNear, HalvesBothDifferencesInModeOne) {
  EXPECT_FALSE(pointsNear(0.0, 1.9, 0.0, 0.0, 0, Unit::Mic));
  EXPECT_TRUE(pointsNear(0.0, 1.9, 0.0, 0.0, 1, Unit::Mic));
  EXPECT_TRUE(pointsNear(0.0, 0.0, 1.9, 0.0, 1, Unit::Mic));
  EXPECT_FALSE(pointsNear(0.0, 2.0, 0.0, 0.0, 1, Unit::Mic));
  EXPECT_FALSE(pointsNear(0.0, 1.9, 0.0, 0.0, 2, Unit::Mic)) << "other modes do not";
}

TEST(PointsNear, IsFalseWithoutAUnit) {
  EXPECT_FALSE(pointsNear(0.0, 0.0, 0.0, 0.0, 0, Unit::None));
}

}  // namespace
}  // namespace quillon::classic
