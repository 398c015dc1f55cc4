// Lines, areas and points of a drawing, and what all kinds have in common.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "base/run_time_error.h"
#include "classic/translation.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::drawingOf;
using testing::DxfBuilder;
using testing::expectPoints;
using testing::GroupList;
using testing::joined;
using testing::layoutOf;
using testing::translate;
using testing::Translation;

const GroupList kLine = {{10, "1"}, {20, "2"}, {11, "3"}, {21, "5"}};
const GroupList kSquare = {{10, "1"}, {20, "2"}, {11, "3"}, {21, "2"},
                           {12, "3"}, {22, "4"}, {13, "1"}, {23, "4"}};
constexpr Placement kPlaced{.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2};

TEST(TranslateLine, WritesAWireWithoutWidthOnTheLayerOfTheEntity) {
  EXPECT_EQ(translate(drawingOf("LINE", kLine)),
            "Layer  7 ;\nWire 0.0000000 (1.0000000 2.0000000) (3.0000000 5.0000000);\n");
  EXPECT_EQ(translate(drawingOf("3DLINE", kLine)), translate(drawingOf("LINE", kLine)));
}

TEST(TranslateLine, PlacesBothEnds) {
  // (1, 2) to (2, 6) to (-6, 2); (3, 5) to (6, 15) to (-15, 6).
  expectPoints(translate(drawingOf("LINE", kLine), kPlaced), {{4, 22}, {-5, 26}});
}

TEST(TranslateLine, MirrorsBothEndsByItsExtrusion) {
  expectPoints(translate(drawingOf("LINE", joined(kLine, {{230, "-1"}}))), {{-1, 2}, {-3, 5}});
  expectPoints(translate(drawingOf("LINE", joined(kLine, {{220, "-1"}}))), {{1, -2}, {3, -5}});
  expectPoints(translate(drawingOf("LINE", joined(kLine, {{220, "-1"}, {230, "-1"}}))),
               {{-1, -2}, {-3, -5}});
  expectPoints(translate(drawingOf("LINE", joined(kLine, {{210, "-1"}, {230, "1"}}))),
               {{1, 2}, {3, 5}});
}

TEST(TranslateLine, MirrorsBeforeItScalesAndTurns) {
  // (-1, 2) to (-2, 6) to (-6, -2); (-3, 5) to (-6, 15) to (-15, -6).
  expectPoints(translate(drawingOf("LINE", joined(kLine, {{230, "-1.0"}})), kPlaced),
               {{4, 18}, {-5, 14}});
}

TEST(TranslateLine, TakesAMinusInTheExponentOfItsExtrusionAsNegative) {
  expectPoints(translate(drawingOf("LINE", joined(kLine, {{230, "1e-3"}}))), {{-1, 2}, {-3, 5}});
  expectPoints(translate(drawingOf("LINE", joined(kLine, {{230, "-1e-6"}}))), {{1, 2}, {3, 5}});
}

TEST(TranslateLine, PutsMissingCoordinatesAtZero) {
  expectPoints(translate(drawingOf("LINE", {{11, "3"}})), {{0, 0}, {3, 0}});
  expectPoints(translate(drawingOf("LINE", {})), {{0, 0}, {0, 0}});
}

TEST(TranslateLine, IsAnErrorWithANumberThatIsNotFinite) {
  Translation translation(drawingOf("LINE", {{10, "1e999"}, {20, "2"}, {11, "3"}, {21, "5"}}));
  try {
    translation.run();
    FAIL() << "wrote an infinite number";
  } catch (const base::RunTimeError& error) {
    EXPECT_EQ(error.fault(), base::Fault::BadNumber);
  }
}

TEST(TranslatePoint, WritesADotAtThePlacedPoint) {
  const std::string script = translate(drawingOf("POINT", {{10, "1"}, {20, "2"}}), kPlaced);
  EXPECT_EQ(layoutOf(script), "Layer  7 ;\nCircle 0.0 P P;\n");
  expectPoints(script, {{4, 22}, {4, 22.1}});
}

TEST(TranslatePoint, DoesNotScaleThePointSize) {
  const std::string script =
      translate(drawingOf("POINT", {{10, "1"}, {20, "2"}}), kPlaced, {.pointSize = 4.0});
  expectPoints(script, {{4, 22}, {4, 24}});
}

