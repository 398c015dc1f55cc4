#include "windows/picture_bar.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace quillon::windows {
namespace {

class PictureBarTest : public ::testing::Test {
 protected:
  PictureBarTest() {
    for (auto* const button : {&result, &drawing}) bar.addLeft(button);
    for (auto* const button : {&fit, &print}) bar.addRight(button);
  }

  void showAt(int width) {
    bar.resize(width, 100);
    bar.show();
    QCoreApplication::processEvents();
  }
  static int gap(const QWidget& left, const QWidget& right) {
    return right.geometry().left() - left.geometry().right();
  }

  PictureBar bar{nullptr};
  QPushButton result{"Result"};
  QPushButton drawing{"Drawing"};
  QPushButton fit{"Fit"};
  QPushButton print{"Print..."};
};

TEST_F(PictureBarTest, GroupsAreAtBothEndsOfARow) {
  showAt(1000);
  EXPECT_EQ(result.y(), print.y());
  EXPECT_EQ(result.x(), 0);
  EXPECT_EQ(print.geometry().right(), 999);
  EXPECT_LT(gap(result, drawing), 20);
}

TEST_F(PictureBarTest, ButtonsStayTogetherWhereGroupsNeedTwoRows) {
  const int least = bar.minimumSizeHint().width();
  showAt(least + 60);
  EXPECT_LT(result.geometry().bottom(), fit.y());
  EXPECT_EQ(result.x(), 0);
  EXPECT_EQ(fit.x(), 0);
  EXPECT_LT(gap(result, drawing), 20);
  EXPECT_LT(gap(fit, print), 20);
}

}  // namespace
}  // namespace quillon::windows
