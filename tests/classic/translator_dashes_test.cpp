// Line types of entities as dashes.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "classic/layouts.h"
#include "classic/translation.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::countOf;
using testing::DxfBuilder;
using testing::expectPoints;
using testing::GroupList;
using testing::joined;
using testing::kLayerWire;
using testing::kWire;
using testing::layoutOf;
using testing::translate;

const Settings kDashed{.dotted = true, .poly = 1, .ltScale = 1.0};
const std::string kTwoDashes = kLayerWire + kWire;

/// A drawing with a line type DASHED (3 drawn, 2 not) and one of total length 0.
DxfBuilder dashesDrawing() {
  DxfBuilder dxf;
  dxf.dashes("Dashed", "5", {"3", "-2"}).dashes("ZERO", "0", {"3", "-2"});
  dxf.layer("HIDDEN", "dashed").layer("PLAIN", "CONTINUOUS");
  return dxf;
}

/// A line of length 7.
DxfBuilder lineWith(const GroupList& groups) {
  DxfBuilder dxf = dashesDrawing();
  dxf.entity("LINE", joined({{10, "0"}, {11, "7"}}, groups));
  return dxf;
}

std::string layoutOfLine(const GroupList& groups, const Settings& settings = kDashed) {
  return layoutOf(translate(lineWith(groups), {}, settings));
}

TEST(LineTypes, OfAnEntityGiveItsDashes) {
  EXPECT_EQ(layoutOfLine({{8, "0"}, {6, "DASHED"}}), kTwoDashes);
  EXPECT_EQ(layoutOfLine({{8, "0"}, {6, "dAshed"}}), kTwoDashes);
}

TEST(LineTypes, OfALayerGiveTheDashesOfAnEntityWithout) {
  EXPECT_EQ(layoutOfLine({{8, "hidden"}}), kTwoDashes);
  EXPECT_EQ(layoutOfLine({{8, "HIDDEN"}, {6, ""}}), kTwoDashes);
  EXPECT_EQ(layoutOfLine({{8, "PLAIN"}}), kLayerWire);
  EXPECT_EQ(layoutOfLine({{8, "UNKNOWN"}}), kLayerWire);
}

TEST(LineTypes, OfAnEntityGoBeforeThoseOfItsLayer) {
  EXPECT_EQ(layoutOfLine({{8, "PLAIN"}, {6, "DASHED"}}), kTwoDashes);
  EXPECT_EQ(layoutOfLine({{8, "HIDDEN"}, {6, "CONTINUOUS"}}), kLayerWire);
}

TEST(LineTypes, AreNotResolvedByLayer) {
  EXPECT_EQ(layoutOfLine({{8, "HIDDEN"}, {6, "BYLAYER"}}), kLayerWire);
}

TEST(LineTypes, MissingFromTheTableGiveOneWire) {
  EXPECT_EQ(layoutOfLine({{8, "0"}, {6, "DASHED2"}}), kLayerWire);
}

TEST(LineTypes, WithATotalLengthOfZeroGiveOneWire) {
  EXPECT_EQ(layoutOfLine({{8, "0"}, {6, "ZERO"}}), kLayerWire);
}

TEST(LineTypes, CountOnlyWithDashEmulation) {
  EXPECT_EQ(layoutOfLine({{8, "0"}, {6, "DASHED"}}, {.dotted = false, .ltScale = 1.0}), kLayerWire);
}

TEST(LineTypes, AreScaledByTheDrawingButNotByThePlacement) {
  const DxfBuilder dxf = lineWith({{8, "0"}, {6, "DASHED"}});
  expectPoints(translate(dxf, {.scaleX = 2, .scaleY = 2}, kDashed),
               {{0, 0}, {3, 0}, {5, 0}, {8, 0}, {10, 0}, {13, 0}});
  Settings scaled = kDashed;
  scaled.ltScale = 2.0;
  expectPoints(translate(dxf, {}, scaled), {{0, 0}, {6, 0}});
}

TEST(LineTypes, OfLine3dGiveItsDashesToo) {
  DxfBuilder dxf = dashesDrawing();
  dxf.entity("3DLINE", {{8, "0"}, {6, "DASHED"}, {10, "0"}, {11, "7"}});
  EXPECT_EQ(layoutOf(translate(dxf, {}, kDashed)), kTwoDashes);
}

