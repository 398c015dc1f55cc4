#include "windows/picture_notes.h"

#include <QFontMetricsF>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "preview/raster.h"
#include "preview/scene_colours.h"
#include "preview/svg_text.h"
#include "preview/view.h"
#include "windows/app_context.h"
#include "workbench/picture_text.h"

namespace quillon::windows {
namespace {

using geometry::Point;

/// Pixels between a note and the edge.
constexpr double kNoteMargin = 10.0;

}  // namespace

QString lengthText(double millimetres) {
  struct Unit {
    const char* name;
    double millimetres;
    double least;  ///< millimetres; mechanics keeps to them for long
  };
  constexpr Unit kUnits[] = {
      {"km", 1e6, 1e7}, {"m", 1e3, 1e4}, {"mm", 1.0, 0.01}, {"\u00B5m", 1e-3, 1e-5}};
  // A little more, as lengths are not exact.
  const double length = millimetres * (1.0 + 1e-9);
  for (const Unit& unit : kUnits) {
    if (length < unit.least) continue;
    return toQt(preview::shortText(millimetres / unit.millimetres, 2)) + ' ' +
           QString::fromUtf8(unit.name);
  }
  return toQt(preview::shortText(millimetres * 1e6, 2)) + " nm";
}

QString measureText(Point from, Point to) {
  using workbench::millimetreText;
  const double length = geometry::distance(from, to);
  return toQt(millimetreText(length) + " mm (" + workbench::milText(length) + " mil)\n\u0394x " +
              millimetreText(to.x - from.x) + "\n\u0394y " + millimetreText(to.y - from.y));
}

QPointF PictureNotes::pixel(Point mm) const { return qtPoint(plane_.pixel(mm)); }

bool PictureNotes::isInSight(QPointF pixel, double margin) const {
  return pixel.x() > -margin && pixel.y() > -margin && pixel.x() < size_.width() + margin &&
         pixel.y() < size_.height() + margin;
}

void PictureNotes::putLine(Point from, Point to) {
  Point a = plane_.pixel(from);
  Point b = plane_.pixel(to);
  if (!preview::clipLine(a, b, size_.width(), size_.height(), 4.0)) return;
  painter_.drawLine(qtPoint(a), qtPoint(b));
}

void PictureNotes::putOrigin() {
  constexpr double kArm = 9.0;
  const QPointF at = pixel({0.0, 0.0});
  if (!isInSight(at, kArm)) return;
  const QPointF middle(std::floor(at.x()) + 0.5, std::floor(at.y()) + 0.5);
  painter_.setPen(QPen(toQt(preview::noteColour(theme_)), 1.0));
  painter_.drawLine(middle - QPointF(kArm, 0.0), middle + QPointF(kArm, 0.0));
  painter_.drawLine(middle - QPointF(0.0, kArm), middle + QPointF(0.0, kArm));
}

void PictureNotes::putLimits(double limit) {
  constexpr double kDash = 8.0;
  if (!(limit > 0.0)) return;
  const Point corners[] = {{-limit, -limit}, {limit, -limit}, {limit, limit}, {-limit, limit}};
  for (std::size_t i = 0; i < 4; ++i) {
    const Point start = plane_.pixel(corners[i]);
    Point from = start;
    Point to = plane_.pixel(corners[(i + 1) % 4]);
    if (!preview::clipLine(from, to, size_.width(), size_.height(), 1.0)) continue;
    QPen pen(toQt(preview::noteColour(theme_)), 1.0);
    pen.setDashPattern({kDash, kDash});
    pen.setDashOffset(std::fmod(geometry::distance(start, from), 2.0 * kDash));
    painter_.setPen(pen);
    painter_.drawLine(qtPoint(from), qtPoint(to));
  }
}

void PictureNotes::putLabel(QPointF at, const QString& text, preview::Colour colour) {
  constexpr double kPadding = 3.0;
  const QFontMetricsF metrics(painter_.font());
  QRectF box = metrics.boundingRect(QRectF(0.0, 0.0, 1000.0, 1000.0), Qt::AlignLeft, text);
  box.moveBottomLeft(at);
  painter_.fillRect(box.adjusted(-kPadding, -kPadding, kPadding, kPadding),
                    toQt(preview::backgroundColour(theme_)));
  painter_.setPen(toQt(colour));
  painter_.drawText(box, Qt::AlignLeft, text);
}

void PictureNotes::putScaleBar() {
  constexpr double kTick = 4.0;
  if (size_.width() < 8.0 * kNoteMargin) return;
  const double length = preview::scaleBarLength(size_.width() / plane_.scale);
  const double y = std::floor(size_.height() - kNoteMargin) - 0.5;
  const double left = kNoteMargin + 0.5;
  const double right = left + std::round(length * plane_.scale);
  const preview::Colour colour = preview::noteColour(theme_);
  putLabel({left + 2.0, y - kTick - 3.0}, lengthText(length), colour);
  painter_.setPen(QPen(toQt(colour), 1.0));
  painter_.drawLine(QPointF(left, y), QPointF(right, y));
  painter_.drawLine(QPointF(left, y - kTick), QPointF(left, y));
  painter_.drawLine(QPointF(right, y - kTick), QPointF(right, y));
}

void PictureNotes::putMeasure(const PictureMeasure& measure) {
  const preview::Colour colour = preview::markColour(theme_);
  for (const std::optional<Point>& end : {measure.from, measure.to, measure.pointer}) {
    if (end) putRing(*end, 4.0, colour, 1.5);
  }
  if (!measure.from || !measure.to) return;
  painter_.setPen(QPen(toQt(colour), 1.5));
  putLine(*measure.from, *measure.to);
  const QString text = measureText(*measure.from, *measure.to);
  const QFontMetricsF metrics(painter_.font());
  const QSizeF box =
      metrics.boundingRect(QRectF(0.0, 0.0, 1000.0, 1000.0), Qt::AlignLeft, text).size();
  // Beside the end, as far as there is room.
  const QPointF end = pixel(*measure.to);
  const double x = std::clamp(end.x() + kNoteMargin, kNoteMargin,
                              std::max(size_.width() - box.width() - kNoteMargin, kNoteMargin));
  const double y = std::clamp(end.y() - kNoteMargin, box.height() + kNoteMargin,
                              std::max(size_.height() - kNoteMargin, box.height() + kNoteMargin));
  putLabel({x, y}, text, colour);
}

void PictureNotes::putRing(Point at, double radius, preview::Colour colour, double width) {
  const QPointF middle = pixel(at);
  if (!isInSight(middle, radius + width)) return;
  painter_.setBrush(Qt::NoBrush);
  painter_.setPen(QPen(toQt(colour), width));
  painter_.drawEllipse(middle, radius, radius);
}

void PictureNotes::putCross(Point at) {
  constexpr double kArm = 12.0;
  const QPointF middle = pixel(at);
  painter_.setPen(QPen(toQt(preview::markColour(theme_)), 1.0));
  painter_.drawLine(middle - QPointF(kArm, 0.0), middle + QPointF(kArm, 0.0));
  painter_.drawLine(middle - QPointF(0.0, kArm), middle + QPointF(0.0, kArm));
}

}  // namespace quillon::windows
