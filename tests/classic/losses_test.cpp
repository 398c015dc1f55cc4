// What the classic rules show otherwise than the exact ones.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "classic/loss_notes.h"
#include "classic/translation.h"

namespace quillon::testing {
namespace {

/// "rule KIND count (layer, line)" of each loss, in the order of first occurrence.
std::string listed(const rules::LossList& losses) {
  std::string text;
  for (const rules::Loss& loss : losses.all()) {
    if (!text.empty()) text += "; ";
    text += std::string(rules::wordOf(loss.rule)) + " " + std::string(loss.kind) + " " +
            std::to_string(loss.count) + " (" + std::string(loss.layer) + ", " +
            std::to_string(loss.line) + ")";
  }
  return text;
}

std::string lossesOf(const DxfBuilder& dxf, const classic::Settings& settings = {}) {
  Translation translation(dxf, settings);
  translation.run();
  return listed(translation.translator.takeLosses());
}

/// The words of the rules alone.
std::string wordsOf(const DxfBuilder& dxf, const classic::Settings& settings = {}) {
  Translation translation(dxf, settings);
  translation.run();
  std::string text;
  const rules::LossList losses = translation.translator.takeLosses();
  for (const rules::Loss& loss : losses.all()) {
    if (!text.empty()) text += " ";
    text += rules::wordOf(loss.rule);
  }
  return text;
}

std::string wordsOf(std::string_view kind, const GroupList& groups,
                    const classic::Settings& settings = {}) {
  return wordsOf(drawingOf(kind, groups), settings);
}

const GroupList kLine = {{10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}};
const GroupList kText = {{10, "1"}, {20, "2"}, {40, "10"}, {1, "abc"}};
const GroupList kTriangle = {{10, "0"}, {20, "0"}, {10, "9"}, {20, "0"}, {10, "9"}, {20, "9"}};

/// A block with one entity, inserted with these groups.
DxfBuilder inserted(std::string_view kind, const GroupList& groups, const GroupList& insertion) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity(kind, joined({{8, "0"}}, groups)).endBlock();
  dxf.entity("INSERT", joined({{8, "0"}, {2, "B"}}, insertion));
  return dxf;
}

TEST(ClassicLosses, ThereAreNoneOfWhatIsShownAsItIs) {
  EXPECT_EQ(wordsOf("LINE", kLine), "");
  EXPECT_EQ(wordsOf("ARC", {{10, "0"}, {20, "0"}, {40, "5"}, {50, "0"}, {51, "90"}}), "");
  EXPECT_EQ(wordsOf("CIRCLE", {{10, "0"}, {20, "0"}, {40, "5"}, {230, "-1"}}), "");
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{72, "0"}, {73, "0"}, {11, "0"}, {21, "0"}})), "");
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{50, "90"}})), "");
  EXPECT_EQ(wordsOf("MTEXT", joined(kText, {{71, "7"}})), "");
  EXPECT_EQ(wordsOf("LWPOLYLINE", kTriangle), "");
  EXPECT_EQ(wordsOf(inserted("LINE", kLine, {{50, "90"}, {70, "1"}, {71, "1"}})), "");
}

TEST(ClassicLosses, EachHasItsKindCountLayerFirstLineAndPlace) {
  DxfBuilder dxf;
  dxf.entity("LINE", joined({{8, "0"}}, kLine));
  dxf.entity("LWPOLYLINE", joined({{8, "a"}, {70, "1"}}, kTriangle));
  dxf.entity("LWPOLYLINE", joined({{8, "A"}, {70, "1"}}, kTriangle));
  dxf.entity(
      "LWPOLYLINE",
      {{8, "b"}, {70, "1"}, {10, "3"}, {20, "4"}, {10, "5"}, {20, "4"}, {10, "5"}, {20, "6"}});
  Translation translation(dxf);
  translation.run();
  const rules::LossList losses = translation.translator.takeLosses();
  EXPECT_EQ(listed(losses), "filled LWPOLYLINE 2 (A, 19); filled LWPOLYLINE 1 (B, 55)");
  EXPECT_EQ(losses.all()[1].at, (geometry::Point{3.0, 4.0}));
}

TEST(ClassicLosses, LinesWithinBlocksAreThoseOfTheBlock) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", joined({{8, "0"}}, kLine))
      .entity("TEXT", joined(joined({{8, "0"}}, kText), {{72, "1"}}))
      .endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}}).entity("INSERT", {{8, "0"}, {2, "B"}});
  const std::string text = dxf.text();
  const auto lines = std::count(
      text.begin(), text.begin() + static_cast<std::ptrdiff_t>(text.find("TEXT\n")), '\n');
  EXPECT_EQ(lossesOf(dxf), "text-aligned TEXT 2 (0, " + std::to_string(lines + 2) + ")");
}

