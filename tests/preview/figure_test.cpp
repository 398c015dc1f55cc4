#include "preview/figure.h"

#include <gtest/gtest.h>

#include "eagle/recorder.h"

namespace quillon::preview {
namespace {

using eagle::Recorder;

struct FigureTest : ::testing::Test {
  Recorder recorder{eagle::Coordinates{base::Unit::Mm}};

  void line(geometry::Point from, geometry::Point to, double curve = 0.0, double width = 0.0) {
    eagle::Wire wire;
    wire.width = width;
    wire.from = from;
    wire.to = to;
    wire.curve = curve;
    recorder.wire(wire);
  }
  geometry::Box bounds() { return Figure(recorder.recording()).bounds(); }
};

TEST_F(FigureTest, NothingHasNoBounds) { EXPECT_TRUE(bounds().empty()); }

TEST_F(FigureTest, BoundsReachAroundArcsAndWidths) {
  line({0.0, 0.0}, {10.0, 0.0}, 180.0, 2.0);  // a half circle below
  const geometry::Box box = bounds();
  EXPECT_NEAR(box.low.y, -6.0, 1e-6);
  EXPECT_NEAR(box.high.y, 1.0, 1e-6);
  EXPECT_NEAR(box.low.x, -1.0, 1e-6);
  EXPECT_NEAR(box.high.x, 11.0, 1e-6);
}

TEST_F(FigureTest, BoundsReachAroundCirclesAreasTextsAndHoles) {
  recorder.circle({eagle::CircleKind::Ring, 2.0, {0.0, 0.0}, {5.0, 0.0}});
  EXPECT_NEAR(bounds().high.y, 6.0, 1e-6);
  const eagle::Corner corners[] = {{{0.0, 0.0}}, {{20.0, 0.0}}, {{0.0, 20.0}}, {{0.0, 0.0}}};
  recorder.area({0.0, corners});
  EXPECT_NEAR(bounds().high.x, 20.0, 1e-6);
  recorder.hole({4.0, {30.0, 0.0}});
  EXPECT_NEAR(bounds().high.x, 32.0, 1e-6);
  recorder.change(eagle::Property::Size, 10.0);
  recorder.text({{}, "L", {40.0, 40.0}});
  EXPECT_NEAR(bounds().high.y, 50.4, 1e-6);
}

TEST_F(FigureTest, WhatIsAtNoCoordinateOfADrawingIsLeftOut) {
  line({0.0, 0.0}, {1.0, 1.0});
  line({0.0, 0.0}, {1e200, 1.0});
  line({0.0, 0.0}, {std::nan(""), 1.0});
  EXPECT_EQ(bounds().high, (geometry::Point{1.0, 1.0}));
}

TEST_F(FigureTest, ShowsTheFirstSheetThatHasSomething) {
  recorder.edit("plate", ".brd");
  line({0.0, 0.0}, {3.0, 3.0});
  recorder.edit("PART_1", ".pac");
  line({0.0, 0.0}, {100.0, 1.0});
  const Figure figure(recorder.recording());
  EXPECT_EQ(figure.sheet().name, "plate");
  EXPECT_EQ(figure.bounds().high, (geometry::Point{3.0, 3.0}));
}

TEST_F(FigureTest, PartsCountWhereTheyArePlaced) {
  recorder.edit("plate", ".brd");
  recorder.edit("PART_1", ".pac");
  line({-1.0, -1.0}, {1.0, 2.0});
  recorder.edit("plate", ".brd");
  eagle::Part part;
  part.name = "PART_1";
  part.library = "plate";
  part.at = {10.0, 20.0};
  recorder.part(part);
  part.name = "UNKNOWN";
  part.at = {500.0, 500.0};
  recorder.part(part);
  EXPECT_EQ(bounds().low, (geometry::Point{9.0, 19.0}));
  EXPECT_EQ(bounds().high, (geometry::Point{11.0, 22.0}));
}

TEST_F(FigureTest, PartsCountAsTheyAreTurned) {
  recorder.edit("plate", ".brd");
  recorder.edit("PART_1", ".pac");
  line({0.0, 0.0}, {10.0, 1.0});
  recorder.edit("plate", ".brd");
  eagle::Part part;
  part.name = "PART_1";
  part.degrees = 90.0;
  recorder.part(part);
  EXPECT_EQ(bounds().low, (geometry::Point{-1.0, 0.0}));
  EXPECT_EQ(bounds().high, (geometry::Point{0.0, 10.0}));
}

}  // namespace
}  // namespace quillon::preview
