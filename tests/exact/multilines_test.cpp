#include "exact_drawing.h"

namespace quillon::testing {
namespace {

/// Groups of an MLINE that add up: its head, then its vertices.
class MlineBuilder {
 public:
  explicit MlineBuilder(std::string_view flags, std::string_view style = "Standard") {
    groups_ = {{2, style}, {40, "1"}, {70, "0"}, {71, flags}, {72, "1000000000"},
               {73, "2"},  {10, "0"}, {20, "0"}, {30, "0"}};
  }
  /// A vertex, the direction from there and that of the miter.
  MlineBuilder& vertex(std::string_view x, std::string_view y, std::string_view directionX,
                       std::string_view directionY, std::string_view miterX,
                       std::string_view miterY) {
    return add({{11, x},
                {21, y},
                {31, "5"},
                {12, directionX},
                {22, directionY},
                {13, miterX},
                {23, miterY}});
  }
  MlineBuilder& element(std::initializer_list<std::string_view> values) {
    groups_.push_back({74, "2"});
    for (const std::string_view value : values) groups_.push_back({41, value});
    return add({{75, "0"}});
  }
  MlineBuilder& filledElement(std::initializer_list<std::string_view> values) {
    element(values);
    groups_.back().second = "2";
    return add({{42, "0"}, {42, "1"}});
  }
  MlineBuilder& add(const GroupPairs& groups) {
    groups_.insert(groups_.end(), groups.begin(), groups.end());
    return *this;
  }
  DxfBuilder drawing() const { return oneEntity("MLINE", groups_); }
  void addTo(DxfBuilder& dxf) const { dxf.entity("MLINE", groups_); }

