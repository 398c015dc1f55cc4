#pragma once

#include <QPointF>
#include <QSize>

#include "geometry/box.h"
#include "windows/picture_plane.h"

namespace quillon::windows {

/// What a window shows of the plane. Pixels are those of the screen. Scales come in steps, and the
/// corner is at a whole pixel, so that what was painted once can be shown in the same place again.
class PictureViewport {
 public:
  /// Steps in which the scale doubles.
  static constexpr int kOctave = 1024;

  static double scaleOf(int step);

  /// Keeps what is in the middle.
  void resize(QSize pixels);
  /// Around all that is to be seen; limits the scales.
  void setDrawing(const geometry::Box& drawing) { drawing_ = drawing; }

  /// All of the drawing with a margin.
  void fit();
  /// Zooms by steps so that the point under a pixel stays there.
  void zoom(int steps, QPointF pixel);
  void pan(QPointF pixels);
  /// Zooms in so far that about a tenth of the drawing is seen, or further if it was.
  void show(geometry::Point mm);

  QSize size() const { return size_; }
  int step() const { return step_; }
  PicturePlane plane() const { return {scaleOf(step_), left_, top_}; }
  geometry::Point middle() const;

  bool operator==(const PictureViewport&) const = default;

 private:
  /// The step at which a box fits.
  int stepFor(const geometry::Box& box) const;
  int limited(int step) const;
  void place(geometry::Point mm, QPointF pixel);

  QSize size_{1, 1};
  geometry::Box drawing_;
  int step_ = 0;
  double left_ = 0.0;  ///< in pixels; whole numbers
  double top_ = 0.0;
};

}  // namespace quillon::windows
