#include <string>

#include "hatch_groups.h"

namespace quillon::testing {
namespace {

using exact::HatchStyle;

GroupPairs hatchFamily(std::string_view angle, std::string_view x, std::string_view y,
                       std::string_view stepX, std::string_view stepY,
                       std::initializer_list<std::string_view> dashes = {}) {
  GroupPairs groups = {{53, angle}, {43, x}, {44, y}, {45, stepX}, {46, stepY}, {79, "0"}};
  for (const std::string_view dash : dashes) groups.emplace_back(49, dash);
  return groups;
}

/// With an angle and a scale, which the families have already.
GroupPairs patternHatch(const GroupPairs& loops, const GroupPairs& families,
                        std::string_view style = "0") {
  return hatchHead("0") + loops +
         GroupPairs{{75, style}, {76, "1"}, {52, "45"}, {41, "3"}, {77, "0"}, {78, "9"}} +
         families + GroupPairs{{98, "1"}, {10, "77"}, {20, "88"}};
}

const GroupPairs kLevel = hatchFamily("0", "0", "0.5", "0", "1");
constexpr const char* kBorderOfSquare = "7 wire 0 (0 0) (4 0) (4 4) (0 4) (0 0) as it is\n";

TEST(ExactPattern, LinesRunAsTheFamilySays) {
  EXPECT_EQ(shapesOf("HATCH", patternHatch(squareLoop("0", "4"), kLevel)),
            "7 wire 0 (0 0.5) (4 0.5) as it is\n7 wire 0 (0 1.5) (4 1.5) as it is\n"
            "7 wire 0 (0 2.5) (4 2.5) as it is\n7 wire 0 (0 3.5) (4 3.5) as it is\n");
}

TEST(ExactPattern, FamiliesFollowEachOther) {
  EXPECT_EQ(shapesOf("HATCH", patternHatch(squareLoop("0", "4"),
                                           hatchFamily("0", "0", "2", "0", "9") +
                                               hatchFamily("90", "1", "0", "-9", "0"))),
            "7 wire 0 (0 2) (4 2) as it is\n7 wire 0 (1 0) (1 4) as it is\n");
}

TEST(ExactPattern, LinesHaveTheWidthOfThePen) {
  exact::Options options;
  options.lineWidth = 0.25;
  EXPECT_EQ(
      shapesOf("HATCH", patternHatch(squareLoop("0", "4"), hatchFamily("0", "0", "2", "0", "9")),
               options),
      "7 wire 0.25 (0 2) (4 2) as it is\n");
}

TEST(ExactPattern, TheLineTypeOfTheHatchDoesNotShow) {
  DxfBuilder dxf = oneEntity(
      "HATCH", GroupPairs{{6, "DASHED"}} +
                   patternHatch(squareLoop("0", "4"), hatchFamily("0", "0", "2", "0", "9")));
  dxf.dashes("DASHED", "0.2", {"0.1", "-0.1"});
  exact::Options options;
  for (const auto lineTypes : {exact::LineTypes::Style, exact::LineTypes::Dashes}) {
    options.lineTypes = lineTypes;
    EXPECT_EQ(ExactDrawing(dxf, options).shapes(), "7 wire 0 (0 2) (4 2) as it is\n");
  }
}

TEST(ExactPattern, LinesEndAtArcs) {
  EXPECT_EQ(shapesOf("HATCH", patternHatch(edgeLoop() + arcEdge("0", "0", "5", "0", "360"),
                                           hatchFamily("0", "0", "3", "0", "20"))),
            "7 wire 0 (-4 3) (4 3) as it is\n");
}

TEST(ExactPattern, HolesStayFree) {
  EXPECT_EQ(shapesOf("HATCH", patternHatch(squareLoop("0", "4") + squareLoop("1", "3"),
                                           hatchFamily("0", "0", "2", "0", "9"))),
            "7 wire 0 (0 2) (1 2) as it is\n7 wire 0 (3 2) (4 2) as it is\n");
}

TEST(ExactPattern, TheStyleTellsWhichLoopsCount) {
  const GroupPairs loops = squareLoop("1", "9") + squareLoop("0", "10") + squareLoop("2", "8");
  const GroupPairs one = hatchFamily("0", "0", "5", "0", "50");
  EXPECT_EQ(shapesOf("HATCH", patternHatch(loops, one, "0")),
            "7 wire 0 (0 5) (1 5) as it is\n7 wire 0 (2 5) (8 5) as it is\n"
            "7 wire 0 (9 5) (10 5) as it is\n");
  EXPECT_EQ(shapesOf("HATCH", patternHatch(loops, one, "1")),
            "7 wire 0 (0 5) (1 5) as it is\n7 wire 0 (9 5) (10 5) as it is\n");
  EXPECT_EQ(shapesOf("HATCH", patternHatch(loops, one, "2")), "7 wire 0 (0 5) (10 5) as it is\n");
}

TEST(ExactPattern, DashesRepeatFromTheOrigin) {
  EXPECT_EQ(shapesOf("HATCH", patternHatch(squareLoop("0", "4"),
                                           hatchFamily("0", "1.75", "2", "0", "9", {"1", "-0.5"}))),
            "7 wire 0 (0.25 2) (1.25 2) as it is\n7 wire 0 (1.75 2) (2.75 2) as it is\n"
            "7 wire 0 (3.25 2) (4 2) as it is\n");
}

TEST(ExactPattern, DotsAreSmallDiscs) {
  const GroupPairs dotted =
      patternHatch(squareLoop("0", "3"), hatchFamily("0", "0.5", "1", "0", "9", {"0", "-1"}));
  EXPECT_EQ(shapesOf("HATCH", dotted), "7 dot 0.1 (0.5 1)\n7 dot 0.1 (1.5 1)\n7 dot 0.1 (2.5 1)\n");
  exact::Options options;
  options.lineWidth = 0.25;
  EXPECT_EQ(shapesOf("HATCH", dotted, options),
            "7 dot 0.25 (0.5 1)\n7 dot 0.25 (1.5 1)\n7 dot 0.25 (2.5 1)\n");
}

DxfBuilder insertedHatch(const GroupPairs& groups, const GroupPairs& placed) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("HATCH", GroupPairs{{8, "0"}} + groups).endBlock();
  dxf.entity("INSERT", GroupPairs{{8, "0"}, {2, "B"}} + placed);
  return dxf;
}

TEST(ExactPattern, ItIsTurnedAndScaledWithItsLoops) {
  EXPECT_EQ(
      ExactDrawing(insertedHatch(patternHatch(squareLoop("0", "4"),
                                              hatchFamily("0", "0", "1", "0", "9", {"1", "-2"})),
                                 {{10, "10"}, {20, "0"}, {41, "2"}, {42, "2"}, {50, "90"}}))
          .shapes(),
      "7 wire 0 (8 0) (8 2) as it is\n7 wire 0 (8 6) (8 8) as it is\n");
}

TEST(ExactPattern, ItIsMirroredWithItsLoops) {
  EXPECT_EQ(
      ExactDrawing(insertedHatch(patternHatch(squareLoop("0", "4"),
                                              hatchFamily("0", "0", "1", "0", "9", {"1", "-3"})),
                                 {{10, "0"}, {20, "0"}, {41, "-1"}, {42, "1"}}))
          .shapes(),
      "7 wire 0 (0 1) (-1 1) as it is\n");
}

TEST(ExactPattern, UnequalScalesChangeItsDirectionAndDashes) {
  const GroupPairs diagonal = patternHatch(
      squareLoop("0", "4"),
      hatchFamily("45", "0", "1", "-6", "6", {"1.41421356237309505", "-1.41421356237309505"}));
  EXPECT_EQ(
      ExactDrawing(insertedHatch(diagonal, {{10, "0"}, {20, "0"}, {41, "2"}, {42, "1"}})).shapes(),
      "7 wire 0 (0 1) (2 2) as it is\n7 wire 0 (4 3) (6 4) as it is\n");
}

TEST(ExactPattern, SeenFromBelowItIsMirrored) {
  EXPECT_EQ(
      shapesOf("HATCH", patternHatch(squareLoop("0", "4"), hatchFamily("45", "0", "1", "-6", "6")) +
                            GroupPairs{{230, "-1"}}),
      "7 wire 0 (0 1) (-3 4) as it is\n");
}

struct HatchOutcome {
  std::string shapes;
  std::string losses;
};

HatchOutcome hatchOutcome(const GroupPairs& groups, HatchStyle style = HatchStyle::Lines) {
  exact::Options options;
  options.hatch = style;
  const ExactDrawing drawing(oneEntity("HATCH", groups), options);
  return {drawing.shapes(), drawing.losses()};
}

TEST(ExactPattern, LinesTooCloseToEachOtherLeaveTheBorder) {
  const HatchOutcome fine =
      hatchOutcome(patternHatch(squareLoop("0", "4"), hatchFamily("0", "0", "0", "0", "0.049")));
  EXPECT_EQ(fine.shapes, kBorderOfSquare);
  EXPECT_EQ(fine.losses, "hatch-too-fine HATCH 1 line 7\n");
  EXPECT_EQ(
      hatchOutcome(patternHatch(squareLoop("0", "4"), hatchFamily("0", "0", "0", "0", "0.051")))
          .losses,
      "");
}

TEST(ExactPattern, TheLeastDistanceIsInMillimetres) {
  exact::Options options;
  options.unit = base::Unit::Inch;
  const GroupPairs lines =
      patternHatch(squareLoop("0", "4"), hatchFamily("0", "0", "0", "0", "0.049"));
  EXPECT_EQ(ExactDrawing(oneEntity("HATCH", lines), options).losses(), "");
}

TEST(ExactPattern, TooManyPiecesLeaveTheBorder) {
  // 200 lines of more than 100 dashes.
  const HatchOutcome many = hatchOutcome(patternHatch(
      squareLoop("0", "4"), hatchFamily("0", "0", "0.01", "0", "0.02", {"0.02", "-0.015"})));
  EXPECT_EQ(many.shapes, kBorderOfSquare);
  const HatchOutcome dashes = hatchOutcome(patternHatch(
      squareLoop("0", "4"), hatchFamily("0", "0", "0.03", "0", "0.06", {"0.001", "-0.001"})));
  EXPECT_EQ(dashes.shapes, kBorderOfSquare);
  EXPECT_EQ(dashes.losses, "hatch-too-fine HATCH 1 line 7\n");
}

TEST(ExactPattern, WithoutFamiliesTheBorderIsLeft) {
  const HatchOutcome none = hatchOutcome(patternHatch(squareLoop("0", "4"), {}));
  EXPECT_EQ(none.shapes, kBorderOfSquare);
  EXPECT_EQ(none.losses, "hatch-without-lines HATCH 1 line 7\n");
}

TEST(ExactPattern, ItMayBeDrawnAsItsBorder) {
  const HatchOutcome border =
      hatchOutcome(patternHatch(squareLoop("0", "4"), kLevel), HatchStyle::Border);
  EXPECT_EQ(border.shapes, kBorderOfSquare);
  EXPECT_EQ(border.losses, "hatch-other-style HATCH 1 line 7\n");
}

TEST(ExactPattern, ItMayBeFilled) {
  const HatchOutcome solid =
      hatchOutcome(patternHatch(squareLoop("0", "4"), kLevel), HatchStyle::Solid);
  EXPECT_EQ(solid.shapes, "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  EXPECT_EQ(solid.losses, "hatch-other-style HATCH 1 line 7\nfine-fill HATCH 1 line 7\n");
}

TEST(ExactPattern, ItMayBeLeftOut) {
  const HatchOutcome nothing =
      hatchOutcome(patternHatch(squareLoop("0", "4"), kLevel), HatchStyle::None);
  EXPECT_EQ(nothing.shapes, "");
  EXPECT_EQ(nothing.losses, "hatch-left-out HATCH 1 line 7\n");
  DxfBuilder dxf = oneEntity("HATCH", patternHatch(squareLoop("0", "4"), kLevel));
  dxf.header("$FILLMODE", 70, "0");
  exact::Options options;
  options.hatch = HatchStyle::None;
  EXPECT_EQ(ExactDrawing(dxf, options).shapes(), "");
}

TEST(ExactPattern, AnMPolygonKeepsItsBorder) {
  const GroupPairs groups =
      patternHatch(squareLoop("0", "4"), hatchFamily("0", "0", "2", "0", "9"));
  EXPECT_EQ(shapesOf("MPOLYGON", groups),
            "7 wire 0 (0 0) (4 0) (4 4) (0 4) (0 0)\n7 wire 0 (0 2) (4 2) as it is\n");
  exact::Options options;
  options.hatch = HatchStyle::Border;
  EXPECT_EQ(shapesOf("MPOLYGON", groups, options), "7 wire 0 (0 0) (4 0) (4 4) (0 4) (0 0)\n");
}

TEST(ExactPatternHostile, GapsAloneShowNothing) {
  const HatchOutcome gaps = hatchOutcome(
      patternHatch(squareLoop("0", "4"), hatchFamily("0", "0", "0", "0", "1", {"-1e-9"})));
  EXPECT_EQ(gaps.shapes, "");
}

TEST(ExactPatternHostile, DashesWithoutLengthEndSoon) {
  const GroupPairs tiny = patternHatch(
      squareLoop("0", "1000"), hatchFamily("0", "0", "0.5", "0", "0.1", {"1e-300", "-1e-3"}));
  EXPECT_EQ(hatchOutcome(tiny).losses, "hatch-too-fine HATCH 1 line 7\n");
}

TEST(ExactPatternHostile, VeryManyFamiliesOrDashesAreTooFine) {
  GroupPairs families;
  for (int i = 0; i < 1001; ++i) families = std::move(families) + kLevel;
  EXPECT_EQ(hatchOutcome(patternHatch(squareLoop("0", "4"), families)).losses,
            "hatch-too-fine HATCH 1 line 7\n");
  GroupPairs dashes = kLevel;
  for (int i = 0; i < 1001; ++i) dashes.emplace_back(49, i % 2 == 0 ? "1" : "-1");
  EXPECT_EQ(hatchOutcome(patternHatch(squareLoop("0", "4"), dashes)).losses,
            "hatch-too-fine HATCH 1 line 7\n");
}

TEST(ExactPatternHostile, NumbersThatAreNoneShowNothing) {
  for (const char* number : {"1e300", "-1e999"}) {
    EXPECT_EQ(
        hatchOutcome(patternHatch(squareLoop("0", "4"), hatchFamily("0", number, "0", "0", "1")))
            .shapes,
        "");
  }
  EXPECT_EQ(
      hatchOutcome(patternHatch(squareLoop("0", "4"), hatchFamily("1e999", "0", "0", "0", "1")))
          .shapes,
      "");
}

TEST(ExactPatternHostile, LinesAtRandomPlacesAreAsManyAsFit) {
  // Far from the origin of the family.
  EXPECT_EQ(hatchOutcome(patternHatch(squareLoop("1000000", "1000004"), kLevel)).shapes,
            "7 wire 0 (1000000 1000000.5) (1000004 1000000.5) as it is\n"
            "7 wire 0 (1000000 1000001.5) (1000004 1000001.5) as it is\n"
            "7 wire 0 (1000000 1000002.5) (1000004 1000002.5) as it is\n"
            "7 wire 0 (1000000 1000003.5) (1000004 1000003.5) as it is\n");
}

}  // namespace
}  // namespace quillon::testing
