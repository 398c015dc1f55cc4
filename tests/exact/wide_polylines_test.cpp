#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <vector>

#include "exact_drawing.h"

namespace quillon::testing {
namespace {

using exact::Options;
using exact::WideLines;

GroupPairs wideLine(std::string_view length, std::string_view width) {
  return {{43, width}, {10, "0"}, {20, "0"}, {10, length}, {20, "0"}};
}

/// Two halves of a circle of this radius about (0 0).
GroupPairs wideRing(std::string_view left, std::string_view right, std::string_view width) {
  return {{70, "1"}, {43, width}, {10, left}, {20, "0"},
          {42, "1"}, {10, right}, {20, "0"},  {42, "1"}};
}

GroupPairs wideSquare() {
  return {{70, "1"}, {43, "1"}, {10, "0"}, {20, "0"}, {10, "4"},
          {20, "0"}, {10, "4"}, {20, "4"}, {10, "0"}, {20, "4"}};
}

Options wideAs(WideLines lines) {
  Options options;
  options.wideLines = lines;
  return options;
}

/// Rules, numbers and the largest measures of the losses: "round-ends 1 0.2".
std::string measuredLosses(const ExactDrawing& drawing) {
  std::string text;
  for (const rules::Loss& loss : drawing.lossList().all()) {
    text += std::string(rules::wordOf(loss.rule)) + " " + std::to_string(loss.count) + " " +
            shortNumber(loss.most) + "\n";
  }
  return text;
}

/// All points of a line of shapes.
std::vector<geometry::Point> pointsOfShapes(const std::string& shapes) {
  std::vector<geometry::Point> points;
  for (std::size_t at = shapes.find('('); at != std::string::npos; at = shapes.find('(', at + 1)) {
    geometry::Point point{};
    if (std::sscanf(shapes.c_str() + at, "(%lf %lf)", &point.x, &point.y) == 2) {
      points.push_back(point);
    }
  }
  return points;
}

// Bands, and the wires that are drawn instead.

TEST(ExactWidePolylines, AShortOneIsTheAreaOfItsBandWithFlatEnds) {
  const ExactDrawing drawing(oneEntity("LWPOLYLINE", wideLine("10", "1")));
  EXPECT_EQ(drawing.shapes(), "7 area (0 0.5) (0 -0.5) (10 -0.5) (10 0.5) (0 0.5)\n");
  EXPECT_EQ(drawing.losses(), "fine-fill LWPOLYLINE 1 line 7\n");
}

TEST(ExactWidePolylines, CornersOfABandAreMitred) {
  EXPECT_EQ(
      shapesOf("LWPOLYLINE",
               {{43, "2"}, {10, "0"}, {20, "0"}, {10, "10"}, {20, "0"}, {10, "10"}, {20, "10"}}),
      "7 area (0 1) (0 -1) (11 -1) (11 10) (9 10) (9 1) (0 1)\n");
}

TEST(ExactWidePolylines, FiftyTimesAsLongAsWideIsAWireWithRoundEnds) {
  const ExactDrawing wire(oneEntity("LWPOLYLINE", wideLine("10", "0.2")));
  EXPECT_EQ(wire.shapes(), "7 wire 0.2 (0 0) (10 0)\n");
  EXPECT_EQ(measuredLosses(wire), "round-ends 1 0.2\n");
  const ExactDrawing area(oneEntity("LWPOLYLINE", wideLine("9.999", "0.2")));
  EXPECT_EQ(area.shapes(), "7 area (0 0.1) (0 -0.1) (9.999 -0.1) (9.999 0.1) (0 0.1)\n");
}

TEST(ExactWidePolylines, ATenthOfAMillimetreIsAWireHoweverShort) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideLine("0.2", "0.1")), "7 wire 0.1 (0 0) (0.2 0)\n");
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideLine("0.2", "0.11")),
            "7 area (0 0.055) (0 -0.055) (0.2 -0.055) (0.2 0.055) (0 0.055)\n");
}

TEST(ExactWidePolylines, AClosedOneIsAWire) {
  const ExactDrawing drawing(oneEntity("LWPOLYLINE", wideSquare()));
  EXPECT_EQ(drawing.shapes(), "7 wire 1 (0 0) (4 0) (4 4) (0 4) (0 0)\n");
  EXPECT_EQ(measuredLosses(drawing), "round-ends 1 1\n");
}

