// Blocks as library parts.
#include <string>

#include "parts_drawing.h"
#include "support/timing.h"

namespace quillon::testing {
namespace {

using Pairs = std::vector<std::pair<int, std::string_view>>;

/// The block B with base point (1 2) and the line (1 2) to (4 2) on a layer.
DxfBuilder lineBlock(std::string_view layer = "A") {
  DxfBuilder dxf;
  dxf.beginBlock("B", "1", "2")
      .entity("LINE", {{8, layer}, {10, "1"}, {20, "2"}, {11, "4"}, {21, "2"}})
      .endBlock();
  return dxf;
}

/// Inserts B at (10 20) on layer 0.
DxfBuilder& insertB(DxfBuilder& dxf, const GroupPairs& groups = {}) {
  Pairs all = {{8, "0"}, {2, "B"}, {10, "10"}, {20, "20"}};
  all.insert(all.end(), groups.begin(), groups.end());
  return dxf.entity("INSERT", all);
}

/// The commands that place B, inserted with these groups.
std::string addsOf(const GroupPairs& groups, const exact::Options& options = {}) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf, groups);
  const std::string script = PartsDrawing(dxf, options).script();
  const std::size_t adds = script.find("Add ");
  return adds == std::string::npos ? "none\n" : script.substr(adds);
}

/// What the first part has.
std::string partOf(const GroupPairs& groups) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf, groups);
  const std::string script = PartsDrawing(dxf).script();
  return script.substr(0, script.find("Edit 'LIB.brd'"));
}

TEST(ExactParts, ABlockIsWrittenOnceAboutItsBasePointAndPlacedByIt) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf);
  insertB(dxf, {{10, "30"}, {50, "33.3"}});
  EXPECT_EQ(PartsDrawing(dxf).script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'LIB.brd';\n"
            "Add B_1@LIB R0 (10 20);\nAdd B_1@LIB R33.3 (30 20);\n");
}

// A part is complete before the style is met, which comes after all entities.
TEST(ExactParts, CapsOfMultilinesInPartsAreNamed) {
  const GroupPairs mline = {{8, "A"},   {2, "WALL"}, {71, "1"}, {11, "0"}, {21, "0"},
                            {13, "0"},  {23, "1"},   {74, "1"}, {41, "1"}, {74, "1"},
                            {41, "-1"}, {11, "9"},   {21, "0"}, {13, "0"}, {23, "1"},
                            {74, "1"},  {41, "1"},   {74, "1"}, {41, "-1"}};
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("MLINE", mline).endBlock();
  insertB(dxf);
  dxf.entity("MLINE", mline);
  std::string text = dxf.text();
  const std::string start = "OBJECTS\n";
  text.insert(text.find(start) + start.size(), "0\nMLINESTYLE\n2\nWALL\n70\n272\n");
  const PartsDrawing drawing(text);
  EXPECT_EQ(drawing.script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 1) (9 1);\nWire 0 (0 -1) (9 -1);\n"
            "Edit 'LIB.brd';\nLayer  7 ;\nWire 'DXF' 0 (0 1) (9 1) (9 -1) (0 -1) (0 1);\n"
            "Add B_1@LIB R0 (10 20);\n");
  EXPECT_EQ(drawing.losses(), "multiline-caps 1 (10 20)\n");
}

TEST(ExactParts, PartsComeBeforeTheDrawingAndPlacesAfterIt) {
  DxfBuilder dxf = lineBlock();
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  insertB(dxf);
  dxf.entity("LINE", {{8, "0"}, {10, "5"}, {20, "0"}, {11, "6"}, {21, "0"}});
  EXPECT_EQ(PartsDrawing(dxf).script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'LIB.brd';\nLayer  7 ;\nWire 'DXF' 0 (0 0) (1 0);\nWire 'DXF' 0 (5 0) (6 0);\n"
            "Add B_1@LIB R0 (10 20);\n");
}

