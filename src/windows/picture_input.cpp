// What the user does with a picture.
#include <QApplication>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPinchGesture>
#include <QWheelEvent>
#include <cmath>
#include <new>

#include "preview/scene_snap.h"
#include "windows/picture_view.h"

namespace quillon::windows {
namespace {

using geometry::Point;

/// Pixels around a mark or an end within which a click means it.
constexpr double kReach = 8.0;
constexpr int kQuarterOctave = PictureViewport::kOctave / 4;

}  // namespace

/// No exception may pass through Qt. Where memory is lacking, the picture stays as it is; callbacks
/// report their own faults.
bool PictureView::event(QEvent* event) {
  try {
    if (event->type() == QEvent::Gesture && pinch(*static_cast<QGestureEvent*>(event))) return true;
    return QWidget::event(event);
  } catch (const std::bad_alloc&) {
    return true;
  }
}

bool PictureView::pinch(const QGestureEvent& event) {
  auto* const pinch = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
  if (pinch == nullptr) return false;
  if (pinch->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged)) {
    zoomBy(pinch->scaleFactor(), mapFromGlobal(pinch->centerPoint()));
  }
  return true;
}

void PictureView::wheelEvent(QWheelEvent* event) {
  constexpr double kNotch = 120.0;
  // Fine wheels and pads send parts of a notch.
  wheelRest_ += event->angleDelta().y() / kNotch * kQuarterOctave;
  const int steps = static_cast<int>(wheelRest_);
  wheelRest_ -= steps;
  if (steps != 0) zoomSteps(steps, event->position());
  event->accept();
}

/// True for keys that move the view.
bool PictureView::navigate(int key) {
  constexpr double kShare = 0.125;  // of the view
  const double x = std::max(std::floor(width() * kShare), 1.0);
  const double y = std::max(std::floor(height() * kShare), 1.0);
  switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      zoomSteps(kQuarterOctave, middle());
      return true;
    case Qt::Key_Minus:
    case Qt::Key_Underscore:
      zoomSteps(-kQuarterOctave, middle());
      return true;
    case Qt::Key_Left:
      pan({x, 0.0});
      return true;
    case Qt::Key_Right:
      pan({-x, 0.0});
      return true;
    case Qt::Key_Up:
      pan({0.0, y});
      return true;
    case Qt::Key_Down:
      pan({0.0, -y});
      return true;
    case Qt::Key_Home:
    case Qt::Key_0:
      fit();
      return true;
    default:
      return false;
  }
}

void PictureView::keyPressEvent(QKeyEvent* event) {
  // With these, keys belong to the window's menus.
  constexpr auto kOthers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if ((event->modifiers() & kOthers) != 0) return QWidget::keyPressEvent(event);
  const int key = event->key();
  if (navigate(key)) {
    isByKeyboard_ = true;
    point(middle());
    return;
  }
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      isByKeyboard_ = true;
      return click(middle());
    case Qt::Key_PageUp:
      return goToMark(-1);
    case Qt::Key_PageDown:
      return goToMark(1);
    case Qt::Key_Escape:
      if (!isMeasuring_) break;
      setMeasuring(false);
      if (onMeasuringEnded) onMeasuringEnded();
      return;
    default:
      break;
  }
  QWidget::keyPressEvent(event);
}

void PictureView::goToMark(int step) {
  const int count = static_cast<int>(marks_.size());
  if (count == 0) return;
  const int first = step > 0 ? 0 : count - 1;
  currentMark_ = currentMark_ < 0 ? first : (currentMark_ + step + count) % count;
  showPlace(marks_[static_cast<std::size_t>(currentMark_)]);
  if (onMarkClicked) onMarkClicked(currentMark_);
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) {
    return QWidget::mousePressEvent(event);
  }
  isPressed_ = true;
  isDragging_ = event->button() == Qt::MiddleButton;
  pressedAt_ = lastAt_ = event->position();
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  isByKeyboard_ = false;
  if (isPressed_) {
    const QPointF way = at - pressedAt_;
    isDragging_ = isDragging_ || way.manhattanLength() >= QApplication::startDragDistance();
    if (isDragging_) {
      setCursor(Qt::ClosedHandCursor);
      // Whole pixels; the rest comes with the next move.
      const QPointF whole(std::round(at.x() - lastAt_.x()), std::round(at.y() - lastAt_.y()));
      if (!whole.isNull()) pan(whole);
      lastAt_ += whole;
    }
  }
  point(at);
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
  if (!isPressed_) return QWidget::mouseReleaseEvent(event);
  isPressed_ = false;
  setCursor(isMeasuring_ ? Qt::CrossCursor : Qt::ArrowCursor);
  if (!isDragging_ && event->button() == Qt::LeftButton) click(event->position());
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
  // Two quick clicks on two ends may count as one.
  if (isMeasuring_ || event->button() != Qt::LeftButton) return mousePressEvent(event);
  fit();
}

void PictureView::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  if (onPointerLeft) onPointerLeft();
}

/// The pointer, or the middle for keys, is here.
void PictureView::point(QPointF pixel) {
  if (isMeasuring_) {
    measure_.pointer = snapped(pixel);
    if (measure_.from && !measure_.isDone) measure_.to = measure_.pointer;
    update();
  }
  if (onPointerMoved) onPointerMoved(millimetresOf(pixel));
}

void PictureView::click(QPointF pixel) {
  clearMark();
  if (isMeasuring_) return measureAt(snapped(pixel));
  const int mark = markAt(pixel);
  if (mark < 0) return;
  currentMark_ = mark;
  if (onMarkClicked) onMarkClicked(mark);
}

void PictureView::measureAt(Point mm) {
  update();
  if (!measure_.from || measure_.isDone) {
    measure_ = {mm, {}, mm, false};
    return;
  }
  measure_.to = mm;
  measure_.isDone = true;
  const Point from = *measure_.from;
  if (onMeasured) onMeasured(qtPoint(from), qtPoint(mm));
}

/// The nearest end or centre in sight of what is shown, else the point itself.
Point PictureView::snapped(QPointF pixel) const {
  const Point mm = pointOf(millimetresOf(pixel));
  std::optional<Point> nearest;
  double reach = kReach / scale();
  const auto look = [&](const preview::Scene* scene, const std::function<bool(int)>& isShown) {
    if (scene == nullptr) return;
    const auto found = preview::nearestPlace(*scene, mm, reach, isShown);
    if (!found) return;
    nearest = found;
    reach = geometry::distance(*found, mm);
  };
  look(content_.shownResult(), [this](int layer) { return isLayerVisible(layer); });
  look(content_.shownDrawing(), [](int) { return true; });
  return nearest.value_or(mm);
}

/// -1 where there is none.
int PictureView::markAt(QPointF pixel) const {
  int nearest = -1;
  double reach = kReach;
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    const QPointF way = pixelOf(marks_[i]) - pixel;
    const double distance = std::hypot(way.x(), way.y());
    if (!(distance <= reach)) continue;
    reach = distance;
    nearest = static_cast<int>(i);
  }
  return nearest;
}

}  // namespace quillon::windows
