#pragma once

#include <QPainter>
#include <QString>
#include <optional>

#include "preview/palette.h"
#include "windows/picture_plane.h"

namespace quillon::windows {

/// A distance that is measured, in millimetres.
struct PictureMeasure {
  std::optional<geometry::Point> from;
  std::optional<geometry::Point> to;
  std::optional<geometry::Point> pointer;  ///< where a click would be
  bool isDone = false;                     ///< else `to` follows the pointer
};

/// What is shown over a picture, in its pixels. The painter's font is used for numbers.
class PictureNotes {
 public:
  PictureNotes(QPainter& painter, const PicturePlane& plane, QSizeF size, preview::Theme theme)
      : painter_(painter), plane_(plane), size_(size), theme_(theme) {}

  /// The origin of the drawing, where it is in sight.
  void putOrigin();
  /// The edge of EAGLE's drawing area, where it is in sight.
  void putLimits(double limit);
  void putScaleBar();
  void putMeasure(const PictureMeasure& measure);
  /// A ring around a point, of a colour of its own.
  void putRing(geometry::Point at, double radius, preview::Colour colour, double width);
  /// A cross where clicks by the keyboard go.
  void putCross(geometry::Point at);

 private:
  QPointF pixel(geometry::Point mm) const;
  bool isInSight(QPointF pixel, double margin) const;
  void putLine(geometry::Point from, geometry::Point to);
  /// Numbers on the picture's own background, with their lower left corner here.
  void putLabel(QPointF at, const QString& text, preview::Colour colour);

  QPainter& painter_;
  PicturePlane plane_;
  QSizeF size_;
  preview::Theme theme_;
};

/// A length with the unit in which it is short: "0.5 mm", "12 m".
QString lengthText(double millimetres);
/// "12.345 mm (486 mil)", and the way along both axes below.
QString measureText(geometry::Point from, geometry::Point to);

}  // namespace quillon::windows
