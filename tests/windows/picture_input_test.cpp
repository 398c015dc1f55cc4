// What a user does with a picture.
#include <QMouseEvent>
#include <QWheelEvent>

#include "preview/scene_colours.h"
#include "windows/picture_fixture.h"

namespace quillon::windows {
namespace {

class PictureInputTest : public PictureTest {
 protected:
  PictureInputTest() {
    Sheet sheet;
    sheet.layer(20).line({0.0, 0.0}, {100.0, 0.0}).line({100.0, 0.0}, {100.0, 60.0});
    sheet.line({100.0, 60.0}, {0.0, 0.0});
    show(sheet);
  }
  void press(Qt::Key key) { QTest::keyClick(&view, key); }
};

TEST_F(PictureInputTest, TheWheelZoomsAboutThePointer) {
  const QPointF at(120.0, 80.0);
  const QPointF place = view.millimetresOf(at);
  const double before = view.scale();
  wheel(view, at, 120);
  EXPECT_GT(view.scale(), 1.1 * before);
  expectNear(view.millimetresOf(at), place, 1.0 / before);
  wheel(view, at, -120);
  EXPECT_EQ(view.scale(), before);
}

TEST_F(PictureInputTest, PartsOfANotchAddUp) {
  const double before = view.scale();
  for (int i = 0; i < 120; ++i) wheel(view, {200.0, 150.0}, 1);
  EXPECT_NEAR(view.scale(), before * std::exp2(0.25), 1e-3 * before);
}

TEST_F(PictureInputTest, KeysZoomPanAndShowEverything) {
  const double fitting = view.scale();
  const QPointF middle = view.millimetresOf({200.0, 150.0});
  press(Qt::Key_Plus);
  EXPECT_GT(view.scale(), fitting);
  expectNear(view.millimetresOf({200.0, 150.0}), middle, 1.0 / fitting);
  press(Qt::Key_Minus);
  EXPECT_EQ(view.scale(), fitting);
  press(Qt::Key_Right);
  EXPECT_GT(view.millimetresOf({200.0, 150.0}).x(), middle.x() + 5.0);
  press(Qt::Key_Up);
  EXPECT_GT(view.millimetresOf({200.0, 150.0}).y(), middle.y() + 5.0);
  press(Qt::Key_Left);
  press(Qt::Key_Down);
  expectNear(view.millimetresOf({200.0, 150.0}), middle, 1e-9);
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_0}) {
    press(Qt::Key_Plus);
    press(Qt::Key_Right);
    press(key);
    EXPECT_EQ(view.scale(), fitting);
    expectNear(view.millimetresOf({200.0, 150.0}), middle, 1e-9);
  }
}

TEST_F(PictureInputTest, DragsWithTheLeftOrMiddleButtonPan) {
  int clicks = 0;
  view.onMarkClicked = [&](int) { ++clicks; };
  view.setMarks({view.millimetresOf({100.0, 100.0})});
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
    const QPointF place = view.millimetresOf({100.0, 100.0});
    drag(button, {100, 100}, {160, 130});
    expectNear(view.millimetresOf({160.0, 130.0}), place, 1e-9);
  }
  const QPointF place = view.millimetresOf({100.0, 100.0});
  drag(Qt::RightButton, {100, 100}, {160, 130});
  expectNear(view.millimetresOf({100.0, 100.0}), place, 1e-9);
  EXPECT_EQ(clicks, 0);
}

TEST_F(PictureInputTest, DraggingIsFluidWhereEverythingWasPainted) {
  view.resize(1200, 900);
  view.zoomBy(2.0, {600.0, 450.0});
  QTest::mousePress(&view, Qt::MiddleButton, {}, {600, 450});
  const auto move = [&](int to) {
    mouseMove({600.0 + to, 450.0 + to}, Qt::MiddleButton);
    view.repaint();
  };
  for (const int to : {30, 0}) {
    move(to);
    waitUntilSharp();
  }
  constexpr int kFrames = 60;
  const double seconds = testing::leastSeconds([&] {
    for (int i = 0; i < kFrames; ++i) move(i < kFrames / 2 ? i : kFrames - i);
  });
  EXPECT_TRUE(view.isSharp());
  EXPECT_LT(seconds / kFrames, 0.05 * testing::patience());
}

TEST_F(PictureInputTest, ADoubleClickShowsEverything) {
  const double fitting = view.scale();
  view.zoomBy(5.0, {10.0, 10.0});
  int clicks = 0;
  view.onMarkClicked = [&](int) { ++clicks; };
  view.setMarks({view.millimetresOf({50.0, 50.0})});
  QTest::mouseClick(&view, Qt::LeftButton, {}, {50, 50});
  QTest::mouseDClick(&view, Qt::LeftButton, {}, {50, 50});
  QTest::mouseRelease(&view, Qt::LeftButton, {}, {50, 50});
  EXPECT_EQ(view.scale(), fitting);
  EXPECT_EQ(clicks, 1);  // the first one of both
}

TEST_F(PictureInputTest, ThePointerTellsItsPlaceUntilItLeaves) {
  QPointF at;
  bool hasLeft = false;
  view.onPointerMoved = [&](QPointF mm) { at = mm; };
  view.onPointerLeft = [&] { hasLeft = true; };
  mouseMove(view.pixelOf({70.0, 20.0}));
  expectNear(at, {70.0, 20.0}, 1e-9);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&view, &leave);
  EXPECT_TRUE(hasLeft);
}

