// POLYLINE entities with their VERTEX entities.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

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
using testing::layoutOf;
using testing::repeated;
using testing::translate;
using testing::Translation;

const std::vector<Point> kThereAndBack = {{1, 0}, {5, 0}, {5, 0}, {5, 3}, {5, 3}, {1, 0}};

/// A drawing to which polylines are added entity by entity.
class PolylineDrawing : public DxfBuilder {
 public:
  PolylineDrawing& polyline(const GroupList& groups) {
    entity("POLYLINE", joined({{8, "0"}}, groups));
    return *this;
  }
  PolylineDrawing& vertex(std::string_view x, std::string_view y, const GroupList& groups = {}) {
    entity("VERTEX", joined({{8, "0"}, {10, x}, {20, y}}, groups));
    return *this;
  }
  /// Three vertices: (1, 0), (5, 0), (5, 3).
  PolylineDrawing& corner() { return vertex("1", "0").vertex("5", "0").vertex("5", "3"); }
  PolylineDrawing& seqend() {
    entity("SEQEND", {{8, "0"}});
    return *this;
  }
  PolylineDrawing& line() {
    entity("LINE", {{8, "0"}, {10, "80"}, {20, "0"}, {11, "90"}, {21, "0"}});
    return *this;
  }
};

const std::string kLineLayout = kLayerWire;
constexpr std::string_view kThePolygon = "Layer  7 ;\nPolygon 0.0000000 '1' P P\\\nPP;\n";

TEST(Polyline, OpenIsAWireFromEveryVertexToTheNext) {
  PolylineDrawing dxf;
  dxf.polyline({}).corner().seqend();
  Translation translation(dxf);
  const std::string script = translation.run();
  EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 2));
  expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {5, 3}});
  EXPECT_EQ(translation.capture.script.commandCount(), 4U);
}

TEST(Polyline, ClosedWithoutWidthIsAPolygon) {
  for (const int mode : {2, -1}) {
    PolylineDrawing dxf;
    dxf.polyline({{70, "1"}}).corner().seqend();
    Translation translation(dxf, {.poly = mode});
    EXPECT_EQ(translation.run(),
              "Layer  7 ;\nPolygon 0.0000000 '1' (1.0000000 0.0000000) (5.0000000 0.0000000)\\\n"
              "(5.0000000 3.0000000)(5.0000000 3.0000000);\n");
    EXPECT_EQ(translation.capture.script.commandCount(), 4U);
  }
}

TEST(Polyline, ClosedIsWrittenBySegmentsInTheModesOfWires) {
  for (const int mode : {0, 1, 3, 7}) {
    PolylineDrawing dxf;
    dxf.polyline({{70, "1"}}).corner().seqend();
    const std::string script = translate(dxf, {}, {.poly = mode});
    EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 3)) << mode;
    expectPoints(script, kThereAndBack);
  }
}

TEST(Polyline, ClosedWithAWidthIsWrittenBySegments) {
  for (const int width : {40, 41}) {
    PolylineDrawing dxf;
    dxf.polyline({{70, "1"}, {width, "0.5"}}).corner().seqend();
    EXPECT_EQ(countOf("Wire", translate(dxf)), 3U) << "group " << width;
  }
  PolylineDrawing zero;
  zero.polyline({{70, "1"}, {40, "0.0"}, {41, "0"}}).corner().seqend();
  EXPECT_EQ(layoutOf(translate(zero)), kThePolygon);
}

TEST(Polyline, ClosedWithWidthsOfItsVerticesOnlyIsAPolygon) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}});
  dxf.vertex("1", "0", {{40, "2"}, {41, "2"}}).vertex("5", "0").vertex("5", "3").seqend();
  EXPECT_EQ(layoutOf(translate(dxf)), kThePolygon);
}

TEST(Polyline, IsClosedWhenItsFlagsAreOdd) {
  for (const auto& [flags, closed] : {std::pair{"1", true},
                                      {"9", true},
                                      {"129", true},
                                      {"1.0", true},
                                      {"0", false},
                                      {"8", false},
                                      {"128", false},
                                      {"", false}}) {
    PolylineDrawing dxf;
    dxf.polyline({{70, flags}}).corner().seqend();
    EXPECT_EQ(countOf("Polygon", translate(dxf)), closed ? 1U : 0U) << flags;
    EXPECT_EQ(countOf("Wire", translate(dxf, {}, {.poly = 1})), closed ? 3U : 2U) << flags;
  }
}

