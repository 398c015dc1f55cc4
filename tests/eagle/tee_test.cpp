#include "eagle/tee.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "eagle/recorder.h"
#include "support/script_capture.h"

namespace quillon::eagle {
namespace {

/// One of each command.
void tellAll(Commands& commands) {
  const std::array<Corner, 3> corners = {{{{0, 0}, 0}, {{1, 0}, 0}, {{1, 1}, 0}}};
  commands.edit("a", ".brd");
  commands.layer(20);
  commands.wire({.from = {1, 2}, .to = {3, 4}});
  commands.arc({.start = {0, 1}, .opposite = {0, -1}, .end = {1, 0}});
  commands.circle({.centre = {1, 2}, .onCircle = {1, 3}});
  commands.area({0.1, corners});
  commands.openPolygon({0.0, 1, {0, 0}, {1, 0}});
  commands.addToPolygon({1, 1});
  commands.closePolygon();
  commands.change(Property::Size, 2.0);
  commands.change(Property::Pour, "Solid");
  commands.text({{0}, "text", {1, 2}});
  commands.part({"P", "lib", {1, 2}});
  commands.hole({0.8, {1, 2}});
  commands.comment("remark");
  commands.command("Grid mm;");
  commands.beginPart();
  commands.hole({0.8, {1, 2}});
}

TEST(Tee, TellsBothListenersEverything) {
  const testing::CaptureFormat format{.offsetX = 5.0};
  testing::ScriptCapture alone(format);
  tellAll(alone.commands);
  testing::ScriptCapture first(format);
  testing::ScriptCapture second(format);
  Tee tee(first.commands, second.commands);
  tellAll(tee);
  const std::string expected = alone.take();
  EXPECT_EQ(first.take(), expected);
  EXPECT_EQ(second.take(), expected);
}

}  // namespace
}  // namespace quillon::eagle
