#include "app/console/console.h"

#include <gtest/gtest.h>

namespace quillon::console {
namespace {

/// What a console prints to standard error.
template <typename Use>
std::string shownBy(bool showsProgress, const Use& use) {
  ::testing::internal::CaptureStderr();
  {
    Console console(showsProgress);
    use(console);
  }
  return ::testing::internal::GetCapturedStderr();
}

TEST(Console, DrawsABarOfThePercentage) {
  EXPECT_EQ(shownBy(true, [](Console& console) { console.showProgress(50, "a.dxf"); }),
            "\r[###############...............] 50 % a.dxf\x1b[K\r\x1b[K");
}

TEST(Console, DrawsABarThatHasNotChangedOnce) {
  const std::string shown = shownBy(true, [](Console& console) {
    console.showProgress(100, "a");
    console.showProgress(100, "a");
  });
  EXPECT_EQ(shown, "\r[##############################] 100 % a\x1b[K\r\x1b[K");
}

TEST(Console, TakesTheBarAwayBeforeItPrintsLines) {
  const std::string shown = shownBy(true, [](Console& console) {
    console.showProgress(0, "a");
    console.printError("line\n");
  });
  EXPECT_EQ(shown, "\r[..............................] 0 % a\x1b[K\r\x1b[Kline\n");
}

TEST(Console, ShowsNoBarWhereThereIsNone) {
  EXPECT_EQ(shownBy(false, [](Console& console) { console.showProgress(50, "a.dxf"); }), "");
}

TEST(Console, PrintsNothingForNoLines) {
  EXPECT_EQ(shownBy(false, [](Console& console) { console.printError(""); }), "");
}

}  // namespace
}  // namespace quillon::console