TEST(Polyline, DoesNotUseBulgesOnThePolygonRoad) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}});
  dxf.vertex("1", "0", {{42, "1"}}).vertex("5", "0", {{42, "-1"}}).vertex("5", "3").seqend();
  EXPECT_EQ(layoutOf(translate(dxf)), kThePolygon);
}

TEST(Polyline, WritesTheSegmentAfterAVertexWithABulgeAsAnArc) {
  PolylineDrawing dxf;
  dxf.polyline({});
  dxf.vertex("1", "0", {{42, "1"}}).vertex("5", "0", {{42, "0"}}).vertex("9", "0", {{42, "-1"}});
  dxf.vertex("9", "2", {{42, "1"}}).seqend();
  const std::string script = translate(dxf);
  EXPECT_EQ(layoutOf(script), "Layer  7 ;\nArc CCW 0.0000000 P P P;\n" + kLayerWire +
                                  "Layer  7 ;\nArc CW 0.0000000 P P P;\n");
  expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {5, 0}, {9, 0}, {9, 0}, {9, 2}, {9, 2}});
}

TEST(Polyline, TakesATinyBulgeAsNone) {
  PolylineDrawing dxf;
  dxf.polyline({}).vertex("1", "0", {{42, "9e-7"}}).vertex("5", "0").seqend();
  EXPECT_EQ(layoutOf(translate(dxf)), kLayerWire);
}

TEST(Polyline, ClosedByASegmentWithTheBulgeOfItsLastVertex) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}}).vertex("1", "0").vertex("5", "0", {{42, "1"}}).seqend();
  const std::string script = translate(dxf, {}, {.poly = 1});
  EXPECT_EQ(layoutOf(script), kLayerWire + "Layer  7 ;\nArc CCW 0.0000000 P P P;\n");
  expectPoints(script, {{1, 0}, {5, 0}, {5, 0}, {1, 0}, {1, 0}});
}

TEST(Polyline, ClosedByASegmentWithTheWidthOfItsLastVertex) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}}).vertex("1", "0", {{40, "0.25"}}).vertex("5", "0", {{40, "0.75"}});
  EXPECT_EQ(layoutOf(translate(dxf, {}, {.poly = 1})),
            "Layer  7 ;\nWire 0.2500000 P P;\nLayer  7 ;\nWire 0.7500000 P P;\n");
}

TEST(Polyline, ClosedOfFewerThanTwoVerticesWritesNothing) {
  for (const int mode : {0, 1, 2, -1}) {
    PolylineDrawing one;
    one.polyline({{70, "1"}}).vertex("1", "0").seqend();
    EXPECT_EQ(translate(one, {}, {.poly = mode}), "");
    PolylineDrawing none;
    none.polyline({{70, "1"}}).seqend();
    EXPECT_EQ(translate(none, {}, {.poly = mode}), "");
  }
}

TEST(Polyline, ClosedOfTwoVerticesGoesThereAndBack) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}}).vertex("1", "0").vertex("5", "0").seqend();
  EXPECT_EQ(layoutOf(translate(dxf, {}, {.poly = 1})), repeated(kLayerWire, 2));
  EXPECT_EQ(layoutOf(translate(dxf)), "Layer  7 ;\nPolygon 0.0000000 '1' P PP;\n");
}

TEST(Polyline, LeavesEqualVerticesOfAPolygonOut) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}}).vertex("1", "0").vertex("1", "0").vertex("5", "0").vertex("5", "0");
  EXPECT_EQ(layoutOf(translate(dxf)), "Layer  7 ;\nPolygon 0.0000000 '1' P \\\nPP;\n");
}

TEST(Polyline, EndsWithItsListToo) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}}).corner();
  EXPECT_EQ(layoutOf(translate(dxf)), kThePolygon);
  EXPECT_EQ(layoutOf(translate(dxf, {}, {.poly = 1})), repeated(kLayerWire, 3));
}

TEST(Polyline, EndsWhereAnotherEntityBegins) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}}).corner().line().vertex("70", "70");
  EXPECT_EQ(layoutOf(translate(dxf)), std::string(kThePolygon) + kLineLayout);
  const std::string script = translate(dxf, {}, {.poly = 1});
  EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 3) + kLineLayout);
  std::vector<Point> points = kThereAndBack;
  points.insert(points.end(), {{80, 0}, {90, 0}});
  expectPoints(script, points);
}

TEST(Polyline, EndsWhereAnotherPolylineBegins) {
  PolylineDrawing dxf;
  dxf.polyline({{70, "1"}}).corner();
  dxf.polyline({}).vertex("10", "0").vertex("20", "0").seqend();
  EXPECT_EQ(layoutOf(translate(dxf)), std::string(kThePolygon) + kLayerWire);
}