TEST(LineTypes, GiveTheDashesOfArcsAndCircles) {
  DxfBuilder arc = dashesDrawing();
  arc.entity("ARC", {{8, "0"}, {6, "DASHED"}, {10, "9"}, {40, "2"}, {50, "0"}, {51, "180"}});
  EXPECT_EQ(layoutOf(translate(arc, {}, kDashed)),
            "Layer  7 ;\nArc CCW 0.00 P P P;\nArc CCW 0.00 P P P;\n")
      << "6.28 around: 3 drawn, 2 not, 1.28 drawn";
  DxfBuilder circle = dashesDrawing();
  circle.entity("CIRCLE", {{8, "0"}, {6, "DASHED"}, {10, "9"}, {40, "1"}});
  EXPECT_EQ(layoutOf(translate(circle, {}, kDashed)),
            "Layer  7 ;\nArc CCW 0.00 P P P;\nArc CCW 0.00 P P P;\n");
}

TEST(LineTypes, GiveTheDashesOfEllipsesPieceByPiece) {
  // Four quarters of 32 pieces, each about 0.49 long, so that each is one dash.
  const GroupList ellipse = {
      {8, "0"}, {6, "DASHED"}, {11, "10"}, {40, "1"}, {42, "6.28318530717958"}};
  DxfBuilder asChain = dashesDrawing();
  asChain.entity("ELLIPSE", ellipse);
  Settings ellipses = kDashed;
  ellipses.ellipses = true;
  EXPECT_EQ(layoutOf(translate(asChain, {}, ellipses)), testing::repeated(kLayerWire, 128));
  ellipses.ltScale = 0.1;
  EXPECT_EQ(layoutOf(translate(asChain, {}, ellipses)), testing::repeated(kLayerWire, 128))
      << "0.3 drawn, 0.2 not";
  ellipses.ltScale = 0.05;
  EXPECT_EQ(layoutOf(translate(asChain, {}, ellipses)), testing::repeated(kTwoDashes, 128));
  const std::string asCircle = translate(asChain, {}, kDashed);
  EXPECT_EQ(countOf("Circle", asCircle), 0U);
  EXPECT_EQ(countOf("Arc CCW", asCircle), 13U) << "62.8 around: 12 periods of 5 and 2.8";
}

TEST(LineTypes, GiveTheDashesOfSplinesPieceByPiece) {
  DxfBuilder dxf = dashesDrawing();
  dxf.entity("SPLINE", {{8, "0"}, {6, "DASHED"}, {10, "0"}, {20, "0"}, {10, "63"}, {20, "0"}});
  EXPECT_EQ(layoutOf(translate(dxf, {}, kDashed)), testing::repeated(kTwoDashes, 9))
      << "nine pieces of 7";
}

TEST(LineTypes, GiveTheDashesOfStraightSegmentsOnly) {
  DxfBuilder dxf = dashesDrawing();
  dxf.entity("LWPOLYLINE", {{8, "0"},
                            {6, "DASHED"},
                            {10, "0"},
                            {20, "1"},
                            {10, "7"},
                            {20, "1"},
                            {42, "1"},
                            {10, "17"},
                            {20, "1"},
                            {10, "24"},
                            {20, "1"}});
  const std::string script = translate(dxf, {}, kDashed);
  EXPECT_EQ(layoutOf(script), kTwoDashes + "Layer  7 ;\nArc CCW 0.0000000 P P P;\n" + kTwoDashes);
  expectPoints(script, {{0, 1},
                        {3, 1},
                        {5, 1},
                        {7, 1},
                        {7, 1},
                        {17, 1},
                        {17, 1},
                        {17, 1},
                        {20, 1},
                        {22, 1},
                        {24, 1}});
}

TEST(LineTypes, OfAPolylineAreThoseOfItsHeader) {
  for (const auto& [header, vertex] :
       {std::pair<std::string_view, std::string_view>{"DASHED", "NONE"}, {"NONE", "DASHED"}}) {
    DxfBuilder dxf = dashesDrawing();
    dxf.entity("POLYLINE", GroupList{{8, "0"}, {6, header}, {70, "1"}});
    for (const std::string_view x : {"0", "7"}) {
      dxf.entity("VERTEX", GroupList{{8, "HIDDEN"}, {6, vertex}, {10, x}});
    }
    dxf.entity("SEQEND", {{8, "0"}});
    const std::string expected = header == "DASHED" ? kTwoDashes : kLayerWire;
    EXPECT_EQ(layoutOf(translate(dxf, {}, kDashed)), expected + expected);
  }
}

TEST(LineTypes, DoNotDashPolygons) {
  DxfBuilder dxf = dashesDrawing();
  dxf.entity("LWPOLYLINE",
             {{8, "0"}, {6, "DASHED"}, {70, "1"}, {10, "0"}, {20, "1"}, {10, "7"}, {20, "1"}});
  Settings polygons = kDashed;
  polygons.poly = 2;
  EXPECT_EQ(layoutOf(translate(dxf, {}, polygons)),
            "Layer  7 ;\nPolygon 0.0000000 '1' P P\\\nPP;\n");
}

}  // namespace
}  // namespace quillon::classic
