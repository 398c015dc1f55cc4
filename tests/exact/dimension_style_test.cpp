#include "exact/dimension_style.h"

#include <optional>

#include "exact_drawing.h"
#include "exact_item.h"

namespace quillon::testing {
namespace {

using exact::DimensionStyle;

/// The style of the only entity.
DimensionStyle dimensionStyleOf(const DxfBuilder& dxf) {
  std::optional<DimensionStyle> style;
  withItems(dxf, [&](const exact::Item& item, exact::Canvas& canvas) {
    style = exact::readDimensionStyle(item, canvas);
    // Texts are views into the drawing.
    style->textStyle = style->textStyle == "NARROW" ? "NARROW" : "";
    style->numbers.around = style->numbers.around == " mm" ? " mm" : "";
  });
  return style.value_or(DimensionStyle{});
}

TEST(ExactDimensionStyles, WithoutAStyleValuesAreThoseOfANewDrawing) {
  const DimensionStyle style = dimensionStyleOf(oneEntity("LEADER", {}));
  EXPECT_EQ(style.arrowSize, 0.18);
  EXPECT_EQ(style.offset, 0.0625);
  EXPECT_EQ(style.overshoot, 0.18);
  EXPECT_EQ(style.textHeight, 0.18);
  EXPECT_EQ(style.gap, 0.09);
  EXPECT_EQ(style.numbers.decimals, 4);
}

TEST(ExactDimensionStyles, TheNamedStyleCountsWhateverTheCase) {
  DxfBuilder dxf = oneEntity("LEADER", {{3, "Iso-25"}});
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{41, "1"}});
  dxf.tableEntry("DIMSTYLE", "ISO-25",
                 {{41, "2.5"}, {42, "0.625"}, {44, "1.25"}, {140, "3.5"}, {147, "-0.5"}});
  const DimensionStyle style = dimensionStyleOf(dxf);
  EXPECT_EQ(style.arrowSize, 2.5);
  EXPECT_EQ(style.offset, 0.625);
  EXPECT_EQ(style.overshoot, 1.25);
  EXPECT_EQ(style.textHeight, 3.5);
  EXPECT_EQ(style.gap, 0.5);
}

TEST(ExactDimensionStyles, AMissingStyleIsTheStandardOne) {
  DxfBuilder dxf = oneEntity("LEADER", {{3, "LOST"}});
  dxf.tableEntry("DIMSTYLE", "Standard", {{41, "1"}});
  EXPECT_EQ(dimensionStyleOf(dxf).arrowSize, 1.0);
}

TEST(ExactDimensionStyles, LengthsGrowWithTheScaleUnlessThatIsNone) {
  DxfBuilder dxf = oneEntity("LEADER", {});
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{40, "4"}, {41, "2"}, {140, "1e300"}});
  EXPECT_EQ(dimensionStyleOf(dxf).arrowSize, 8.0);
  EXPECT_EQ(dimensionStyleOf(dxf).textHeight, 0.0);
  DxfBuilder annotative = oneEntity("LEADER", {});
  annotative.tableEntry("DIMSTYLE", "STANDARD", {{40, "0"}, {41, "2"}});
  EXPECT_EQ(dimensionStyleOf(annotative).arrowSize, 2.0);
}

TEST(ExactDimensionStyles, TheEntitysOwnChangesWin) {
  DxfBuilder dxf = oneEntity("LEADER", {{1001, "OTHER"},
                                        {1000, "DSTYLE"},
                                        {1002, "{"},
                                        {1070, "41"},
                                        {1040, "9"},
                                        {1002, "}"},
                                        {1001, "ACAD"},
                                        {1000, "DSTYLE"},
                                        {1002, "{"},
                                        {1070, "41"},
                                        {1040, "5"},
                                        {1070, "271"},
                                        {1070, "1"},
                                        {1070, "3"},
                                        {1000, " mm"},
                                        {1002, "}"},
                                        {1070, "41"},
                                        {1040, "9"}});
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{40, "2"}, {41, "2.5"}, {3, "x"}});
  const DimensionStyle style = dimensionStyleOf(dxf);
  EXPECT_EQ(style.arrowSize, 10.0);
  EXPECT_EQ(style.numbers.decimals, 1);
}

