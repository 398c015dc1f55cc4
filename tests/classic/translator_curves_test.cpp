// Arcs, circles, ellipses and splines of a drawing.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "classic/layouts.h"
#include "classic/translation.h"
#include "geometry/naive_spline.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::countOf;
using testing::drawingOf;
using testing::DxfBuilder;
using testing::expectPoints;
using testing::GroupList;
using testing::joined;
using testing::kLayerWire;
using testing::layoutOf;
using testing::repeated;
using testing::translate;

const GroupList kArcGroups = {{10, "10"}, {20, "20"}, {40, "2"}, {50, "0"}, {51, "90"}};
const GroupList kCircleGroups = {{10, "1"}, {20, "2"}, {40, "3"}};

TEST(TranslateArc, WritesStartDiameterPointAndEnd) {
  const std::string script = translate(drawingOf("ARC", kArcGroups));
  EXPECT_EQ(layoutOf(script), "Layer  7 ;\nArc CCW 0.00 P P P;\n");
  expectPoints(script, {{12, 20}, {8, 20}, {10, 22}});
}

TEST(TranslateArc, MirroredInXRunsFrom90To180) {
  const std::string script = translate(drawingOf("ARC", joined(kArcGroups, {{230, "-1"}})));
  expectPoints(script, {{-10, 22}, {-10, 18}, {-12, 20}});
}

TEST(TranslateArc, MirroredInYHasTheAnglesOfAnArcMirroredInX) {
  const std::string script = translate(drawingOf("ARC", joined(kArcGroups, {{220, "-1"}})));
  expectPoints(script, {{10, -18}, {10, -22}, {8, -20}});
}

TEST(TranslateArc, MirroredInBothHasItsAnglesMirroredOnce) {
  const DxfBuilder dxf = drawingOf("ARC", joined(kArcGroups, {{220, "-1"}, {230, "-1"}}));
  expectPoints(translate(dxf), {{-10, -18}, {-10, -22}, {-12, -20}});
}

TEST(TranslateArc, IsPlacedAsAWhole) {
  // Centre scaled to (20, 40), rotated to (-40, 20), moved to (-30, 40).
  const std::string script =
      translate(drawingOf("ARC", kArcGroups),
                {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 2, .rotation = kPi / 2});
  expectPoints(script, {{-30, 44}, {-30, 36}, {-34, 40}});
}

TEST(TranslateArc, WithEqualAnglesIsACircle) {
  const GroupList full = {{10, "1"}, {20, "2"}, {40, "3"}, {50, "90"}, {51, "90"}};
  EXPECT_EQ(translate(drawingOf("ARC", full)),
            "Layer  7 ;\nLayer  7 ;\nCircle (1.0000000 2.0000000) (1.0000000 5.0000000);\n");
}

TEST(TranslateArc, ClockwiseSwapsStartAndEnd) {
  const std::string script = translate(drawingOf("ARC", kArcGroups), {}, {.angDir = 1.0});
  expectPoints(script, {{10, 22}, {10, 18}, {12, 20}});
}

TEST(TranslateCircle, WritesCentreAndPointAbove) {
  EXPECT_EQ(translate(drawingOf("CIRCLE", kCircleGroups)),
            "Layer  7 ;\nCircle (1.0000000 2.0000000) (1.0000000 5.0000000);\n");
}

TEST(TranslateCircle, IsMirroredBeforeItIsPlaced) {
  expectPoints(translate(drawingOf("CIRCLE", joined(kCircleGroups, {{230, "-1"}}))),
               {{-1, 2}, {-1, 5}});
  expectPoints(translate(drawingOf("CIRCLE", joined(kCircleGroups, {{220, "-1"}}))),
               {{1, -2}, {1, 1}});
  // (-1, 2) scaled to (-2, 4), rotated to (-4, -2), moved to (6, 18).
  expectPoints(translate(drawingOf("CIRCLE", joined(kCircleGroups, {{230, "-1"}})),
                         {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 2, .rotation = kPi / 2}),
               {{6, 18}, {6, 24}});
}

TEST(TranslateCircle, UnderUnequalScalesIsAChainWhateverTheEllipseOption) {
  for (const bool ellipses : {false, true}) {
    const std::string script = translate(drawingOf("CIRCLE", kCircleGroups),
                                         {.scaleX = 2, .scaleY = 1}, {.ellipses = ellipses});
    EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 128));
  }
}

