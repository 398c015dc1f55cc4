#include "exact/part_turn.h"

#include <gtest/gtest.h>

#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::testing {
namespace {

using exact::PartTurn;
using geometry::Affine;
using geometry::Point;

/// From a block's coordinates to the script, for an insertion at (5 7).
Affine insertion(double scaleX, double scaleY, double degrees, Point base, double factor) {
  return Affine::scaling(factor, factor) * Affine::shift({5, 7}) *
         Affine::turnTo(geometry::unitVector(degrees)) * Affine::scaling(scaleX, scaleY) *
         Affine::shift(-base);
}

TEST(PartTurns, PlaceAndContentTogetherShowTheInsertion) {
  exact::Options options;
  options.factor = 25.4;
  const Point base{3, -2};
  for (const double x : {1.0, -1.0, 0.5, -2.0}) {
    for (const double y : {x, -x}) {
      for (const double degrees : {0.0, 33.3, 90.0, 180.0, 200.1, 270.0, 359.9, -45.0}) {
        const Affine map = insertion(x, y, degrees, base, options.factor);
        const auto turn = exact::partTurnOf(map, options);
        ASSERT_TRUE(turn) << x << " " << y << " " << degrees;
        EXPECT_EQ(turn->mirrored, x * y < 0.0);
        const Affine whole =
            exact::partPlace(*turn, map(base)) * exact::partContent(*turn, base, options);
        for (const Point p : {Point{0, 0}, Point{10, 0}, Point{-4, 8}}) {
          EXPECT_NEAR(geometry::distance(whole(p), map(p)), 0.0, 1e-9) << x << y << degrees;
        }
      }
    }
  }
}

TEST(PartTurns, TheMirrorIsTakenOutBeforeTheAngle) {
  const exact::Options options;
  const auto mirrored = [&](double x, double y, double degrees) {
    return exact::partTurnOf(insertion(x, y, degrees, {}, 1.0), options)->tenths;
  };
  EXPECT_EQ(mirrored(-1, 1, 30), 300);
  EXPECT_EQ(mirrored(1, -1, 30), 2100);
  EXPECT_EQ(mirrored(-1, -1, 30), 2100);
}

TEST(PartTurns, BoardsTakeTenthsOfADegreeAndSchematicsQuarterTurns) {
  exact::Options options;
  const auto turns = [&](double degrees) {
    return exact::partTurnOf(insertion(1, 1, degrees, {}, 1.0), options).has_value();
  };
  EXPECT_TRUE(turns(33.3009));
  EXPECT_FALSE(turns(33.302));
  options.target = exact::Target::Schematic;
  EXPECT_FALSE(turns(33.3));
  EXPECT_TRUE(turns(-89.9995));
}

TEST(PartTurns, ScalesHaveToBeEqualAndAxesSquare) {
  const exact::Options options;
  const auto turns = [&](const Affine& map) { return exact::partTurnOf(map, options).has_value(); };
  EXPECT_TRUE(turns(Affine::scaling(2.0, 2.000001)));
  EXPECT_FALSE(turns(Affine::scaling(2.0, 2.00001)));
  EXPECT_FALSE(turns({1.0, 0.01, 0.0, 1.0, 0.0, 0.0}));
  EXPECT_FALSE(turns(Affine::scaling(0.0, 0.0)));
  EXPECT_FALSE(turns(Affine::scaling(1e300, 1e300)));
}

}  // namespace
}  // namespace quillon::testing
