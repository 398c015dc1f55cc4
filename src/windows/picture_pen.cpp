#include "windows/picture_pen.h"

#include <QPen>
#include <algorithm>
#include <cmath>

#include "preview/lettering.h"
#include "preview/scene_flat.h"

namespace quillon::windows {
namespace {

using geometry::Point;

/// How far curves may be from their lines, in pixels.
constexpr double kTolerance = 0.15;
/// Pixels around the picture within which the painter draws exactly and fast.
constexpr double kNearby = 4000.0;
/// Things smaller than this are a dot, in pixels.
constexpr double kDot = 1.0;
constexpr std::size_t kBatch = 1024;
/// Lines of at most this many pixels have no round ends that could be seen.
constexpr double kNarrow = 3.0;
/// Pixels above which curves are drawn in one, so that their lines cannot be told apart.
constexpr double kSmooth = 12.0;

/// How thick an area is on average, by its size and outline.
double thickness(const std::vector<Point>& points) {
  double doubled = 0.0;
  double around = 0.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point a = points[i] - points.front();
    const Point b = points[(i + 1) % points.size()] - points.front();
    doubled += geometry::cross(a, b);
    around += geometry::distance(a, b);
  }
  return around > 0.0 ? std::fabs(doubled) / around : 0.0;
}

/// The part of a polygon on one side of a line along an axis.
template <typename Distance>
std::vector<Point> cut(const std::vector<Point>& points, const Distance& inside) {
  std::vector<Point> kept;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point a = points[i];
    const Point b = points[(i + 1) % points.size()];
    const double da = inside(a);
    const double db = inside(b);
    if (da >= 0.0) kept.push_back(a);
    if ((da >= 0.0) != (db >= 0.0)) kept.push_back(a + (b - a) * (da / (da - db)));
  }
  return kept;
}

/// Moves a level or upright thin line to whole pixels, as it would be pale between two of them.
void sharpen(Point& from, Point& to, double width) {
  constexpr double kStraight = 0.05;  // pixels
  const bool isOdd = std::lround(width) % 2 != 0;
  const auto sharp = [isOdd](double at) { return isOdd ? std::floor(at) + 0.5 : std::round(at); };
  if (std::fabs(to.y - from.y) < kStraight) from.y = to.y = sharp(0.5 * (from.y + to.y));
  if (std::fabs(to.x - from.x) < kStraight) from.x = to.x = sharp(0.5 * (from.x + to.x));
}

}  // namespace

PicturePen::PicturePen(PictureCanvas& canvas, QColor colour, double leastWidthPixels)
    : canvas_(canvas), colour_(colour), bits_(colour.rgb()), least_(leastWidthPixels) {
  canvas_.painter.setBrush(Qt::NoBrush);
}

double PicturePen::tolerance() const { return kTolerance / canvas_.plane.scale; }

bool PicturePen::isNearby(Point pixel) const {
  return pixel.x > -kNearby && pixel.y > -kNearby && pixel.x < canvas_.size.width() + kNearby &&
         pixel.y < canvas_.size.height() + kNearby;
}

bool PicturePen::lines(std::span<const preview::SceneLine> lines, std::span<const float> widths) {
  if (!goesOn()) return false;
  const PicturePlane& plane = canvas_.plane;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    putLine(plane.pixel(lines[i].from), plane.pixel(lines[i].to), widths[i] * plane.scale);
  }
  return true;
}

void PicturePen::putLine(Point from, Point to, double width) {
  const bool isDot = std::fabs(to.x - from.x) < kDot && std::fabs(to.y - from.y) < kDot;
  const double drawn = std::max(width, least_);
  if (canvas_.raster && drawn <= kNarrow) {
    if (isDot) return canvas_.raster->dot(geometry::middle(from, to), drawn, bits_);
    if (drawn == least_) sharpen(from, to, drawn);
    return canvas_.raster->line(from, to, drawn, bits_);
  }
  if (isDot) return putDisc(geometry::middle(from, to), drawn / 2.0);
  putBatch(from, to, drawn);
}

void PicturePen::putDot(Point at) {
  if (canvas_.raster && least_ <= kNarrow) return canvas_.raster->dot(at, least_, bits_);
  putDisc(at, least_ / 2.0);
}

void PicturePen::putDisc(Point centre, double radius) {
  const double reach = radius + 1.0;
  if (!(centre.x > -reach && centre.y > -reach && centre.x < canvas_.size.width() + reach &&
        centre.y < canvas_.size.height() + reach)) {
    return;
  }
  if (radius > kNearby) {
    const Point mm = canvas_.plane.millimetres(centre);
    circle({mm, radius / canvas_.plane.scale, 0.0F, true});
    return;
  }
  canvas_.painter.setPen(Qt::NoPen);
  canvas_.painter.setBrush(colour_);
  canvas_.painter.drawEllipse(qtPoint(centre), radius, radius);
}

void PicturePen::putBatch(Point from, Point to, double width) {
  if (!preview::clipLine(from, to, canvas_.size.width(), canvas_.size.height(),
                         width / 2.0 + 2.0)) {
    return;
  }
  if (width != batchWidth_ || batch_.size() >= kBatch) flush();
  batchWidth_ = width;
  batch_.emplace_back(qtPoint(from), qtPoint(to));
}

