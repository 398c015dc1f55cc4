#pragma once

#include <QImage>
#include <QPointF>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "windows/picture_content.h"
#include "windows/picture_notes.h"
#include "windows/picture_tiles.h"
#include "windows/picture_viewport.h"

class QGestureEvent;

namespace quillon::windows {

/// Shows what a script draws, the drawing that it was made of, or how both differ. Its own painting
/// from tiles stays fluid with a million segments. It has no words, so that there is nothing to
/// translate. Lengths are millimetres, with y upwards; pixels are those of the widget.
///
/// The wheel zooms about the pointer, as do + and - about the middle; a drag with the left or
/// middle button and the arrow keys pan; a double click, Home and 0 show everything. Return and
/// Space click in the middle; Page Up and Page Down go from mark to mark.
class PictureView : public QWidget {
 public:
  using Scenes = PictureScenes;
  using Mode = PictureMode;

  explicit PictureView(QWidget* parent = nullptr);

  /// Shows all of it, unless the user chose another view of earlier scenes.
  void setScenes(Scenes scenes);
  const Scenes& scenes() const { return content_.scenes; }
  void setMode(Mode mode);
  Mode mode() const { return content_.style.mode; }
  void setTheme(preview::Theme theme);
  preview::Theme theme() const { return content_.style.theme; }
  /// Of the result; all layers are visible at first.
  void setLayerVisible(int layer, bool isVisible);
  bool isLayerVisible(int layer) const { return !content_.isHidden(layer); }

  void fit();
  /// Above 1 to see less, larger; the point at the pixel stays there.
  void zoomBy(double factor, QPointF pixel);
  /// Moves there, zooms in to about a tenth of the drawing, and marks the place until the next
  /// click. A place that is not finite changes nothing.
  void showPlace(QPointF millimetres);
  void clearMark();
  /// Rings in a warning colour.
  void setMarks(std::vector<QPointF> millimetres);

  /// While measuring, clicks set the ends of a distance. Esc ends it.
  void setMeasuring(bool isMeasuring);
  bool isMeasuring() const { return isMeasuring_; }
  /// True from the second click of a distance to the next one.
  bool isMeasured() const { return isMeasuring_ && measure_.isDone; }

  QPointF pixelOf(QPointF millimetres) const;
  QPointF millimetresOf(QPointF pixel) const;
  /// Pixels of a millimetre.
  double scale() const;
  /// True when all that is in sight was painted for the present view.
  bool isSharp() const { return tiles_.isComplete(); }

  /// A new picture of what is in sight, of `size` times `scale` pixels, whose lines are `scale`
  /// times as wide; null where memory is lacking.
  QImage toImage(QSize size, double scale) const;
  /// Draws what is in sight into a rectangle of the painter, for printing, in the colours of a
  /// theme.
  void paintTo(QPainter& painter, QRectF target, preview::Theme theme) const;

  std::function<void(QPointF)> onPointerMoved;  ///< millimetres
  std::function<void()> onPointerLeft;
  std::function<void(int)> onMarkClicked;
  std::function<void(QPointF, QPointF)> onMeasured;
  std::function<void()> onMeasuringEnded;  ///< by Esc

  QSize sizeHint() const override { return {640, 480}; }
  QSize minimumSizeHint() const override { return {120, 90}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  /// After a change of what is shown; what was painted serves in the meantime if `keep`.
  void restyle(bool keep);
  /// After a change of the view.
  void viewMoved();
  void followScreen();
  void pan(QPointF pixels);
  void zoomSteps(int steps, QPointF pixel);
  PicturePlane plane() const;  ///< pixels of the widget
  QPointF middle() const { return {width() / 2.0, height() / 2.0}; }
  geometry::Box shownBounds() const;
  double limit() const;
  void putNotes(QPainter& painter);
  PicturePlane planeFor(QSizeF size) const;

  bool pinch(const QGestureEvent& event);
  bool navigate(int key);
  void click(QPointF pixel);
  void point(QPointF pixel);
  void measureAt(geometry::Point mm);
  geometry::Point snapped(QPointF pixel) const;
  int markAt(QPointF pixel) const;
  void goToMark(int step);

  PictureContent content_;
  PictureTiles tiles_;
  PictureViewport viewport_;
  double ratio_ = 1.0;  ///< pixels of the screen for one of the widget
  bool isFitted_ = true;

  std::vector<QPointF> marks_;
  int currentMark_ = -1;
  std::optional<QPointF> mark_;
  bool isMeasuring_ = false;
  PictureMeasure measure_;

  bool isPressed_ = false;
  bool isDragging_ = false;
  bool isByKeyboard_ = false;
  QPointF pressedAt_;
  QPointF lastAt_;
  double wheelRest_ = 0.0;
};

}  // namespace quillon::windows
