#include "text_losses.h"

namespace quillon::testing {
namespace {

GroupPairs turnedText(std::string_view angle, std::string_view generation = "0") {
  return {{1, "ab"}, {10, "1"}, {20, "2"}, {40, "2"}, {50, angle}, {71, generation}};
}

std::string turnedBy(std::string_view angle) { return shapesOf("TEXT", turnedText(angle)); }

/// The text "ab" of height 1 at (1 0) in a block inserted at (10 0).
ExactDrawing inserted(const GroupPairs& placement, const exact::Options& options = {},
                      std::string_view angle = "0") {
  GroupPairs groups = {{8, "0"}, {2, "B"}, {10, "10"}, {20, "0"}};
  groups.insert(groups.end(), placement.begin(), placement.end());
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("TEXT", {{8, "0"}, {1, "ab"}, {10, "1"}, {20, "0"}, {40, "1"}, {50, angle}})
      .endBlock()
      .entity("INSERT", groups);
  return ExactDrawing(dxf, options);
}

TEST(ExactTextLayout, AnglesHaveTenthsOfDegrees) {
  EXPECT_EQ(turnedBy("33.34"), "7 text 'ab' 2 R33.3 bottom left (1 2)\n");
  EXPECT_EQ(turnedBy("359.96"), "7 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(turnedBy("-0.04"), "7 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(turnedBy("-30"), "7 text 'ab' 2 R330 bottom left (1 2)\n");
}

TEST(ExactTextLayout, TextsThatStandUpsideDownAreToldToStayAsTheyAre) {
  EXPECT_EQ(turnedBy("90"), "7 text 'ab' 2 R90 bottom left (1 2)\n");
  EXPECT_EQ(turnedBy("90.1"), "7 text 'ab' 2 SR90.1 bottom left (1 2)\n");
  EXPECT_EQ(turnedBy("180"), "7 text 'ab' 2 SR180 bottom left (1 2)\n");
  EXPECT_EQ(turnedBy("270"), "7 text 'ab' 2 SR270 bottom left (1 2)\n");
  EXPECT_EQ(turnedBy("270.1"), "7 text 'ab' 2 R270.1 bottom left (1 2)\n");
}

// A text at 30 degrees runs to (-cos 30, -sin 30) when it is written backwards: EAGLE turns by 330
// and mirrors then.
TEST(ExactTextLayout, BackwardsIsMirrored) {
  EXPECT_EQ(shapesOf("TEXT", turnedText("30", "2")), "7 text 'ab' 2 MR330 bottom left (1 2)\n");
}

TEST(ExactTextLayout, UpsideDownIsMirroredTheOtherWay) {
  EXPECT_EQ(shapesOf("TEXT", turnedText("30", "4")), "7 text 'ab' 2 SMR150 bottom left (1 2)\n");
}

TEST(ExactTextLayout, BackwardsAndUpsideDownIsTurned) {
  EXPECT_EQ(shapesOf("TEXT", turnedText("30", "6")), "7 text 'ab' 2 SR210 bottom left (1 2)\n");
}

TEST(ExactTextLayout, ATextSeenFromBelowIsMirrored) {
  GroupPairs groups = turnedText("0");
  groups.emplace_back(230, "-1");
  EXPECT_EQ(shapesOf("TEXT", groups), "7 text 'ab' 2 MR0 bottom left (-1 2)\n");
}

TEST(ExactTextLayout, AReferenceTurnsScalesAndMirrorsItsTexts) {
  EXPECT_EQ(inserted({{41, "2"}, {42, "2"}, {50, "90"}}).shapes(),
            "7 text 'ab' 2 R90 bottom left (10 2)\n");
  EXPECT_EQ(inserted({{41, "-1"}}).shapes(), "7 text 'ab' 1 MR0 bottom left (9 0)\n");
  EXPECT_EQ(inserted({{42, "-1"}}).shapes(), "7 text 'ab' 1 SMR180 bottom left (11 0)\n");
}

TEST(ExactTextLayout, UnequalScalesMakeLettersWiderWhichIsNamed) {
  const ExactDrawing drawing = inserted({{41, "2"}, {42, "3"}});
  EXPECT_EQ(drawing.shapes(), "7 text 'ab' 3 R0 bottom left (12 0)\n");
  EXPECT_EQ(textLosses(drawing), "text-width");
}

// At 45 degrees and scales of 2 and 1, letters run to (2 1)/sqrt 5; their tops, at (-2 1)/sqrt 2,
// are 4/sqrt 10 away from the line.
TEST(ExactTextLayout, ShearIsNotShownAndNamed) {
  const ExactDrawing drawing = inserted({{41, "2"}, {42, "1"}}, {}, "45");
  EXPECT_EQ(drawing.shapes(), "7 text 'ab' 1.264911 R26.6 bottom left (12 0)\n");
  EXPECT_EQ(textLosses(drawing), "text-width text-sheared");
}

TEST(ExactTextLayout, ATextSeenFromItsEdgeHasNoSize) {
  GroupPairs groups = turnedText("0");
  groups.insert(groups.end(), {{210, "0"}, {220, "-1"}, {230, "0"}});
  EXPECT_EQ(textLosses("TEXT", groups), "no-size");
}

std::string onLayer(int layer, std::string_view generation, std::string* losses = nullptr) {
  LayersOfTest layers;
  layers.numbers["0"] = layer;
  const ExactDrawing drawing(oneEntity("TEXT", turnedText("0", generation)), {}, layers);
  if (losses != nullptr) *losses = textLosses(drawing);
  return drawing.shapes();
}

TEST(ExactTextLayout, EagleMirrorsTextsOfTheBottomSideItself) {
  std::string losses;
  EXPECT_EQ(onLayer(22, "2", &losses), "22 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(losses, "");
  EXPECT_EQ(onLayer(16, "2"), "16 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(onLayer(26, "2"), "26 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(onLayer(52, "2"), "52 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(onLayer(21, "2"), "21 text 'ab' 2 MR0 bottom left (1 2)\n");
  EXPECT_EQ(onLayer(51, "2"), "51 text 'ab' 2 MR0 bottom left (1 2)\n");
}

TEST(ExactTextLayout, ATextOfTheBottomSideThatReadsFromAboveIsNamed) {
  std::string losses;
  EXPECT_EQ(onLayer(22, "0", &losses), "22 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(losses, "text-mirrored-by-layer");
  onLayer(21, "0", &losses);
  EXPECT_EQ(losses, "");
}

TEST(ExactTextLayout, ASchematicHasQuarterTurnsAlone) {
  EXPECT_EQ(shapesOf("TEXT", turnedText("91"), forSchematic()),
            "7 text 'ab' 2 R90 bottom left (1 2)\n");
  EXPECT_EQ(textLosses("TEXT", turnedText("91"), forSchematic()), "");
  EXPECT_EQ(shapesOf("TEXT", turnedText("30"), forSchematic()),
            "7 text 'ab' 2 R0 bottom left (1 2)\n");
  EXPECT_EQ(textLosses("TEXT", turnedText("30"), forSchematic()), "text-turned");
}

TEST(ExactTextLayout, InASchematicTextsUpsideDownAreTurnedOverInTheirBox) {
  EXPECT_EQ(shapesOf("TEXT", turnedText("180"), forSchematic()),
            "7 text 'ab' 2 R0 top right (1 2)\n");
  EXPECT_EQ(shapesOf("TEXT", turnedText("270"), forSchematic()),
            "7 text 'ab' 2 R90 top right (1 2)\n");
  EXPECT_EQ(textLosses("TEXT", turnedText("270"), forSchematic()), "");
  exact::Options symbol = forSchematic();
  symbol.target = exact::Target::Symbol;
  EXPECT_EQ(shapesOf("TEXT", turnedText("-90"), symbol), "7 text 'ab' 2 R90 top right (1 2)\n");
}

TEST(ExactTextLayout, InASchematicMirroredTextsKeepTheirBoxAndCanBeRead) {
  EXPECT_EQ(shapesOf("TEXT", turnedText("0", "2"), forSchematic()),
            "7 text 'ab' 2 R0 bottom right (1 2)\n");
  EXPECT_EQ(shapesOf("TEXT", turnedText("0", "4"), forSchematic()),
            "7 text 'ab' 2 R0 top left (1 2)\n");
  EXPECT_EQ(textLosses("TEXT", turnedText("0", "4"), forSchematic()), "text-mirrored");
}

// 2 letters of 0.85 heights are 3.4 long.
TEST(ExactTextLayout, ForEagle4TheLowerLeftPointIsReckoned) {
  const GroupPairs topRight = {{1, "ab"}, {40, "2"}, {11, "10"}, {21, "20"}, {72, "2"}, {73, "3"}};
  EXPECT_EQ(shapesOf("TEXT", topRight, forEagle4()), "7 text 'ab' 2 R0 bottom left (6.6 18)\n");
  EXPECT_EQ(textLosses("TEXT", topRight, forEagle4()), "text-ends-reckoned");
  const GroupPairs middle = {{1, "ab"}, {40, "2"}, {11, "10"}, {21, "20"}, {72, "1"}, {73, "2"}};
  EXPECT_EQ(shapesOf("TEXT", middle, forEagle4()), "7 text 'ab' 2 R0 bottom left (8.3 19)\n");
}

TEST(ExactTextLayout, ForEagle4HeightsNeedNoEstimate) {
  const GroupPairs top = {{1, "ab"}, {40, "2"}, {50, "90"}, {11, "10"}, {21, "20"}, {73, "3"}};
  EXPECT_EQ(shapesOf("TEXT", top, forEagle4()), "7 text 'ab' 2 R90 bottom left (12 20)\n");
  EXPECT_EQ(textLosses("TEXT", top, forEagle4()), "");
}

TEST(ExactTextLayout, ForEagle4AMirroredTextIsReckonedAgainstItsDirection) {
  const GroupPairs right = {{1, "ab"}, {40, "2"}, {11, "10"}, {21, "20"}, {72, "2"}, {71, "2"}};
  EXPECT_EQ(shapesOf("TEXT", right, forEagle4()), "7 text 'ab' 2 MR0 bottom left (13.4 20)\n");
}

TEST(ExactTextLayout, Eagle4TurnsTextsOfSchematicsOverItself) {
  exact::Options options = forSchematic();
  options.version = exact::Version::Eagle4;
  EXPECT_EQ(shapesOf("TEXT", turnedText("180"), options), "7 text 'ab' 2 R180 bottom left (1 2)\n");
}

TEST(ExactTextLayout, ATextThatEagleWouldReplaceStartsWithABlank) {
  EXPECT_EQ(shapesOf("TEXT", {{1, ">NAME"}, {40, "1"}}),
            "7 text ' >NAME' 1 R0 bottom left (0 0)\n");
  EXPECT_EQ(textLosses("TEXT", {{1, ">value"}, {40, "1"}}), "text-variable");
  EXPECT_EQ(shapesOf("TEXT", {{1, ">NAMES"}, {40, "1"}}),
            "7 text '>NAMES' 1 R0 bottom left (0 0)\n");
  EXPECT_EQ(shapesOf("TEXT", {{1, "NAME"}, {40, "1"}}), "7 text 'NAME' 1 R0 bottom left (0 0)\n");
}

}  // namespace
}  // namespace quillon::testing
