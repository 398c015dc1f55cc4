#include <string>

#include "hatch_groups.h"

namespace quillon::testing {
namespace {

using exact::HatchStyle;
using exact::LossRule;

/// (4 5) (5 4) (6 5) (5 6)
GroupPairs diamondLoop() { return cornerLoop({"4", "5", "5", "4", "6", "5", "5", "6"}); }

constexpr const char* kSquareWithDiamond =
    "7 area (0 0) (10 0) (10 4.9995) (5.9995 4.9995) (5 4) (4 5) (5 6) (5.9995 5.0005) "
    "(10 5.0005) (10 10) (0 10) (0 0)\n";

DxfBuilder hatchWithoutFill(const GroupPairs& groups, std::string_view kind = "HATCH") {
  DxfBuilder dxf = oneEntity(kind, groups);
  dxf.header("$FILLMODE", 70, "0");
  return dxf;
}

/// On a layer for which no hint about widths is given.
ExactDrawing drawnHatch(const GroupPairs& groups, const exact::Options& options = {}) {
  LayersOfTest layers;
  layers.numbers["0"] = 20;
  return ExactDrawing(oneEntity("HATCH", groups), options, layers);
}

TEST(ExactHatch, ALoopOfCornersIsFilled) {
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + squareLoop("0", "4") + hatchTail()),
            "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
}

TEST(ExactHatch, ItsOuterSideIsAtTheLeftWhateverItsSense) {
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + cornerLoop({"0", "0", "0", "4", "4", "4", "4", "0"}) +
                                  hatchTail()),
            "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
}

TEST(ExactHatch, BulgesAreArcs) {
  const GroupPairs halfDisc = {{92, "2"}, {72, "1"}, {73, "1"},  {93, "2"}, {10, "0"},
                               {20, "0"}, {42, "0"}, {10, "10"}, {20, "0"}, {42, "1"}};
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + halfDisc + hatchTail()),
            "7 area (0 0) (10 0) +90 (5 5) +90 (0 0)\n");
}

TEST(ExactHatch, TheFirstCornerMayBeRepeated) {
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + cornerLoop({"0", "0", "4", "0", "4", "4", "0", "0"}) +
                                  hatchTail()),
            "7 area (0 0) (4 0) (4 4) (0 0)\n");
}

TEST(ExactHatch, AHoleIsJoinedByASlit) {
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + squareLoop("0", "10") + diamondLoop() + hatchTail()),
            kSquareWithDiamond);
}

TEST(ExactHatch, WithTheNormalStyleEverySecondLoopIsAHole) {
  const std::string shapes =
      shapesOf("HATCH", hatchHead() + squareLoop("4.8", "5.2") + diamondLoop() +
                            squareLoop("0", "10") + hatchTail("0"));
  EXPECT_EQ(shapes, "7 area (4.8 4.8) (5.2 4.8) (5.2 5.2) (4.8 5.2) (4.8 4.8)\n" +
                        std::string(kSquareWithDiamond));
}

TEST(ExactHatch, WithTheOuterStyleLoopsInHolesAreLeftOut) {
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + squareLoop("4.8", "5.2") + diamondLoop() +
                                  squareLoop("0", "10") + hatchTail("1")),
            kSquareWithDiamond);
}

TEST(ExactHatch, WithTheIgnoringStyleThereAreNoHoles) {
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + squareLoop("4.8", "5.2") + diamondLoop() +
                                  squareLoop("0", "10") + hatchTail("2")),
            "7 area (0 0) (10 0) (10 10) (0 10) (0 0)\n");
}

TEST(ExactHatch, LoopsThatAreLeftOutMayTouchOthers) {
  // A hole would touch the border; without holes nothing is cut.
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + squareLoop("0", "10") +
                                  cornerLoop({"10", "5", "5", "4", "5", "6"}) + hatchTail("2")),
            "7 area (0 0) (10 0) (10 10) (0 10) (0 0)\n");
}

TEST(ExactHatch, LoopsThatCrossAreFilledWhereAnOddNumberCovers) {
  const std::string shapes =
      shapesOf("HATCH", hatchHead() + squareLoop("0", "4") + squareLoop("2", "6") + hatchTail());
  EXPECT_EQ(areasIn(shapes).size(), 2U);
  EXPECT_NEAR(filledIn(shapes), 2 * (16 - 4), 1e-3);
}

TEST(ExactHatch, AHoleThatTouchesTheBorderIsCutOut) {
  const std::string shapes =
      shapesOf("HATCH", hatchHead() + squareLoop("0", "10") +
                            cornerLoop({"10", "4", "6", "4", "6", "6", "10", "6"}) + hatchTail());
  EXPECT_EQ(areasIn(shapes).size(), 1U);
  EXPECT_NEAR(filledIn(shapes), 92.0, 1e-3);
}

