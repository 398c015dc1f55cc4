#include <algorithm>

#include "text_losses.h"

namespace quillon::testing {
namespace {

/// MTEXT of height 3 at (10 20); its lines are 5 apart.
GroupPairs attached(std::string_view attachment, std::string_view text = "ab\\Pc") {
  return {{10, "10"}, {20, "20"}, {40, "3"}, {71, attachment}, {1, text}};
}

GroupPairs extended(GroupPairs groups, const GroupPairs& more) {
  groups.insert(groups.end(), more.begin(), more.end());
  return groups;
}

TEST(ExactMtextLayout, AttachedAtTheTopTheFirstCapitalsEndAtThePoint) {
  EXPECT_EQ(shapesOf("MTEXT", attached("1")),
            "7 text 'ab' 3 R0 bottom left (10 17)\n"
            "7 text 'c' 3 R0 bottom left (10 12)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("2", "ab")), "7 text 'ab' 3 R0 bottom centre (10 17)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("3", "ab")), "7 text 'ab' 3 R0 bottom right (10 17)\n");
}

TEST(ExactMtextLayout, AttachedInTheMiddleThePointIsBetweenTopAndLastBaseline) {
  EXPECT_EQ(shapesOf("MTEXT", attached("4")),
            "7 text 'ab' 3 R0 bottom left (10 21)\n"
            "7 text 'c' 3 R0 bottom left (10 16)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("5", "ab")), "7 text 'ab' 3 R0 bottom centre (10 18.5)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("6", "ab")), "7 text 'ab' 3 R0 bottom right (10 18.5)\n");
}

TEST(ExactMtextLayout, AttachedAtTheBottomThePointIsBelowLettersThatHangDown) {
  EXPECT_EQ(shapesOf("MTEXT", attached("7")),
            "7 text 'ab' 3 R0 bottom left (10 25.9)\n"
            "7 text 'c' 3 R0 bottom left (10 20.9)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("8", "ab")), "7 text 'ab' 3 R0 bottom centre (10 20.9)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("9", "ab")), "7 text 'ab' 3 R0 bottom right (10 20.9)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("77", "ab")), "7 text 'ab' 3 R0 bottom left (10 17)\n");
}

TEST(ExactMtextLayout, LinesAreApartByTheHeightOfTheLowerOne) {
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "a\\P{\\H6;b}\\Pc"), {{44, "2"}})),
            "7 text 'a' 3 R0 bottom left (10 17)\n"
            "7 text 'b' 6 R0 bottom left (10 -3)\n"
            "7 text 'c' 3 R0 bottom left (10 -13)\n");
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "a\\P{\\H6;b}"), {{73, "2"}})),
            "7 text 'a' 3 R0 bottom left (10 17)\n"
            "7 text 'b' 6 R0 bottom left (10 12)\n");
}

TEST(ExactMtextLayout, BlankLinesTakeTheirPlace) {
  EXPECT_EQ(shapesOf("MTEXT", attached("1", "a\\P\\Pb")),
            "7 text 'a' 3 R0 bottom left (10 17)\n"
            "7 text 'b' 3 R0 bottom left (10 7)\n");
}

TEST(ExactMtextLayout, LongTextsAreInSeveralGroupsWhoseBlanksCount) {
  EXPECT_EQ(shapesOf("MTEXT", {{40, "3"}, {3, "ab "}, {3, "cd"}, {1, " ef"}}),
            "7 text 'ab cd ef' 3 R0 bottom left (0 -3)\n");
}

TEST(ExactMtextLayout, BlanksAtTheStartMoveALineOnlyWhereItStarts) {
  EXPECT_EQ(shapesOf("MTEXT", attached("1", "a\\P  b ")),
            "7 text 'a' 3 R0 bottom left (10 17)\n"
            "7 text '  b' 3 R0 bottom left (10 12)\n");
  EXPECT_EQ(shapesOf("MTEXT", attached("2", "a\\P  b ")),
            "7 text 'a' 3 R0 bottom centre (10 17)\n"
            "7 text 'b' 3 R0 bottom centre (10 12)\n");
}

