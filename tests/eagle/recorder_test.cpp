#include "eagle/recorder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace quillon::eagle {
namespace {

class RecorderTest : public ::testing::Test {
 protected:
  const RecordedLayer& layer(int number) {
    return recorder.recording().sheets.front().layers.at(number);
  }

  Recorder recorder{{.unit = base::Unit::Mm, .offsetX = 10.0, .offsetY = -1.0}};
};

TEST_F(RecorderTest, KeepsWiresByLayerWithTheOffsetsAdded) {
  recorder.layer(20);
  recorder.wire({.width = 0.5, .from = {1, 2}, .to = {3, 4}, .curve = 90});
  recorder.layer(21);
  recorder.wire({.from = {5, 6}, .to = {7, 8}});
  recorder.layer(20);
  recorder.wire({.from = {0, 0}, .to = {1, 0}});
  ASSERT_EQ(layer(20).wires.size(), 2U);
  EXPECT_EQ(layer(20).wires[0].from, (Point{11, 1}));
  EXPECT_EQ(layer(20).wires[0].to, (Point{13, 3}));
  EXPECT_EQ(layer(20).wires[0].curve, 90.0F);
  EXPECT_EQ(layer(20).wires[0].width, 0.5F);
  EXPECT_EQ(layer(20).wires[1].to, (Point{11, -1}));
  EXPECT_EQ(layer(21).wires.size(), 1U);
}

TEST_F(RecorderTest, LeavesOutLayersThatNothingIsOn) {
  recorder.layer(20);
  recorder.layer(21);
  recorder.wire({.from = {5, 6}, .to = {7, 8}});
  EXPECT_EQ(recorder.recording().sheets.front().layers.size(), 1U);
}

TEST_F(RecorderTest, TurnsArcsIntoCurvedWires) {
  recorder.layer(1);
  // A quarter circle about (0, 0): clockwise from (0, 1) to (1, 0), and the remaining three
  // quarters.
  recorder.arc({.sense = Sense::Clockwise, .start = {0, 1}, .opposite = {0, -1}, .end = {1, 0}});
  recorder.arc({.start = {0, 1}, .opposite = {0, -1}, .end = {1, 0}});
  ASSERT_EQ(layer(1).wires.size(), 2U);
  EXPECT_NEAR(layer(1).wires[0].curve, -90.0, 1e-5);
  EXPECT_NEAR(layer(1).wires[1].curve, 270.0, 1e-5);
  EXPECT_EQ(layer(1).wires[0].from, (Point{10, 0}));
  EXPECT_EQ(layer(1).wires[0].to, (Point{11, -1}));
}

TEST_F(RecorderTest, EndsAnArcOnItsCircleInTheDirectionOfItsLastPoint) {
  EXPECT_EQ(endOf({.start = {0, 1}, .opposite = {0, -1}, .end = {5, 0}}), (Point{1, 0}));
}

TEST_F(RecorderTest, ACircleOfTheWidthThatItsUserSetIsARing) {
  recorder.layer(1);
  recorder.circle({.kind = CircleKind::RingAsBefore, .centre = {1, 2}, .onCircle = {1, 5}});
  EXPECT_FALSE(layer(1).circles[0].filled);
}

TEST_F(RecorderTest, FillsCirclesWithoutWidthAlsoInheritedOnes) {
  recorder.layer(1);
  recorder.circle({.width = 0.5, .centre = {1, 2}, .onCircle = {1, 5}});
  recorder.circle({.kind = CircleKind::RingAsBefore, .centre = {1, 2}, .onCircle = {1, 5}});
  recorder.circle({.kind = CircleKind::Disc, .centre = {1, 2}, .onCircle = {1, 5}});
  recorder.circle({.kind = CircleKind::RingAsBefore, .centre = {1, 2}, .onCircle = {1, 5}});
  ASSERT_EQ(layer(1).circles.size(), 4U);
  EXPECT_EQ(layer(1).circles[0].radius, 3.0);
  EXPECT_FALSE(layer(1).circles[0].filled);
  EXPECT_FALSE(layer(1).circles[1].filled);
  EXPECT_EQ(layer(1).circles[1].width, 0.5F);
  EXPECT_TRUE(layer(1).circles[2].filled);
  EXPECT_TRUE(layer(1).circles[3].filled);
}

TEST_F(RecorderTest, KeepsAreasAndPolygonsWithoutRepeatedCorners) {
  recorder.layer(3);
  const std::array<Corner, 4> corners = {{{{0, 0}, 0}, {{1, 0}, 45}, {{1, 1}, 0}, {{0, 0}, 0}}};
  recorder.area({0.1, corners});
  recorder.openPolygon({0.0, 1, {0, 0}, {0, 0}});
  recorder.addToPolygon({2, 0});
  recorder.addToPolygon({2, 2});
  recorder.closePolygon();
  ASSERT_EQ(layer(3).areas.size(), 2U);
  EXPECT_EQ(layer(3).areas[0].count, 4U);
  EXPECT_EQ(layer(3).corners[1].curve, 45.0F);
  EXPECT_EQ(layer(3).areas[1].first, 4U);
  EXPECT_EQ(layer(3).areas[1].count, 3U);
  EXPECT_EQ(layer(3).corners[6].at, (Point{12, 1}));
}

TEST_F(RecorderTest, KeepsTextsWithTheSizeThatWasSetBefore) {
  recorder.layer(21);
  recorder.change(Property::Size, 1.5);
  recorder.text({{90}, "it's", {1, 2}});
  ASSERT_EQ(layer(21).texts.size(), 1U);
  EXPECT_EQ(layer(21).texts[0].size, 1.5);
  EXPECT_EQ(layer(21).texts[0].degrees, 90);
  EXPECT_EQ(layer(21).texts[0].content, "it's");
  EXPECT_EQ(layer(21).texts[0].at, (Point{11, 1}));
}

TEST_F(RecorderTest, PartsWithCoordinatesOfTheirOwnHaveNoOffsets) {
  recorder.edit("DOOR_1", ".pac");
  recorder.beginPart();
  recorder.hole({0.8, {3, 4}});
  recorder.edit("board", ".brd");
  recorder.part({"DOOR_1", "board", {1, 2}, 90.0, true});
  const Recording recording = recorder.take();
  EXPECT_EQ(recording.sheets.at(1).holes.at(0).centre, (Point{3, 4}));
  EXPECT_EQ(recording.sheets.at(2).parts.at(0).at, (Point{11, 1}));
  EXPECT_EQ(recording.sheets.at(2).parts.at(0).degrees, 90.0);
  EXPECT_TRUE(recording.sheets.at(2).parts.at(0).spin);
}

TEST_F(RecorderTest, KeepsLibraryPartsApartFromTheDrawing) {
  recorder.edit("board", ".brd");
  recorder.edit("DOOR_1", ".pac");
  recorder.layer(1);
  recorder.wire({.from = {0, 0}, .to = {1, 0}});
  recorder.edit("board", ".brd");
  recorder.part({"DOOR_1", "board", {1, 2}});
  recorder.hole({0.8, {3, 4}});
  const Recording recording = recorder.take();
  ASSERT_EQ(recording.sheets.size(), 3U);
  EXPECT_EQ(recording.sheets[1].name, "board");
  EXPECT_EQ(recording.sheets[1].parts.at(0).name, "DOOR_1");
  EXPECT_EQ(recording.sheets[1].parts.at(0).at, (Point{11, 1}));
  EXPECT_EQ(recording.sheets[1].holes.at(0).drill, 0.8);
  EXPECT_TRUE(recording.sheets[1].layers.empty());
  EXPECT_EQ(recording.sheets[2].name, "DOOR_1");
  EXPECT_EQ(recording.sheets[2].layers.at(1).wires.size(), 1U);
}

}  // namespace
}  // namespace quillon::eagle