TEST(ExactHatch, ALoopThatCrossesItselfIsFilledOnBothSides) {
  for (const char* style : {"0", "1", "2"}) {
    const std::string shapes =
        shapesOf("HATCH", hatchHead() + cornerLoop({"0", "0", "2", "2", "2", "0", "0", "2"}) +
                              hatchTail(style));
    EXPECT_EQ(areasIn(shapes).size(), 2U);
    EXPECT_NEAR(filledIn(shapes), 2.0, 1e-3) << style;
  }
}

TEST(ExactHatch, LoopsWithoutAreaAreDropped) {
  const ExactDrawing drawing =
      drawnHatch(hatchHead() + cornerLoop({"0", "0", "9", "9", "3", "3"}) + squareLoop("0", "4") +
                 cornerLoop({"1", "1"}) + hatchTail());
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactHatch, AHatchWithoutAreaIsNamed) {
  EXPECT_EQ(drawnHatch(hatchHead() + cornerLoop({"0", "0", "9", "9"}) + hatchTail()).losses(),
            "no-size HATCH 1 line 7\n");
  EXPECT_EQ(drawnHatch({}).losses(), "no-size HATCH 1 line 7\n");
}

TEST(ExactHatch, BoxesOfTextsAreLeftOutAndNamed) {
  const ExactDrawing drawing =
      drawnHatch(hatchHead() + squareLoop("0", "4") +
                 cornerLoop({"1", "1", "2", "1", "2", "2", "1", "2"}, "10") + hatchTail());
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "hatch-text-box HATCH 1 line 7\n");
}