TEST(Polyline, EndsWhereAShapeOrAnInsertWithoutABlockBegins) {
  for (const std::string_view kind : {"SHAPE", "INSERT"}) {
    PolylineDrawing dxf;
    dxf.polyline({{70, "1"}}).corner();
    dxf.entity(kind, {{8, "0"}, {2, "NONE"}});
    dxf.vertex("70", "70").seqend();
    EXPECT_EQ(layoutOf(translate(dxf)), kThePolygon) << kind;
  }
}

TEST(Polyline, NumbersItsPolygonsFromOne) {
  PolylineDrawing dxf;
  for (int i = 0; i < 3; ++i) dxf.polyline({{70, "1"}}).corner().seqend();
  const std::string script = translate(dxf);
  for (const std::string_view number : {" '1' ", " '2' ", " '3' "}) {
    EXPECT_EQ(countOf(number, script), 1U);
  }
  EXPECT_EQ(countOf("Polygon", script), 3U);
}

TEST(Polyline, WritesNothingForAVertexOutsideARun) {
  PolylineDrawing before;
  before.corner().seqend();
  EXPECT_EQ(translate(before), "");
  PolylineDrawing behind;
  behind.polyline({}).vertex("1", "0").vertex("5", "0").seqend().corner().seqend();
  EXPECT_EQ(layoutOf(translate(behind)), kLayerWire);
}

TEST(Polyline, PlacesItsVertices) {
  const Placement placement{.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2};
  for (const int mode : {1, 2}) {
    PolylineDrawing dxf;
    dxf.polyline({{70, "1"}}).vertex("1", "0").vertex("5", "2").seqend();
    // (1, 0) to (2, 0) to (0, 2); (5, 2) to (10, 6) to (-6, 10).
    const std::vector<Point> points = testing::pointsOf(translate(dxf, placement, {.poly = mode}));
    ASSERT_GE(points.size(), 3U);
    EXPECT_NEAR(points[0].x, 10.0, 1e-7);
    EXPECT_NEAR(points[0].y, 22.0, 1e-7);
    EXPECT_NEAR(points[1].x, 4.0, 1e-7);
    EXPECT_NEAR(points[1].y, 30.0, 1e-7);
  }
}

TEST(Polyline, MirrorsEveryVertexByItsOwnExtrusion) {
  PolylineDrawing dxf;
  dxf.polyline({{230, "-1"}, {220, "-1"}});
  dxf.vertex("1", "2").vertex("5", "6", {{230, "-1"}}).vertex("7", "8", {{220, "-1"}}).seqend();
  expectPoints(translate(dxf), {{1, 2}, {-5, 6}, {-5, 6}, {7, -8}});
}

TEST(Polyline, IsWrittenInItsOwnLayerWhateverThatOfItsVertices) {
  PolylineDrawing dxf;
  dxf.entity("POLYLINE", {{8, "OWN"}});
  for (const std::string_view x : {"1", "5"}) {
    dxf.entity("VERTEX", GroupList{{8, "NOWHERE"}, {10, x}, {20, "0"}});
  }
  dxf.seqend();
  Translation translation(dxf);
  translation.layers.numbers["OWN"] = 33;
  EXPECT_EQ(layoutOf(translation.run()), "Layer  33 ;\nWire 0.0000000 P P;\n");
}

TEST(Polyline, WritesNothingOnALayerThatIsNotConvertedWhateverThatOfItsVertices) {
  for (const int mode : {0, 1, 2, -1}) {
    PolylineDrawing dxf;
    dxf.entity("POLYLINE", {{8, "NOWHERE"}, {70, "1"}});
    dxf.vertex("1", "0", {{42, "1"}}).vertex("5", "0").vertex("5", "3").seqend();
    EXPECT_EQ(translate(dxf, {}, {.poly = mode}), "");
  }
}

TEST(Polyline, OfABlockEndsWithTheBlock) {
  PolylineDrawing dxf;
  dxf.beginBlock("B");
  dxf.polyline({}).vertex("1", "0").vertex("5", "0");
  dxf.endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}});
  dxf.vertex("9", "9").seqend();
  EXPECT_EQ(layoutOf(translate(dxf)), kLayerWire);
}

TEST(Polyline, OfADrawingEndsBeforeABlockThatIsInserted) {
  PolylineDrawing dxf;
  dxf.beginBlock("B");
  dxf.vertex("9", "9").line();
  dxf.endBlock();
  dxf.polyline({{70, "1"}}).corner();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}});
  EXPECT_EQ(layoutOf(translate(dxf)), std::string(kThePolygon) + kLineLayout);
}

}  // namespace
}  // namespace quillon::classic
