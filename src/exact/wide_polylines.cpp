#include "exact/wide_polylines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/area.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// Wires up to this width, in millimetres, show nothing of their round ends.
constexpr double kThinWire = 0.1;
/// Wires this many times as long as wide show little of them.
constexpr double kLongForItsWidth = 50.0;

/// A place in the script that a loss can name.
std::optional<Point> startPlace(const Path& path, const Affine& map) {
  if (path.vertices.empty() || !geometry::usable(map(path.vertices.front().at))) return {};
  return map(path.vertices.front().at);
}

/// Straight edges that all lie in one line, and so enclose nothing.
bool isOneLine(const Path& path, double resolution) {
  if (path.vertices.empty()) return false;
  const Point first = path.vertices.front().at;
  Point farthest = first;
  for (const geometry::Vertex& vertex : path.vertices) {
    if (vertex.curve != 0.0) return false;
    if (distance(first, vertex.at) > distance(first, farthest)) farthest = vertex.at;
  }
  const Point along = geometry::unit(farthest - first);
  return std::all_of(path.vertices.begin(), path.vertices.end(), [&](const auto& vertex) {
    return std::fabs(cross(along, vertex.at - first)) < resolution;
  });
}

/// The flat polyline without width.
void drawThin(const Item& item, Canvas& canvas, const FlatPolyline& polyline, const Affine& map) {
  Canvas::Stroke how{.dashesAlongWhole = polyline.dashesAlongWhole};
  if (canvas.options().widthless) how.width = 0.0;
  if (!polyline.path.closed || !item.pen.fillsClosed) {
    return canvas.stroke(item, polyline.path, map, how);
  }
  const Path outline = canvas.mapped(item, polyline.path, map);
  if (isOneLine(outline, canvas.measures().resolution)) {
    return canvas.stroke(item, outline, Affine{}, how);
  }
  const bool losesPattern =
      item.pen.losesPattern() && Canvas::showsPattern(item, outline, how.dashesAlongWhole);
  if (losesPattern) canvas.losePattern(item);
  canvas.area(item, outline);
}

/// How far a wire and its band are apart, as a share of their width: by the round ends, and in
/// closed ones by the mitre of the sharpest corner.
double shareOfRoundness(const Path& middle) {
  constexpr double kRound = 0.5;
  if (!middle.closed) return kRound;
  double least = 1.0;  // cosine of the sharpest turn
  const std::size_t count = geometry::arcCount(middle);
  for (std::size_t i = 0; i < count; ++i) {
    const Point before = geometry::tangentAt(geometry::arcAt(middle, i), 1.0);
    const Point after = geometry::tangentAt(geometry::arcAt(middle, (i + 1) % count), 0.0);
    least = std::min(least, dot(before, after));
  }
  const double ofHalf = std::sqrt(std::max(0.0, (1.0 + least) / 2.0));
  // Sharper corners are cut off, at twice the width from the vertex.
  constexpr double kSharpest = 0.25;
  return ofHalf < kSharpest ? kRound : 0.5 / ofHalf - kRound;
}

/// A polyline with a width, in its own coordinates until it is drawn: there its band is exact
/// whatever the map does to it.
class WidePolyline {
 public:
  WidePolyline(const Item& item, Canvas& canvas, const Affine& map, bool dashesAlongWhole)
      : item_(item),
        canvas_(canvas),
        map_(map),
        scale_(map.scale()),
        dashesAlongWhole_(dashesAlongWhole) {}

  void draw(const Path& path, const std::vector<geometry::EdgeWidth>& widths) {
    const double size = geometry::bounds(path).diagonal() * scale_;
    const geometry::Band band =
        geometry::bandOf(path, widths, canvas_.curveSettings(size).tolerance / scale_);
    if (band.runs.empty() && band.areas.empty()) {
      return canvas_.lose(item_, LossRule::ZeroLength, startPlace(path, map_));
    }
    showsPattern_ =
        item_.pen.patternLength > 0.0 &&
        Canvas::showsPattern(item_, canvas_.mapped(item_, path, map_), dashesAlongWhole_);
    if (showsPattern_) canvas_.losePattern(item_);
    for (const geometry::Band::Run& run : band.runs) {
      if (canvas_.step()) return;
      drawRun(run);
    }
    for (const Path& area : band.areas) {
      if (canvas_.step()) return;
      drawArea({area, {}});
    }
  }