TEST(ExactHatch, GradientsAreFilledAndNamed) {
  const ExactDrawing drawing = drawnHatch(hatchHead() + squareLoop("0", "4") + hatchTail() +
                                          GroupPairs{{450, "1"}, {460, "0.5"}});
  EXPECT_EQ(drawing.shapes(), "20 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  EXPECT_EQ(drawing.losses(), "gradient-as-area HATCH 1 line 7\n");
  EXPECT_EQ(drawnHatch(hatchHead() + squareLoop("0", "4") + hatchTail() + GroupPairs{{450, "0"}})
                .losses(),
            "");
}

TEST(ExactHatch, ItIsInObjectCoordinatesAtItsElevation) {
  EXPECT_EQ(shapesOf("HATCH", hatchHead() + squareLoop("0", "4") + hatchTail() +
                                  GroupPairs{{210, "0"}, {220, "0"}, {230, "-1"}}),
            "7 area (0 0) (0 4) (-4 4) (-4 0) (0 0)\n");
  // Seen from the side at 45 degrees: x of the object is y of the world.
  GroupPairs oblique = hatchHead();
  oblique[3].second = "2";
  const std::string shapes = shapesOf("HATCH", oblique + squareLoop("0", "4") + hatchTail() +
                                                   GroupPairs{{210, "1"}, {220, "0"}, {230, "1"}});
  EXPECT_EQ(shapes, "7 area (1.414214 0) (1.414214 4) (-1.414214 4) (-1.414214 0) (1.414214 0)\n");
}

TEST(ExactHatch, WhereFillModeIsOffItsBorderShows) {
  EXPECT_EQ(
      ExactDrawing(hatchWithoutFill(hatchHead() + squareLoop("0", "4") + hatchTail())).shapes(),
      "7 wire 0 (0 0) (4 0) (4 4) (0 4) (0 0) as it is\n");
  const GroupPairs family = {{78, "1"}, {53, "0"}, {43, "0"}, {44, "0"},
                             {45, "0"}, {46, "1"}, {79, "0"}};
  const ExactDrawing pattern(
      hatchWithoutFill(hatchHead("0") + squareLoop("0", "4") + hatchTail() + family));
  EXPECT_EQ(pattern.shapes(), "7 wire 0 (0 0) (4 0) (4 4) (0 4) (0 0) as it is\n");
  EXPECT_EQ(pattern.losses(), "");
}

TEST(ExactHatch, TheOptionForPatternsLeavesSolidOnesAlone) {
  for (const HatchStyle style : {HatchStyle::Border, HatchStyle::Solid, HatchStyle::None}) {
    exact::Options options;
    options.hatch = style;
    EXPECT_EQ(shapesOf("HATCH", hatchHead() + squareLoop("0", "4") + hatchTail(), options),
              "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  }
}

/// An MPOLYGON has these in another order, and an offset after the pattern's type.
GroupPairs multiPolygon(std::string_view solid) {
  return {{100, "AcDbMPolygon"},
          {70, solid},
          {71, "0"},
          {91, "1"},
          {92, "2"},
          {73, "1"},
          {72, "0"},
          {93, "3"},
          {10, "0"},
          {20, "0"},
          {10, "4"},
          {20, "0"},
          {10, "4"},
          {20, "4"},
          {75, "0"},
          {76, "1"},
          {11, "100"},
          {21, "200"},
          {99, "0"}};
}

TEST(ExactMPolygon, ItHasABorderAndAnOffset) {
  EXPECT_EQ(shapesOf("MPOLYGON", multiPolygon("1")),
            "7 wire 0 (100 200) (104 200) (104 204) (100 200)\n"
            "7 area (100 200) (104 200) (104 204) (100 200)\n");
}

TEST(ExactMPolygon, WithoutAFillTheBorderIsAll) {
  const ExactDrawing drawing(oneEntity("MPOLYGON", multiPolygon("0")));
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (100 200) (104 200) (104 204) (100 200)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactMPolygon, WhereFillModeIsOffTheBorderIsDrawnOnce) {
  EXPECT_EQ(ExactDrawing(hatchWithoutFill(multiPolygon("1"), "MPOLYGON")).shapes(),
            "7 wire 0 (100 200) (104 200) (104 204) (100 200)\n");
}

TEST(ExactHatch, WhatComesBeforeItsClassIsNotItsOwn) {
  // The size of a preview has the code of a loop's flags.
  EXPECT_EQ(shapesOf("HATCH", GroupPairs{{92, "16"}, {310, "0011"}, {75, "2"}} + hatchHead() +
                                  squareLoop("0", "10") + diamondLoop() + hatchTail()),
            kSquareWithDiamond);
}

TEST(ExactHatch, CountsAreNotBelieved) {
  GroupPairs groups = hatchHead();
  groups.back().second = "1000000000";
  groups = groups + squareLoop("0", "4") + hatchTail();
  EXPECT_EQ(shapesOf("HATCH", groups), "7 area (0 0) (4 0) (4 4) (0 4) (0 0)\n");
}

void putHatchGroup(std::string& text, int code, const std::string& value) {
  text += std::to_string(code) + "\n" + value + "\n";
}

/// A drawing with one hatch, without what comes after its loops.
std::string hatchDrawing(const std::string& loops, const std::string& style) {
  std::string text = "0\nSECTION\n2\nENTITIES\n0\nHATCH\n8\n0\n100\nAcDbHatch\n70\n1\n91\n1\n";
  text += loops + "75\n" + style + "\n0\nENDSEC\n0\nEOF\n";
  return text;
}

std::string squareText(double x, double y, double half) {
  std::string text;
  putHatchGroup(text, 92, "2");
  for (const auto& [sx, sy] : {std::pair(-1, -1), {1, -1}, {1, 1}, {-1, 1}}) {
    putHatchGroup(text, 10, std::to_string(x + sx * half));
    putHatchGroup(text, 20, std::to_string(y + sy * half));
  }
  return text;
}

TEST(ExactHatchHostile, ThousandsOfNestedLoopsAreFilled) {
  std::string loops;
  for (int i = 1; i <= 2000; ++i) loops += squareText(0, 0, i);
  const ExactDrawing drawing(hatchDrawing(loops, "0"));
  // Rings of width 1: each from 2 k - 1 to 2 k.
  double expected = 0.0;
  for (double k = 1; k <= 1000; ++k) expected += 4 * (4 * k * k - (2 * k - 1) * (2 * k - 1));
  EXPECT_NEAR(filledIn(drawing.shapes()), expected, 1e-4 * expected);
}

TEST(ExactHatchHostile, MoreNestedLoopsThanCanBeSortedAreFilledAllTheSame) {
  std::string loops;
  for (int i = 1; i <= 3500; ++i) loops += squareText(0, 0, i);
  const ExactDrawing drawing(hatchDrawing(loops, "0"));
  double expected = 0.0;
  for (double k = 1; k <= 1750; ++k) expected += 4 * (4 * k * k - (2 * k - 1) * (2 * k - 1));
  EXPECT_NEAR(filledIn(drawing.shapes()), expected, 1e-4 * expected);
  EXPECT_EQ(ExactDrawing(hatchDrawing(loops, "1")).losses(), "area-too-intricate HATCH 1 line 7\n");
}

TEST(ExactHatchHostile, ThousandsOfLoopsSideBySideAreFilled) {
  std::string loops;
  for (int i = 0; i < 100; ++i) {
    for (int j = 0; j < 100; ++j) loops += squareText(i, j, 0.25);
  }
  const ExactDrawing drawing(hatchDrawing(loops, "0"));
  EXPECT_EQ(areasIn(drawing.shapes()).size(), 10000U);
  EXPECT_NEAR(filledIn(drawing.shapes()), 2500.0, 1e-3);
}

TEST(ExactHatchHostile, NumbersThatAreNoneAreNamed) {
  for (const char* number : {"1e300", "-1e308", "1e999"}) {
    const ExactDrawing drawing =
        drawnHatch(hatchHead() + cornerLoop({"0", "0", number, "0", "4", "4"}) + hatchTail());
    EXPECT_EQ(drawing.shapes(), "");
    EXPECT_EQ(drawing.losses(), "unusable-numbers HATCH 1 line 7\nno-size HATCH 1 line 7\n");
  }
}

TEST(ExactHatchHostile, ACornerWithoutYIsNamed) {
  const GroupPairs loop = {{92, "2"}, {10, "0"}, {10, "4"}, {20, "0"}, {10, "4"}, {20, "4"}};
  EXPECT_EQ(drawnHatch(hatchHead() + loop + hatchTail()).losses(),
            "unusable-numbers HATCH 1 line 7\nno-size HATCH 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
