#include <gtest/gtest.h>

#include "exact_drawing.h"

namespace quillon::testing {
namespace {

/// A line of this length along the x axis.
GroupPairs lineOf(std::string_view length, const GroupPairs& more = {}) {
  GroupPairs groups = {{8, "0"}, {10, "0"}, {20, "0"}, {11, length}, {21, "0"}};
  groups.insert(groups.end(), more.begin(), more.end());
  return groups;
}

DxfBuilder withLineTypes() {
  DxfBuilder dxf;
  dxf.dashes("DASHED", "10", {"6", "-4"}).dashes("SHORT", "3", {"2", "-1"});
  dxf.dashes("DASHDOT", "10", {"6", "-2", "0", "-2"}).dashes("DOT", "1", {"0", "-1"});
  dxf.lineType("GAS", {{70, "0"}, {73, "2"}, {40, "10"}, {49, "6"}, {74, "2"}, {49, "-4"}});
  dxf.layer("0").layer("D", "Dashed");
  return dxf;
}

exact::Options drawnAs(exact::LineTypes lineTypes) {
  exact::Options options;
  options.lineTypes = lineTypes;
  return options;
}

TEST(ExactLineTypes, DashedLinesAreSolidAndCountedUnlessWantedOtherwise) {
  DxfBuilder dxf = withLineTypes();
  dxf.entity("LINE", lineOf("30", {{6, "dashed"}}));
  dxf.entity("LINE", lineOf("31", {{6, "DOT"}}));
  dxf.entity("LINE", lineOf("32"));
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (0 0) (30 0)\n7 wire 0 (0 0) (31 0)\n7 wire 0 (0 0) (32 0)\n");
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::DrawnSolid), 2U);
}

TEST(ExactLineTypes, EveryKindWhoseLinesAreSolidInsteadIsNamedOnce) {
  const GroupPairs endless = {{8, "0"},  {6, "DASHED"}, {10, "0"},
                              {20, "0"}, {11, "30"},    {21, "30"}};
  DxfBuilder dxf = withLineTypes();
  dxf.entity("XLINE", endless).entity("RAY", endless);
  dxf.entity("MESH", {{8, "0"},   {6, "DASHED"}, {100, "AcDbSubDMesh"},
                      {91, "0"},  {92, "3"},     {10, "0"},
                      {20, "0"},  {30, "0"},     {10, "30"},
                      {20, "0"},  {30, "0"},     {10, "30"},
                      {20, "30"}, {30, "0"},     {93, "4"},
                      {90, "3"},  {90, "0"},     {90, "1"},
                      {90, "2"},  {94, "0"}});
  dxf.entity("MPOLYGON",
             {{8, "0"},   {6, "DASHED"}, {70, "1"},  {10, "0"},  {20, "0"}, {2, "SOLID"}, {71, "0"},
              {91, "1"},  {92, "2"},     {72, "0"},  {73, "1"},  {93, "3"}, {10, "0"},    {20, "0"},
              {10, "30"}, {20, "0"},     {10, "30"}, {20, "30"}, {75, "0"}, {76, "1"}});
  dxf.entity("DIMENSION", {{8, "0"},
                           {6, "DASHED"},
                           {10, "0"},
                           {20, "20"},
                           {70, "1"},
                           {13, "0"},
                           {23, "0"},
                           {14, "50"},
                           {24, "0"}});
  dxf.entity("MULTILEADER", {{8, "0"},
                             {6, "DASHED"},
                             {100, "AcDbMLeader"},
                             {300, "CONTEXT_DATA{"},
                             {302, "LEADER{"},
                             {290, "1"},
                             {10, "40"},
                             {20, "0"},
                             {304, "LEADER_LINE{"},
                             {10, "0"},
                             {20, "0"},
                             {305, "}"},
                             {303, "}"},
                             {301, "}"},
                             {170, "1"}});
  const ExactDrawing drawing(dxf);
  for (const char* const kind : {"MESH", "MPOLYGON", "DIMENSION", "MULTILEADER"}) {
    EXPECT_NE(drawing.losses().find("line-type-solid " + std::string(kind) + " 1 line "),
              std::string::npos)
        << kind << "\n"
        << drawing.losses();
  }
  EXPECT_EQ(drawing.shapes().find("7 xline (0 0) (30 30) solid\n7 ray (0 0) (30 30) solid\n"), 0U);
  for (const auto lineTypes : {exact::LineTypes::Style, exact::LineTypes::Dashes}) {
    EXPECT_EQ(ExactDrawing(dxf, drawnAs(lineTypes)).losses().find("line-type-solid"),
              std::string::npos);
  }
}