TEST(ClassicLosses, ClosedPolylinesAreFilledAndTheirArcsStraightened) {
  const GroupList curved = {{70, "1"}, {10, "0"},   {20, "0"}, {42, "0.5"}, {10, "9"},
                            {20, "0"}, {42, "0.5"}, {10, "9"}, {20, "9"}};
  EXPECT_EQ(lossesOf(drawingOf("LWPOLYLINE", curved)),
            "area-arcs LWPOLYLINE 1 (0, 7); filled LWPOLYLINE 1 (0, 7)");
  classic::Settings wires;
  wires.poly = 1;
  EXPECT_EQ(wordsOf("LWPOLYLINE", curved, wires), "");
}

TEST(ClassicLosses, OldPolylinesHaveTheirOwnLine) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {66, "1"}, {70, "1"}});
  for (int i = 0; i < 3; ++i) {
    dxf.entity("VERTEX", {{8, "0"}, {10, i == 1 ? "5" : "0"}, {20, i == 2 ? "5" : "0"}, {42, "1"}});
  }
  dxf.entity("SEQEND", {{8, "0"}});
  EXPECT_EQ(lossesOf(dxf), "area-arcs POLYLINE 1 (0, 7); filled POLYLINE 1 (0, 7)");
}

DxfBuilder polyline(std::string_view flags, const GroupList& vertex = {}) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {66, "1"}, {70, flags}});
  for (const std::string_view x : {"0", "5"}) {
    dxf.entity("VERTEX", joined({{8, "0"}, {10, x}, {20, "0"}}, vertex));
  }
  dxf.entity("SEQEND", {{8, "0"}});
  return dxf;
}

TEST(ClassicLosses, FramesAndMeshesOfPolylinesAreDrawn) {
  EXPECT_EQ(wordsOf(polyline("0")), "");
  EXPECT_EQ(wordsOf(polyline("4")), "spline-frame");
  EXPECT_EQ(wordsOf(polyline("16")), "mesh-as-polyline");
  EXPECT_EQ(wordsOf(polyline("65")), "mesh-as-polyline");
}

TEST(ClassicLosses, WidthsThatTaperAreNotShown) {
  const GroupList first = {{10, "0"}, {20, "0"}, {40, "1"}, {41, "2"}};
  EXPECT_EQ(wordsOf("LWPOLYLINE", joined(first, {{10, "9"}, {20, "0"}})), "width-tapered");
  EXPECT_EQ(wordsOf("LWPOLYLINE", {{43, "2"}, {10, "0"}, {20, "0"}, {10, "9"}, {20, "0"}}), "");
  EXPECT_EQ(wordsOf(polyline("0", {{40, "1"}, {41, "0"}})), "width-tapered");
  EXPECT_EQ(wordsOf(polyline("0", {{40, "1"}, {41, "1.0"}})), "");
  classic::Settings withoutWidth;
  withoutWidth.poly = classic::kModeWithoutWidth;
  EXPECT_EQ(wordsOf(polyline("0", {{40, "1"}, {41, "0"}}), withoutWidth), "");
}

TEST(ClassicLosses, ArcsAreNotMirroredWithTheirBlock) {
  const GroupList bulge = {{10, "0"}, {20, "0"}, {42, "1"}, {10, "9"}, {20, "0"}};
  EXPECT_EQ(wordsOf(inserted("LWPOLYLINE", bulge, {{41, "-1"}})), "bulge-in-block");
  EXPECT_EQ(wordsOf(inserted("LWPOLYLINE", bulge, {{41, "2"}})), "bulge-in-block");
  EXPECT_EQ(wordsOf(inserted("LWPOLYLINE", bulge, {{41, "2"}, {42, "2"}})), "");
}

TEST(ClassicLosses, SplinesHaveUniformKnots) {
  const GroupList three = {{10, "0"}, {20, "0"}, {10, "1"}, {20, "1"}, {10, "2"}, {20, "0"}};
  EXPECT_EQ(wordsOf("SPLINE", three), "spline-uniform");
  EXPECT_EQ(wordsOf("SPLINE", {{10, "0"}, {20, "0"}, {10, "1"}, {20, "1"}}), "");
  EXPECT_EQ(wordsOf("SPLINE", {{11, "0"}, {21, "0"}, {11, "1"}, {21, "1"}}), "spline-not-drawn");
}

