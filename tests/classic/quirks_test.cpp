#include "classic/quirks.h"

#include <gtest/gtest.h>

namespace quillon::classic {
namespace {

using geometry::kPi;
using geometry::Mirror;
using geometry::Point;

TEST(NegativeText, HasASignAndANumberThatIsNotTiny) {
  for (const std::string_view text : {"-1", "-1.0", " -1", "-0.00001", "-1e-5", "-99", "-.5"}) {
    EXPECT_TRUE(isNegativeText(text)) << text;
  }
  for (const std::string_view text : {"1", "1.0", "0", "", "+1", "0.5", "1e3"}) {
    EXPECT_FALSE(isNegativeText(text)) << text;
  }
}

TEST(NegativeText, IsNotOneWithATinyNumber) {
  for (const std::string_view text : {"-0", "-0.0", "-1e-6", "-0.000009", "-", "-x", "1e-6"}) {
    EXPECT_FALSE(isNegativeText(text)) << text;
  }
}

TEST(NegativeText, HasItsSignAnywhereAlsoInTheExponent) {
  for (const std::string_view text : {"1e-3", "1E-5", "0.5-", "2 - 1"}) {
    EXPECT_TRUE(isNegativeText(text)) << text;
  }
}

TEST(ClassicQuirks, AddTheRadiansOfAPlacementToTheDegreesOfAText) {
  EXPECT_EQ(textRotation(30.0, {.rotation = 1.5}), 31.5);
}

TEST(ClassicQuirks, DoNotCarryATextRoundWithTheRotation) {
  const Point at =
      textPosition(1.0, 2.0, {.x = -1.0, .y = 1.0},
                   {.dx = 10.0, .dy = 20.0, .scaleX = 3.0, .scaleY = 4.0, .rotation = kPi / 2});
  EXPECT_EQ(at, (Point{7.0, 28.0}));
}

TEST(ClassicQuirks, ScaleTheBasePointOfABlockButDoNotTurnIt) {
  const Point translation = blockTranslation({100.0, 200.0}, {1.0, 2.0},
                                             {.scaleX = 3.0, .scaleY = -4.0, .rotation = kPi / 2});
  EXPECT_EQ(translation, (Point{97.0, 208.0}));
}

struct Angles {
  double start;
  double end;
  bool operator==(const Angles&) const = default;
};

Angles mirrored(const Mirror& mirror, Angles angles) {
  mirrorArc(mirror, angles.start, angles.end);
  return angles;
}

TEST(ClassicQuirks, SwapAndMirrorTheAnglesOfAnArcOnce) {
  EXPECT_EQ(mirrored({.x = 1.0, .y = 1.0}, {10, 80}), (Angles{10, 80}));
  EXPECT_EQ(mirrored({.x = -1.0, .y = 1.0}, {10, 80}), (Angles{100, 170}));
  EXPECT_EQ(mirrored({.x = 1.0, .y = -1.0}, {10, 80}), (Angles{100, 170}));
  EXPECT_EQ(mirrored({.x = -1.0, .y = -1.0}, {10, 80}), (Angles{100, 170}));
}

TEST(ClassicQuirks, ChooseTheOrderOfASplineByItsUpperBound) {
  EXPECT_EQ(splineOrder(1), 2U);
  EXPECT_EQ(splineOrder(2), 3U);
  EXPECT_EQ(splineOrder(5), 6U);
  EXPECT_EQ(splineOrder(13), 14U);
  EXPECT_EQ(splineOrder(14), 7U);
  EXPECT_EQ(splineOrder(20), 7U);
  EXPECT_EQ(splineOrder(1000), 7U);
}

TEST(ClassicQuirks, TakeTenPointsOfASplineForEveryOneOfItsUpperBound) {
  EXPECT_EQ(splineSamples(1), 10U);
  EXPECT_EQ(splineSamples(5), 50U);
  EXPECT_EQ(splineSamples(20), 200U);
}

}  // namespace
}  // namespace quillon::classic
