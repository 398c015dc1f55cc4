// LWPOLYLINE and LEADER entities.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "classic/layouts.h"
#include "classic/translation.h"
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
using testing::Translation;

/// (1, 0), (5, 0), (5, 3).
const GroupList kCorner = {{10, "1"}, {20, "0"}, {10, "5"}, {20, "0"}, {10, "5"}, {20, "3"}};

DxfBuilder light(const GroupList& header, const GroupList& vertices = kCorner) {
  return drawingOf("LWPOLYLINE", joined(header, vertices));
}

TEST(LightPolyline, OpenIsAWireFromEveryVertexToTheNext) {
  for (const int mode : {0, 1, 2, -1}) {
    const std::string script = translate(light({{90, "3"}, {70, "0"}}), {}, {.poly = mode});
    EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 2)) << mode;
    expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {5, 3}});
  }
}

TEST(LightPolyline, ClosedWithoutWidthIsAPolygonThatReturnsToItsFirstVertex) {
  for (const int mode : {2, -1}) {
    Translation translation(light({{90, "3"}, {70, "1"}}), {.poly = mode});
    EXPECT_EQ(translation.run(),
              "Layer  7 ;\nPolygon 0.0000000 '1' (1.0000000 0.0000000) (5.0000000 0.0000000)\\\n"
              "(5.0000000 3.0000000)\\\n(1.0000000 0.0000000)(1.0000000 0.0000000);\n");
    EXPECT_EQ(translation.capture.script.commandCount(), 2U + 2U + 1U);
  }
}

TEST(LightPolyline, ClosedIsWrittenBySegmentsInTheModesOfWires) {
  for (const int mode : {0, 1, 3}) {
    const std::string script = translate(light({{70, "1"}}), {}, {.poly = mode});
    EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 3)) << mode;
    expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {5, 3}, {5, 3}, {1, 0}});
  }
}

TEST(LightPolyline, ClosedWithAWidthIsWrittenBySegments) {
  const std::string script = translate(light({{70, "1"}, {43, "0.5"}}));
  EXPECT_EQ(layoutOf(script), repeated("Layer  7 ;\nWire 0.5000000 P P;\n", 3));
}

TEST(LightPolyline, ClosedWithWidthsOfItsVerticesOnlyIsAPolygon) {
  const GroupList vertices = {{10, "1"}, {20, "0"}, {40, "2"}, {41, "2"}, {10, "5"}, {20, "0"}};
  EXPECT_EQ(countOf("Polygon", translate(light({{70, "1"}}, vertices))), 1U);
  EXPECT_EQ(countOf("Polygon", translate(light({{70, "1"}, {43, "0.0"}}))), 1U);
}

TEST(LightPolyline, IsClosedWhenItsFlagsAreOdd) {
  for (const auto& [flags, closed] :
       {std::pair{"1", true}, {"129", true}, {"0", false}, {"128", false}, {"", false}}) {
    EXPECT_EQ(countOf("Polygon", translate(light({{70, flags}}))), closed ? 1U : 0U) << flags;
    EXPECT_EQ(countOf("Wire", translate(light({{70, flags}}), {}, {.poly = 1})), closed ? 3U : 2U)
        << flags;
  }
}

TEST(LightPolyline, DoesNotUseBulgesOnThePolygonRoad) {
  const GroupList vertices = {{10, "1"}, {20, "0"}, {42, "1"}, {10, "5"}, {20, "0"},
                              {42, "1"}, {10, "5"}, {20, "3"}, {42, "1"}};
  EXPECT_EQ(layoutOf(translate(light({{70, "1"}}, vertices))),
            "Layer  7 ;\nPolygon 0.0000000 '1' P P\\\nP\\\nPP;\n");
}

TEST(LightPolyline, WritesTheSegmentAfterAVertexWithABulgeAsAnArc) {
  const GroupList vertices = {{10, "1"}, {20, "0"}, {42, "1"},  {10, "5"}, {20, "0"},
                              {10, "9"}, {20, "0"}, {42, "-1"}, {10, "9"}, {20, "2"}};
  const std::string script = translate(light({}, vertices));
  EXPECT_EQ(layoutOf(script), "Layer  7 ;\nArc CCW 0.0000000 P P P;\n" + kLayerWire +
                                  "Layer  7 ;\nArc CW 0.0000000 P P P;\n");
  expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {5, 0}, {9, 0}, {9, 0}, {9, 2}, {9, 2}});
}

TEST(LightPolyline, ClosesWithTheWidthAndBulgeOfItsLastVertex) {
  const GroupList vertices = {{10, "1"}, {20, "0"},    {40, "0.25"}, {10, "5"},
                              {20, "0"}, {40, "0.75"}, {42, "1"}};
  const std::string script = translate(light({{70, "1"}}, vertices), {}, {.poly = 1});
  EXPECT_EQ(layoutOf(script),
            "Layer  7 ;\nWire 0.2500000 P P;\nLayer  7 ;\nArc CCW 0.7500000 P P P;\n");
  expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {1, 0}, {1, 0}});
}

TEST(LightPolyline, OfFewerThanTwoVerticesWritesNothing) {
  EXPECT_EQ(translate(light({}, {{10, "1"}, {20, "0"}})), "");
  EXPECT_EQ(translate(light({}, {})), "");
  EXPECT_EQ(translate(light({{70, "0"}}, {{10, "1"}, {20, "0"}}), {}, {.poly = 1}), "");
}