TEST(ClassicLosses, EllipsesAreCirclesOrStraightPieces) {
  const GroupList ellipse = {{10, "0"}, {20, "0"}, {11, "5"}, {21, "0"}, {40, "0.5"}};
  const GroupList full = joined(ellipse, {{41, "0"}, {42, "6.283185307179586"}});
  const GroupList half = joined(ellipse, {{41, "0"}, {42, "3.14"}});
  EXPECT_EQ(wordsOf("ELLIPSE", full), "ellipse-as-circle");
  EXPECT_EQ(wordsOf("ELLIPSE", half), "ellipse-as-circle ellipse-closed");
  classic::Settings ellipses;
  ellipses.ellipses = true;
  EXPECT_EQ(wordsOf("ELLIPSE", half, ellipses), "curve-as-lines");
  const GroupList circle = {{10, "0"}, {20, "0"}, {40, "5"}};
  EXPECT_EQ(wordsOf(inserted("CIRCLE", circle, {{41, "2"}})), "curve-as-lines");
}

TEST(ClassicLosses, ArcsAreReversedWhereAnglesRunClockwise) {
  classic::Settings clockwise;
  clockwise.angDir = 1.0;
  const GroupList arc = {{10, "0"}, {20, "0"}, {40, "5"}, {50, "0"}, {51, "90"}};
  EXPECT_EQ(wordsOf("ARC", arc, clockwise), "arc-clockwise");
}

/// The corners of an area; the last one may be the same as that before.
GroupList corners(std::string_view lastX) {
  return {{10, "0"}, {20, "0"}, {11, "5"}, {21, "0"}, {12, "0"}, {22, "5"}, {13, lastX}, {23, "5"}};
}

TEST(ClassicLosses, AreasLoseTrianglesAndTheOrderOfCorners) {
  EXPECT_EQ(wordsOf("SOLID", corners("0")), "triangle-not-drawn");
  EXPECT_EQ(wordsOf("TRACE", corners("5")), "area-corners");
  EXPECT_EQ(wordsOf("3DFACE", corners("5")), "filled");
  EXPECT_EQ(wordsOf("3DFACE", corners("0")), "triangle-not-drawn");
  DxfBuilder unfilled = drawingOf("SOLID", corners("5"));
  unfilled.header("$FILLMODE", 70, "0");
  EXPECT_EQ(wordsOf(unfilled), "filled area-corners");
}

TEST(ClassicLosses, TextsLoseAlignmentAnglesAndMirroring) {
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{72, "1"}, {11, "5"}, {21, "5"}})), "text-aligned");
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{73, "2"}})), "text-aligned");
  EXPECT_EQ(wordsOf("ATTRIB", joined(kText, {{74, "2"}})), "text-aligned");
  EXPECT_EQ(wordsOf("ATTRIB", joined(kText, {{73, "2"}})), "");
  EXPECT_EQ(wordsOf("MTEXT", kText), "text-aligned");
  EXPECT_EQ(wordsOf("MTEXT", joined(kText, {{71, "5"}})), "text-aligned");
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{50, "30"}})), "text-turned");
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{50, "180"}})), "text-turned");
  EXPECT_EQ(wordsOf("MTEXT", joined(kText, {{71, "7"}, {11, "0"}, {21, "1"}})), "text-turned");
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{71, "2"}})), "text-mirrored");
}

TEST(ClassicLosses, AnglesThatEagleDoesNotHaveThereAreNoLoss) {
  classic::Settings schematic;
  schematic.quarterTurns = true;
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{50, "30"}}), schematic), "");
  EXPECT_EQ(wordsOf("TEXT", joined(kText, {{50, "200"}}), schematic), "text-turned");
}

TEST(ClassicLosses, TextsOfTurnedBlocksStayWhereTheyWere) {
  EXPECT_EQ(wordsOf(inserted("TEXT", kText, {{50, "90"}})), "text-turned text-in-turned-block");
}

TEST(ClassicLosses, TextsLoseCodesAndTheirBeginning) {
  const auto text = [](std::string_view content) {
    return wordsOf("TEXT", {{10, "1"}, {20, "2"}, {40, "10"}, {1, content}});
  };
  EXPECT_EQ(text("20%%d %%p5 %%u100 %%%"), "");
  EXPECT_EQ(text("%%c5"), "text-codes");
  EXPECT_EQ(text("\\U+2205 5"), "text-codes");
  EXPECT_EQ(text("a{b}c"), "text-codes");
  EXPECT_EQ(text("a\xE1"), "text-codes");
  EXPECT_EQ(text("a\xE4"), "");
  EXPECT_EQ(text(" "), "");
  EXPECT_EQ(wordsOf("MTEXT", joined(kText, {{71, "7"}, {3, "before "}})), "text-beginning");
}