TEST(ExactParts, EachScaleAndMirrorSenseIsAPartOfItsOwn) {
  EXPECT_EQ(partOf({{41, "2"}, {42, "2"}}), "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (6 0);\n");
  EXPECT_EQ(partOf({{41, "-1"}}), "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (-3 0);\n");
  DxfBuilder dxf = lineBlock();
  for (const char* const scale : {"1", "2", "-1", "-2", "2.0", "0"}) {
    insertB(dxf, {{41, scale}, {42, scale}});
    insertB(dxf, {{41, scale}, {42, scale}, {230, "-1"}});
  }
  EXPECT_EQ(PartsDrawing(dxf).parts(), 4);
}

TEST(ExactParts, AMirrorIsNeverEaglesOwn) {
  EXPECT_EQ(addsOf({{41, "-1"}}), "Add B_1@LIB R0 (10 20);\n");
  EXPECT_EQ(addsOf({{42, "-1"}}), "Add B_1@LIB R180 (10 20);\n");
  EXPECT_EQ(addsOf({{230, "-1"}}), "Add B_1@LIB R0 (-10 20);\n");
  EXPECT_EQ(addsOf({{230, "-1"}, {50, "30"}}), "Add B_1@LIB R330 (-10 20);\n");
}

TEST(ExactParts, WhatEagleCannotTurnIsDrawnInPlace) {
  EXPECT_EQ(addsOf({{41, "2"}}), "none\n");
  EXPECT_EQ(addsOf({{50, "33.35"}}), "none\n");
  EXPECT_EQ(addsOf({{210, "0.6"}, {220, "0"}, {230, "0.8"}}), "none\n");
  exact::Options schematic;
  schematic.target = exact::Target::Schematic;
  EXPECT_EQ(addsOf({{50, "33.3"}}, schematic), "none\n");
  EXPECT_EQ(addsOf({{50, "270"}}, schematic), "Add B_1@LIB R270 (10 20);\n");
  DxfBuilder dxf = lineBlock();
  insertB(dxf, {{41, "2"}});
  EXPECT_EQ(PartsDrawing(dxf).script(), "Layer  7 ;\nWire 'DXF' 0 (10 20) (16 20);\n");
}

TEST(ExactParts, TheFactorReachesContentAndPlaces) {
  exact::Options inch;
  inch.factor = 25.4;
  DxfBuilder dxf = lineBlock();
  insertB(dxf);
  EXPECT_EQ(PartsDrawing(dxf, inch).script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (76.2000000 0);\n"
            "Edit 'LIB.brd';\nAdd B_1@LIB R0 (254 508);\n");
}

TEST(ExactParts, EachCellOfAnArrayIsPlaced) {
  EXPECT_EQ(addsOf({{70, "2"}, {71, "2"}, {44, "5"}, {45, "6"}, {50, "90"}}),
            "Add B_1@LIB R90 (10 20);\nAdd B_1@LIB R90 (10 25);\n"
            "Add B_1@LIB R90 (4 20);\nAdd B_1@LIB R90 (4 25);\n");
}

TEST(ExactParts, BlocksWithinAPartAreDrawnInIt) {
  DxfBuilder dxf = lineBlock();
  dxf.beginBlock("OUTER");
  insertB(dxf, {{50, "90"}});
  dxf.endBlock().entity("INSERT", {{8, "0"}, {2, "OUTER"}, {10, "1"}, {20, "0"}});
  EXPECT_EQ(PartsDrawing(dxf).script(),
            "Edit 'OUTER_1.pac';\nLayer  7 ;\nWire 0 (10 20) (10 23);\n"
            "Edit 'LIB.brd';\nAdd OUTER_1@LIB R0 (1 0);\n");
}

TEST(ExactParts, ABlockWithinItselfEnds) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  insertB(dxf).endBlock();
  insertB(dxf);
  const PartsDrawing drawing(dxf);
  EXPECT_EQ(drawing.script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (1 0);\n"
            "Edit 'LIB.brd';\nAdd B_1@LIB R0 (10 20);\n");
  EXPECT_EQ(drawing.losses(), "block-in-itself 1 (10 20)\n");
}

LayersOfTest layersPAndQ() {
  LayersOfTest layers;
  layers.numbers["P"] = 21;
  layers.numbers["Q"] = 51;
  return layers;
}

