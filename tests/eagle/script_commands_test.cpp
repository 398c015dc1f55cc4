#include "eagle/script_commands.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

#include "base/run_time_error.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::eagle {
namespace {

using testing::kRangeNote;
using testing::ScriptCapture;

class ScriptCommandsTest : public ::testing::Test {
 protected:
  ScriptCapture capture;
  Commands& commands = capture.commands;
};

TEST_F(ScriptCommandsTest, WriteALayerLineThatCounts) {
  commands.layer(20);
  EXPECT_EQ(capture.take(), "Layer  20 ;\n");
  EXPECT_EQ(capture.script.commandCount(), 1U);
}

TEST_F(ScriptCommandsTest, WriteAWireWithItsWidth) {
  commands.wire({.width = 0.25, .from = {1, 2}, .to = {3, 4}});
  EXPECT_EQ(capture.take(), "Wire 0.2500000 (1.0000000 2.0000000) (3.0000000 4.0000000);\n");
  EXPECT_EQ(capture.script.commandCount(), 1U);
}

TEST_F(ScriptCommandsTest, WriteTheCurveOfAWireWithItsSign) {
  commands.wire({.from = {1, 2}, .to = {3, 4}, .curve = 90});
  commands.wire({.from = {1, 2}, .to = {3, 4}, .curve = -22.5});
  EXPECT_EQ(capture.take(),
            "Wire 0.0000000 (1.0000000 2.0000000) +90.0000000 (3.0000000 4.0000000);\n"
            "Wire 0.0000000 (1.0000000 2.0000000) -22.5000000 (3.0000000 4.0000000);\n");
}

TEST_F(ScriptCommandsTest, SpellTheWidthOfWiresForArcsOtherwise) {
  commands.wire({.from = {1, 2}, .to = {3, 4}, .kind = WireKind::FlatArc});
  commands.wire({.from = {1, 2}, .to = {3, 4}, .kind = WireKind::FarArc});
  EXPECT_EQ(capture.take(),
            "Wire  0.00 (1.0000000 2.0000000) (3.0000000 4.0000000);\n"
            "Wire 0.00 (1.0000000 2.0000000) (3.0000000 4.0000000);\n");
}

TEST_F(ScriptCommandsTest, WriteAnArcByItsDiameter) {
  commands.arc({.start = {0, 1}, .opposite = {0, -1}, .end = {1, 0}});
  commands.arc({.sense = Sense::Clockwise,
                .width = 0.5,
                .start = {0, 1},
                .opposite = {0, -1},
                .end = {1, 0}});
  const std::string points = "(0.0000000 1.0000000) (0.0000000 -1.0000000) (1.0000000 0.0000000)";
  EXPECT_EQ(capture.take(), "Arc CCW 0.00 " + points + ";\nArc CW 0.5000000 " + points + ";\n");
}

TEST_F(ScriptCommandsTest, WriteCirclesAsRingsAndDiscs) {
  commands.circle({.width = 0.5, .centre = {1, 2}, .onCircle = {1, 3}});
  commands.circle({.kind = CircleKind::RingAsBefore, .centre = {1, 2}, .onCircle = {1, 3}});
  commands.circle({.kind = CircleKind::Disc, .centre = {1, 2}, .onCircle = {1, 3}});
  const std::string points = "(1.0000000 2.0000000) (1.0000000 3.0000000);\n";
  EXPECT_EQ(capture.take(),
            "Circle 0.5000000 " + points + "Circle " + points + "Circle 0.0 " + points);
}

TEST_F(ScriptCommandsTest, WriteAnAreaWithOneBlankAfterItsFirstCorner) {
  const std::array<Corner, 3> corners = {{{{0, 0}, 0}, {{1, 0}, 90}, {{0, 0}, 0}}};
  commands.area({0.1, corners});
  EXPECT_EQ(capture.take(),
            "Polygon 0.1000000 (0.0000000 0.0000000) (1.0000000 0.0000000)+90.0000000 "
            "(0.0000000 0.0000000);\n");
  EXPECT_EQ(capture.script.commandCount(), 1U);
}

TEST_F(ScriptCommandsTest, WriteTextsWithTheirApostrophesDoubled) {
  commands.text({{90}, "it's 'so'", {1, 2}});
  commands.text({{0}, "", {1, 2}});
  EXPECT_EQ(capture.take(),
            "Text R90 'it''s ''so''' (1.0000000 2.0000000);\n"
            "Text R0 '' (1.0000000 2.0000000);\n");
}

TEST_F(ScriptCommandsTest, WritePartsHolesChangesAndRemarks) {
  commands.part({"DOOR_1", "house", {1, 2}});
  commands.hole({3.2, {1, 2}});
  commands.change(Property::Size, 1.5);
  commands.change(Property::Pour, "Solid");
  commands.edit("house", ".brd");
  commands.comment("a remark");
  commands.command("Grid mm;");
  EXPECT_EQ(capture.take(),
            "Add DOOR_1@house R0 (1.0000000 2.0000000);\n"
            "Hole 3.2000000 (1.0000000 2.0000000);\n"
            "Change Size 1.5000000;\n"
            "Change Pour Solid;\n"
            "Edit 'house.brd';\n"
            "# a remark\n"
            "Grid mm;\n");
  EXPECT_EQ(capture.script.commandCount(), 7U);
}

TEST_F(ScriptCommandsTest, TurnPartsByTenthsAndQuoteNamesWhereThatIsWanted) {
  commands.part({"A_1", "b", {1, 2}, 33.3, true, true});
  commands.part({"A_1", "my b", {1, 2}, 90.0, false, true});
  commands.part({"A_1", "my b", {1, 2}});
  EXPECT_EQ(capture.take(),
            "Add A_1@b SR33.3 (1.0000000 2.0000000);\n"
            "Add 'A_1@my b' R90 (1.0000000 2.0000000);\n"
            "Add A_1@my b R0 (1.0000000 2.0000000);\n");
}

TEST_F(ScriptCommandsTest, AddTheRangeNoteAfterACommandOutOfRange) {
  commands.wire({.from = {900, 2}, .to = {3, 4}});
  EXPECT_TRUE(capture.take().ends_with(";\n" + std::string(kRangeNote)));
  EXPECT_EQ(capture.script.commandCount(), 2U);
}

TEST_F(ScriptCommandsTest, RefuseNumbersThatAreNotFinite) {
  const double bad = std::numeric_limits<double>::infinity();
  EXPECT_THROW(commands.wire({.width = bad}), base::RunTimeError);
  EXPECT_THROW(commands.change(Property::Size, bad), base::RunTimeError);
  EXPECT_THROW(commands.hole({bad, {}}), base::RunTimeError);
}

}  // namespace
}  // namespace quillon::eagle