TEST(ExactWidePolylines, ARingIsAWireThatLacksNothing) {
  const ExactDrawing drawing(oneEntity("LWPOLYLINE", wideRing("-2", "2", "1")));
  EXPECT_EQ(drawing.shapes(), "7 wire 1 (-2 0) +180 (2 0) +180 (-2 0)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactWidePolylines, TheUserMayWantWiresOrAreas) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideLine("10", "1"), wideAs(WideLines::Wires)),
            "7 wire 1 (0 0) (10 0)\n");
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideLine("10", "0.1"), wideAs(WideLines::Areas)),
            "7 area (0 0.05) (0 -0.05) (10 -0.05) (10 0.05) (0 0.05)\n");
  // Without a hole: the ring is as wide as its circle is high. Areas have three corners.
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideRing("-2", "2", "4"), wideAs(WideLines::Areas)),
            "7 area (-4 0) +90 (0 -4) +90 (4 0) +180 (-4 0)\n");
}

TEST(ExactWidePolylines, TheInsideOfAClosedBandStaysFree) {
  const std::string shapes = shapesOf("LWPOLYLINE", wideSquare(), wideAs(WideLines::Areas));
  double twice = 0.0;
  const std::vector<geometry::Point> points = pointsOfShapes(shapes);
  for (std::size_t i = 0; i + 1 < points.size(); ++i) twice += cross(points[i], points[i + 1]);
  // 5 x 5 less 3 x 3; the slit is 0.001 wide and 1 long, and the hole has half a thousandth more.
  EXPECT_NEAR(twice / 2.0, 16.0, 0.002) << shapes;
  EXPECT_EQ(shapes.find('\n'), shapes.size() - 1);
}

TEST(ExactWidePolylines, WhatIsTooWideForAWireIsAnArea) {
  Options options = wideAs(WideLines::Wires);
  options.version = exact::Version::Eagle4;
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideRing("-6.6", "6.6", "13.2"), options),
            "7 area (-13.2 0) +90 (0 -13.2) +90 (13.2 0) +180 (-13.2 0)\n");
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideRing("-6.6", "6.6", "13"), options),
            "7 wire 13 (-6.6 0) +180 (6.6 0) +180 (-6.6 0)\n");
  options.version = exact::Version::Eagle6;
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideRing("-6.6", "6.6", "13.2"), options),
            "7 wire 13.2 (-6.6 0) +180 (6.6 0) +180 (-6.6 0)\n");
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideRing("-101", "101", "202"), options),
            "7 area (-202 0) +90 (0 -202) +90 (202 0) +180 (-202 0)\n");
}

// The limit of a wire is a length of the script's unit.
TEST(ExactWidePolylines, LimitsAreMillimetresInAnyUnit) {
  Options options;
  options.unit = base::Unit::Mil;
  options.factor = 1.0 / 0.0254;
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideLine("0.254", "0.0762"), options),
            "7 wire 3 (0 0) (10 0)\n");
}

TEST(ExactWidePolylines, TheWidthOfAllEdgesWinsOverThoseOfTheVertices) {
  EXPECT_EQ(
      shapesOf("LWPOLYLINE",
               {{43, "1"}, {10, "0"}, {20, "0"}, {40, "7"}, {41, "8"}, {10, "100"}, {20, "0"}}),
      "7 wire 1 (0 0) (100 0)\n");
}

TEST(ExactWidePolylines, NegativeWidthsAreWidths) {
  EXPECT_EQ(shapesOf("LWPOLYLINE", wideLine("10", "-0.2")), "7 wire 0.2 (0 0) (10 0)\n");
}

// Widths that change.

TEST(ExactWidePolylines, EachRunOfOneWidthIsDrawnByItself) {
  const ExactDrawing drawing(oneEntity("LWPOLYLINE", {{10, "0"},
                                                      {20, "0"},
                                                      {40, "1"},
                                                      {41, "1"},
                                                      {10, "100"},
                                                      {20, "0"},
                                                      {40, "1"},
                                                      {41, "1"},
                                                      {10, "100"},
                                                      {20, "100"},
                                                      {40, "2"},
                                                      {41, "2"},
                                                      {10, "90"},
                                                      {20, "100"},
                                                      {40, "0"},
                                                      {41, "0"},
                                                      {10, "0"},
                                                      {20, "100"}}));
  EXPECT_EQ(drawing.shapes(),
            "7 wire 1 (0 0) (100 0) (100 100)\n"
            "7 area (100 99) (100 101) (90 101) (90 99) (100 99)\n"
            "7 wire 0 (90 100) (0 100)\n");
  EXPECT_EQ(measuredLosses(drawing), "round-ends 1 1\nfine-fill 1 0\n");
}

