#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QTest>
#include <cmath>
#include <memory>

#include "eagle/recorder.h"
#include "preview/scene.h"
#include "support/timing.h"
#include "windows/picture_view.h"

namespace quillon::windows {

/// A script to be shown.
class Sheet {
 public:
  Sheet& layer(int number) { return recorder_.layer(number), *this; }
  Sheet& line(geometry::Point from, geometry::Point to, double width = 0.0, double curve = 0.0) {
    eagle::Wire wire;
    wire.from = from;
    wire.to = to;
    wire.width = width;
    wire.curve = curve;
    recorder_.wire(wire);
    return *this;
  }
  Sheet& square(geometry::Point low, double side) {
    const geometry::Point high{low.x + side, low.y + side};
    const eagle::Corner corners[] = {{low}, {{high.x, low.y}}, {high}, {{low.x, high.y}}, {low}};
    recorder_.area({0.0, corners});
    return *this;
  }
  std::shared_ptr<const preview::Scene> scene() const {
    return preview::makeScene(recorder_.recording());
  }

 private:
  eagle::Recorder recorder_{eagle::Coordinates{base::Unit::Mm}};
};

/// A picture in a window of 400 by 300 pixels.
class PictureTest : public ::testing::Test {
 protected:
  PictureTest() {
    view.resize(400, 300);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }

  void show(const Sheet& sheet) {
    view.setScenes({sheet.scene(), nullptr, nullptr});
    waitUntilSharp();
  }
  void waitUntilSharp() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return view.isSharp(); }, 10000 * testing::patience()));
  }

  /// What is seen now at a point of the drawing.
  QColor colourAt(QPointF millimetres) { return colourIn(view.grab().toImage(), millimetres); }
  QColor colourIn(const QImage& image, QPointF millimetres) const {
    const QPointF pixel = view.pixelOf(millimetres) * image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(std::floor(pixel.x())),
                            static_cast<int>(std::floor(pixel.y())));
  }
  QColor background() const { return toQt(preview::backgroundColour(view.theme())); }
  QColor layerColour(int layer) const { return toQt(preview::colourOfLayer(layer, view.theme())); }
  /// Pixels of a colour in what is seen now, without the frame for the focus.
  int count(const QColor& colour) {
    constexpr int kFrame = 4;
    const QImage image = view.grab().toImage();
    int found = 0;
    for (int y = kFrame; y < image.height() - kFrame; ++y) {
      for (int x = kFrame; x < image.width() - kFrame; ++x)
        found += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return found;
  }

  QPoint pixel(QPointF millimetres) const { return view.pixelOf(millimetres).toPoint(); }
  static void wheel(QWidget& widget, QPointF at, int angle) {
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  }
  void drag(Qt::MouseButton button, QPoint from, QPoint to) {
    QTest::mousePress(&view, button, {}, from);
    mouseMove((from + to) / 2, button);
    mouseMove(to, button);
    QTest::mouseRelease(&view, button, {}, to);
  }
  /// QTest's own move has no buttons.
  void mouseMove(QPointF at, Qt::MouseButtons buttons = Qt::NoButton) {
    QMouseEvent event(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
  }

  PictureView view;
};

inline void expectNear(QPointF point, QPointF expected, double distance) {
  EXPECT_NEAR(point.x(), expected.x(), distance);
  EXPECT_NEAR(point.y(), expected.y(), distance);
}

}  // namespace quillon::windows
