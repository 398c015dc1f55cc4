#include "windows/picture_view.h"

#include <QPainter>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <cmath>
#include <utility>

#include "preview/scene_colours.h"
#include "windows/picture_painter.h"

namespace quillon::windows {

using geometry::Point;

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  grabGesture(Qt::PinchGesture);
  tiles_.onPainted = [this] {
    if (!tiles_.isComplete()) tiles_.want(viewport_);
    update();
  };
  ratio_ = devicePixelRatioF();
  content_.style.hairline = std::max(ratio_, 1.0);
  tiles_.setContent(std::make_shared<const PictureContent>(content_), false);
}

/// The parts of one picture come one after the other: what they leave as it is stays painted, and
/// so do marks and distances on the result.
void PictureView::setScenes(Scenes scenes) {
  if (scenes == content_.scenes) return;
  const PictureContent former = content_;  // keeps what is compared below
  content_.scenes = std::move(scenes);
  if (former.scenes.result != content_.scenes.result) {
    measure_ = {};
    mark_.reset();
  }
  viewport_.setDrawing(shownBounds());
  if (isFitted_) viewport_.fit();
  const bool isSame = former.shownResult() == content_.shownResult() &&
                      former.shownDrawing() == content_.shownDrawing() &&
                      former.shownDifferences() == content_.shownDifferences();
  if (isSame) {
    viewMoved();
  } else {
    restyle(false);
  }
}

void PictureView::setMode(Mode mode) {
  if (std::exchange(content_.style.mode, mode) == mode) return;
  restyle(true);
}

void PictureView::setTheme(preview::Theme theme) {
  if (std::exchange(content_.style.theme, theme) == theme) return;
  restyle(false);
}

void PictureView::setLayerVisible(int layer, bool isVisible) {
  const auto bit = static_cast<std::size_t>(layer);
  if (layer < 0 || bit >= content_.style.hidden.size()) return;
  if (content_.style.hidden[bit] == !isVisible) return;
  content_.style.hidden[bit] = !isVisible;
  restyle(true);
}

void PictureView::restyle(bool keep) {
  tiles_.setContent(std::make_shared<const PictureContent>(content_), keep);
  viewMoved();
}

void PictureView::viewMoved() {
  if (isVisible()) tiles_.want(viewport_);
  update();
}

/// The window may have moved to a screen with other pixels.
void PictureView::followScreen() {
  const double ratio = devicePixelRatioF();
  if (ratio == ratio_) return;
  const double factor = ratio / ratio_;
  ratio_ = ratio;
  const QSize pixels = (QSizeF(size()) * ratio).toSize();
  viewport_.resize(pixels);
  content_.style.hairline = std::max(ratio, 1.0);
  if (isFitted_) {
    viewport_.fit();
  } else {
    viewport_.zoom(static_cast<int>(std::lround(std::log2(factor) * PictureViewport::kOctave)),
                   {pixels.width() / 2.0, pixels.height() / 2.0});
  }
  restyle(false);
}

geometry::Box PictureView::shownBounds() const {
  geometry::Box box;
  for (const auto* const scene : {content_.scenes.result.get(), content_.scenes.drawing.get()}) {
    if (scene != nullptr && !scene->bounds().empty()) box.add(scene->bounds());
  }
  return box;
}

double PictureView::limit() const {
  return content_.scenes.result ? content_.scenes.result->limit() : 0.0;
}

PicturePlane PictureView::plane() const {
  const PicturePlane plane = viewport_.plane();
  return {plane.scale / ratio_, plane.left / ratio_, plane.top / ratio_};
}

double PictureView::scale() const { return plane().scale; }

QPointF PictureView::pixelOf(QPointF millimetres) const {
  return qtPoint(plane().pixel(pointOf(millimetres)));
}

QPointF PictureView::millimetresOf(QPointF pixel) const {
  return qtPoint(plane().millimetres(pointOf(pixel)));
}

void PictureView::fit() {
  isFitted_ = true;
  viewport_.fit();
  viewMoved();
}

void PictureView::zoomSteps(int steps, QPointF pixel) {
  isFitted_ = false;
  viewport_.zoom(steps, pixel * ratio_);
  viewMoved();
}

void PictureView::zoomBy(double factor, QPointF pixel) {
  if (!(factor > 0.0) || !std::isfinite(factor)) return;
  constexpr double kMostOctaves = 64.0;
  const double octaves = std::clamp(std::log2(factor), -kMostOctaves, kMostOctaves);
  zoomSteps(static_cast<int>(std::lround(octaves * PictureViewport::kOctave)), pixel);
}