TEST(ClassicLosses, AttributesAreDrawnThoughHidden) {
  EXPECT_EQ(wordsOf("ATTRIB", joined(kText, {{70, "1"}, {72, "1"}})), "attribute-drawn");
  EXPECT_EQ(wordsOf("ATTDEF", joined(kText, {{70, "0"}, {2, "TAG"}})), "attribute-value");
  EXPECT_EQ(wordsOf(inserted("ATTDEF", joined(kText, {{70, "0"}}), {})), "attribute-drawn");
  EXPECT_EQ(wordsOf(inserted("ATTDEF", joined(kText, {{70, "2"}}), {})), "");
}

TEST(ClassicLosses, BlocksLoseArraysAndTurnsAboutABasePoint) {
  EXPECT_EQ(wordsOf(inserted("LINE", kLine, {{70, "3"}, {44, "5"}})), "array-drawn-once");
  EXPECT_EQ(wordsOf(inserted("LINE", kLine, {{71, "2"}})), "array-drawn-once");
  EXPECT_EQ(wordsOf(inserted("LINE", kLine, {{230, "-1"}})), "extrusion-ignored");
  DxfBuilder based;
  based.beginBlock("B", "5", "0").entity("LINE", joined({{8, "0"}}, kLine)).endBlock();
  DxfBuilder scaled = based;
  scaled.entity("INSERT", {{8, "0"}, {2, "B"}, {41, "2"}, {42, "2"}});
  EXPECT_EQ(wordsOf(scaled), "");
  based.entity("INSERT", {{8, "0"}, {2, "B"}, {50, "90"}});
  EXPECT_EQ(wordsOf(based), "base-point-not-turned");
}

TEST(ClassicLosses, TurnedBlocksAreNotStretchedWithTheOuterOne) {
  DxfBuilder dxf;
  dxf.beginBlock("IN").entity("LINE", joined({{8, "0"}}, kLine)).endBlock();
  dxf.beginBlock("OUT").entity("INSERT", {{8, "0"}, {2, "IN"}, {50, "30"}}).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "OUT"}, {41, "2"}});
  EXPECT_EQ(wordsOf(dxf), "block-not-stretched");
}

TEST(ClassicLosses, DimensionsAreMovedOrMissing) {
  EXPECT_EQ(wordsOf("DIMENSION", {{2, "*D1"}, {10, "5"}, {20, "5"}}), "dimension-without-block");
  DxfBuilder dxf;
  dxf.beginBlock("*D1").entity("LINE", joined({{8, "0"}}, kLine)).endBlock();
  DxfBuilder unmoved = dxf;
  unmoved.entity("DIMENSION", {{8, "0"}, {2, "*D1"}});
  EXPECT_EQ(wordsOf(unmoved), "");
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}, {10, "5"}, {20, "0"}});
  EXPECT_EQ(wordsOf(dxf), "dimension-moved");
}

TEST(ClassicLosses, LeadersHaveNoArrowsOrCurves) {
  const GroupList points = {{10, "0"}, {20, "0"}, {10, "9"}, {20, "0"}};
  EXPECT_EQ(wordsOf("LEADER", points), "leader-as-line");
  EXPECT_EQ(wordsOf("LEADER", joined({{71, "0"}, {72, "0"}}, points)), "");
  EXPECT_EQ(wordsOf("LEADER", joined({{71, "0"}, {72, "1"}}, points)), "leader-as-line");
}

TEST(ClassicLosses, OrientationInSpaceIsSimplified) {
  EXPECT_EQ(wordsOf("LINE", joined(kLine, {{230, "-1"}})), "extrusion-ignored");
  EXPECT_EQ(wordsOf("POINT", {{10, "5"}, {20, "5"}, {230, "-1"}}), "extrusion-ignored");
  EXPECT_EQ(wordsOf("CIRCLE", {{10, "0"}, {20, "0"}, {40, "5"}, {210, "1"}, {230, "0"}}),
            "extrusion-ignored");
  EXPECT_EQ(wordsOf("CIRCLE", {{10, "0"}, {20, "0"}, {40, "5"}, {220, "0.5"}, {230, "0.8"}}),
            "extrusion-ignored");
  EXPECT_EQ(wordsOf("TRACE", joined(corners("5"), {{230, "-1"}})),
            "extrusion-ignored area-corners");
}