GroupList ellipse(std::string_view start, std::string_view end) {
  return {{10, "1"}, {20, "2"}, {11, "3"}, {21, "4"}, {40, "0.5"}, {41, start}, {42, end}};
}

TEST(TranslateEllipse, IsACircleWithTheEllipseOptionOff) {
  EXPECT_EQ(translate(drawingOf("ELLIPSE", ellipse("0", "6.28318530717959"))),
            "Layer  7 ;\nCircle (1.0000000 2.0000000) (1.0000000 7.0000000);\n");
}

TEST(TranslateEllipse, IsAFullCircleEvenIfItIsOnlyAPart) {
  EXPECT_EQ(layoutOf(translate(drawingOf("ELLIPSE", ellipse("1", "2")))),
            "Layer  7 ;\nCircle P P;\n");
  EXPECT_EQ(layoutOf(translate(drawingOf("ELLIPSE", ellipse("1", "1")))),
            "Layer  7 ;\nCircle P P;\n");
}

TEST(TranslateEllipse, AsACircleHasThePlacedCentreAndTheLengthOfThePlacedMajorAxis) {
  // Centre (1, 2) to (2, 6) to (-6, 2) to (4, 22); axis (3, 4) to (6, 12), of length 6 root 5.
  const std::string script =
      translate(drawingOf("ELLIPSE", ellipse("0", "6.28")),
                {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2});
  EXPECT_EQ(layoutOf(script), "Layer  7 ;\nCircle P P;\n");
  expectPoints(script, {{4, 22}, {4, 22 + 6 * std::sqrt(5.0)}});
}

/// The ends of all pieces of a chain.
std::vector<Point> chainOf(const std::string& script) {
  const std::vector<Point> points = testing::pointsOf(script);
  std::vector<Point> chain;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0 || i % 2 == 1) chain.push_back(points[i]);
  }
  return chain;
}

/// Expects a quarter of an ellipse, given by its centre and half axes.
void expectQuarter(const std::string& script, Point centre, Point major, Point minor) {
  EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 32));
  const std::vector<Point> chain = chainOf(script);
  ASSERT_EQ(chain.size(), 33U);
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const double t = static_cast<double>(i) * std::acos(-1.0) / 64.0;
    EXPECT_NEAR(chain[i].x, centre.x + major.x * std::cos(t) + minor.x * std::sin(t), 1e-7) << i;
    EXPECT_NEAR(chain[i].y, centre.y + major.y * std::cos(t) + minor.y * std::sin(t), 1e-7) << i;
  }
}

constexpr std::string_view kQuarterTurn = "1.57079632679490";

TEST(TranslateEllipse, IsAChainOfLinesWithTheEllipseOptionOn) {
  expectQuarter(translate(drawingOf("ELLIPSE", ellipse("0", kQuarterTurn)), {}, {.ellipses = true}),
                {1, 2}, {3, 4}, {-2, 1.5});
}

TEST(TranslateEllipse, IsScaledTurnedAndMoved) {
  // Axis (3, 4) to (6, 8) to (-8, 6); an axis is never moved.
  expectQuarter(translate(drawingOf("ELLIPSE", ellipse("0", kQuarterTurn)),
                          {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 2, .rotation = kPi / 2},
                          {.ellipses = true}),
                {6, 22}, {-8, 6}, {-3, -4});
}

TEST(TranslateEllipse, IsMirroredInCentreAndMajorAxis) {
  const DxfBuilder dxf = drawingOf("ELLIPSE", joined(ellipse("0", kQuarterTurn), {{230, "-1"}}));
  expectQuarter(translate(dxf, {}, {.ellipses = true}), {-1, 2}, {-3, 4}, {-2, -1.5});
}

TEST(TranslateEllipse, OfAFullTurnIs128Pieces) {
  const std::string script =
      translate(drawingOf("ELLIPSE", ellipse("0", "6.28318530717958")), {}, {.ellipses = true});
  EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 128));
}

/// The text of `count` control points and the points themselves.
struct SplineDrawing {
  explicit SplineDrawing(std::size_t count) { dxf.entity("SPLINE", GroupList(groups(count))); }