TEST(ExactParts, ContentOnLayerZeroMakesAPartForEachLayer) {
  DxfBuilder dxf = lineBlock("0");
  for (const char* const layer : {"P", "Q", "P"}) {
    dxf.entity("INSERT", {{8, layer}, {2, "B"}, {10, "10"}, {20, "20"}});
  }
  EXPECT_EQ(PartsDrawing(dxf, {}, false, layersPAndQ()).script(),
            "Edit 'B_1.pac';\nLayer  21 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'B_2.pac';\nLayer  51 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'LIB.brd';\nAdd B_1@LIB R0 (10 20);\nAdd B_2@LIB R0 (10 20);\n"
            "Add B_1@LIB R0 (10 20);\n");
}

/// OUTER, inserted on layers P and Q, has B on `nested`, and B has a line on `inner`.
int partsWithNested(std::string_view nested, std::string_view inner) {
  DxfBuilder dxf = lineBlock(inner);
  dxf.beginBlock("OUTER")
      .entity("INSERT", {{8, nested}, {2, "B"}, {10, "0"}, {20, "0"}})
      .endBlock();
  for (const char* const layer : {"P", "Q"}) {
    dxf.entity("INSERT", {{8, layer}, {2, "OUTER"}, {10, "0"}, {20, "0"}});
  }
  return PartsDrawing(dxf, {}, false, layersPAndQ()).parts();
}

TEST(ExactParts, LayerZeroCountsThroughNestedBlocks) {
  EXPECT_EQ(partsWithNested("0", "0"), 2);
  EXPECT_EQ(partsWithNested("0", "A"), 1);
  EXPECT_EQ(partsWithNested("A", "0"), 1);
  EXPECT_EQ(partsWithNested("A", "A"), 1);
}

/// B has a line of weight BYBLOCK and is inserted with two weights.
int partsOfTwoWeights(const exact::Options& options) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "A"}, {370, "-2"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock();
  for (const char* const weight : {"20", "50"}) {
    dxf.entity("INSERT", {{8, "A"}, {370, weight}, {2, "B"}, {10, "0"}, {20, "0"}});
  }
  return PartsDrawing(dxf, options).parts();
}

TEST(ExactParts, WeightsByBlockMakeAPartEachWhereTheyShow) {
  exact::Options weights;
  weights.lineWeights = true;
  EXPECT_EQ(partsOfTwoWeights(weights), 2);
  EXPECT_EQ(partsOfTwoWeights({}), 1);
}

TEST(ExactParts, BlocksWithEndlessLinesAreDrawnInPlace) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("XLINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock();
  insertB(dxf).entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "0"}, {21, "100"}});
  insertB(dxf, {{10, "100"}});
  EXPECT_EQ(PartsDrawing(dxf).parts(), 0);
}

TEST(ExactParts, TextsStayAsTheyAreInTurnedParts) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("TEXT", {{8, "A"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, "x"}})
      .endBlock();
  insertB(dxf);
  insertB(dxf, {{50, "180"}});
  EXPECT_EQ(PartsDrawing(dxf).script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nText 'x' R0 (0 0);\n"
            "Edit 'LIB.brd';\nAdd B_1@LIB R0 (10 20);\nAdd B_1@LIB SR180 (10 20);\n");
  exact::Options schematic;
  schematic.target = exact::Target::Schematic;
  EXPECT_EQ(PartsDrawing(dxf, schematic).script().find("SR"), std::string::npos);
}

TEST(ExactParts, AttributesAreTextsBesideThePart) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf, {{66, "1"}})
      .entity("ATTRIB", {{8, "A"}, {10, "12"}, {20, "20"}, {40, "1"}, {1, "R7"}, {2, "NAME"}})
      .entity("SEQEND", {{8, "0"}});
  EXPECT_EQ(PartsDrawing(dxf).script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'LIB.brd';\nLayer  7 ;\nText 'R7' R0 (12 20);\nAdd B_1@LIB R0 (10 20);\n");
}

TEST(ExactParts, BlocksThatShowNothingHaveNoPart) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("ATTDEF", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {1, "R?"}, {2, "NAME"}})
      .endBlock();
  insertB(dxf);
  const PartsDrawing drawing(dxf, {}, true);
  EXPECT_EQ(drawing.script(), "");
  EXPECT_EQ(drawing.insertions(), 1);
}

