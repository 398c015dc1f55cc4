#include "geometry/bands.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/ranges.h"
#include "geometry/area.h"
#include "geometry/path_arcs.h"

namespace quillon::geometry {
namespace {

constexpr int kMostParts = 256;

bool isUsable(const EdgeWidth& width) {
  return width.start >= 0.0 && width.start <= 1e100 && width.end >= 0.0 && width.end <= 1e100;
}

/// The curve of the arc through three points, in degrees.
double curveThrough(Point from, Point middle, Point to) {
  const Point one = middle - from;
  const Point other = to - middle;
  return degreesOf(2.0 * std::atan2(cross(one, other), dot(one, other)));
}

/// The border at the left of an arc (or at its right) whose width changes.
class Border {
 public:
  Border(const Edge& edge, EdgeWidth width, double side)
      : edge_(edge), width_(width), side_(side / 2.0) {}

  Point at(double fraction) const {
    const double width = width_.start + (width_.end - width_.start) * fraction;
    return pointAt(edge_, fraction) + leftOf(directionAt(edge_, fraction)) * (side_ * width);
  }

  /// As arcs, without the point at the end.
  std::vector<Vertex> arcs(double tolerance) const {
    int parts = 1;
    while (parts < kMostParts && !isNear(parts, tolerance)) parts *= 2;
    std::vector<Vertex> vertices;
    for (int i = 0; i < parts; ++i) {
      const Edge arc = arcOf(i, parts);
      vertices.push_back({arc.from, arc.curve});
    }
    return vertices;
  }

 private:
  Edge arcOf(int part, int parts) const {
    const Point from = at(part / double(parts));
    const Point middle = at((part + 0.5) / parts);
    const Point to = at((part + 1) / double(parts));
    return {from, to, edge_.curve == 0.0 ? 0.0 : curveThrough(from, middle, to)};
  }

  bool isNear(int parts, double tolerance) const {
    for (int i = 0; i < parts; ++i) {
      const Edge arc = arcOf(i, parts);
      if (arc.from == arc.to || std::fabs(arc.curve) > 300.0) return false;
      for (const double share : {0.125, 0.25, 0.375, 0.625, 0.75, 0.875}) {
        if (distanceTo(arc, at((i + share) / parts)) > tolerance) return false;
      }
    }
    return true;
  }

  Edge edge_;
  EdgeWidth width_;
  double side_;
};

Path taperedArea(const Edge& edge, EdgeWidth width, double tolerance) {
  // Along the right border and back along the left one.
  Path area{Border(edge, width, -1.0).arcs(tolerance), true};
  area.vertices.push_back({Border(edge, width, -1.0).at(1.0)});
  const Edge back = reversed(edge);
  const EdgeWidth backWidth{width.end, width.start};
  for (const Vertex& vertex : Border(back, backWidth, -1.0).arcs(tolerance)) {
    area.vertices.push_back(vertex);
  }
  area.vertices.push_back({Border(back, backWidth, -1.0).at(1.0)});
  area = withoutShortEdges(area, 0.0);
  return signedArea(area) < 0.0 ? reversed(area) : area;
}

/// Puts the last run of a closed polyline in front of the first one, where both have one width.
void joinAround(std::vector<Band::Run>& runs) {
  if (runs.size() < 2 || runs.front().width != runs.back().width) return;
  Path& first = runs.front().middle;
  Path& last = runs.back().middle;
  if (first.vertices.front().at != last.vertices.back().at) return;
  last.vertices.pop_back();
  first.vertices.insert(first.vertices.begin(), last.vertices.begin(), last.vertices.end());
  runs.pop_back();
}

}  // namespace

Band bandOf(const Path& path, std::span<const EdgeWidth> widths, double tolerance) {
  Band band;
  if (!isUsable(path)) return band;
  if (!base::ranges::all_of(widths, [](const EdgeWidth& w) { return isUsable(w); })) return band;
  bool inRun = false;
  bool whole = true;
  for (std::size_t i = 0; i < edgeCount(path); ++i) {
    const Edge edge = edgeAt(path, i);
    if (edge.from == edge.to) continue;
    const EdgeWidth width = i < widths.size() ? widths[i] : EdgeWidth{};
    if (width.start != width.end) {
      band.areas.push_back(taperedArea(edge, width, tolerance));
      inRun = whole = false;
      continue;
    }
    if (!inRun || band.runs.back().width != width.start) {
      whole = whole && band.runs.empty();
      band.runs.push_back({{{{edge.from}}, false}, width.start});
    }
    inRun = true;
    Path& middle = band.runs.back().middle;
    middle.vertices.back().curve = edge.curve;
    middle.vertices.push_back({edge.to});
  }
  if (!path.closed || band.runs.empty()) return band;
  Path& first = band.runs.front().middle;
  if (whole) {
    first.vertices.pop_back();
    first.closed = true;
  } else {
    joinAround(band.runs);
  }
  return band;
}

}  // namespace quillon::geometry