TEST(ExactLineTypes, LinesThatAreSolidInTheDrawingAreNoLoss) {
  DxfBuilder dxf = withLineTypes();
  dxf.dashes("ONE", "5", {"5"});
  dxf.entity("LINE", lineOf("0", {{6, "DASHED"}}));
  dxf.entity("LINE", lineOf("10", {{6, "DASHED"}}));
  dxf.entity("LINE", lineOf("30", {{6, "ONE"}}));
  // Each edge has a pattern of its own, unless it goes on around corners.
  const GroupPairs corner = {{6, "DASHED"}, {10, "0"}, {20, "0"}, {10, "6"},
                             {20, "0"},     {10, "6"}, {20, "6"}};
  const auto polyline = [&](std::string_view flags, std::string_view width) {
    GroupPairs groups = {{8, "0"}, {70, flags}, {43, width}};
    groups.insert(groups.end(), corner.begin(), corner.end());
    dxf.entity("LWPOLYLINE", groups);
  };
  polyline("0", "0");
  polyline("0", "1");
  EXPECT_EQ(ExactDrawing(dxf).lossList().countOf(exact::LossRule::DrawnSolid), 0U);
  polyline("128", "0");
  polyline("128", "1");
  dxf.entity("CIRCLE", {{8, "0"}, {6, "DASHED"}, {10, "0"}, {20, "0"}, {40, "2"}});
  EXPECT_EQ(ExactDrawing(dxf).lossList().countOf(exact::LossRule::DrawnSolid), 3U);
}

TEST(ExactLineTypes, TheStyleFollowsTheFirstDashAndTheDots) {
  DxfBuilder dxf = withLineTypes();
  for (const char* const name : {"DASHED", "SHORT", "DASHDOT", "DOT"}) {
    dxf.entity("LINE", lineOf("30", {{6, name}}));
  }
  EXPECT_EQ(ExactDrawing(dxf, drawnAs(exact::LineTypes::Style)).shapes(),
            "7 wire 0 style 1 (0 0) (30 0)\n7 wire 0 style 2 (0 0) (30 0)\n"
            "7 wire 0 style 3 (0 0) (30 0)\n7 wire 0 style 3 (0 0) (30 0)\n");
}

// 30 takes two whole patterns of 10; 16 are left for the dashes at both ends.
TEST(ExactLineTypes, DashesBeginAndEndALine) {
  DxfBuilder dxf = withLineTypes();
  dxf.entity("LINE", lineOf("30", {{6, "DASHED"}}));
  EXPECT_EQ(ExactDrawing(dxf, drawnAs(exact::LineTypes::Dashes)).shapes(),
            "7 wire 0 (0 0) (8 0) as it is\n7 wire 0 (12 0) (18 0) as it is\n"
            "7 wire 0 (22 0) (30 0) as it is\n");
}

TEST(ExactLineTypes, LinesNoLongerThanThePatternAreSolid) {
  DxfBuilder dxf = withLineTypes();
  dxf.entity("LINE", lineOf("10", {{6, "DASHED"}}));
  EXPECT_EQ(ExactDrawing(dxf, drawnAs(exact::LineTypes::Dashes)).shapes(),
            "7 wire 0 (0 0) (10 0) as it is\n");
}

TEST(ExactLineTypes, DashesGrowWithTheScalesOfDrawingEntityAndBlock) {
  DxfBuilder dxf = withLineTypes();
  dxf.header("$LTSCALE", 40, "0.5");
  dxf.beginBlock("B").entity("LINE", lineOf("7.5", {{6, "DASHED"}, {48, "0.5"}})).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}, {41, "4"}, {42, "4"}});
  EXPECT_EQ(ExactDrawing(dxf, drawnAs(exact::LineTypes::Dashes)).shapes(),
            "7 wire 0 (0 0) (8 0) as it is\n7 wire 0 (12 0) (18 0) as it is\n"
            "7 wire 0 (22 0) (30 0) as it is\n");
}

TEST(ExactLineTypes, TheyAreThoseOfLayersAndReferences) {
  DxfBuilder dxf = withLineTypes();
  dxf.beginBlock("B");
  dxf.entity("LINE", lineOf("30", {{6, "BYBLOCK"}}));
  dxf.entity("LINE", lineOf("31"));
  dxf.endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "0"}, {20, "10"}, {6, "DASHED"}});
  dxf.entity("INSERT", {{8, "D"}, {2, "B"}, {10, "0"}, {20, "20"}});
  dxf.entity("LINE", lineOf("32", {{6, "BYBLOCK"}}));
  EXPECT_EQ(ExactDrawing(dxf, drawnAs(exact::LineTypes::Style)).shapes(),
            "7 wire 0 style 1 (0 10) (30 10)\n7 wire 0 (0 10) (31 10)\n"
            "7 wire 0 style 1 (0 20) (30 20)\n7 wire 0 style 1 (0 20) (31 20)\n"
            "7 wire 0 (0 0) (32 0)\n");
}