TEST(TranslatePoint, MirrorsThePoint) {
  const DxfBuilder dxf = drawingOf("POINT", {{10, "1"}, {20, "2"}, {220, "-1"}, {230, "-1"}});
  expectPoints(translate(dxf), {{-1, -2}, {-1, -1.9}});
}

TEST(TranslateArea, WritesTheFourCornersOfEveryKindOfArea) {
  for (const std::string_view kind : {"SOLID", "TRACE", "3DFACE"}) {
    const std::string script = translate(drawingOf(kind, kSquare));
    EXPECT_EQ(layoutOf(script), "Layer  7 ;\nPolygon 0.0000000 P PPPP;\n") << kind;
    expectPoints(script, {{1, 2}, {3, 2}, {3, 4}, {1, 4}, {1, 2}});
  }
}

TEST(TranslateArea, PlacesEveryCorner) {
  for (const std::string_view kind : {"SOLID", "TRACE", "3DFACE"}) {
    expectPoints(translate(drawingOf(kind, kSquare), kPlaced),
                 {{4, 22}, {4, 26}, {-2, 26}, {-2, 22}, {4, 22}});
  }
}

TEST(TranslateArea, KeepsTheOrderOfTheCornersAsItIs) {
  const GroupList bowTie = {{10, "1"}, {20, "2"}, {11, "3"}, {21, "2"},
                            {12, "1"}, {22, "4"}, {13, "3"}, {23, "4"}};
  expectPoints(translate(drawingOf("SOLID", bowTie)), {{1, 2}, {3, 2}, {1, 4}, {3, 4}, {1, 2}});
}

TEST(TranslateArea, IsMirroredByItsExtrusionUnlessItIsATrace) {
  const GroupList mirrored = joined(kSquare, {{220, "-1"}, {230, "-1"}});
  for (const std::string_view kind : {"SOLID", "3DFACE"}) {
    expectPoints(translate(drawingOf(kind, mirrored)),
                 {{-1, -2}, {-3, -2}, {-3, -4}, {-1, -4}, {-1, -2}});
  }
  expectPoints(translate(drawingOf("TRACE", mirrored)), {{1, 2}, {3, 2}, {3, 4}, {1, 4}, {1, 2}});
}

TEST(TranslateArea, WritesNothingForATriangle) {
  const GroupList triangle = {{10, "1"}, {20, "2"}, {11, "3"}, {21, "2"},
                              {12, "3"}, {22, "4"}, {13, "3"}, {23, "4"}};
  EXPECT_EQ(translate(drawingOf("SOLID", triangle)), "");
}

TEST(TranslateArea, HasTheFillWidthOfTheJob) {
  const std::string script = translate(drawingOf("SOLID", kSquare), {}, {.fillWidth = 0.25});
  EXPECT_TRUE(script.starts_with("Layer  7 ;\nPolygon 0.2500000 ("));
}

TEST(TranslateShape, WritesNothing) {
  const DxfBuilder dxf = drawingOf("SHAPE", {{10, "1"}, {20, "2"}, {40, "3"}, {2, "BAT"}});
  Translation translation(dxf);
  EXPECT_EQ(translation.run(), "");
  EXPECT_EQ(translation.capture.script.commandCount(), 0U);
}

