#include "geometry/path_map.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "geometry/arc.h"
#include "geometry/biarcs.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

void merge(CurveReport& sum, const CurveReport& part) {
  sum.limitReached = sum.limitReached || part.limitReached;
  sum.coarse = sum.coarse || part.coarse;
  sum.gap = sum.gap || part.gap;
  sum.unusable = sum.unusable || part.unusable;
}

/// Adds an arc, none of whose ends has been mapped, to a path that ends at its start.
CurveReport appendMapped(const Arc& arc, const Affine& map, const CurveSettings& settings,
                         Path& path) {
  // Parts of at most a quarter: halving them then tells ends from middles.
  const int count = std::max(1, static_cast<int>(std::ceil(std::fabs(arc.curve) / 90.0)));
  std::vector<double> cuts;
  for (int i = 0; i <= count; ++i) cuts.push_back(static_cast<double>(i) / count);
  const Curve curve = [&](double fraction, Side) -> CurveSample {
    return {map(pointAt(arc, fraction)), map.turn(tangentAt(arc, fraction))};
  };
  return appendBiarcs(curve, cuts, {}, settings, path);
}

bool staysUsable(const Path& path, const Affine& map) {
  return std::all_of(path.vertices.begin(), path.vertices.end(), [&map](const Vertex& vertex) {
    return usable(map(vertex.at)) && std::fabs(vertex.curve) < 360.0;
  });
}

/// Whether circles of every radius that drawings have stay circles to the bit, as under a turn and
/// a scaling, which may mirror.
bool keepsAllCircles(const Affine& map) {
  constexpr double kMostScale = 1e10;
  if (!(std::fabs(map.xx) <= kMostScale && std::fabs(map.yx) <= kMostScale)) return false;
  return (map.xx == map.yy && map.xy == -map.yx) || (map.xx == -map.yy && map.xy == map.yx);
}

/// Gives the path under the map. False where coordinates are huge, or arcs may not stay arcs.
bool mapAtOnce(const Path& path, const Affine& map, Path& result) {
  constexpr double kMostCoordinate = 1e80;
  constexpr double kLeastCurve = 1e-6;
  constexpr double kMostCurve = 360.0 - kLeastCurve;
  const bool keepsArcs = keepsAllCircles(map);
  const double sense = map.mirrors() ? -1.0 : 1.0;
  result.closed = path.closed;
  result.vertices.reserve(path.vertices.size());
  for (const Vertex& vertex : path.vertices) {
    const Point at = map(vertex.at);
    const bool isPlain = std::fabs(vertex.at.x) <= kMostCoordinate &&
                         std::fabs(vertex.at.y) <= kMostCoordinate && usable(at);
    if (!isPlain) return false;
    double curve = vertex.curve;
    if (curve != 0.0) {
      const double size = std::fabs(curve);
      if (!keepsArcs || !(size >= kLeastCurve && size <= kMostCurve)) return false;
      curve *= sense;
    }
    result.vertices.push_back({at, curve});
  }
  return true;
}

}  // namespace

std::optional<Path> mapExactly(const Path& path, const Affine& map, double resolution) {
  Path result;
  if (mapAtOnce(path, map, result)) return result;
  if (!staysUsable(path, map) || !transform(result = path, map, resolution)) return std::nullopt;
  return result;
}

CurvePath mapPath(const Path& path, const Affine& map, const CurveSettings& settings) {
  CurvePath result;
  if (std::optional<Path> exact = mapExactly(path, map, settings.resolution)) {
    result.path = std::move(*exact);
    return result;
  }
  if (!staysUsable(path, map)) {
    result.report.unusable = true;
    return result;
  }
  CurveSettings left = settings;
  std::vector<Vertex>& vertices = result.path.vertices;
  vertices = {{map(path.vertices.front().at), 0.0}};
  result.path.closed = false;
  for (std::size_t i = 0; i < arcCount(path); ++i) {
    const Arc arc = arcAt(path, i);
    const std::size_t before = vertices.size();
    if (arc.curve != 0.0) merge(result.report, appendMapped(arc, map, left, result.path));
    const Point end = map(arc.end);
    if (vertices.back().at != end) vertices.push_back({end, 0.0});
    left.maxVertices -= std::min(left.maxVertices, vertices.size() - before);
  }
  if (path.closed && vertices.size() > 1) {
    vertices.pop_back();  // the first one again
    result.path.closed = true;
  }
  return result;
}

}  // namespace quillon::geometry