TEST(ExactLineTypes, LettersAndSymbolsInThemAreLeftOutAndNamed) {
  DxfBuilder dxf = withLineTypes();
  dxf.entity("LINE", lineOf("30", {{6, "GAS"}}));
  dxf.entity("TEXT", {{8, "0"}, {6, "GAS"}, {10, "0"}, {20, "9"}, {40, "1"}, {1, "x"}});
  for (const auto lineTypes : {exact::LineTypes::Style, exact::LineTypes::Dashes}) {
    const ExactDrawing drawing(dxf, drawnAs(lineTypes));
    EXPECT_NE(drawing.losses().find("line-type-shapes LINE 1 line "), std::string::npos)
        << drawing.losses();
    EXPECT_EQ(drawing.losses().find("line-type-shapes TEXT"), std::string::npos);
  }
  EXPECT_EQ(ExactDrawing(dxf).losses().find("line-type-shapes"), std::string::npos);
}

TEST(ExactLineTypes, ALineTypeOfSymbolsWithoutGapsIsNamed) {
  DxfBuilder dxf;
  dxf.lineType("TRACKS", {{70, "0"}, {73, "2"}, {40, "4"}, {49, "2"}, {74, "4"}, {49, "2"}});
  dxf.entity("LINE", lineOf("30", {{6, "TRACKS"}})).entity("LINE", lineOf("4", {{6, "TRACKS"}}));
  EXPECT_EQ(ExactDrawing(dxf).lossList().countOf(exact::LossRule::DrawnSolid), 1U);
  const ExactDrawing dashed(dxf, drawnAs(exact::LineTypes::Dashes));
  EXPECT_EQ(dashed.lossList().countOf(exact::LossRule::LineTypeShapes), 1U);
}

DxfBuilder withWeights() {
  DxfBuilder dxf;
  dxf.layer("0", {{70, "0"}, {62, "7"}, {6, "CONTINUOUS"}, {370, "-3"}});
  dxf.layer("W", {{70, "0"}, {62, "7"}, {6, "CONTINUOUS"}, {370, "50"}});
  return dxf;
}

exact::Options withLineWeights() {
  exact::Options options;
  options.lineWidth = 0.1;
  options.lineWeights = true;
  return options;
}

TEST(ExactLineWeights, TheyAreLeftOutUnlessWanted) {
  DxfBuilder dxf = withWeights();
  dxf.entity("LINE", lineOf("1", {{8, "W"}, {370, "35"}}));
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (1 0)\n");
}

TEST(ExactLineWeights, TheyAreThoseOfTheEntityItsLayerOrTheDefault) {
  DxfBuilder dxf = withWeights();
  const auto line = [&dxf](std::string_view layer, std::string_view weight) {
    dxf.entity("LINE", {{8, layer}, {370, weight}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  };
  line("W", "35");
  line("W", "-1");
  line("W", "-3");
  line("0", "-1");
  line("W", "-2");
  line("W", "0");
  dxf.entity("LINE", {{8, "W"}, {10, "0"}, {20, "0"}, {11, "2"}, {21, "0"}});
  EXPECT_EQ(ExactDrawing(dxf, withLineWeights()).shapes(),
            "7 wire 0.35 (0 0) (1 0)\n7 wire 0.5 (0 0) (1 0)\n7 wire 0.25 (0 0) (1 0)\n"
            "7 wire 0.25 (0 0) (1 0)\n7 wire 0.25 (0 0) (1 0)\n7 wire 0 (0 0) (1 0)\n"
            "7 wire 0.5 (0 0) (2 0)\n");
}

TEST(ExactLineWeights, ByBlockTheyAreThoseOfTheReference) {
  DxfBuilder dxf = withWeights();
  dxf.beginBlock("B");
  dxf.entity("LINE", {{8, "0"}, {370, "-2"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  dxf.entity("LINE", {{8, "0"}, {370, "-1"}, {10, "0"}, {20, "0"}, {11, "2"}, {21, "0"}});
  dxf.endBlock();
  dxf.entity("INSERT", {{8, "W"}, {2, "B"}, {10, "0"}, {20, "0"}, {370, "100"}});
  dxf.entity("INSERT", {{8, "W"}, {2, "B"}, {10, "0"}, {20, "5"}});
  EXPECT_EQ(ExactDrawing(dxf, withLineWeights()).shapes(),
            "7 wire 1 (0 0) (1 0)\n7 wire 0.5 (0 0) (2 0)\n"
            "7 wire 0.5 (0 5) (1 5)\n7 wire 0.5 (0 5) (2 5)\n");
}

TEST(ExactLineWeights, WidthsOfPolylinesWinAndTheScaleDoesNotCount) {
  DxfBuilder dxf = withWeights();
  dxf.entity("LWPOLYLINE",
             {{8, "W"}, {70, "0"}, {43, "0.1"}, {10, "0"}, {20, "0"}, {10, "1"}, {20, "0"}});
  dxf.entity("LINE", {{8, "W"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  exact::Options options = withLineWeights();
  options.unit = base::Unit::Inch;
  options.factor = 1.0 / 25.4;
  EXPECT_EQ(ExactDrawing(dxf, options).shapes(),
            "7 wire 0.003937 (0 0) (0.03937 0)\n7 wire 0.019685 (0 0) (0.03937 0)\n");
}

}  // namespace
}  // namespace quillon::testing
