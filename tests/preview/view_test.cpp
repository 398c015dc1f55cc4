#include "preview/view.h"

#include <gtest/gtest.h>

namespace quillon::preview {
namespace {

TEST(View, HasAMarginAroundTheDrawingAndRoomForNotesBelow) {
  const View view = viewOf({{0.0, 0.0}, {100.0, 50.0}});
  EXPECT_DOUBLE_EQ(view.frame.low.x, -4.0);
  EXPECT_DOUBLE_EQ(view.frame.high.x, 104.0);
  EXPECT_DOUBLE_EQ(view.frame.high.y, 54.0);
  EXPECT_LT(view.frame.low.y, -4.0 - view.noteHeight);
  EXPECT_DOUBLE_EQ(view.hairline, 0.125);
}

TEST(View, ATallDrawingLeavesRoomForItsNotes) {
  const View view = viewOf({{0.0, 0.0}, {1.0, 100.0}});
  EXPECT_DOUBLE_EQ(view.width(), 60.0);
  EXPECT_DOUBLE_EQ((view.frame.low.x + view.frame.high.x) / 2.0, 0.5);
}

TEST(View, NothingAndADotHaveAPictureToo) {
  EXPECT_GT(viewOf({}).width(), 0.0);
  EXPECT_GT(viewOf({}).height(), 0.0);
  EXPECT_GT(viewOf({{5.0, 5.0}, {5.0, 5.0}}).hairline, 0.0);
}

TEST(View, ScaleBarsHaveRoundLengths) {
  EXPECT_DOUBLE_EQ(scaleBarLength(60.0), 10.0);
  EXPECT_DOUBLE_EQ(scaleBarLength(100.0), 10.0);
  EXPECT_DOUBLE_EQ(scaleBarLength(150.0), 20.0);
  EXPECT_DOUBLE_EQ(scaleBarLength(400.0), 50.0);
  EXPECT_DOUBLE_EQ(scaleBarLength(0.04), 0.005);
}

}  // namespace
}  // namespace quillon::preview