 private:
  void drawRun(const geometry::Band::Run& run) {
    const double width = run.width * scale_;
    if (!(width > 0.0)) {
      return canvas_.stroke(item_, run.middle, map_, {.dashesAlongWhole = dashesAlongWhole_});
    }
    if (isWire(run, width)) return drawWire(run, width);
    for (const geometry::Region& region : geometry::bandAreas(run.middle, run.width)) {
      if (canvas_.step()) return;
      drawArea(region);
    }
  }

  bool isWire(const geometry::Band::Run& run, double width) const {
    if (width > canvas_.measures().widestWire) return false;
    switch (canvas_.options().wideLines) {
      case WideLines::Wires:
        return true;
      case WideLines::Areas:
        return false;
      case WideLines::Auto:
        break;
    }
    // What is shown then are the edges of the band.
    if (!canvas_.fills()) return false;
    return run.middle.closed || width <= kThinWire * canvas_.measures().millimetre ||
           run.width * kLongForItsWidth <= geometry::length(run.middle);
  }

  void drawWire(const geometry::Band::Run& run, double width) {
    const std::optional<Point> at = startPlace(run.middle, map_);
    if (shareOfRoundness(run.middle) * width > canvas_.measures().tolerance) {
      canvas_.lose(item_, LossRule::RoundEnds, at, width);
    }
    if (!geometry::keepsCircles(map_, run.width / 2.0, canvas_.measures().resolution)) {
      canvas_.lose(item_, LossRule::UnevenWidth, at, width);
    }
    canvas_.stroke(item_, run.middle, map_,
                   {.width = width, .dashesAlongWhole = dashesAlongWhole_});
  }

  void drawArea(const geometry::Region& region) {
    const bool isDashed = !item_.pen.dashes.empty() || item_.pen.style != Style::Continuous;
    if (isDashed && std::exchange(showsPattern_, false)) {
      canvas_.lose(item_, LossRule::DrawnSolid, startPlace(region.outer, map_));
    }
    if (region.holes.empty()) {
      return canvas_.area(item_, canvas_.mapped(item_, region.outer, map_));
    }
    geometry::Region placed{ring(region.outer), {}};
    for (const Path& hole : region.holes) placed.holes.push_back(ring(hole));
    canvas_.region(item_, placed);
  }

  /// A ring of a region, which keeps its sense.
  Path ring(const Path& path) {
    Path placed = canvas_.mapped(item_, path, map_);
    return map_.mirrors() ? geometry::reversed(placed) : placed;
  }

  const Item& item_;
  Canvas& canvas_;
  Affine map_;
  double scale_;
  bool dashesAlongWhole_;
  bool showsPattern_ = false;  ///< and it was not said that areas do not show it
};

bool hasAnyWidth(const std::vector<geometry::EdgeWidth>& widths) {
  return std::any_of(widths.begin(), widths.end(),
                     [](const auto& width) { return width.start != 0.0 || width.end != 0.0; });
}

/// The widths without their signs; none at all where they cannot be reckoned with.
std::vector<geometry::EdgeWidth> positiveWidths(std::vector<geometry::EdgeWidth> widths) {
  for (geometry::EdgeWidth& width : widths) {
    width = {std::fabs(width.start), std::fabs(width.end)};
    if (!geometry::usable(width.start) || !geometry::usable(width.end)) return {};
  }
  return widths;
}

}  // namespace

void drawFlatPolyline(const Item& item, Canvas& canvas, const FlatPolyline& polyline,
                      const Affine& map) {
  const Path& path = polyline.path;
  if (path.vertices.size() < 2) {
    return canvas.lose(item, LossRule::OneVertex, startPlace(path, map));
  }
  const bool isThin = canvas.options().widthless || !hasAnyWidth(polyline.widths);
  if (isThin || !(map.scale() > 0.0)) return drawThin(item, canvas, polyline, map);
  const std::vector<geometry::EdgeWidth> widths = positiveWidths(polyline.widths);
  const bool isUsable =
      !widths.empty() && std::all_of(path.vertices.begin(), path.vertices.end(),
                                     [](const auto& v) { return geometry::usable(v.at); });
  if (!isUsable) return canvas.lose(item, LossRule::UnusableNumbers);
  WidePolyline(item, canvas, map, polyline.dashesAlongWhole).draw(path, widths);
}

}  // namespace quillon::exact
