#include "preview/svg.h"

#include <gtest/gtest.h>

#include "eagle/recorder.h"

namespace quillon::preview {
namespace {

struct Picture : base::ByteSink {
  void write(std::string_view block) override { text += block; }
  bool has(std::string_view part) const { return text.find(part) != std::string::npos; }
  std::string text;
};

struct SvgTest : ::testing::Test {
  eagle::Recorder recorder{eagle::Coordinates{base::Unit::Mm}};

  SvgTest() { recorder.layer(20); }
  Picture picture(Theme theme = Theme::Light) {
    Picture picture;
    writeSvg(recorder.recording(), theme, picture);
    return picture;
  }
  void wire(geometry::Point from, geometry::Point to, double curve = 0.0, double width = 0.0) {
    eagle::Wire wire;
    wire.width = width;
    wire.from = from;
    wire.to = to;
    wire.curve = curve;
    recorder.wire(wire);
  }
};

TEST_F(SvgTest, WiresThatFollowEachOtherAreOnePath) {
  wire({0.0, 0.0}, {80.0, 0.0});
  wire({80.0, 0.0}, {80.0, 40.0});
  wire({0.0, 40.0}, {0.0, 10.0});
  const Picture drawn = picture();
  EXPECT_TRUE(
      drawn.has("<g id=\"layer-20\" fill=\"none\" stroke=\"#000000\">\n"
                "<path stroke-width=\"0.1\" d=\"M0 0L80 0L80 -40M0 -40L0 -10\"/>\n</g>"))
      << drawn.text;
  EXPECT_TRUE(drawn.has("<desc>80.0 x 40.0 mm (3.150 x 1.575 in)</desc>"));
}

TEST_F(SvgTest, WidthsOfTheirOwnStartPathsOfTheirOwn) {
  wire({0.0, 0.0}, {80.0, 0.0}, 0.0, 2.0);
  wire({80.0, 0.0}, {80.0, 40.0}, 0.0, 3.0);
  const Picture drawn = picture();
  EXPECT_TRUE(drawn.has("<path stroke-width=\"2\" d=\"M0 0L80 0\"/>")) << drawn.text;
  EXPECT_TRUE(drawn.has("<path stroke-width=\"3\" d=\"M80 0L80 -40\"/>"));
}

TEST_F(SvgTest, ArcsBendToTheSideOfTheirCurve) {
  wire({0.0, 0.0}, {80.0, 0.0}, 180.0);
  wire({80.0, 0.0}, {0.0, 0.0}, -90.0);
  wire({0.0, 0.0}, {80.0, 0.0}, 270.0);
  const Picture drawn = picture();
  EXPECT_TRUE(drawn.has("M0 0A40 40 0 0 0 80 0")) << drawn.text;
  EXPECT_TRUE(drawn.has("A56.569 56.569 0 0 1 0 0"));
  EXPECT_TRUE(drawn.has("A56.569 56.569 0 1 0 80 0"));
}

TEST_F(SvgTest, AreasAreFilledAndClosed) {
  const eagle::Corner corners[] = {{{0.0, 0.0}, 0.0}, {{80.0, 0.0}, 90.0}, {{0.0, 40.0}, 0.0}};
  recorder.area({0.0, corners});
  const Picture drawn = picture();
  EXPECT_TRUE(drawn.has("<path fill=\"#000000\" stroke-width=\"0\" d=\"M0 0L80 0A")) << drawn.text;
  EXPECT_TRUE(drawn.has("0 -40L0 0Z\"/>"));
}

TEST_F(SvgTest, CirclesAreRingsOrFilled) {
  recorder.circle({eagle::CircleKind::Ring, 1.0, {10.0, 20.0}, {15.0, 20.0}});
  recorder.circle({eagle::CircleKind::Disc, 0.0, {50.0, 20.0}, {55.0, 20.0}});
  const Picture drawn = picture();
  EXPECT_TRUE(drawn.has("<circle cx=\"10\" cy=\"-20\" r=\"5\" stroke-width=\"1\"/>")) << drawn.text;
  EXPECT_TRUE(drawn.has("<circle cx=\"50\" cy=\"-20\" r=\"5\" stroke=\"none\" fill=\"#000000\"/>"));
}

TEST_F(SvgTest, TextsAreStrokesWithTheirWords) {
  recorder.change(eagle::Property::Size, 6.0);
  recorder.text({{}, "L<", {0.0, 0.0}});
  const Picture drawn = picture();
  EXPECT_TRUE(drawn.has("<g aria-label=\"L&lt;\"><path stroke-width=\"0.48\" d=\"M0 -6L0 0L4 0M"))
      << drawn.text;
}

TEST_F(SvgTest, LengthsAreMillimetresWhateverTheUnit) {
  eagle::Recorder mils{eagle::Coordinates{base::Unit::Mil}};
  mils.layer(1);
  eagle::Wire line;
  line.to = {1000.0, 1000.0};
  mils.wire(line);
  Picture drawn;
  writeSvg(mils.recording(), Theme::Dark, drawn);
  EXPECT_TRUE(drawn.has("L25.4 -25.4")) << drawn.text;
  EXPECT_TRUE(drawn.has("stroke=\"#c83232\""));
}

TEST_F(SvgTest, TheOriginIsMarkedWhereItIsInSight) {
  wire({-10.0, -10.0}, {10.0, 10.0});
  EXPECT_TRUE(picture().has("id=\"origin\""));
  recorder = eagle::Recorder{eagle::Coordinates{base::Unit::Mm, 500.0, 500.0}};
  wire({-10.0, -10.0}, {10.0, 10.0});
  EXPECT_FALSE(picture().has("id=\"origin\""));
}

TEST_F(SvgTest, EaglesLimitsShowWhereTheDrawingLeavesThem) {
  wire({0.0, 0.0}, {100.0, 100.0});
  EXPECT_FALSE(picture().has("id=\"limits\""));
  wire({0.0, 0.0}, {900.0, 100.0});
  EXPECT_TRUE(picture().has("<rect id=\"limits\" x=\"-838.86\" y=\"-838.86\" width=\"1677.72\""))
      << picture().text;
}

TEST_F(SvgTest, PartsAreDrawnOnceAndPlaced) {
  recorder.edit("plate", ".brd");
  recorder.edit("PART_1", ".pac");
  recorder.layer(21);
  wire({0.0, 0.0}, {8.0, 4.0});
  recorder.edit("plate", ".brd");
  eagle::Part part;
  part.name = "PART_1";
  part.library = "plate";
  for (const double x : {10.0, 30.0}) {
    part.at = {x, 5.0};
    part.degrees = x == 30.0 ? 22.5 : 0.0;
    recorder.part(part);
  }
  const Picture drawn = picture();
  EXPECT_EQ(drawn.text.find("<defs>"), drawn.text.rfind("<defs>"));
  EXPECT_TRUE(drawn.has("<use href=\"#part-1\" transform=\"translate(10 -5)\"/>")) << drawn.text;
  EXPECT_TRUE(drawn.has("<use href=\"#part-1\" transform=\"translate(30 -5) rotate(-22.5)\"/>"));
}

TEST_F(SvgTest, HolesAreRoundInTheLayerOfOutlines) {
  recorder.hole({3.0, {10.0, 10.0}});
  EXPECT_TRUE(picture().has("r=\"1.5\"")) << picture().text;
}

TEST_F(SvgTest, WhatIsNowhereIsLeftOut) {
  wire({0.0, 0.0}, {10.0, 10.0});
  wire({0.0, 0.0}, {1e300, 10.0});
  wire({std::nan(""), 0.0}, {1.0, 10.0});
  const Picture drawn = picture();
  EXPECT_FALSE(drawn.has("nan"));
  EXPECT_TRUE(drawn.has("d=\"M0 0L10 -10\"/>")) << drawn.text;
}

TEST_F(SvgTest, NothingFarAwayTakesTheRestOutOfSight) {
  wire({0.0, 0.0}, {80.0, 40.0});
  const std::string alone = picture().text;
  wire({0.0, 0.0}, {1e50, 1.0});
  recorder.circle({eagle::CircleKind::Ring, 1.0, {1e50, 20.0}, {1e50, 21.0}});
  const eagle::Corner corners[] = {{{0.0, 0.0}, 0.0}, {{1e50, 0.0}, 0.0}, {{0.0, 1e300}, 0.0}};
  recorder.area({0.0, corners});
  recorder.change(eagle::Property::Size, 1.0);
  recorder.text({{}, "A", {1e50, 0.0}});
  recorder.hole({3.0, {-1e50, 10.0}});
  EXPECT_EQ(picture().text, alone);
}

TEST_F(SvgTest, ADrawingAsLargeAsACountryIsShown) {
  wire({0.0, 0.0}, {4e9, 2e9});
  EXPECT_TRUE(picture().has("d=\"M0 0L4000000000 -2000000000\"/>")) << picture().text;
}

TEST_F(SvgTest, AnEmptyScriptGivesAPictureToo) {
  EXPECT_TRUE(picture().has("<desc>0 x 0 mm</desc>"));
  EXPECT_TRUE(picture().has("</svg>\n"));
}

}  // namespace
}  // namespace quillon::preview