TEST(ExactDimensionStyles, NumbersAreWrittenAsTheStyleSays) {
  DxfBuilder dxf = oneEntity("LEADER", {});
  dxf.tableEntry("DIMSTYLE", "STANDARD",
                 {{45, "0.5"},
                  {72, "1"},
                  {71, "0"},
                  {78, "8"},
                  {79, "2"},
                  {144, "25.4"},
                  {170, "1"},
                  {179, "1"},
                  {271, "2"},
                  {275, "3"},
                  {277, "4"},
                  {278, "44"}});
  const exact::DimensionNumbers numbers = dimensionStyleOf(dxf).numbers;
  EXPECT_EQ(numbers.rounding, 0.5);
  EXPECT_TRUE(numbers.hasTolerances);
  EXPECT_EQ(numbers.zeros, 8);
  EXPECT_EQ(numbers.angleZeros, 2);
  EXPECT_EQ(numbers.factor, 25.4);
  EXPECT_TRUE(numbers.hasAlternateUnits);
  EXPECT_EQ(numbers.angleDecimals, 1);
  EXPECT_EQ(numbers.decimals, 2);
  EXPECT_EQ(numbers.angleUnits, 3);
  EXPECT_EQ(numbers.lengthUnits, 4);
  EXPECT_EQ(numbers.decimalPoint, ',');
}

TEST(ExactDimensionStyles, ANegativeFactorIsForPaperSpaceAlone) {
  DxfBuilder model = oneEntity("LEADER", {});
  model.tableEntry("DIMSTYLE", "STANDARD", {{144, "-3"}});
  EXPECT_EQ(dimensionStyleOf(model).numbers.factor, 1.0);
  DxfBuilder paper = oneEntity("LEADER", {{67, "1"}});
  paper.tableEntry("DIMSTYLE", "STANDARD", {{144, "-3"}});
  EXPECT_EQ(dimensionStyleOf(paper).numbers.factor, 3.0);
}

TEST(ExactDimensionStyles, BlocksAndTextStylesAreFoundByTheirHandles) {
  DxfBuilder dxf = oneEntity("LEADER", {});
  dxf.tableEntry("BLOCK_RECORD", "_Dot", {{5, "1F"}});
  dxf.tableEntry("BLOCK_RECORD", "_None", {{5, "2A"}});
  dxf.style("Narrow", {{5, "3B"}});
  dxf.tableEntry("DIMSTYLE", "STANDARD",
                 {{173, "1"}, {340, "3b"}, {341, "2A"}, {342, "0"}, {343, "01F"}, {344, "XYZ"}});
  const DimensionStyle style = dimensionStyleOf(dxf);
  EXPECT_EQ(style.arrows.leader, "_NONE");
  EXPECT_EQ(style.arrows.both, "");
  EXPECT_EQ(style.arrows.at(true), "_DOT");
  EXPECT_EQ(style.arrows.at(false), "");
  EXPECT_EQ(style.textStyle, "NARROW");
}

TEST(ExactDimensionStyles, OldDrawingsNameTheirArrows) {
  DxfBuilder dxf = oneEntity("LEADER", {});
  dxf.tableEntry("DIMSTYLE", "STANDARD", {{5, "mine"}, {6, "a"}, {7, "b"}});
  const DimensionStyle style = dimensionStyleOf(dxf);
  EXPECT_EQ(style.arrows.at(true), "MINE");
  EXPECT_EQ(style.arrows.at(false), "MINE");
  EXPECT_EQ(style.arrows.first, "A");
}

}  // namespace
}  // namespace quillon::testing