void PictureView::pan(QPointF pixels) {
  isFitted_ = false;
  viewport_.pan(pixels * ratio_);
  viewMoved();
}

void PictureView::showPlace(QPointF millimetres) {
  if (!std::isfinite(millimetres.x()) || !std::isfinite(millimetres.y())) return;
  isFitted_ = false;
  mark_ = millimetres;
  viewport_.show(pointOf(millimetres));
  viewMoved();
}

void PictureView::clearMark() {
  mark_.reset();
  update();
}

void PictureView::setMarks(std::vector<QPointF> millimetres) {
  if (millimetres == marks_) return;
  marks_ = std::move(millimetres);
  currentMark_ = -1;
  update();
}

void PictureView::setMeasuring(bool isMeasuring) {
  isMeasuring_ = isMeasuring;
  measure_ = {};
  setCursor(isMeasuring ? Qt::CrossCursor : Qt::ArrowCursor);
  update();
}

void PictureView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  viewport_.resize((QSizeF(size()) * ratio_).toSize());
  if (isFitted_) viewport_.fit();
  viewMoved();
}

void PictureView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  followScreen();
  viewMoved();
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  followScreen();
  QPainter painter(this);
  painter.fillRect(rect(), toQt(preview::backgroundColour(theme())));
  painter.save();
  painter.scale(1.0 / ratio_, 1.0 / ratio_);
  tiles_.draw(painter, viewport_);
  painter.restore();
  putNotes(painter);
}

void PictureView::putNotes(QPainter& painter) {
  constexpr double kMarkRadius = 6.0;
  constexpr double kPlaceRadius = 15.0;
  PictureNotes notes(painter, plane(), size(), theme());
  notes.putOrigin();
  notes.putLimits(limit());
  painter.setRenderHint(QPainter::Antialiasing);
  for (const QPointF mark : marks_) {
    notes.putRing(pointOf(mark), kMarkRadius, preview::warningColour(theme()), 2.0);
  }
  if (mark_) notes.putRing(pointOf(*mark_), kPlaceRadius, preview::markColour(theme()), 3.0);
  if (isMeasuring_) notes.putMeasure(measure_);
  if (isMeasuring_ && isByKeyboard_) notes.putCross(pointOf(millimetresOf(middle())));
  painter.setRenderHint(QPainter::Antialiasing, false);
  notes.putScaleBar();
  if (!hasFocus()) return;
  // The style's own frame may not be seen on the picture's background.
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(toQt(preview::markColour(theme())), 2.0));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

/// As much as is in sight, and more on two sides where the shapes differ.
PicturePlane PictureView::planeFor(QSizeF size) const {
  PicturePlane plane = viewport_.plane();
  const double factor =
      std::min(size.width() / viewport_.size().width(), size.height() / viewport_.size().height());
  const Point middle = viewport_.middle();
  plane.scale *= factor;
  plane.left = middle.x * plane.scale - size.width() / 2.0;
  plane.top = -middle.y * plane.scale - size.height() / 2.0;
  return plane;
}

QImage PictureView::toImage(QSize size, double scale) const {
  const QSize pixels = (QSizeF(size) * scale).toSize();
  PictureContent content = content_;
  content.style.hairline = std::max(scale, 1.0);
  QImage image = pictureImage(content, planeFor(pixels), pixels);
  if (image.isNull()) return image;
  QPainter painter(&image);
  painter.scale(scale, scale);
  PicturePlane plane = planeFor(pixels);
  plane = {plane.scale / scale, plane.left / scale, plane.top / scale};
  PictureNotes notes(painter, plane, size, content.style.theme);
  notes.putOrigin();
  notes.putLimits(limit());
  notes.putScaleBar();
  return image;
}

void PictureView::paintTo(QPainter& painter, QRectF target, preview::Theme theme) const {
  // Lines without width are as wide as on a screen of this many pixels.
  constexpr double kPixels = 1500.0;
  if (target.isEmpty()) return;
  const double unit = std::max(std::max(target.width(), target.height()) / kPixels, 1e-3);
  PictureContent content = content_;
  content.style.theme = theme;
  painter.save();
  painter.setClipRect(target, Qt::IntersectClip);
  painter.translate(target.topLeft());
  painter.scale(unit, unit);
  const QSizeF size = target.size() / unit;
  content.style.hairline = 1.0;
  const PicturePlane plane = planeFor(size);
  PictureCanvas canvas{painter, plane, size, 1.0, std::nullopt, {}};
  paintPicture(content, canvas);
  PictureNotes notes(painter, plane, size, theme);
  notes.putOrigin();
  notes.putLimits(limit());
  notes.putScaleBar();
  painter.restore();
}

}  // namespace quillon::windows