 private:
  GroupPairs groups_;
};

/// From (0 0) over (10 0) to (10 10), half a millimetre to each side.
DxfBuilder mlineCorner(std::string_view flags, std::string_view style) {
  return MlineBuilder(flags, style)
      .vertex("0", "0", "1", "0", "0", "1")
      .element({"0.5", "0"})
      .element({"-0.5", "0"})
      .vertex("10", "0", "0", "1", "-0.70710678118654752", "0.70710678118654752")
      .element({"0.70710678118654752", "0"})
      .element({"-0.70710678118654752", "0"})
      .vertex("10", "10", "0", "1", "-1", "0")
      .element({"0.5", "0"})
      .element({"-0.5", "0"})
      .drawing();
}

TEST(ExactMultilines, EachElementIsAChainAlongTheMiters) {
  const ExactDrawing drawing(mlineCorner("1", "Standard"));
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (0 0.5) (9.5 0.5) (9.5 10)\n"
            "7 wire 0 (0 -0.5) (10.5 -0.5) (10.5 10)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactMultilines, CapsOfAStyleOfItsOwnAreNamedUnlessTheyAreSuppressed) {
  EXPECT_EQ(ExactDrawing(mlineCorner("1", "WALL")).losses(), "multiline-caps MLINE 1 line 7\n");
  EXPECT_EQ(ExactDrawing(mlineCorner("5", "WALL")).losses(), "multiline-caps MLINE 1 line 7\n");
  EXPECT_EQ(ExactDrawing(mlineCorner("13", "WALL")).losses(), "");
}

/// The drawing with a style of this name and these flags.
std::string withStyle(const DxfBuilder& dxf, const std::string& name, int flags) {
  std::string text = dxf.text();
  const std::string start = "OBJECTS\n";
  text.insert(text.find(start) + start.size(),
              "0\nDICTIONARY\n5\n17\n3\nACAD_MLINESTYLE\n350\n18\n0\nMLINESTYLE\n5\n18\n"
              "100\nAcDbMlineStyle\n2\n" +
                  name + "\n70\n" + std::to_string(flags) +
                  "\n3\n\n62\n256\n51\n90.0\n52\n90.0\n71\n2\n49\n0.5\n62\n256\n6\nBYLAYER\n"
                  "49\n-0.5\n62\n256\n6\nBYLAYER\n");
  return text;
}

const std::string kCornerElements =
    "7 wire 0 (0 0.5) (9.5 0.5) (9.5 10)\n"
    "7 wire 0 (0 -0.5) (10.5 -0.5) (10.5 10)\n";
const std::string kStartCap = "7 wire 0 (0 -0.5) (0 0.5)\n";
const std::string kEndCap = "7 wire 0 (10.5 10) (9.5 10)\n";

TEST(ExactMultilines, StraightCapsAreDrawnAsTheStyleWants) {
  const ExactDrawing both(withStyle(mlineCorner("1", "Wall"), "WALL", 16 | 256));
  EXPECT_EQ(both.shapes(), kCornerElements + kStartCap + kEndCap);
  EXPECT_EQ(both.losses(), "");
  EXPECT_EQ(ExactDrawing(withStyle(mlineCorner("1", "WALL"), "wall", 16)).shapes(),
            kCornerElements + kStartCap);
  EXPECT_EQ(ExactDrawing(withStyle(mlineCorner("1", "WALL"), "WALL", 256)).shapes(),
            kCornerElements + kEndCap);
}

TEST(ExactMultilines, TheStyleOfNewDrawingsMayHaveBeenChanged) {
  const ExactDrawing drawing(withStyle(mlineCorner("1", "Standard"), "STANDARD", 16));
  EXPECT_EQ(drawing.shapes(), kCornerElements + kStartCap);
}

TEST(ExactMultilines, SuppressedCapsAreNotDrawn) {
  EXPECT_EQ(ExactDrawing(withStyle(mlineCorner("5", "WALL"), "WALL", 16 | 256)).shapes(),
            kCornerElements + kEndCap);
  EXPECT_EQ(ExactDrawing(withStyle(mlineCorner("9", "WALL"), "WALL", 16 | 256)).shapes(),
            kCornerElements + kStartCap);
  EXPECT_EQ(ExactDrawing(withStyle(mlineCorner("13", "WALL"), "WALL", 16 | 256)).shapes(),
            kCornerElements);
}

TEST(ExactMultilines, JointsAreDrawnAtTheCornersBetweenTheEnds) {
  const ExactDrawing drawing(withStyle(mlineCorner("1", "WALL"), "WALL", 2));
  EXPECT_EQ(drawing.shapes(), kCornerElements + "7 wire 0 (10.5 -0.5) (9.5 0.5)\n");
  EXPECT_EQ(drawing.losses(), "");
}

TEST(ExactMultilines, CapsWithArcsAreNamedUnlessTheyAreSuppressed) {
  const std::string named = "multiline-caps MLINE 1 line 7\n";
  for (const int arcs : {32, 64, 512, 1024}) {
    const ExactDrawing drawing(withStyle(mlineCorner("1", "WALL"), "WALL", arcs));
    EXPECT_EQ(drawing.shapes(), kCornerElements) << arcs;
    EXPECT_EQ(drawing.losses(), named) << arcs;
    const std::string suppressed = arcs < 256 ? "5" : "9";
    EXPECT_EQ(ExactDrawing(withStyle(mlineCorner(suppressed, "WALL"), "WALL", arcs)).losses(), "");
  }
}

TEST(ExactMultilines, CapsOfAStyleThatIsMissingAreNamed) {
  EXPECT_EQ(ExactDrawing(withStyle(mlineCorner("1", "WALL"), "FENCE", 16)).losses(),
            "multiline-caps MLINE 1 line 7\n");
  EXPECT_EQ(ExactDrawing(withStyle(mlineCorner("1", "Standard"), "FENCE", 16)).losses(), "");
}

TEST(ExactMultilines, CapsHaveTheDashesAndDotsOfTheirElements) {
  DxfBuilder dxf = MlineBuilder("1", "WALL")
                       .vertex("0", "0", "1", "0", "0", "1")
                       .element({"5", "0"})
                       .element({"-5", "0"})
                       .vertex("20", "0", "1", "0", "0", "1")
                       .element({"5", "0"})
                       .element({"-5", "0"})
                       .add({{6, "DASHDOT"}})
                       .drawing();
  dxf.lineType("DASHDOT",
               {{70, "0"}, {73, "4"}, {40, "4"}, {49, "2"}, {49, "-1"}, {49, "0"}, {49, "-1"}});
  exact::Options options;
  options.lineTypes = exact::LineTypes::Dashes;
  const std::string shapes = ExactDrawing(withStyle(dxf, "WALL", 16), options).shapes();
  EXPECT_TRUE(
      shapes.ends_with("7 wire 0 (0 -5) (0 -3) as it is\n"
                       "7 wire 0 (0 -1) (0 1) as it is\n"
                       "7 wire 0 (0 3) (0 5) as it is\n"
                       "7 dot 0.1 (0 -2)\n"
                       "7 dot 0.1 (0 2)\n"))
      << shapes;
}

TEST(ExactMultilines, CapsInBlocksAreWhereTheBlockIs) {
  DxfBuilder dxf;
  dxf.beginBlock("B");
  MlineBuilder("1", "WALL")
      .vertex("0", "0", "1", "0", "0", "1")
      .element({"0.5", "0"})
      .element({"-0.5", "0"})
      .vertex("10", "0", "1", "0", "0", "1")
      .element({"0.5", "0"})
      .element({"-0.5", "0"})
      .addTo(dxf);
  dxf.endBlock().entity("INSERT", {{8, "0"}, {2, "B"}, {10, "100"}, {20, "0"}});
  EXPECT_EQ(ExactDrawing(withStyle(dxf, "WALL", 16)).shapes(),
            "7 wire 0 (100 0.5) (110 0.5)\n"
            "7 wire 0 (100 -0.5) (110 -0.5)\n"
            "7 wire 0 (100 -0.5) (100 0.5)\n");
}

/// A square about (0 0) with a side of 8, one element outside of it, one inside.
DxfBuilder mlineRing(bool isFilled) {
  MlineBuilder mline("3", "WALL");
  const auto corner = [&](std::string_view x, std::string_view y, std::string_view dx,
                          std::string_view dy, std::string_view mx, std::string_view my) {
    mline.vertex(x, y, dx, dy, mx, my);
    for (const std::string_view offset : {"1", "-1"}) {
      isFilled ? mline.filledElement({offset, "0"}) : mline.element({offset, "0"});
    }
  };
  corner("-4", "-4", "1", "0", "1", "1");
  corner("4", "-4", "0", "1", "-1", "1");
  corner("4", "4", "-1", "0", "-1", "-1");
  corner("-4", "4", "0", "-1", "1", "-1");
  return mline.drawing();
}

TEST(ExactMultilines, AClosedOneHasClosedElementsAndNoCaps) {
  const ExactDrawing drawing(mlineRing(false));
  EXPECT_EQ(drawing.shapes(),
            "7 wire 0 (-3 -3) (3 -3) (3 3) (-3 3) (-3 -3)\n"
            "7 wire 0 (-5 -5) (5 -5) (5 5) (-5 5) (-5 -5)\n");
  EXPECT_EQ(drawing.losses(), "");
}

/// The part of a text before its last lines.
std::string withoutLastLines(const std::string& text, int lines) {
  std::size_t end = text.size();
  for (; lines > 0 && end > 0; --lines) end = text.rfind('\n', end - 2) + 1;
  return text.substr(0, end);
}

TEST(ExactMultilines, AClosedOneHasJointsAtAllCorners) {
  EXPECT_EQ(ExactDrawing(withStyle(mlineRing(false), "WALL", 2 | 16 | 32 | 256)).shapes(),
            ExactDrawing(mlineRing(false)).shapes() +
                "7 wire 0 (-5 -5) (-3 -3)\n"
                "7 wire 0 (5 -5) (3 -3)\n"
                "7 wire 0 (5 5) (3 3)\n"
                "7 wire 0 (-5 5) (-3 3)\n");
}

// The slit, 0.001 wide, leads from the inner ring's right side to the outer one's.
TEST(ExactMultilines, TheFillingOfAClosedOneLeavesItsInsideFree) {
  const std::string shapes = ExactDrawing(mlineRing(true)).shapes();
  const std::string area = withoutLastLines(shapes, 2);
  EXPECT_EQ(area.substr(0, 7), "7 area ") << area;
  EXPECT_EQ(area.find('\n'), area.size() - 1) << area;
  for (const char* corner : {"(-5 -5)", "(-5 5)", "(-3 -3)", "(-3 3)"}) {
    EXPECT_NE(area.find(corner), std::string::npos) << area;
  }
  EXPECT_EQ(shapes.substr(area.size()), ExactDrawing(mlineRing(false)).shapes());
}

TEST(ExactMultilines, TheFillingOfAnOpenOneIsTheAreaBetweenTheOutermostElements) {
  const DxfBuilder dxf = MlineBuilder("1")
                             .vertex("0", "0", "1", "0", "0", "1")
                             .filledElement({"0", "0"})
                             .filledElement({"2", "0"})
                             .filledElement({"-1", "0"})
                             .vertex("10", "0", "1", "0", "0", "1")
                             .filledElement({"0", "0"})
                             .filledElement({"2", "0"})
                             .filledElement({"-1", "0"})
                             .drawing();
  const std::string lines =
      "7 wire 0 (0 0) (10 0)\n"
      "7 wire 0 (0 2) (10 2)\n"
      "7 wire 0 (0 -1) (10 -1)\n";
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 area (0 -1) (10 -1) (10 2) (0 2) (0 -1)\n" + lines);
  DxfBuilder notFilled = dxf;
  notFilled.header("$FILLMODE", 70, "0");
  EXPECT_EQ(ExactDrawing(notFilled).shapes(), lines);
}

TEST(ExactMultilines, OnlyWhatIsBetweenBreaksIsDrawn) {
  const DxfBuilder dxf = MlineBuilder("1")
                             .vertex("0", "0", "1", "0", "0", "1")
                             .element({"0", "1", "2", "4"})
                             .element({"1", "0", "3"})
                             .vertex("10", "0", "1", "0", "0", "1")
                             .element({"0", "0", "5", "7", "8", "9"})
                             .element({"1", "0"})
                             .vertex("20", "0", "1", "0", "0", "1")
                             .element({"0", "0"})
                             .element({"1", "0"})
                             .drawing();
  EXPECT_EQ(ExactDrawing(dxf).shapes(),
            "7 wire 0 (1 0) (2 0)\n"
            "7 wire 0 (4 0) (10 0) (15 0)\n"
            "7 wire 0 (17 0) (18 0)\n"
            "7 wire 0 (19 0) (20 0)\n"
            "7 wire 0 (0 1) (3 1)\n"
            "7 wire 0 (10 1) (20 1)\n");
}

TEST(ExactMultilines, AClosedElementWithABreakIsOpen) {
  const DxfBuilder dxf = MlineBuilder("3")
                             .vertex("0", "0", "1", "0", "0", "1")
                             .element({"0", "1"})
                             .vertex("4", "0", "0", "1", "-1", "0")
                             .element({"0", "0"})
                             .vertex("0", "3", "0", "-1", "1", "0")
                             .element({"0", "0"})
                             .drawing();
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (1 0) (4 0) (0 3) (0 0)\n");
}

// The edge rises as far as it goes to the right.
TEST(ExactMultilines, BreaksAreMeasuredAlongTheEdgeInSpace) {
  const DxfBuilder dxf = MlineBuilder("1")
                             .vertex("0", "0", "0.70710678118654752", "0", "0", "1")
                             .element({"0", "0", "1.4142135623730951", "2.8284271247461903"})
                             .vertex("10", "0", "0.70710678118654752", "0", "0", "1")
                             .element({"0", "0"})
                             .drawing();
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (1 0)\n7 wire 0 (2 0) (10 0)\n");
}

TEST(ExactMultilines, AnElementThatAVertexDoesNotHaveBreaksOffThere) {
  const DxfBuilder dxf = MlineBuilder("1")
                             .vertex("0", "0", "1", "0", "0", "1")
                             .element({"0", "0"})
                             .element({"1", "0"})
                             .vertex("10", "0", "1", "0", "0", "1")
                             .element({"0", "0"})
                             .vertex("20", "0", "1", "0", "0", "1")
                             .element({})
                             .element({"1", "0"})
                             .drawing();
  EXPECT_EQ(ExactDrawing(dxf).shapes(), "7 wire 0 (0 0) (10 0)\n");
}

TEST(ExactMultilines, ThePlaneOfAnMlineDoesNotTurnIt) {
  EXPECT_EQ(ExactDrawing(MlineBuilder("1")
                             .add({{230, "-1"}})
                             .vertex("0", "0", "1", "0", "0", "1")
                             .element({"1", "0"})
                             .vertex("10", "0", "1", "0", "0", "1")
                             .element({"1", "0"})
                             .drawing())
                .shapes(),
            "7 wire 0 (0 1) (10 1)\n");
}

TEST(ExactMultilines, OneVertexOrNoElementIsNothingAndNamed) {
  const ExactDrawing one(
      MlineBuilder("3").vertex("0", "0", "1", "0", "0", "1").element({"0", "0"}).drawing());
  EXPECT_EQ(one.shapes(), "");
  EXPECT_EQ(one.losses(), "one-vertex MLINE 1 line 7\n");
  const ExactDrawing none(MlineBuilder("1")
                              .vertex("0", "0", "1", "0", "0", "1")
                              .vertex("9", "0", "1", "0", "0", "1")
                              .drawing());
  EXPECT_EQ(none.shapes(), "");
  EXPECT_EQ(none.losses(), "damaged-entity MLINE 1 line 7\n");
}

TEST(ExactMultilines, HugeNumbersAreNotDrawnButNamed) {
  const ExactDrawing drawing(MlineBuilder("1")
                                 .vertex("0", "0", "1e999", "0", "0", "1")
                                 .filledElement({"1e999", "0", "1e300", "-1e999"})
                                 .filledElement({"0", "0"})
                                 .vertex("10", "0", "1", "0", "0", "1e999")
                                 .filledElement({"1", "0"})
                                 .filledElement({"0", "0"})
                                 .drawing());
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "unusable-numbers MLINE 1 line 7\n");
  // Breaks and directions beyond everything leave at least what has no breaks.
  EXPECT_EQ(ExactDrawing(MlineBuilder("1")
                             .vertex("0", "0", "1e999", "0", "0", "1")
                             .element({"0", "-1e999", "1e999", "nan"})
                             .vertex("10", "0", "0", "0", "0", "1")
                             .element({"0"})
                             .vertex("20", "0", "1", "0", "0", "1")
                             .element({"0"})
                             .drawing())
                .shapes(),
            "7 wire 0 (0 0) (10 0) (20 0)\n");
}

TEST(ExactMultilines, MoreElementsThanAnyStyleHasAreNamed) {
  MlineBuilder mline("1");
  mline.vertex("0", "0", "1", "0", "0", "1");
  for (int i = 0; i <= 1000; ++i) mline.element({"0", "0"});
  for (int i = 0; i < 1000; ++i) mline.vertex("1", "0", "1", "0", "0", "1");
  const ExactDrawing drawing(mline.drawing());
  EXPECT_EQ(drawing.shapes(), "");
  EXPECT_EQ(drawing.losses(), "damaged-entity MLINE 1 line 7\n");
}

}  // namespace
}  // namespace quillon::testing
