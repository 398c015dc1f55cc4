#include "exact/points.h"

#include <algorithm>
#include <vector>

#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// What $PDMODE shows at a point: one of these, with or without a circle and a square.
enum PointGlyph : int {
  kDotGlyph = 0,
  kNoGlyph = 1,
  kPlusGlyph = 2,
  kCrossGlyph = 3,
  kTickGlyph = 4
};
constexpr int kGlyphBits = 7;
constexpr int kWithCircle = 32;
constexpr int kWithSquare = 64;

/// In millimetres.
constexpr double kDotDiameter = 0.1;
/// Of points whose size is a share of the screen, in millimetres.
constexpr double kUnknownSize = 1.0;

Path pointLine(Point from, Point to) { return {{{from}, {to}}, false}; }

/// The lines of a glyph around (0 0).
std::vector<Path> glyphLines(int mode, double size) {
  const double half = 0.5 * size;
  std::vector<Path> lines;
  switch (mode & kGlyphBits) {
    case kPlusGlyph:
      lines.push_back(pointLine({-size, 0.0}, {size, 0.0}));
      lines.push_back(pointLine({0.0, -size}, {0.0, size}));
      break;
    case kCrossGlyph:
      lines.push_back(pointLine({-size, -size}, {size, size}));
      lines.push_back(pointLine({-size, size}, {size, -size}));
      break;
    case kTickGlyph:
      lines.push_back(pointLine({0.0, 0.0}, {0.0, half}));
      break;
    default:
      break;
  }
  if ((mode & kWithCircle) != 0) {
    lines.push_back({{{{-half, 0.0}, 180.0}, {{half, 0.0}, 180.0}}, true});
  }
  if ((mode & kWithSquare) != 0) {
    lines.push_back({{{{-half, -half}}, {{half, -half}}, {{half, half}}, {{-half, half}}}, true});
  }
  return lines;
}

int modeOfPoints(const Canvas& canvas) {
  return static_cast<int>(std::clamp(canvas.drawing().header.pdMode, 0.0, 255.0));
}

/// In units of the script. Blocks do not scale it.
double glyphSize(const Item& item, Canvas& canvas, Point at) {
  const double size = canvas.drawing().header.pdSize * canvas.options().factor;
  if (size > 0.0 && geometry::usable(size)) return size;
  canvas.lose(item, LossRule::PointSizeUnknown, at);
  return kUnknownSize * canvas.measures().millimetre;
}

void drawGlyph(const Item& item, Point at, double angle, Canvas& canvas) {
  const int mode = modeOfPoints(canvas);
  if (mode == kNoGlyph) return;
  if ((mode & kGlyphBits) == kDotGlyph)
    canvas.dot(item, at, kDotDiameter * canvas.measures().millimetre);
  if (mode == kDotGlyph) return;
  const Affine map = Affine::shift(at) * Affine::turnTo(geometry::unitVector(-angle));
  for (const Path& line : glyphLines(mode, glyphSize(item, canvas, at))) {
    canvas.stroke(item, line, map,
                  {.width = canvas.options().lineWidth, .cleanable = false, .solid = true});
  }
}

}  // namespace

bool pointsAreHoles(const Options& options) {
  const bool canHaveHoles = options.target == Target::Board || options.target == Target::Package;
  return options.points == PointStyle::Hole && options.pointDrill > 0.0 && canHaveHoles;
}

void drawPoint(const Item& item, Canvas& canvas) {
  const Options& options = canvas.options();
  Point place;
  double height = 0.0;
  double angle = 0.0;
  readNumbers(canvas.groupsOf(item), {{10, &place.x}, {20, &place.y}, {30, &height}, {50, &angle}});
  const Point at = item.seen(place, height);
  if (!geometry::usable(at) || !geometry::usable(angle)) {
    return canvas.lose(item, LossRule::UnusableNumbers);
  }
  if (options.points == PointStyle::None) {
    if (modeOfPoints(canvas) != kNoGlyph) canvas.lose(item, LossRule::PointLeftOut, at);
    return;
  }
  if (pointsAreHoles(options)) {
    return canvas.hole(item, at, options.pointDrill);
  }
  if (options.points == PointStyle::Dot) {
    return canvas.dot(item, at, kDotDiameter * canvas.measures().millimetre);
  }
  drawGlyph(item, at, angle, canvas);
}

void drawEndless(const Item& item, Canvas& canvas) {
  Point start;
  Point direction;
  double height = 0.0;
  double rise = 0.0;
  readNumbers(canvas.groupsOf(item), {{10, &start.x},
                                      {20, &start.y},
                                      {30, &height},
                                      {11, &direction.x},
                                      {21, &direction.y},
                                      {31, &rise}});
  Point way = item.map.turn(direction);
  if (item.depth != Point{}) way = way + item.depth * rise;
  canvas.endless(item, item.seen(start, height), way, item.entity.kind == Kind::Xline);
}

}  // namespace quillon::exact