/// One entity of every kind that writes something, all on the given layer.
DxfBuilder everyKindOn(std::string_view layer) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("LINE", joined({{8, "0"}}, kLine)).endBlock();
  const auto add = [&](std::string_view name, const GroupList& groups) {
    dxf.entity(name, joined({{8, layer}}, groups));
  };
  const GroupList circle = {{10, "1"}, {20, "2"}, {40, "3"}};
  const GroupList text = {{10, "1"}, {20, "2"}, {40, "3"}, {1, "text"}};
  const GroupList light = {{10, "1"}, {20, "2"}, {10, "3"}, {20, "5"}};
  add("LINE", kLine);
  add("3DLINE", kLine);
  add("ARC", joined(circle, {{50, "0"}, {51, "90"}}));
  add("CIRCLE", circle);
  add("ELLIPSE", {{10, "1"}, {20, "2"}, {11, "3"}, {40, "1"}, {42, "6"}});
  add("POLYLINE", {});
  for (const std::string_view x : {"1", "2", "4"}) {
    dxf.entity("VERTEX", GroupList{{8, "0"}, {10, x}, {20, "1"}, {42, x == "2" ? "1" : "0"}});
  }
  dxf.entity("SEQEND", GroupList{});
  add("SPLINE", light);
  add("LWPOLYLINE", joined({{70, "1"}}, light));
  add("LWPOLYLINE", joined({{43, "1"}}, light));
  add("LEADER", light);
  for (const std::string_view kind : {"TEXT", "ATTRIB", "ATTDEF", "MTEXT"}) add(kind, text);
  add("INSERT", {{2, "B"}});
  add("DIMENSION", {{2, "B"}});
  for (const std::string_view kind : {"TRACE", "SOLID", "3DFACE"}) add(kind, kSquare);
  add("POINT", {{10, "1"}, {20, "2"}});
  return dxf;
}

TEST(TranslateEntity, WritesNothingOnALayerThatIsNotConverted) {
  for (const bool ellipses : {false, true}) {
    Translation translation(everyKindOn("NOWHERE"), {.ellipses = ellipses});
    EXPECT_EQ(translation.run(), "");
    EXPECT_EQ(translation.capture.script.commandCount(), 0U);
  }
}

TEST(TranslateEntity, WritesEveryKindOnItsOwnLayer) {
  Translation translation(everyKindOn("wanted"));
  translation.layers.numbers = {{"WANTED", 42}, {"0", 7}};
  const std::string script = translation.run();
  // The lines of the block are on its own layer.
  EXPECT_EQ(testing::countOf("Layer  7 ;\n", script), 2U);
  // ARC, CIRCLE, ELLIPSE as a circle, POINT, two lines, two segments of POLYLINE, nine pieces of
  // SPLINE, three polylines, four texts, three areas.
  EXPECT_EQ(testing::countOf("Layer  42 ;\n", script), 4U + 2U + 2U + 9U + 3U + 4U + 3U);
}

/// A layer table without numbers.
class NoLayers : public rules::LayerNumbers {
 public:
  int layerNumber(const dxf::LayerUse& layer) override {
    throw base::RunTimeError(base::Fault::BadLayerNumber, layer.name);
  }
};

TEST(TranslateEntity, PassesOnTheErrorOfALayerWithoutANumber) {
  NoLayers layers;
  Translation translation(drawingOf("LINE", kLine), {}, &layers);
  try {
    translation.run();
    FAIL() << "wrote a line on no layer";
  } catch (const base::RunTimeError& error) {
    EXPECT_EQ(error.fault(), base::Fault::BadLayerNumber);
    EXPECT_EQ(error.subject(), "0");
  }
}

/// Whether the position of the entity translated last is at these lines, after its name.
bool standsAt(const Translation& translation, std::string_view lines) {
  const char* const position = translation.translator.currentPosition();
  return position != nullptr && std::string_view(position, lines.size()) == lines;
}

TEST(TranslateEntity, KnowsThePositionOfTheEntityTranslatedLast) {
  Translation translation(drawingOf("LINE", kLine));
  EXPECT_EQ(translation.translator.currentPosition(), nullptr);
  translation.run();
  EXPECT_TRUE(standsAt(translation, "  8\n0\n 10\n1\n"));
}

TEST(TranslateEntity, IsAtTheInsertionAgainAfterItsBlock) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("POINT", {{8, "0"}, {10, "5"}}).endBlock();
  dxf.entity("INSERT", {{2, "B"}, {8, "0"}});
  Translation translation(dxf);
  translation.run();
  EXPECT_TRUE(standsAt(translation, "  2\nB\n"));
}

TEST(TranslateEntity, IsAtTheLastVertexWhenThePolylineCannotBeClosed) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {70, "1"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "1"}})
      .entity("VERTEX", {{10, "2"}, {8, "0"}, {40, "1e999"}});
  dxf.entity("LINE", {{8, "0"}});
  Translation translation(dxf, {.poly = 1});
  EXPECT_THROW(translation.run(), base::RunTimeError);
  EXPECT_TRUE(standsAt(translation, " 10\n2\n"));
}

}  // namespace
}  // namespace quillon::classic