TEST(ExactParts, UnusedBlocksBecomePartsWhereAllAreWanted) {
  DxfBuilder dxf = lineBlock("0");
  dxf.beginBlock("C").entity("CIRCLE", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}}).endBlock();
  dxf.beginBlock("*MODEL_SPACE").endBlock();
  insertB(dxf, {{41, "2"}, {42, "2"}});
  const std::string script = PartsDrawing(dxf, {}, true).script();
  EXPECT_EQ(script,
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (6 0);\n"
            "Edit 'B_2.pac';\nLayer  7 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'C_3.pac';\nLayer  7 ;\nWire 0 (-1 0) +180 (1 0) +180 (-1 0);\n"
            "Edit 'LIB.brd';\nAdd B_1@LIB R0 (10 20);\n");
}

TEST(ExactParts, PartsWithoutSectionOfEntitiesAreWrittenToo) {
  std::string dxf = lineBlock().text();
  dxf.erase(dxf.find("  0\nSECTION\n  2\nENTITIES"));
  EXPECT_EQ(PartsDrawing(dxf + "  0\nEOF\n", {}, true).script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (3 0);\nEdit 'LIB.brd';\n");
}

TEST(ExactParts, SettingsStartAfreshInEachPart) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf);
  insertB(dxf, {{41, "-1"}});
  const std::string script = PartsDrawing(dxf).wholeScript();
  const std::string settings =
      "Change Style Continuous;\r\nChange Cap Round;\r\nChange Font Vector;\r\n"
      "Change Ratio 8;\r\nChange Align Bottom Left;\r\n";
  EXPECT_TRUE(script.starts_with("Edit 'B_1.pac';\r\n" + settings + "Layer  7 ;\r\n")) << script;
  EXPECT_NE(script.find("Edit 'B_2.pac';\r\n" + settings + "Layer  7 ;\r\n"), std::string::npos);
  EXPECT_NE(script.find("Edit 'LIB.brd';\r\n" + settings + "Add "), std::string::npos) << script;
}

TEST(ExactParts, CopperInPartsHasNoSignal) {
  LayersOfTest layers;
  layers.numbers["A"] = 1;
  DxfBuilder dxf = lineBlock();
  insertB(dxf).entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  EXPECT_EQ(PartsDrawing(dxf, {}, false, layers).script(),
            "Edit 'B_1.pac';\nLayer  1 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'LIB.brd';\nLayer  1 ;\nWire 'DXF' 0 (0 0) (1 0);\nAdd B_1@LIB R0 (10 20);\n");
}

TEST(ExactParts, CleaningStaysWithinAPart) {
  DxfBuilder dxf;
  dxf.beginBlock("B");
  for (int i = 0; i < 2; ++i) {
    dxf.entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  }
  dxf.entity("LINE", {{8, "A"}, {10, "1"}, {20, "0"}, {11, "1"}, {21, "5"}}).endBlock();
  insertB(dxf, {{10, "0"}, {20, "0"}});
  dxf.entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  const PartsDrawing drawing(dxf);
  EXPECT_EQ(drawing.script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (1 0) (1 5);\n"
            "Edit 'LIB.brd';\nLayer  7 ;\nWire 'DXF' 0 (0 0) (1 0);\nAdd B_1@LIB R0 (0 0);\n");
  EXPECT_EQ(drawing.losses(), "duplicate 1 (0 0)\n");
}

TEST(ExactParts, LossesAndGapsStandWhereThePartIsSeenFirst) {
  LayersOfTest layers;
  layers.numbers["A"] = 20;
  DxfBuilder dxf = lineBlock();
  dxf.beginBlock("C")
      .entity("LINE", {{8, "A"}, {10, "1"}, {20, "0"}, {11, "3"}, {21, "0"}})
      .entity("LINE", {{8, "A"}, {10, "2"}, {20, "1"}, {11, "2"}, {21, "1"}})
      .endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "C"}, {10, "10"}, {20, "20"}, {50, "90"}});
  const PartsDrawing drawing(dxf, {}, false, layers);
  EXPECT_EQ(drawing.losses(), "zero-length 1 (9 22)\n");
  ASSERT_EQ(drawing.gaps().size(), 2U);
  EXPECT_EQ(drawing.gapCount(), 2U);
  EXPECT_EQ(shortNumber(drawing.gaps()[0].at.x) + " " + shortNumber(drawing.gaps()[0].at.y),
            "10 21");
}

