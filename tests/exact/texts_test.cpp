#include "text_losses.h"

namespace quillon::testing {
namespace {

/// TEXT "ab" of height 2 at (1 2), aligned to (10 20).
GroupPairs alignedText(std::string_view horizontal, std::string_view vertical) {
  return {{1, "ab"},  {10, "1"},  {20, "2"},        {40, "2"},
          {11, "10"}, {21, "20"}, {72, horizontal}, {73, vertical}};
}

TEST(ExactTexts, ATextStartsAtItsPointWithTheHeightOfItsCapitals) {
  EXPECT_EQ(shapesOf("TEXT", {{1, "ab"}, {10, "1"}, {20, "2"}, {40, "2.5"}}),
            "7 text 'ab' 2.5 R0 bottom left (1 2)\n");
}

TEST(ExactTexts, ThatLettersLookDifferentIsNamedForEachText) {
  DxfBuilder dxf;
  dxf.entity("TEXT", {{8, "0"}, {1, "a"}, {40, "1"}})
      .entity("TEXT", {{8, "0"}, {1, "b"}, {40, "1"}});
  EXPECT_EQ(ExactDrawing(dxf).losses(), "text-shapes TEXT 2 line 7\n");
}

TEST(ExactTexts, WithoutAlignmentTheSecondPointDoesNotCount) {
  EXPECT_EQ(shapesOf("TEXT", alignedText("0", "0")), "7 text 'ab' 2 R0 bottom left (1 2)\n");
}

TEST(ExactTexts, OnTheBaselineTheSideIsThatOfTheAlignment) {
  EXPECT_EQ(shapesOf("TEXT", alignedText("1", "0")), "7 text 'ab' 2 R0 bottom centre (10 20)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("2", "0")), "7 text 'ab' 2 R0 bottom right (10 20)\n");
}

TEST(ExactTexts, BottomIsBelowLettersThatHangDown) {
  EXPECT_EQ(shapesOf("TEXT", alignedText("0", "1")), "7 text 'ab' 2 R0 bottom left (10 20.6)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("1", "1")), "7 text 'ab' 2 R0 bottom centre (10 20.6)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("2", "1")), "7 text 'ab' 2 R0 bottom right (10 20.6)\n");
}

TEST(ExactTexts, MiddleAndTopAreThoseOfCapitals) {
  EXPECT_EQ(shapesOf("TEXT", alignedText("0", "2")), "7 text 'ab' 2 R0 centre left (10 20)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("1", "2")), "7 text 'ab' 2 R0 centre centre (10 20)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("2", "2")), "7 text 'ab' 2 R0 centre right (10 20)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("0", "3")), "7 text 'ab' 2 R0 top left (10 20)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("1", "3")), "7 text 'ab' 2 R0 top centre (10 20)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("2", "3")), "7 text 'ab' 2 R0 top right (10 20)\n");
}

TEST(ExactTexts, TheMiddleOfAllLettersIsBelowThatOfCapitals) {
  EXPECT_EQ(shapesOf("TEXT", alignedText("4", "0")), "7 text 'ab' 2 R0 centre centre (10 20.3)\n");
  EXPECT_EQ(shapesOf("TEXT", alignedText("4", "3")), "7 text 'ab' 2 R0 centre centre (10 20.3)\n");
}

TEST(ExactTexts, UpIsTheTextsOwn) {
  GroupPairs groups = alignedText("0", "1");
  groups.emplace_back(50, "90");
  EXPECT_EQ(shapesOf("TEXT", groups), "7 text 'ab' 2 R90 bottom left (9.4 20)\n");
}

TEST(ExactTexts, ASecondPointAtTheOriginIsNone) {
  EXPECT_EQ(shapesOf("TEXT",
                     {{1, "ab"}, {10, "1"}, {20, "2"}, {40, "2"}, {11, "0"}, {21, "0"}, {72, "1"}}),
            "7 text 'ab' 2 R0 bottom centre (1 2)\n");
  EXPECT_EQ(shapesOf("TEXT", {{1, "ab"}, {10, "1"}, {20, "2"}, {40, "2"}, {72, "1"}}),
            "7 text 'ab' 2 R0 bottom centre (1 2)\n");
}

// 2 letters of 0.85 heights and half a width each are 8.5 long: the height is 10.
TEST(ExactTexts, TheHeightOfAnAlignedTextFollowsFromItsLength) {
  EXPECT_EQ(shapesOf("TEXT", {{1, "ab"},
                              {10, "1"},
                              {20, "2"},
                              {40, "2"},
                              {41, "0.5"},
                              {50, "30"},
                              {11, "1"},
                              {21, "10.5"},
                              {72, "3"}}),
            "7 text 'ab' 10 R90 bottom left (1 2)\n");
}

TEST(ExactTexts, AFittedTextKeepsItsHeightAndItsWidthIsNamed) {
  const GroupPairs groups = {{1, "ab"}, {10, "1"},  {20, "2"}, {40, "2"},
                             {11, "1"}, {21, "10"}, {72, "5"}};
  EXPECT_EQ(shapesOf("TEXT", groups), "7 text 'ab' 2 R90 bottom left (1 2)\n");
  EXPECT_EQ(textLosses("TEXT", groups), "text-width");
}

TEST(ExactTexts, WhatLettersHaveThatEagleLacksIsNamed) {
  const GroupPairs text = {{1, "ab"}, {10, "1"}, {20, "2"}, {40, "2"}};
  const auto with = [text](int code, std::string_view value) {
    GroupPairs groups = text;
    groups.emplace_back(code, value);
    return textLosses("TEXT", groups);
  };
  EXPECT_EQ(with(41, "1.1"), "");
  EXPECT_EQ(with(41, "1.2"), "text-width");
  EXPECT_EQ(with(41, "0.8"), "text-width");
  EXPECT_EQ(with(51, "15"), "text-oblique");
}

TEST(ExactTexts, AVerticalStyleIsNamed) {
  DxfBuilder dxf;
  dxf.style("Down", {{70, "4"}, {41, "0.5"}});
  dxf.entity("TEXT", {{8, "0"}, {1, "ab"}, {40, "1"}, {7, "DOWN"}});
  EXPECT_EQ(textLosses(ExactDrawing(dxf)), "text-vertical");
}

TEST(ExactTexts, AnEmptyTextIsDroppedAndCounted) {
  EXPECT_EQ(shapesOf("TEXT", {{1, " %%u "}, {40, "1"}}), "");
  EXPECT_EQ(textLosses("TEXT", {{1, " %%u "}, {40, "1"}}), "empty-text");
  EXPECT_EQ(textLosses("TEXT", {{40, "1"}}), "empty-text");
}

TEST(ExactTexts, ATextWithoutHeightIsNamed) {
  EXPECT_EQ(shapesOf("TEXT", {{1, "ab"}, {40, "0"}}), "");
  EXPECT_EQ(textLosses("TEXT", {{1, "ab"}, {40, "0"}}), "no-size");
}

TEST(ExactTexts, TextsTallerThanEagleAllowsAreCutAndNamed) {
  const ExactDrawing drawing(oneEntity("TEXT", {{1, "ab"}, {40, "60"}}));
  EXPECT_EQ(drawing.shapes(), "7 text 'ab' 50.8 R0 bottom left (0 0)\n");
  EXPECT_EQ(textLosses(drawing), "text-cut");
  EXPECT_EQ(drawing.lossList().all().back().most, 60.0);
}

TEST(ExactTexts, NumbersOfNoDrawingAreNamed) {
  EXPECT_EQ(textLosses("TEXT", {{1, "ab"}, {40, "1e200"}}), "unusable-numbers");
  EXPECT_EQ(textLosses("TEXT", {{1, "ab"}, {40, "1"}, {10, "1e999"}}), "unusable-numbers");
  EXPECT_EQ(textLosses("TEXT", {{1, "ab"}, {40, "1"}, {50, "1e999"}}), "unusable-numbers");
  EXPECT_EQ(shapesOf("TEXT", {{1, "ab"}, {40, "1"}, {71, "1e99"}, {72, "-7"}, {73, "99"}}),
            "7 text 'ab' 1 R0 bottom left (0 0)\n");
}

/// An attribute "v" of height 1 at (3 4), with the tag T and these flags.
GroupPairs attribute(std::string_view flags) {
  return {{100, "AcDbText"}, {10, "3"}, {20, "4"}, {40, "1"}, {1, "v"}, {2, "T"}, {70, flags}};
}

std::string attributesIn(std::string_view mode, std::string_view flags) {
  DxfBuilder dxf = oneEntity("ATTRIB", attribute(flags));
  dxf.header("$ATTMODE", 70, mode);
  return ExactDrawing(dxf).shapes();
}

TEST(ExactTexts, AnAttributeIsItsValue) {
  EXPECT_EQ(shapesOf("ATTRIB", attribute("0")), "7 text 'v' 1 R0 bottom left (3 4)\n");
}

TEST(ExactTexts, AnAttributesRowsHaveACodeOfTheirOwn) {
  GroupPairs groups = attribute("0");
  groups.insert(groups.end(), {{73, "3"}, {74, "2"}, {72, "1"}, {11, "5"}, {21, "6"}});
  EXPECT_EQ(shapesOf("ATTRIB", groups), "7 text 'v' 1 R0 centre centre (5 6)\n");
}

TEST(ExactTexts, InvisibleAttributesAreHiddenUnlessTheDrawingShowsAll) {
  constexpr std::string_view kShown = "7 text 'v' 1 R0 bottom left (3 4)\n";
  EXPECT_EQ(attributesIn("1", "1"), "");
  EXPECT_EQ(attributesIn("2", "1"), kShown);
  EXPECT_EQ(attributesIn("1", "8"), kShown);
  EXPECT_EQ(attributesIn("0", "0"), "");
  EXPECT_EQ(textLosses("ATTRIB", attribute("1")), "invisible");
}

TEST(ExactTexts, WhatAnAttributeKeepsForOthersIsNoPartOfIt) {
  GroupPairs groups = attribute("0");
  groups.insert(
      groups.end(),
      {{280, "0"}, {71, "2"}, {72, "1"}, {100, "AcDbXrecord"}, {10, "99"}, {40, "7"}, {70, "1"}});
  EXPECT_EQ(shapesOf("ATTRIB", groups), "7 text 'v' 1 R0 bottom left (3 4)\n");
}

TEST(ExactTexts, AnAttributeOfSeveralLinesIsDrawnAsOne) {
  GroupPairs groups = attribute("0");
  groups.insert(groups.end(), {{101, "Embedded Object"},
                               {10, "30"},
                               {20, "40"},
                               {40, "3"},
                               {71, "7"},
                               {1, "a\\Pb"},
                               {44, "1"}});
  // The lower baseline is 0.3 heights up, the upper one 5/3 heights more.
  EXPECT_EQ(shapesOf("ATTRIB", groups),
            "7 text 'a' 3 R0 bottom left (30 45.9)\n"
            "7 text 'b' 3 R0 bottom left (30 40.9)\n");
}

TEST(ExactTexts, ADefinitionOutsideOfBlocksIsItsTag) {
  EXPECT_EQ(shapesOf("ATTDEF", attribute("0")), "7 text 'T' 1 R0 bottom left (3 4)\n");
  EXPECT_EQ(shapesOf("ATTDEF", attribute("1")), "7 text 'T' 1 R0 bottom left (3 4)\n");
}

std::string definitionInBlock(const GroupPairs& attribute) {
  GroupPairs groups = {{8, "0"}};
  groups.insert(groups.end(), attribute.begin(), attribute.end());
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("ATTDEF", groups).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "10"}, {20, "0"}});
  return ExactDrawing(dxf).shapes();
}

TEST(ExactTexts, AConstantDefinitionIsItsValueInEachReference) {
  EXPECT_EQ(definitionInBlock(attribute("2")), "7 text 'v' 1 R0 bottom left (13 4)\n");
  EXPECT_EQ(definitionInBlock(attribute("0")), "");
  EXPECT_EQ(definitionInBlock(attribute("3")), "");
}

}  // namespace
}  // namespace quillon::testing
