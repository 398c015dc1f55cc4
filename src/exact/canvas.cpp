#include "exact/canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "base/number_text.h"
#include "exact/area_inset.h"
#include "geometry/area.h"
#include "geometry/crossings.h"
#include "geometry/dashes.h"
#include "geometry/path_arcs.h"
#include "geometry/path_map.h"
#include "geometry/path_tools.h"
#include "geometry/slits.h"

namespace quillon::exact {
namespace {

using geometry::CurvePath;

/// How wide the slits to holes are, in millimetres.
constexpr double kSlit = 0.001;
/// Of the size of a curve: its largest distance from the arcs that stand for it.
constexpr double kTolerancePerSize = 1e-5;

/// How areas are drawn that are not filled.
constexpr Canvas::Stroke kOutline{.width = {}, .cleanable = false, .solid = true};

/// Layers of copper, silk screens, solder masks and the like, which EAGLE fills with strokes of the
/// width of an area's edge when it makes the data for production.
bool isFilledForProduction(int layer) {
  return (layer >= 1 && layer <= 16) || layer == 21 || layer == 22 || (layer >= 25 && layer <= 36);
}

/// Whether a way is as long as the resolution; most are so much longer that no root is needed.
bool isLongEnough(Point way, double resolution) {
  constexpr double kClearly = 1.0 + 1e-9;
  const double longer = kClearly * resolution;
  return geometry::dot(way, way) > longer * longer || geometry::norm(way) >= resolution;
}

/// An area needs three corners.
void splitTwoCorners(Path& outline) {
  if (outline.vertices.size() != 2) return;
  const geometry::Arc arc = geometry::arcAt(outline, outline.vertices[0].curve != 0.0 ? 0 : 1);
  if (arc.curve == 0.0) return;
  const auto [first, second] = geometry::halves(arc);
  const std::size_t at = outline.vertices[0].curve != 0.0 ? 0 : 1;
  outline.vertices[at].curve = first.curve;
  outline.vertices.insert(outline.vertices.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                          {second.start, second.curve});
}

}  // namespace

geometry::CurveSettings Canvas::curveSettings(double diagonal) const {
  return {std::max(measures_.tolerance, kTolerancePerSize * diagonal), measures_.resolution};
}

/// By its own diagonal, which is looked for only where that may matter.
geometry::CurveSettings Canvas::curveSettingsOf(const geometry::Ellipse& ellipse) const {
  const geometry::CurveSettings settings = curveSettings(geometry::mostDiagonal(ellipse));
  if (settings.tolerance == measures_.tolerance) return settings;
  return curveSettings(geometry::bounds(ellipse).diagonal());
}

void Canvas::stroke(const Item& item, const Path& path, const Affine& map, const Stroke& how) {
  strokeMapped(item, mapped(item, path, map), how, false);
}

void Canvas::stroke(const Item& item, const geometry::Ellipse& ellipse, const Affine& map) {
  const geometry::Ellipse placed = geometry::mapped(ellipse, map);
  const bool isCircle = geometry::isCircle(placed, measures_.resolution);
  strokeMapped(item, pathOf(item, placed, isCircle),
               {.isArc = !placed.full(), .dashesAlongWhole = true}, isCircle && placed.full());
}

void Canvas::stroke(const Item& item, const geometry::Spline& spline) {
  strokeMapped(item, mapped(item, spline), {.isArc = true, .dashesAlongWhole = true}, false);
}

void Canvas::stroke(const Item& item, const geometry::FitSpline& spline, const Affine& map) {
  strokeMapped(item, mapped(item, spline, map), {.isArc = true, .dashesAlongWhole = true}, false);
}

void Canvas::segment(const Item& item, Point start, Point end) {
  if (!geometry::usable(start) || !geometry::usable(end)) {
    return lose(item, LossRule::UnusableNumbers);
  }
  if (!isLongEnough(end - start, measures_.resolution)) {
    return lose(item, LossRule::ZeroLength, start);
  }
  if (item.pen.losesPattern()) {
    const double most = item.pen.patternLength;
    if (!(geometry::dot(end - start, end - start) <= most * most)) losePattern(item);
  }
  if (!item.pen.dashes.empty()) return strokeDashed(item, {{{start}, {end}}, false}, {});
  sink_->takeSegment(item.origin, {lookOf(item, {}), start, end});
}

Path Canvas::mapped(const Item& item, const Path& path, const Affine& map) {
  std::optional<Path> exact = geometry::mapExactly(path, map, measures_.resolution);
  if (exact) return std::move(*exact);
  CurvePath result =
      geometry::mapPath(path, map, curveSettings(geometry::bounds(path).diagonal() * map.scale()));
  note(item, result.report);
  return std::move(result.path);
}

Path Canvas::mapped(const Item& item, const geometry::Ellipse& ellipse, const Affine& map) {
  const geometry::Ellipse placed = geometry::mapped(ellipse, map);
  return pathOf(item, placed, geometry::isCircle(placed, measures_.resolution));
}

/// Of an ellipse in units of the script. Circles are exact, whatever the tolerance.
Path Canvas::pathOf(const Item& item, const geometry::Ellipse& ellipse, bool isCircle) {
  CurvePath result =
      geometry::ellipsePath(ellipse, isCircle ? curveSettings(0.0) : curveSettingsOf(ellipse));
  note(item, result.report);
  return std::move(result.path);
}

Path Canvas::mapped(const Item& item, const geometry::Spline& spline) {
  const geometry::SplineFaults& faults = spline.faults();
  if (faults.degree) lose(item, LossRule::DegreeLowered);
  if (faults.knots) lose(item, LossRule::KnotsReplaced);
  if (faults.weights) lose(item, LossRule::WeightsDropped);
  const double size = spline.usable() ? geometry::bounds(spline).diagonal() : 0.0;
  CurvePath result = geometry::splinePath(spline, curveSettings(size));
  note(item, result.report);
  return std::move(result.path);
}

/// Drawn in its own coordinates first: the lengths between its points decide its course.
Path Canvas::mapped(const Item& item, const geometry::FitSpline& spline, const Affine& map) {
  const double size = spline.usable() ? geometry::bounds(spline).diagonal() : 0.0;
  const double scale = map.scale();
  geometry::CurveSettings settings = curveSettings(size * scale);
  if (scale > 0.0) {
    settings.tolerance /= scale;
    settings.resolution /= scale;
  }
  CurvePath result = geometry::fitSplinePath(spline, settings);
  note(item, result.report);
  return mapped(item, result.path, map);
}

void Canvas::tidy(Path& path) const { geometry::tidy(path, measures_.resolution); }

void Canvas::strokeMapped(const Item& item, Path path, const Stroke& how, bool isCircle) {
  if (path.vertices.empty()) return;
  if (!isUsable(path)) return lose(item, LossRule::UnusableNumbers);
  const Point first = path.vertices.front().at;
  tidy(path);
  if (path.vertices.size() < 2) return lose(item, LossRule::ZeroLength, first);
  if (item.pen.losesPattern() && !how.solid && showsPattern(item, path, how.dashesAlongWhole)) {
    losePattern(item);
  }
  if (!item.pen.dashes.empty() && !how.solid) return strokeDashed(item, path, how);
  take(item, std::move(path), how, isCircle);
}

void Canvas::strokeDashed(const Item& item, const Path& path, const Stroke& how) {
  const geometry::Dashes parts =
      geometry::dashed(path, item.pen.dashes, {.alongWhole = how.dashesAlongWhole});
  if (parts.tooMany) lose(item, LossRule::TooManyDashes, path.vertices.front().at);
  Stroke dash = how;
  dash.cleanable = false;
  for (const Path& part : parts.dashes) {
    if (step()) return;
    take(item, part, dash, false);
  }
  const double width = how.width.value_or(item.pen.width);
  for (const Point& centre : parts.dots) dot(item, centre, std::max(width, measures_.dot));
}

void Canvas::take(const Item& item, Path path, const Stroke& how, bool isCircle) {
  Chain chain;
  chain.look() = lookOf(item, how);
  chain.path = std::move(path);
  chain.isCircle = isCircle;
  sink_->take(item.origin, std::move(chain));
}

ChainLook Canvas::lookOf(const Item& item, const Stroke& how) {
  return {.width = how.width.value_or(item.pen.width),
          .style = how.solid ? Style::Continuous : item.pen.style,
          .cleanable = how.cleanable && !item.isInDimension,
          .isArc = how.isArc};
}

void Canvas::area(const Item& item, Path outline) {
  if (outline.vertices.empty()) return;
  if (!isUsable(outline)) return lose(item, LossRule::UnusableNumbers);
  outline.closed = true;
  const Point first = outline.vertices.front().at;
  tidy(outline);
  splitTwoCorners(outline);
  if (outline.vertices.size() < 3) return lose(item, LossRule::NoSize, first);
  if (!fills()) return take(item, std::move(outline), kOutline, false);
  if (!geometry::crossesItself(outline)) return takeArea(item, std::move(outline));
  evenOddArea(item, std::span(&outline, 1));
}

void Canvas::evenOddArea(const Item& item, std::span<const Path> loops) {
  if (loops.empty() || loops.front().vertices.empty()) return;
  const Point first = loops.front().vertices.front().at;
  geometry::Box box;
  for (const Path& loop : loops) box.add(geometry::bounds(loop));
  const geometry::CrossingFaces faces = geometry::facesOf(
      loops,
      {.tolerance = curveSettings(box.diagonal()).tolerance, .gap = kSlit * measures_.millimetre});
  if (!faces.complete) return lose(item, LossRule::AreaTooIntricate, first);
  if (faces.faces.empty()) return lose(item, LossRule::NoSize, first);
  for (const geometry::Region& face : faces.faces) region(item, face);
}

void Canvas::region(const Item& item, const geometry::Region& region) {
  if (!fills()) {
    takeArea(item, region.outer);
    for (const Path& hole : region.holes) takeArea(item, hole);
    return;
  }
  const std::vector<Path> outlines =
      geometry::withoutHoles(region, {.width = kSlit * measures_.millimetre});
  for (const Path& outline : outlines) takeArea(item, outline);
}

void Canvas::takeArea(const Item& item, Path outline) {
  tidy(outline);
  splitTwoCorners(outline);
  if (outline.vertices.size() < 3) return;
  if (!fills()) return take(item, std::move(outline), kOutline, false);
  fitToFillWidth(item, outline);
  sink_->take(item.origin, Area{std::move(outline)});
}

void Canvas::fitToFillWidth(const Item& item, Path& outline) {
  const Point first = outline.vertices.front().at;
  if (options_.fillWidth > 0.0) {
    const double reach = 0.5 * options_.fillWidth;
    std::optional<Path> inset = insetOfConvex(outline, reach);
    if (inset) geometry::dropClosePoints(*inset, measures_.resolution);
    if (!inset || inset->vertices.size() < 3) return lose(item, LossRule::AreaGrown, first, reach);
    outline = std::move(*inset);
  } else if (!hasFineFill_ && isFilledForProduction(item.origin.layer)) {
    hasFineFill_ = true;
    lose(item, LossRule::FineFill, first);
  }
}

void Canvas::text(const Item& item, TextLine line) {
  if (!geometry::usable(line.at) || !geometry::usable(line.height)) {
    return lose(item, LossRule::UnusableNumbers);
  }
  sink_->take(item.origin, std::move(line));
}

void Canvas::dot(const Item& item, Point centre, double diameter) {
  if (!geometry::usable(centre) || !geometry::usable(diameter)) {
    return lose(item, LossRule::UnusableNumbers);
  }
  sink_->take(item.origin, Dot{centre, diameter});
}

void Canvas::hole(const Item& item, Point centre, double drill) {
  if (!geometry::usable(centre) || !geometry::usable(drill)) {
    return lose(item, LossRule::UnusableNumbers);
  }
  sink_->take(item.origin, Hole{centre, drill});
}

void Canvas::endless(const Item& item, Point start, Point direction, bool bothWays) {
  if (!geometry::usable(start) || geometry::unit(direction) == Point{}) {
    return lose(item, LossRule::UnusableNumbers);
  }
  const Pen& pen = item.pen;
  if (pen.lacksShapes) losePattern(item);
  sink_->take(item.origin, EndlessLine{start, direction, bothWays, pen.width, pen.style, pen.dashes,
                                       pen.hasSolidInstead});
}

void Canvas::loseNamed(const Item& item, LossRule rule, std::string_view name) {
  losses_.add({rule, item.origin.kind, item.origin.dxfLayer, item.origin.line, item.map(Point{}),
               0.0, base::trimBlanks(name)});
}

bool Canvas::showsPattern(const Item& item, const Path& path, bool alongWhole) {
  const double most = item.pen.patternLength;
  if (most == 0.0 || path.vertices.empty()) return false;
  const auto join = [alongWhole](double length, double next) {
    return alongWhole ? length + next : std::max(length, next);
  };
  // Nearly all are told by their chords, which take less time.
  constexpr double kHalfCircle = std::numbers::pi / 2.0;
  double chord = 0.0;
  bool isNarrow = true;
  Point from = path.closed ? path.vertices.back().at : path.vertices.front().at;
  for (const geometry::Vertex& vertex : path.vertices) {
    chord = join(chord, geometry::distance(from, vertex.at));
    if (!(chord <= most)) return true;
    isNarrow = isNarrow && std::fabs(vertex.curve) <= 180.0;
    from = vertex.at;
  }
  if (isNarrow && chord * kHalfCircle <= most) return false;
  double length = 0.0;
  for (std::size_t i = 0; i < geometry::edgeCount(path) && length <= most; ++i) {
    length = join(length, geometry::lengthOf(geometry::edgeAt(path, i)));
  }
  return !(length <= most);
}

void Canvas::losePattern(const Item& item) {
  if (std::exchange(saidPattern_, true)) return;
  if (item.pen.hasSolidInstead) lose(item, LossRule::DrawnSolid);
  if (item.pen.lacksShapes) lose(item, LossRule::LineTypeShapes);
}

void Canvas::lose(const Item& item, LossRule rule, std::optional<Point> at, double measure,
                  std::uint64_t count) {
  // Of those after the first one, only the measure counts.
  const Origin& origin = item.origin;
  if (measure == 0.0 && losses_.addAgain(rule, origin.kind, origin.dxfLayer, count)) return;
  losses_.add({rule, item.origin.kind, item.origin.dxfLayer, item.origin.line,
               at.value_or(item.map(Point{})), measure},
              count);
}

void Canvas::note(const Item& item, const geometry::CurveReport& report) {
  if (report.unusable) lose(item, LossRule::UnusableNumbers);
  if (report.limitReached || report.coarse || report.gap) lose(item, LossRule::CurveCoarse);
}

}  // namespace quillon::exact
