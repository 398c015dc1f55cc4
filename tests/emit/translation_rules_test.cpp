#include "emit/translation_rules.h"

#include <gtest/gtest.h>

#include "emit/emit_context.h"

namespace quillon::emit {
namespace {

TEST(NegativeText, HasASignAndANumberThatIsNotTiny) {
  const TranslationRules rules;
  for (const std::string_view text : {"-1", "-1.0", " -1", "-0.00001", "-1e-5", "-99", "-.5"}) {
    EXPECT_TRUE(rules.isNegativeText(text)) << text;
  }
  for (const std::string_view text : {"1", "1.0", "0", "", "+1", "0.5", "1e3"}) {
    EXPECT_FALSE(rules.isNegativeText(text)) << text;
  }
}

TEST(NegativeText, IsNotOneWithATinyNumber) {
  const TranslationRules rules;
  for (const std::string_view text : {"-0", "-0.0", "-1e-6", "-0.000009", "-", "-x", "1e-6"}) {
    EXPECT_FALSE(rules.isNegativeText(text)) << text;
  }
}

TEST(NegativeText, HasItsSignAnywhereAlsoInTheExponent) {
  const TranslationRules rules;
  for (const std::string_view text : {"1e-3", "1E-5", "0.5-", "2 - 1"}) {
    EXPECT_TRUE(rules.isNegativeText(text)) << text;
  }
}

TEST(TranslationRules, KeepTheOrderOfAnAreasCorners) {
  const std::array<Corner, 4> corners = {{{0, 0}, {1, 0}, {0, 1}, {1, 1}}};
  EXPECT_EQ(TranslationRules().areaCorners(corners), corners);
}

TEST(TranslationRules, AddTheRadiansOfAPlacementToTheDegreesOfAText) {
  EXPECT_EQ(TranslationRules().textRotation(30.0, {.rotation = 1.5}), 31.5);
}

TEST(TranslationRules, DoNotCarryATextRoundWithTheRotation) {
  const Corner at = TranslationRules().textPosition(
      1.0, 2.0, {.x = -1.0, .y = 1.0},
      {.dx = 10.0, .dy = 20.0, .scaleX = 3.0, .scaleY = 4.0, .rotation = kPi / 2});
  EXPECT_EQ(at, (Corner{7.0, 28.0}));
}

TEST(TranslationRules, ScaleTheBasePointOfABlockButDoNotTurnIt) {
  const Corner translation = TranslationRules().blockTranslation(
      {100.0, 200.0}, {1.0, 2.0}, {.scaleX = 3.0, .scaleY = -4.0, .rotation = kPi / 2});
  EXPECT_EQ(translation, (Corner{97.0, 208.0}));
}

struct Angles {
  double start;
  double end;
  bool operator==(const Angles&) const = default;
};

Angles mirrored(const Mirror& mirror, Angles angles) {
  TranslationRules().mirrorArc(mirror, angles.start, angles.end);
  return angles;
}

TEST(TranslationRules, SwapAndMirrorTheAnglesOfAnArcOnce) {
  EXPECT_EQ(mirrored({.x = 1.0, .y = 1.0}, {10, 80}), (Angles{10, 80}));
  EXPECT_EQ(mirrored({.x = -1.0, .y = 1.0}, {10, 80}), (Angles{100, 170}));
  EXPECT_EQ(mirrored({.x = 1.0, .y = -1.0}, {10, 80}), (Angles{100, 170}));
  EXPECT_EQ(mirrored({.x = -1.0, .y = -1.0}, {10, 80}), (Angles{100, 170}));
}

TEST(TranslationRules, KeepTheBulgeOfAMirroredSegment) {
  EXPECT_EQ(TranslationRules().placedBulge(0.5, {.x = -1.0, .y = 1.0}, {.scaleX = -1.0}), 0.5);
}

TEST(TranslationRules, ChooseTheOrderOfASplineByItsUpperBound) {
  const TranslationRules rules;
  EXPECT_EQ(rules.splineOrder(1), 2U);
  EXPECT_EQ(rules.splineOrder(2), 3U);
  EXPECT_EQ(rules.splineOrder(5), 6U);
  EXPECT_EQ(rules.splineOrder(13), 14U);
  EXPECT_EQ(rules.splineOrder(14), 7U);
  EXPECT_EQ(rules.splineOrder(20), 7U);
  EXPECT_EQ(rules.splineOrder(1000), 7U);
}

TEST(TranslationRules, TakeTenPointsOfASplineForEveryOneOfItsUpperBound) {
  const TranslationRules rules;
  EXPECT_EQ(rules.splineSamples(1), 10U);
  EXPECT_EQ(rules.splineSamples(5), 50U);
  EXPECT_EQ(rules.splineSamples(20), 200U);
}

TEST(TranslationRules, TakeTheLengthOfTheMajorAxisAsTheRadiusOfAnEllipse) {
  EXPECT_EQ(TranslationRules().ellipseAsCircleRadius({3.0, -4.0}), 5.0);
  EXPECT_EQ(TranslationRules().ellipseAsCircleRadius({-5.0, 0.0}), 5.0);
}

}  // namespace
}  // namespace quillon::emit