TEST(ExactMtextLayout, TheAngleTurnsAllLines) {
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1"), {{50, "90"}})),
            "7 text 'ab' 3 R90 bottom left (13 20)\n"
            "7 text 'c' 3 R90 bottom left (18 20)\n");
}

TEST(ExactMtextLayout, OfAngleAndDirectionTheLaterOneCounts) {
  constexpr std::string_view kUp = "7 text 'ab' 3 R90 bottom left (13 20)\n";
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "ab"), {{50, "30"}, {11, "0"}, {21, "7"}})),
            kUp);
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "ab"), {{11, "1"}, {21, "0"}, {50, "90"}})),
            kUp);
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "ab"), {{50, "90"}, {11, "0"}, {21, "0"}})),
            kUp);
}

// The point is in the world's coordinates, unlike that of TEXT.
TEST(ExactMtextLayout, SeenFromBelowLettersAreMirroredAndThePointStays) {
  constexpr std::string_view kUpsideDown = "7 text 'ab' 3 SMR180 bottom left (10 23)\n";
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "ab"), {{230, "-1"}, {11, "1"}, {21, "0"}})),
            kUpsideDown);
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "ab"), {{230, "-1"}, {50, "0"}})),
            "7 text 'ab' 3 MR0 bottom left (10 17)\n");
}

TEST(ExactMtextLayout, WithoutAngleAndDirectionLinesRunAlongTheWorldsXAxis) {
  EXPECT_EQ(shapesOf("MTEXT", attached("1", "ab")), "7 text 'ab' 3 R0 bottom left (10 17)\n");
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "ab"), {{230, "-1"}})),
            "7 text 'ab' 3 SMR180 bottom left (10 23)\n");
}

// 2.7 a letter: 11 letters would be 29.7, 8 are 21.6.
TEST(ExactMtextLayout, LinesBreakAtBlanksByAnEstimate) {
  const GroupPairs groups = extended(attached("1", "abcd efg hij"), {{41, "22"}});
  EXPECT_EQ(shapesOf("MTEXT", groups),
            "7 text 'abcd efg' 3 R0 bottom left (10 17)\n"
            "7 text 'hij' 3 R0 bottom left (10 12)\n");
  EXPECT_EQ(textLosses("MTEXT", groups), "text-broken");
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "abcd efg hij"), {{41, "33"}})),
            "7 text 'abcd efg hij' 3 R0 bottom left (10 17)\n");
}

TEST(ExactMtextLayout, LongWordsStayWhole) {
  const GroupPairs groups = extended(attached("1", "abcdefgh i\\~j"), {{41, "6"}});
  EXPECT_EQ(shapesOf("MTEXT", groups),
            "7 text 'abcdefgh' 3 R0 bottom left (10 17)\n"
            "7 text 'i j' 3 R0 bottom left (10 12)\n");
  EXPECT_EQ(textLosses("MTEXT", extended(attached("1", "abcdefgh"), {{41, "6"}})), "");
}

// A line has 3 heights, each further one 5: 18 is four lines, 3 is one.
TEST(ExactMtextLayout, TheTextsOwnHeightTellsHowManyLinesThereAre) {
  constexpr std::string_view kText = "ab cd ef gh";  // 29.7 long at 0.9, 19.8 at 0.6, 42.9 at 1.3
  const auto lines = [&](std::string_view width, std::string_view height) {
    const std::string shapes =
        shapesOf("MTEXT", extended(attached("1", kText), {{41, width}, {43, height}}));
    return std::count(shapes.begin(), shapes.end(), '\n');
  };
  EXPECT_EQ(lines("22", "3"), 1);  // 0.66 will do
  EXPECT_EQ(lines("22", "8"), 2);
  EXPECT_EQ(lines("31", "8"), 2);  // 0.94 will do
  EXPECT_EQ(lines("31", "3"), 1);
  EXPECT_EQ(lines("14", "18"), 4);  // 0.94 breaks between all words
  EXPECT_EQ(lines("14", "13"), 2);  // nothing makes three lines
}