TEST(ClassicLosses, HiddenThingsAreDrawnAndTheirOtherLossesNotNamed) {
  const GroupList aligned = joined(kText, {{72, "1"}});
  EXPECT_EQ(wordsOf("TEXT", joined(aligned, {{60, "1"}})), "invisible-drawn");
  DxfBuilder dxf;
  dxf.layer("OFF", {{70, "0"}, {62, "-7"}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.layer("FROZEN", {{70, "1"}, {62, "7"}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.entity("TEXT", joined(aligned, {{8, "OFF"}}));
  dxf.entity("TEXT", joined(aligned, {{8, "FROZEN"}}));
  EXPECT_EQ(wordsOf(dxf), "layer-off-drawn layer-frozen-drawn");
}

TEST(ClassicLosses, BlocksOnLayersThatAreOffShowWhatIsOnOthers) {
  DxfBuilder dxf;
  dxf.layer("OFF", {{70, "0"}, {62, "-7"}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.beginBlock("B")
      .entity("LINE", joined({{8, "0"}}, kLine))
      .entity("TEXT", joined(joined({{8, "A"}}, kText), {{72, "1"}}))
      .endBlock();
  dxf.entity("INSERT", {{8, "OFF"}, {2, "B"}});
  EXPECT_EQ(wordsOf(dxf), "layer-off-drawn text-aligned");
}

TEST(ClassicLosses, PaperSpaceIsDrawnWhereThereIsAModel) {
  const GroupList paper = joined(joined({{8, "0"}, {67, "1"}}, kText), {{72, "1"}});
  DxfBuilder dxf;
  dxf.entity("TEXT", paper);
  EXPECT_EQ(wordsOf(dxf), "text-aligned");
  dxf.entity("LINE", joined({{8, "0"}}, kLine));
  EXPECT_EQ(wordsOf(dxf), "paper-space-drawn");
}

TEST(ClassicLosses, LayerZeroOfABlockIsNotThatOfTheBlock) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("LINE", joined({{8, "0"}}, kLine)).endBlock();
  dxf.entity("INSERT", {{8, "SILK"}, {2, "B"}});
  EXPECT_EQ(wordsOf(dxf), "");  // both are EAGLE's layer 7
  KnownLayers layers;
  layers.numbers["SILK"] = 21;
  Translation translation(dxf, {}, &layers);
  translation.run();
  EXPECT_EQ(listed(translation.translator.takeLosses()), "layer-of-block LINE 1 (0, 19)");
}

TEST(ClassicLosses, LayersThatAreNotConvertedLoseNothing) {
  DxfBuilder dxf;
  dxf.entity("TEXT", joined(joined({{8, "NOWHERE"}}, kText), {{72, "1"}}));
  dxf.entity("CIRCLE", {{8, "NOWHERE"}, {10, "0"}, {20, "0"}, {40, "5"}, {210, "1"}});
  EXPECT_EQ(wordsOf(dxf), "");
}

/// The losses of a drawing in which other kinds are looked for, as a conversion does.
std::string lossesWithOtherKinds(const DxfBuilder& dxf) {
  dxf::TextSource source(dxf.text());
  TestMonitor monitor;
  dxf::LineReader lines(source, monitor);
  dxf::Drawing drawing;
  drawing.otherEntities.want(classic::kindsOfOtherRules());
  dxf::readDefinitions(drawing, lines);
  ScriptCapture capture;
  KnownLayers layers;
  classic::Translator translator(capture.context, drawing, layers);
  dxf::readContents(drawing, lines, translator, true);
  return listed(translator.takeLosses());
}

TEST(ClassicLosses, KindsThatTheExactRulesDrawAreNamed) {
  DxfBuilder dxf;
  dxf.entity("HATCH", {{8, "a"}, {2, "SOLID"}}).entity("IMAGE", {{8, "a"}});
  dxf.entity("HATCH", {{8, "A"}, {2, "SOLID"}}).entity("HATCH", {{8, "A"}, {60, "1"}});
  dxf.entity("HATCH", {{8, "A"}, {67, "1"}}).entity("MLINE", {{8, "nowhere"}});
  EXPECT_EQ(lossesWithOtherKinds(dxf), "unknown-kind HATCH 2 (A, 7)");
}

TEST(ClassicLosses, OtherKindsInBlocksCountAsOftenAsTheyAreInserted) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("HATCH", {{8, "A"}, {2, "SOLID"}}).endBlock();
  dxf.beginBlock("UNUSED").entity("MLINE", {{8, "A"}}).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}}).entity("INSERT", {{8, "0"}, {2, "B"}});
  EXPECT_EQ(lossesWithOtherKinds(dxf), "unknown-kind HATCH 2 (A, 19)");
}

}  // namespace
}  // namespace quillon::testing
