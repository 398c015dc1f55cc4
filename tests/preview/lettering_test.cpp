#include "preview/lettering.h"

#include <gtest/gtest.h>

#include "geometry/box.h"

namespace quillon::preview {
namespace {

using geometry::Box;
using geometry::Point;

/// The box of "LL" at (10 20), 6 high: from its left edge to the end of the second foot.
Box boxOf(const std::string& align, double degrees = 0.0, bool mirrored = false,
          bool spin = false) {
  eagle::RecordedText text;
  text.at = {10.0, 20.0};
  text.size = 6.0;
  text.align = align;
  text.degrees = degrees;
  text.mirrored = mirrored;
  text.spin = spin;
  Box box;
  for (const Point point : letteringOf(text, "LL").points) box.add(point);
  return box;
}

constexpr double kWidth = 6.0 * kLetterPitch + 4.0;

void expectBox(const Box& box, double left, double bottom, double right, double top) {
  EXPECT_NEAR(box.low.x, left, 1e-9);
  EXPECT_NEAR(box.low.y, bottom, 1e-9);
  EXPECT_NEAR(box.high.x, right, 1e-9);
  EXPECT_NEAR(box.high.y, top, 1e-9);
}

TEST(Lettering, StandsOnItsPointWithoutAlignment) {
  expectBox(boxOf(""), 10.0, 20.0, 10.0 + kWidth, 26.0);
  expectBox(boxOf("Bottom Left"), 10.0, 20.0, 10.0 + kWidth, 26.0);
}

TEST(Lettering, IsOnTheSideOfThePointThatItsAlignmentSays) {
  expectBox(boxOf("Top Right"), 10.0 - kWidth, 14.0, 10.0, 20.0);
  expectBox(boxOf("Bottom Center"), 10.0 - kWidth / 2, 20.0, 10.0 + kWidth / 2, 26.0);
  expectBox(boxOf("Center Left"), 10.0, 17.0, 10.0 + kWidth, 23.0);
  expectBox(boxOf("Center"), 10.0 - kWidth / 2, 17.0, 10.0 + kWidth / 2, 23.0);
}

TEST(Lettering, Turns) { expectBox(boxOf("", 90.0), 4.0, 20.0, 10.0, 20.0 + kWidth); }

/// The corner of the first "L", which has its strokes on the left and below.
Point firstPoint(double degrees, bool spin) {
  eagle::RecordedText text;
  text.size = 6.0;
  text.degrees = degrees;
  text.spin = spin;
  return letteringOf(text, "L").points[1];
}

TEST(Lettering, StaysReadableInTheBoxThatItTakes) {
  expectBox(boxOf("", 180.0), 10.0 - kWidth, 14.0, 10.0, 20.0);
  EXPECT_NEAR(firstPoint(180.0, false).x, -4.0, 1e-9);
  EXPECT_NEAR(firstPoint(180.0, false).y, -6.0, 1e-9);
  EXPECT_NEAR(firstPoint(90.0, false).x, 0.0, 1e-9);
}

TEST(Lettering, SpinsUpsideDown) {
  expectBox(boxOf("", 180.0, false, true), 10.0 - kWidth, 14.0, 10.0, 20.0);
  EXPECT_NEAR(firstPoint(180.0, true).x, 0.0, 1e-9);
  EXPECT_NEAR(firstPoint(180.0, true).y, 0.0, 1e-9);
}

TEST(Lettering, IsMirroredAboutItsPointAfterTheTurn) {
  expectBox(boxOf("", 0.0, true), 10.0 - kWidth, 20.0, 10.0, 26.0);
  expectBox(boxOf("", 90.0, true), 10.0, 20.0, 16.0, 20.0 + kWidth);
}

}  // namespace
}  // namespace quillon::preview