TEST(LightPolyline, ClosedOfOneVertexGoesToItselfAndBack) {
  const DxfBuilder dxf = light({{70, "1"}}, {{10, "1"}, {20, "0"}});
  EXPECT_EQ(translate(dxf),
            "Layer  7 ;\nPolygon 0.0000000 '1' (1.0000000 0.0000000) (1.0000000 0.0000000);\n");
  EXPECT_EQ(layoutOf(translate(dxf, {}, {.poly = 1})), kLayerWire);
}

TEST(LightPolyline, LeavesAVertexWithoutBothCoordinatesOut) {
  const GroupList vertices = {{10, "1"}, {20, "0"}, {10, "7"}, {10, "5"}, {20, "3"}};
  const std::string script = translate(light({}, vertices));
  EXPECT_EQ(layoutOf(script), kLayerWire);
  expectPoints(script, {{1, 0}, {5, 3}});
}

TEST(LightPolyline, PlacesItsVertices) {
  const Placement placement{.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2};
  const GroupList vertices = {{10, "1"}, {20, "0"}, {10, "5"}, {20, "2"}};
  // (1, 0) to (2, 0) to (0, 2); (5, 2) to (10, 6) to (-6, 10).
  expectPoints(translate(light({}, vertices), placement), {{10, 22}, {4, 30}});
  expectPoints(translate(light({{70, "1"}}, vertices), placement),
               {{10, 22}, {4, 30}, {10, 22}, {10, 22}});
}

TEST(LightPolyline, MirrorsEveryVertexByItsExtrusion) {
  for (const std::string_view kind : {"LWPOLYLINE", "LEADER"}) {
    const GroupList vertices = {{10, "1"}, {20, "2"}, {10, "5"}, {20, "6"}};
    expectPoints(translate(drawingOf(kind, joined({{230, "-1"}}, vertices))), {{-1, 2}, {-5, 6}});
    expectPoints(translate(drawingOf(kind, joined({{220, "-1"}}, vertices))), {{1, -2}, {5, -6}});
  }
}

TEST(LightPolyline, KeepsTheDirectionOfItsBulgesWhenMirrored) {
  const GroupList vertices = {{10, "1"}, {20, "0"}, {42, "1"}, {10, "5"}, {20, "0"}};
  EXPECT_EQ(layoutOf(translate(light({{230, "-1"}}, vertices))),
            "Layer  7 ;\nArc CCW 0.0000000 P P P;\n");
}

TEST(LightPolyline, NumbersItsPolygonsTogetherWithThoseOfOtherPolylines) {
  DxfBuilder dxf = light({{70, "1"}});
  dxf.entity("POLYLINE", {{8, "0"}, {70, "1"}});
  for (const std::string_view x : {"1", "5"}) {
    dxf.entity("VERTEX", GroupList{{8, "0"}, {10, x}, {20, "0"}});
  }
  dxf.entity("LWPOLYLINE", joined({{8, "0"}, {70, "1"}}, kCorner));
  const std::string script = translate(dxf);
  for (const std::string_view number : {" '1' ", " '2' ", " '3' "}) {
    EXPECT_EQ(countOf(number, script), 1U);
  }
}

TEST(LightPolyline, EndsTheRunOfThePolylineBeforeIt) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {70, "1"}});
  for (const std::string_view x : {"1", "5"}) {
    dxf.entity("VERTEX", GroupList{{8, "0"}, {10, x}, {20, "0"}});
  }
  dxf.entity("LWPOLYLINE", joined({{8, "0"}}, kCorner));
  dxf.entity("VERTEX", {{8, "0"}, {10, "70"}, {20, "70"}});
  EXPECT_EQ(layoutOf(translate(dxf)),
            "Layer  7 ;\nPolygon 0.0000000 '1' P PP;\n" + repeated(kLayerWire, 2));
}

TEST(LightPolyline, StopsSoonAfterACancel) {
  GroupList vertices;
  for (int i = 0; i < 5'000; ++i) {
    vertices.emplace_back(10, i % 2 == 0 ? "1" : "2");
    vertices.emplace_back(20, "0");
  }
  Translation translation(light({}, vertices));
  translation.capture.monitor.cancelWhen = [&translation] {
    return translation.capture.script.commandCount() > 1'000;
  };
  const std::size_t wires = countOf("Wire", translation.run());
  EXPECT_GE(wires, 500U);
  EXPECT_LT(wires, 600U) << "of 4,999";
}

TEST(Leader, IsAWireFromEveryVertexToTheNext) {
  for (const int mode : {0, 1, 2, -1}) {
    const std::string script = translate(drawingOf("LEADER", kCorner), {}, {.poly = mode});
    EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 2)) << mode;
    expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {5, 3}});
  }
}

TEST(Leader, IsPlacedVertexByVertex) {
  const GroupList vertices = {{10, "1"}, {20, "0"}, {10, "5"}, {20, "2"}};
  expectPoints(translate(drawingOf("LEADER", vertices),
                         {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2}),
               {{10, 22}, {4, 30}});
}

TEST(Leader, HasNoFlagsThatCouldCloseIt) {
  const DxfBuilder dxf = drawingOf("LEADER", joined({{70, "1"}}, kCorner));
  for (const int mode : {0, 1, 2, -1}) {
    const std::string script = translate(dxf, {}, {.poly = mode});
    EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 2)) << mode;
    expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {5, 3}});
  }
}

TEST(Leader, ClosedBackToItsStartIsStillNoPolygon) {
  const GroupList loop = joined(kCorner, {{10, "1"}, {20, "0"}});
  EXPECT_EQ(layoutOf(translate(drawingOf("LEADER", loop))), repeated(kLayerWire, 3));
}

}  // namespace
}  // namespace quillon::classic
