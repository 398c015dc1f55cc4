#pragma once

#include <QColor>
#include <QLineF>
#include <QPainter>
#include <QPen>
#include <QPolygonF>
#include <functional>
#include <optional>
#include <vector>

#include "preview/raster.h"
#include "preview/scene.h"
#include "windows/picture_plane.h"

namespace quillon::windows {

/// What a pen draws on.
struct PictureCanvas {
  QPainter& painter;
  PicturePlane plane;
  QSizeF size;            ///< pixels; what is outside need not be drawn
  double hairline = 1.0;  ///< pixels
  /// The pixels below the painter, for what is thin; none where it draws on something else.
  std::optional<preview::Raster> raster;
  /// Asked now and then whether the picture is still wanted.
  std::function<bool()> isOver;
};

/// Draws things of a scene in one colour. flush() has to come last.
class PicturePen final : public preview::SceneVisitor {
 public:
  PicturePen(PictureCanvas& canvas, QColor colour, double leastWidthPixels);

  bool lines(std::span<const preview::SceneLine> lines, std::span<const float> widths) override;
  bool arc(const preview::SceneArc& arc) override;
  bool circle(const preview::SceneCircle& circle) override;
  bool area(std::span<const preview::SceneCorner> corners, float width) override;
  bool text(const eagle::RecordedText& text) override;
  void flush();

 private:
  using Points = std::vector<geometry::Point>;

  bool goesOn() const { return !canvas_.isOver || !canvas_.isOver(); }
  bool isNearby(geometry::Point pixel) const;
  double tolerance() const;
  /// Pixels; the width in pixels too.
  void putLine(geometry::Point from, geometry::Point to, double width);
  void putDot(geometry::Point at);
  void putBatch(geometry::Point from, geometry::Point to, double width);
  void putDisc(geometry::Point centre, double radius);
  QPen penOf(double width) const;
  /// Millimetres.
  void putStroke(const Points& points, double widthPixels);
  void putFilled(const Points& points, double widthPixels);
  /// The polygon within the picture and some way around it, in pixels.
  QPolygonF clipped(const Points& points, double marginPixels) const;

  PictureCanvas& canvas_;
  QColor colour_;
  std::uint32_t bits_;
  double least_;
  std::vector<QLineF> batch_;
  double batchWidth_ = 0.0;
  Points points_;
  QPolygonF polyline_;
};

}  // namespace quillon::windows