TEST(ExactWidePolylines, AnEdgeThatTapersIsAnAreaAndATipATriangle) {
  EXPECT_EQ(
      shapesOf("LWPOLYLINE",
               {{10, "0"}, {20, "0"}, {40, "2"}, {41, "0"}, {10, "10"}, {20, "0"}, {40, "9"}}),
      "7 area (0 -1) (10 0) (0 1) (0 -1)\n");
  EXPECT_EQ(
      shapesOf("LWPOLYLINE", {{10, "0"}, {20, "0"}, {40, "2"}, {41, "4"}, {10, "10"}, {20, "0"}}),
      "7 area (0 -1) (10 -2) (10 2) (0 1) (0 -1)\n");
}

// A half circle of radius 10, from (-10 0) over (0 -10), whose width grows from 0 to 2.
TEST(ExactWidePolylines, BordersOfACurvedTaperFollowTheWidth) {
  const std::string shapes =
      shapesOf("LWPOLYLINE", {{10, "-10"}, {20, "0"}, {42, "1"}, {41, "2"}, {10, "10"}, {20, "0"}});
  EXPECT_EQ(shapes.substr(0, 7), "7 area ");
  EXPECT_EQ(shapes.find('\n'), shapes.size() - 1);
  const std::vector<geometry::Point> points = pointsOfShapes(shapes);
  EXPECT_GT(points.size(), 6u);
  for (const geometry::Point& p : points) {
    const double angle = std::atan2(p.y, p.x);  // from -pi, where it may be pi as well, to 0
    const double share = angle > 3.0 ? 0.0 : 1.0 + angle / std::numbers::pi;
    EXPECT_NEAR(std::fabs(geometry::norm(p) - 10.0), share, 1e-5) << p.x << " " << p.y;
  }
}

TEST(ExactWidePolylines, TheWidthOfAPolylineIsThatOfVerticesWithoutTheirOwn) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {70, "0"}, {40, "1"}, {41, "1"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "0"}, {20, "0"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "100"}, {20, "0"}, {40, "0"}, {41, "0"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "100"}, {20, "50"}, {41, "3"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "90"}, {20, "50"}});
  dxf.entity("SEQEND", {{8, "0"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 1 (0 0) (100 0)\n"
            "7 wire 0 (100 0) (100 50)\n"
            "7 area (100 50.5) (90 51.5) (90 48.5) (100 49.5) (100 50.5)\n");
}

// Places and scales.

DxfBuilder scaledBlock(const GroupPairs& polyline, Groups insert) {
  GroupPairs all = {{8, "0"}};
  all.insert(all.end(), polyline.begin(), polyline.end());
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("LWPOLYLINE", all).endBlock();
  GroupPairs reference = {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}};
  reference.insert(reference.end(), insert.begin(), insert.end());
  dxf.entity("INSERT", reference);
  return dxf;
}

TEST(ExactWidePolylines, WidthsGrowWithTheirBlock) {
  const ExactDrawing drawing(scaledBlock(wideLine("100", "1"), {{41, "3"}, {42, "-3"}}));
  EXPECT_EQ(drawing.shapes(), "7 wire 3 (0 0) (300 0)\n");
  EXPECT_EQ(measuredLosses(drawing), "round-ends 1 3\n");
}

TEST(ExactWidePolylines, UnequalScalesAreNamedForWiresAndExactForAreas) {
  const ExactDrawing wire(scaledBlock(wideLine("100", "1"), {{41, "4"}, {42, "1"}}));
  EXPECT_EQ(wire.shapes(), "7 wire 2 (0 0) (400 0)\n");
  EXPECT_EQ(measuredLosses(wire), "round-ends 1 2\nuneven-width 1 2\n");
  const ExactDrawing area(scaledBlock(wideLine("10", "1"), {{41, "4"}, {42, "1"}}));
  EXPECT_EQ(area.shapes(), "7 area (0 0.5) (0 -0.5) (40 -0.5) (40 0.5) (0 0.5)\n");
  EXPECT_EQ(area.losses(), "fine-fill LWPOLYLINE 1 line 19\n");
}

TEST(ExactWidePolylines, AMirroredBandKeepsItsHole) {
  for (const std::string_view scale : {"1", "-1"}) {
    const ExactDrawing drawing(scaledBlock(wideSquare(), {{41, scale}}), wideAs(WideLines::Areas));
    const std::vector<geometry::Point> points = pointsOfShapes(drawing.shapes());
    double twice = 0.0;
    for (std::size_t i = 0; i + 1 < points.size(); ++i) twice += cross(points[i], points[i + 1]);
    EXPECT_NEAR(twice / 2.0, 16.0, 0.002) << drawing.shapes();
  }
}