TEST_F(PictureInputTest, APlaceIsShownLargeWithARingUntilTheNextClick) {
  const double fitting = view.scale();
  view.showPlace({100.0, 60.0});
  EXPECT_NEAR(view.scale(), 10.0 * fitting, 0.01 * fitting);
  expectNear(view.pixelOf({100.0, 60.0}), {200.0, 150.0}, 1.0);
  const QColor ring = toQt(preview::markColour(view.theme()));
  EXPECT_GT(count(ring), 50);
  QTest::mouseClick(&view, Qt::LeftButton, {}, {30, 30});
  EXPECT_EQ(count(ring), 0);
}

TEST_F(PictureInputTest, MeasuringTakesTwoClicksOnEnds) {
  QPointF from;
  QPointF to;
  int measured = 0;
  view.onMeasured = [&](QPointF a, QPointF b) {
    from = a;
    to = b;
    ++measured;
  };
  int clicks = 0;
  view.onMarkClicked = [&](int) { ++clicks; };
  view.setMarks({{0.0, 0.0}});
  view.setMeasuring(true);
  QTest::mouseClick(&view, Qt::LeftButton, {}, pixel({0.0, 0.0}) + QPoint(5, 3));
  mouseMove(view.pixelOf({50.0, 40.0}));
  EXPECT_EQ(measured, 0);
  const QColor mark = toQt(preview::markColour(view.theme()));
  EXPECT_GT(count(mark), 50);
  QTest::mouseClick(&view, Qt::LeftButton, {}, pixel({100.0, 60.0}) + QPoint(-4, 4));
  EXPECT_EQ(measured, 1);
  EXPECT_EQ(from, QPointF(0.0, 0.0));
  EXPECT_EQ(to, QPointF(100.0, 60.0));
  EXPECT_EQ(clicks, 0);
  // Away from all ends, the place itself counts.
  QTest::mouseClick(&view, Qt::LeftButton, {}, pixel({30.0, 50.0}));
  QTest::mouseClick(&view, Qt::LeftButton, {}, pixel({100.0, 0.0}));
  EXPECT_EQ(measured, 2);
  expectNear(from, {30.0, 50.0}, 1.0 / view.scale());
}

TEST_F(PictureInputTest, EscapeEndsMeasuring) {
  int ended = 0;
  view.onMeasuringEnded = [&] { ++ended; };
  press(Qt::Key_Escape);
  EXPECT_EQ(ended, 0);
  view.setMeasuring(true);
  press(Qt::Key_Escape);
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(view.isMeasuring());
}

TEST_F(PictureInputTest, KeysMeasureFromTheMiddle) {
  int measured = 0;
  view.onMeasured = [&](QPointF from, QPointF to) {
    ++measured;
    EXPECT_GT(to.x() - from.x(), 5.0);
  };
  view.setMeasuring(true);
  press(Qt::Key_Space);
  press(Qt::Key_Right);
  press(Qt::Key_Return);
  EXPECT_EQ(measured, 1);
}

TEST_F(PictureInputTest, MarksAreClickedOrVisitedByKeys) {
  std::vector<int> visited;
  view.onMarkClicked = [&](int index) { visited.push_back(index); };
  view.setMarks({{20.0, 40.0}, {70.0, 10.0}});
  EXPECT_GT(count(toQt(preview::warningColour(view.theme()))), 20);
  QTest::mouseClick(&view, Qt::LeftButton, {}, pixel({70.0, 10.0}) + QPoint(5, -5));
  QTest::mouseClick(&view, Qt::LeftButton, {}, pixel({20.0, 40.0}));
  QTest::mouseClick(&view, Qt::LeftButton, {}, pixel({45.0, 25.0}) + QPoint(0, -12));
  EXPECT_EQ(visited, (std::vector<int>{1, 0}));
  press(Qt::Key_PageDown);
  EXPECT_EQ(visited.back(), 1);
  expectNear(view.pixelOf({70.0, 10.0}), {200.0, 150.0}, 1.0);
  press(Qt::Key_PageDown);
  press(Qt::Key_PageUp);
  EXPECT_EQ(visited, (std::vector<int>{1, 0, 1, 0, 1}));
}

TEST_F(PictureInputTest, OtherKeysBelongToTheWindow) {
  QKeyEvent key(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
  key.ignore();
  QApplication::sendEvent(&view, &key);
  EXPECT_FALSE(key.isAccepted());
  const double before = view.scale();
  QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(view.scale(), before);
}

TEST_F(PictureInputTest, LackOfMemoryDoesNotPassThroughQt) {
  view.onPointerMoved = [](QPointF) { throw std::bad_alloc(); };
  EXPECT_NO_THROW(mouseMove({50.0, 50.0}));
}

TEST(PictureNumbers, LengthsHaveTheUnitInWhichTheyAreShort) {
  EXPECT_EQ(lengthText(0.5).toStdString(), "0.5 mm");
  EXPECT_EQ(lengthText(2000.0).toStdString(), "2000 mm");
  EXPECT_EQ(lengthText(20000.0).toStdString(), "20 m");
  EXPECT_EQ(lengthText(2e8).toStdString(), "200 km");
  EXPECT_EQ(lengthText(0.002).toStdString(), "2 \u00B5m");
  EXPECT_EQ(lengthText(5e-6).toStdString(), "5 nm");
  EXPECT_EQ(measureText({1.0, 2.0}, {4.0, -2.0}).toStdString(),
            "5.0 mm (196.9 mil)\n\u0394x 3.0\n\u0394y -4.0");
}

}  // namespace
}  // namespace quillon::windows