TEST(ExactParts, OffsetsMoveTheDrawingAndNotTheParts) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf, {{50, "90"}});
  const PartsDrawing drawing(dxf, {}, false, {},
                             {.unit = base::Unit::Mm, .offsetX = 100, .offsetY = 200});
  EXPECT_EQ(drawing.script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'LIB.brd';\nAdd B_1@LIB R90 (110 220);\n");
  const eagle::Extents& box = drawing.writer().extents();
  EXPECT_NEAR(box.minX, 110, 1e-9);
  EXPECT_NEAR(box.maxX, 110, 1e-9);
  EXPECT_NEAR(box.minY, 220, 1e-9);
  EXPECT_NEAR(box.maxY, 223, 1e-9);
}

TEST(ExactParts, PlacedAtTheLowerLeftWhatPartsShowCounts) {
  exact::Options options;
  options.place = exact::Place::LowerLeft;
  DxfBuilder dxf = lineBlock();
  insertB(dxf, {{50, "180"}});
  EXPECT_EQ(PartsDrawing(dxf, options).script(),
            "Edit 'B_1.pac';\nLayer  7 ;\nWire 0 (0 0) (3 0);\n"
            "Edit 'LIB.brd';\nAdd B_1@LIB R180 (3 0);\n");
}

TEST(ExactParts, PartsThatReachOutOfRangeAreNoted) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf, {{10, "838"}});
  const PartsDrawing drawing(dxf);
  EXPECT_TRUE(drawing.writer().rangeWarning());
  EXPECT_TRUE(
      drawing.script().ends_with("Add B_1@LIB R0 (838 20);\n"
                                 "# In the previous command some coordinates are out of "
                                 "range!\n"))
      << drawing.script();
}

TEST(ExactParts, NamesWithBlanksAreQuoted) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf);
  const PartsDrawing drawing(dxf, {}, false, {}, {.unit = base::Unit::Mm}, "my lib");
  EXPECT_NE(drawing.script().find("Add 'B_1@my lib' R0 (10 20);\n"), std::string::npos);
}

TEST(ExactParts, CellsOutOfReachAreNamed) {
  DxfBuilder dxf = lineBlock();
  insertB(dxf, {{70, "2"}, {44, "1e300"}});
  const PartsDrawing drawing(dxf);
  EXPECT_TRUE(drawing.script().ends_with("\nAdd B_1@LIB R0 (10 20);\n")) << drawing.script();
  EXPECT_EQ(drawing.losses().substr(0, 18), "unusable-numbers 1");
}

TEST(ExactParts, TwentyThousandScalesTakeAsManyParts) {
  constexpr int kScales = 20000;
  DxfBuilder dxf = lineBlock();
  for (int i = 0; i < kScales; ++i) {
    const std::string scale = std::to_string(1.0 + i * 0.001);
    insertB(dxf, {{41, scale}, {42, scale}});
  }
  int parts = 0;
  const double seconds = leastSeconds([&] { parts = PartsDrawing(dxf).parts(); });
  EXPECT_EQ(parts, kScales);
  EXPECT_LT(seconds, 2.0 * patience());
}

TEST(ExactBlocks, AttributesAfterABlockThatEndsInAHiddenOneAreShown) {
  DxfBuilder dxf = lineBlock();
  dxf.layer("ICE", {{70, "1"}, {62, "7"}, {6, "CONTINUOUS"}, {290, "1"}});
  dxf.beginBlock("OUTER").entity("INSERT", {{8, "ICE"}, {2, "B"}, {10, "0"}, {20, "0"}}).endBlock();
  dxf.entity("INSERT", {{8, "A"}, {2, "OUTER"}, {10, "0"}, {20, "0"}, {66, "1"}})
      .entity("ATTRIB", {{8, "A"}, {10, "1"}, {20, "2"}, {40, "1"}, {1, "R7"}, {2, "NAME"}});
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 text 'R7' 1 R0 bottom left (1 2)\n");
}

}  // namespace
}  // namespace quillon::testing