TEST(ExactWidePolylines, OneSeenFromItsEdgeIsALine) {
  GroupPairs groups = wideLine("10", "1");
  groups.insert(groups.end(), {{210, "1"}, {220, "0"}, {230, "0"}});
  EXPECT_EQ(shapesOf("LWPOLYLINE", groups), "7 wire 0 (0 0) (0 10)\n");
}

// $FILLMODE 0: a CAD program shows the edges of bands.

TEST(ExactWidePolylines, BandsThatAreNotFilledAreTheirEdges) {
  DxfBuilder dxf = oneEntity("LWPOLYLINE", wideLine("100", "1"));
  dxf.header("$FILLMODE", 70, "0");
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (0 0.5) (0 -0.5) (100 -0.5) (100 0.5) (0 0.5) as it is\n");
  Options options;
  options.fillAlways = true;
  EXPECT_EQ(ExactDrawing(dxf, options).shapes(), "7 wire 1 (0 0) (100 0)\n");
  EXPECT_EQ(ExactDrawing(dxf, wideAs(WideLines::Wires)).shapes(), "7 wire 1 (0 0) (100 0)\n");

  DxfBuilder ring = oneEntity("LWPOLYLINE", wideRing("-2", "2", "2"));
  ring.header("$FILLMODE", 70, "0");
  EXPECT_EQ(ExactDrawing(ring).shapes(),
            "7 wire 0 (-3 0) +90 (0 -3) +90 (3 0) +180 (-3 0) as it is\n"
            "7 wire 0 (-1 0) -90 (0 1) -90 (1 0) -180 (-1 0) as it is\n");
}

TEST(ExactWidePolylines, AreasHaveNoDashesAndThatIsNamed) {
  GroupPairs groups = wideLine("10", "1");
  groups.insert(groups.begin(), {6, "DASHED"});
  DxfBuilder dxf = oneEntity("LWPOLYLINE", groups);
  dxf.dashes("DASHED", "2", {"1", "-1"});
  for (const exact::LineTypes types :
       {exact::LineTypes::Solid, exact::LineTypes::Style, exact::LineTypes::Dashes}) {
    Options options;
    options.lineTypes = types;
    const ExactDrawing drawing(dxf, options);
    EXPECT_EQ(drawing.shapes(), "7 area (0 0.5) (0 -0.5) (10 -0.5) (10 0.5) (0 0.5)\n");
    EXPECT_EQ(measuredLosses(drawing), "line-type-solid 1 0\nfine-fill 1 0\n");
  }
}

// What no CAD program writes.

TEST(ExactWidePolylines, BandsThatCrossThemselvesAreCoveredByParts) {
  const std::string shapes = shapesOf("LWPOLYLINE", {{43, "2"},
                                                     {10, "0"},
                                                     {20, "0"},
                                                     {10, "1"},
                                                     {20, "0"},
                                                     {10, "1"},
                                                     {20, "0.5"},
                                                     {10, "0"},
                                                     {20, "0.5"}});
  // One for each edge and each corner.
  EXPECT_EQ(std::count(shapes.begin(), shapes.end(), '\n'), 5) << shapes;
}

TEST(ExactWidePolylines, OnesThatTurnBackLoseNothing) {
  const DxfBuilder dxf =
      oneEntity("LWPOLYLINE",
                {{43, "4"}, {10, "0"}, {20, "0"}, {10, "20"}, {20, "0"}, {10, "10"}, {20, "0"}});
  const ExactDrawing drawing(dxf, wideAs(WideLines::Areas));
  EXPECT_EQ(drawing.shapes(),
            "7 area (0 2) (0 -2) (20 -2) (20 2) (0 2)\n"
            "7 area (20 -2) (20 2) (10 2) (10 -2) (20 -2)\n");
  EXPECT_EQ(measuredLosses(drawing), "fine-fill 1 0\n");
}

TEST(ExactWidePolylines, HugeOnesEndSoon) {
  std::string text = "0\nSECTION\n2\nENTITIES\n0\nLWPOLYLINE\n8\n0\n90\n-7\n43\n3\n";
  std::uint32_t seed = 1;
  for (int i = 0; i < 20000; ++i) {
    seed = seed * 1664525u + 1013904223u;
    text += "10\n" + std::to_string(seed >> 24) + "\n20\n" + std::to_string(seed >> 8 & 255u) +
            "\n42\n" + std::to_string(int(seed & 3u) - 1) + "\n";
  }
  text += "0\nENDSEC\n0\nEOF\n";
  const ExactDrawing drawing(text, wideAs(WideLines::Areas));
  EXPECT_GT(drawing.shapes().size(), 200000u);
}

}  // namespace
}  // namespace quillon::testing