TEST(ExactMtextLayout, TheStylesWidthCountsAndIsNamed) {
  DxfBuilder dxf;
  dxf.style("NARROW", {{70, "0"}, {41, "0.5"}});
  dxf.entity("MTEXT", {{8, "0"}, {40, "3"}, {41, "22"}, {1, "abcd efg hij"}, {7, "Narrow"}});
  const ExactDrawing drawing(dxf);
  EXPECT_EQ(drawing.shapes(), "7 text 'abcd efg hij' 3 R0 bottom left (0 -3)\n");
  EXPECT_EQ(textLosses(drawing), "text-width");
}

TEST(ExactMtextLayout, BackgroundsAndColumnsAreNamed) {
  EXPECT_EQ(textLosses("MTEXT", extended(attached("1"), {{90, "1"}})), "text-background");
  EXPECT_EQ(textLosses("MTEXT", extended(attached("1"), {{75, "1"}, {76, "2"}, {50, "12"}})),
            "text-columns");
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "a"), {{75, "1"}, {76, "2"}, {50, "12"}})),
            "7 text 'a' 3 R0 bottom left (10 17)\n");
}

TEST(ExactMtextLayout, AnEmbeddedObjectDescribesTheColumnsAlone) {
  const GroupPairs one = {{101, "Embedded Object"},
                          {70, "1"},
                          {10, "1"},
                          {20, "0"},
                          {11, "9"},
                          {21, "9"},
                          {40, "8"},
                          {43, "3"},
                          {71, "2"},
                          {72, "1"}};
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1", "ab"), one)),
            "7 text 'ab' 3 R0 bottom left (10 17)\n");
  EXPECT_EQ(textLosses("MTEXT", extended(attached("1", "ab"), one)), "");
  EXPECT_EQ(textLosses("MTEXT", extended(extended(attached("1", "ab"), one), {{72, "2"}})),
            "text-columns");
}

TEST(ExactMtextLayout, InASchematicLinesUpsideDownCanBeReadFromTheTop) {
  // Upside down at (0 0), the box reaches from (0 0) up to (0 8), the first line at the bottom.
  const GroupPairs groups = {{40, "3"}, {71, "1"}, {1, "ab\\Pc"}, {50, "180"}};
  EXPECT_EQ(shapesOf("MTEXT", groups, forSchematic()),
            "7 text 'ab' 3 R0 top right (0 8)\n"
            "7 text 'c' 3 R0 top right (0 3)\n");
  EXPECT_EQ(shapesOf("MTEXT", groups),
            "7 text 'ab' 3 SR180 bottom left (0 3)\n"
            "7 text 'c' 3 SR180 bottom left (0 8)\n");
}

TEST(ExactMtextLayout, ForEagle4EachLineStartsAtItsReckonedLeft) {
  EXPECT_EQ(shapesOf("MTEXT", attached("3"), forEagle4()),
            "7 text 'ab' 3 R0 bottom left (4.9 17)\n"
            "7 text 'c' 3 R0 bottom left (7.45 12)\n");
  EXPECT_EQ(textLosses("MTEXT", attached("3"), forEagle4()), "text-ends-reckoned");
}

TEST(ExactMtextLayout, HostileNumbersEndInALossOrInATextOfSomeSize) {
  EXPECT_EQ(textLosses("MTEXT", extended(attached("1"), {{40, "0"}})), "no-size");
  EXPECT_EQ(textLosses("MTEXT", extended(attached("1"), {{40, "1e999"}})), "unusable-numbers");
  EXPECT_EQ(textLosses("MTEXT", extended(attached("1", "a"), {{10, "-1e300"}})),
            "unusable-numbers");
  EXPECT_EQ(shapesOf("MTEXT", extended(attached("1e99", "a b"),
                                       {{41, "1e-300"}, {43, "1e300"}, {44, "-5"}, {73, "x"}})),
            "7 text 'a' 3 R0 bottom left (10 17)\n"
            "7 text 'b' 3 R0 bottom left (10 12)\n");
}

}  // namespace
}  // namespace quillon::testing
