#include "windows/dark_style.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QStyle>

namespace quillon::windows {
namespace {

/// Gives the application back the colours and the style that it had.
class DarkStyleTest : public ::testing::Test {
 protected:
  DarkStyleTest() { QApplication::setStyle("windows"); }
  ~DarkStyleTest() override {
    QApplication::setPalette(palette_);
    QApplication::setStyle(style_);
  }

  static void setColours(const QColor& background) {
    QPalette palette(background, background);
    palette.setColor(QPalette::Base, background);
    QApplication::setPalette(palette);
    QApplication::processEvents();
  }
  static QString style() { return QApplication::style()->name().toLower(); }

  const QPalette palette_ = QGuiApplication::palette();
  const QString style_ = QApplication::style()->name();
};

TEST_F(DarkStyleTest, FollowsTheColoursOfTheApplication) {
  setColours(Qt::white);
  const DarkStyle follower;
  EXPECT_EQ(style(), "windows");
  setColours(QColor(30, 30, 30));
  EXPECT_EQ(style(), "fusion");
  EXPECT_EQ(QGuiApplication::palette().color(QPalette::Base), QColor(30, 30, 30));
  setColours(Qt::white);
  EXPECT_EQ(style(), "windows");
  EXPECT_EQ(QGuiApplication::palette().color(QPalette::Base), QColor(Qt::white));
}

TEST_F(DarkStyleTest, LinksAndBoxesCanBeTold) {
  setColours(Qt::white);
  const DarkStyle follower;
  // As Qt has them on a system with dark colours.
  QPalette boxes;
  boxes.setColor(QPalette::Base, Qt::blue);
  QApplication::setPalette(boxes, "QCheckBox");
  setColours(QColor(30, 30, 30));
  EXPECT_GT(QGuiApplication::palette().color(QPalette::Link).lightness(), 128);
  EXPECT_GT(QGuiApplication::palette().color(QPalette::LinkVisited).lightness(), 128);
  const QCheckBox box;
  box.ensurePolished();  // as when it is shown
  EXPECT_EQ(box.palette().color(QPalette::Base), QColor(80, 80, 80));
  setColours(Qt::white);
  EXPECT_LE(QGuiApplication::palette().color(QPalette::Link).lightness(), 128);
  EXPECT_EQ(box.palette().color(QPalette::Base), QColor(Qt::white));
}

TEST_F(DarkStyleTest, LooksAtTheColoursThatThereAreAtFirst) {
  setColours(QColor(30, 30, 30));
  const DarkStyle follower;
  EXPECT_EQ(style(), "fusion");
}

}  // namespace
}  // namespace quillon::windows
