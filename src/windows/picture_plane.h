#pragma once

#include <QColor>
#include <QPointF>
#include <QSizeF>

#include "geometry/box.h"
#include "preview/palette.h"

namespace quillon::windows {

inline QColor toQt(preview::Colour colour) { return {colour.red, colour.green, colour.blue}; }

inline QPointF qtPoint(geometry::Point point) { return {point.x, point.y}; }
inline geometry::Point pointOf(QPointF point) { return {point.x(), point.y()}; }

/// From millimetres to pixels, whose y grows downwards.
struct PicturePlane {
  double scale = 1.0;  ///< pixels of a millimetre
  double left = 0.0;   ///< of the picture's corner, in pixels from the drawing's origin
  double top = 0.0;

  geometry::Point pixel(geometry::Point mm) const {
    return {mm.x * scale - left, -mm.y * scale - top};
  }
  geometry::Point millimetres(geometry::Point pixel) const {
    return {(pixel.x + left) / scale, -(pixel.y + top) / scale};
  }
  /// What is seen in a picture of this size with a margin, in millimetres.
  geometry::Box seen(QSizeF size, double marginPixels) const {
    geometry::Box box;
    box.add(millimetres({-marginPixels, -marginPixels}));
    box.add(millimetres({size.width() + marginPixels, size.height() + marginPixels}));
    return box;
  }
};

}  // namespace quillon::windows