  GroupList groups(std::size_t count) {
    texts.reserve(2 * count);
    GroupList list = {{8, "0"}, {70, "8"}, {71, "3"}, {40, "0"}, {40, "5"}};
    for (std::size_t i = 0; i < count; ++i) {
      const auto x = static_cast<int>(i * 7 % 11);
      const auto y = static_cast<int>(i * i % 13);
      points.push_back({static_cast<double>(x), static_cast<double>(y)});
      list.emplace_back(10, texts.emplace_back(std::to_string(x)));
      list.emplace_back(20, texts.emplace_back(std::to_string(y)));
      list.emplace_back(30, "9");
    }
    return list;
  }

  std::vector<std::string> texts;
  std::vector<Point> points;
  DxfBuilder dxf;
};

void expectSpline(std::size_t count, std::size_t order) {
  const SplineDrawing drawing(count);
  const std::string script = translate(drawing.dxf);
  const std::size_t samples = (count - 1) * 10;
  EXPECT_EQ(layoutOf(script), repeated(kLayerWire, samples - 1)) << count;
  const std::vector<Point> chain = chainOf(script);
  const std::vector<Point> expected = testing::naiveSpline(drawing.points, order, samples);
  ASSERT_EQ(chain.size(), samples);
  for (std::size_t i = 0; i < samples; ++i) {
    EXPECT_NEAR(chain[i].x, expected[i].x, 1e-7) << i;
    EXPECT_NEAR(chain[i].y, expected[i].y, 1e-7) << i;
  }
}

TEST(TranslateSpline, WithAnUpperBoundOf1IsALineOfTenPoints) { expectSpline(2, 2); }
TEST(TranslateSpline, WithAnUpperBoundOf2HasOrder3And20Points) { expectSpline(3, 3); }
TEST(TranslateSpline, WithAnUpperBoundOf5HasOrder6And50Points) { expectSpline(6, 6); }
TEST(TranslateSpline, WithAnUpperBoundOf13HasOrder14And130Points) { expectSpline(14, 14); }
TEST(TranslateSpline, WithAnUpperBoundOf14HasOrder7And140Points) { expectSpline(15, 7); }
TEST(TranslateSpline, WithAnUpperBoundOf20HasOrder7And200Points) { expectSpline(21, 7); }

TEST(TranslateSpline, WithOneControlPointOrNoneWritesNothing) {
  EXPECT_EQ(translate(SplineDrawing(0).dxf), "");
  EXPECT_EQ(translate(SplineDrawing(1).dxf), "");
}

TEST(TranslateSpline, DoesNotUseFitPoints) {
  const GroupList fit = {{11, "1"}, {21, "2"}, {11, "5"}, {21, "9"}, {11, "7"}, {21, "3"}};
  EXPECT_EQ(translate(drawingOf("SPLINE", fit)), "");
}

TEST(TranslateSpline, DoesNotUseItsOwnKnotsAndWeights) {
  const GroupList points = {{10, "0"}, {20, "0"}, {10, "5"}, {20, "9"}, {10, "9"}, {20, "0"}};
  const GroupList extras = {{71, "2"}, {40, "0"}, {40, "3"}, {40, "99"}, {41, "7"}, {41, "3"}};
  EXPECT_EQ(translate(drawingOf("SPLINE", joined(extras, points))),
            translate(drawingOf("SPLINE", points)));
}

TEST(TranslateSpline, PlacesEveryPoint) {
  const GroupList points = {{10, "0"}, {20, "0"}, {10, "9"}, {20, "18"}, {230, "-1"}};
  // (-i, 2i) to (-2i, 6i) to (-6i, -2i).
  const std::vector<Point> chain =
      chainOf(translate(drawingOf("SPLINE", points),
                        {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2}));
  ASSERT_EQ(chain.size(), 10U);
  for (int i = 0; i < 10; ++i) {
    EXPECT_NEAR(chain[static_cast<std::size_t>(i)].x, 10 - 6 * i, 1e-7);
    EXPECT_NEAR(chain[static_cast<std::size_t>(i)].y, 20 - 2 * i, 1e-7);
  }
}

TEST(TranslateSpline, StopsSoonAfterACancel) {
  const SplineDrawing drawing(500);
  testing::Translation translation(drawing.dxf);
  translation.capture.monitor.cancelWhen = [&translation] {
    return translation.capture.script.commandCount() > 1'000;
  };
  const std::size_t wires = countOf("Wire", translation.run());
  EXPECT_GE(wires, 500U);
  EXPECT_LT(wires, 600U) << "of 4,989";
}

}  // namespace
}  // namespace quillon::classic