void PicturePen::flush() {
  if (batch_.empty()) return;
  canvas_.painter.setPen(penOf(batchWidth_));
  canvas_.painter.setBrush(Qt::NoBrush);
  canvas_.painter.drawLines(batch_.data(), static_cast<int>(batch_.size()));
  batch_.clear();
}

void PicturePen::putStroke(const Points& points, double widthPixels) {
  polyline_.clear();
  bool isWhole = true;
  for (const Point point : points) {
    const Point pixel = canvas_.plane.pixel(point);
    isWhole = isWhole && isNearby(pixel);
    polyline_.append(qtPoint(pixel));
  }
  if (isWhole && points.size() > 2) {
    const QRectF around = polyline_.boundingRect();
    if (std::max(around.width(), around.height()) > kSmooth) {
      flush();
      canvas_.painter.setPen(penOf(std::max(widthPixels, least_)));
      canvas_.painter.setBrush(Qt::NoBrush);
      canvas_.painter.drawPolyline(polyline_);
      return;
    }
  }
  for (qsizetype i = 1; i < polyline_.size(); ++i) {
    const QPointF from = polyline_[i - 1];
    const QPointF to = polyline_[i];
    putLine(pointOf(from), pointOf(to), widthPixels);
  }
}

QPen PicturePen::penOf(double width) const {
  return QPen(colour_, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

bool PicturePen::arc(const preview::SceneArc& arc) {
  points_.assign(1, arc.arc.start);
  const double width = arc.width * canvas_.plane.scale;
  const geometry::Box near = canvas_.plane.seen(canvas_.size, width / 2.0 + 2.0);
  preview::flatten(arc.arc, tolerance(), near, points_);
  putStroke(points_, width);
  return goesOn();
}

bool PicturePen::circle(const preview::SceneCircle& circle) {
  const Point centre = canvas_.plane.pixel(circle.centre);
  const double radius = circle.radius * canvas_.plane.scale;
  const double width = circle.filled ? 0.0 : circle.width * canvas_.plane.scale;
  if (2.0 * radius + width < kDot) {
    putDot(centre);
    return goesOn();
  }
  if (circle.filled && radius <= kNearby) {
    putDisc(centre, radius);
    return goesOn();
  }
  points_.clear();
  const geometry::Box near = canvas_.plane.seen(canvas_.size, width / 2.0 + 2.0);
  preview::flatten(circle, tolerance(), near, points_);
  if (circle.filled) {
    putFilled(points_, 0.0);
  } else {
    putStroke(points_, width);
  }
  return goesOn();
}

bool PicturePen::area(std::span<const preview::SceneCorner> corners, float width) {
  const double pixels = width * canvas_.plane.scale;
  points_.clear();
  preview::flatten(corners, tolerance(), canvas_.plane.seen(canvas_.size, pixels / 2.0 + 2.0),
                   points_);
  putFilled(points_, pixels);
  return goesOn();
}

QPolygonF PicturePen::clipped(const Points& points, double marginPixels) const {
  Points pixels;
  pixels.reserve(points.size());
  for (const Point point : points) pixels.push_back(canvas_.plane.pixel(point));
  if (!std::ranges::all_of(pixels, [this](Point p) { return isNearby(p); })) {
    const double right = canvas_.size.width() + marginPixels;
    const double bottom = canvas_.size.height() + marginPixels;
    pixels = cut(pixels, [&](Point p) { return p.x + marginPixels; });
    pixels = cut(pixels, [&](Point p) { return p.y + marginPixels; });
    pixels = cut(pixels, [&](Point p) { return right - p.x; });
    pixels = cut(pixels, [&](Point p) { return bottom - p.y; });
  }
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(pixels.size()));
  for (const Point point : pixels) polygon.append(qtPoint(point));
  return polygon;
}

void PicturePen::putFilled(const Points& points, double widthPixels) {
  QPolygonF polygon = clipped(points, widthPixels / 2.0 + 2.0);
  if (polygon.isEmpty()) return;
  const QRectF around = polygon.boundingRect();
  if (std::max(around.width(), around.height()) + widthPixels < kDot) {
    return putDot(pointOf(around.center()));
  }
  double width = widthPixels;
  // What is too thin to be seen is drawn as thin lines are.
  if (width < least_ && thickness(points) * canvas_.plane.scale < least_) width = least_;
  flush();
  if (width > 0.0) {
    canvas_.painter.setPen(penOf(width));
  } else {
    canvas_.painter.setPen(Qt::NoPen);
  }
  canvas_.painter.setBrush(colour_);
  canvas_.painter.drawPolygon(polygon, Qt::WindingFill);
}

bool PicturePen::text(const eagle::RecordedText& text) {
  const preview::Strokes strokes = preview::letteringOf(text, text.content);
  const double width = std::fabs(text.size) * preview::kPenWidth * canvas_.plane.scale;
  std::size_t i = 0;
  for (const std::size_t end : strokes.ends) {
    points_.assign(strokes.points.begin() + static_cast<std::ptrdiff_t>(i),
                   strokes.points.begin() + static_cast<std::ptrdiff_t>(end));
    if (points_.size() == 1) points_.push_back(points_.front());
    putStroke(points_, width);
    i = end;
  }
  return goesOn();
}

}  // namespace quillon::windows
