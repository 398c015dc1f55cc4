#include "geometry/crossings.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <utility>

#include "base/ranges.h"
#include "geometry/area.h"
#include "geometry/grid_faces.h"
#include "geometry/grid_segments.h"

namespace quillon::geometry {
namespace {

/// Between coordinates and steps of the grid, whose origin is in the middle of the loops.
class Grid {
 public:
  Grid(const Box& box, double step) {
    origin_ = box.low + (box.high - box.low) * 0.5;
    const double size = std::max(box.high.x - box.low.x, box.high.y - box.low.y);
    step_ = std::max(size / double(kLargestStep), step > 0.0 ? step : 0.0);
    if (!(step_ > 0.0)) step_ = 1.0;  // all loops are in one point
  }

  GridPoint operator()(Point p) const {
    return {std::llround((p.x - origin_.x) / step_), std::llround((p.y - origin_.y) / step_)};
  }
  Point operator()(GridPoint p) const { return origin_ + Point{double(p.x), double(p.y)} * step_; }

 private:
  Point origin_;
  double step_ = 1.0;
};

/// Takes corners off a ring where it comes back to the same point. Of the visits to a point that
/// with the widest angle stays: at most one is wider than 180 degrees.
class CornerCutter {
 public:
  CornerCutter(const std::vector<GridPoint>& ring, const Grid& grid, double gap) : gap_(gap) {
    for (const GridPoint& p : ring) points_.push_back(grid(p));
    std::vector<std::size_t> order(ring.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    base::ranges::sort(order, [&](std::size_t a, std::size_t b) {
      return std::pair(ring[a], -angleAt(a)) < std::pair(ring[b], -angleAt(b));
    });
    cut_.resize(ring.size(), false);
    for (std::size_t i = 1; i < order.size(); ++i) {
      cut_[order[i]] = ring[order[i]] == ring[order[i - 1]];
    }
  }

  Path outline() const {
    Path path{.vertices = {}, .closed = true};
    for (std::size_t i = 0; i < points_.size(); ++i) {
      if (cut_[i]) {
        addCut(i, path);
      } else {
        path.vertices.push_back({points_[i]});
      }
    }
    return path;
  }

 private:
  Point back(std::size_t i) const {
    return points_[(i + points_.size() - 1) % points_.size()] - points_[i];
  }
  Point onward(std::size_t i) const { return points_[(i + 1) % points_.size()] - points_[i]; }

  /// Of the area at the left of the ring, in 0..2 pi.
  double angleAt(std::size_t i) const {
    const double angle = std::atan2(cross(onward(i), back(i)), dot(onward(i), back(i)));
    return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
  }

  void addCut(std::size_t i, Path& path) const {
    const double before = norm(back(i));
    const double after = norm(onward(i));
    const double cut = std::min({gap_, before / 4.0, after / 4.0});
    const double angle = angleAt(i);
    if (angle > std::numbers::pi * 0.99) {
      const Point inwards = turned(onward(i) * (cut / after), angle / 2.0);
      path.vertices.push_back({points_[i] + inwards});
      return;
    }
    path.vertices.push_back({points_[i] + back(i) * (cut / before)});
    path.vertices.push_back({points_[i] + onward(i) * (cut / after)});
  }

  double gap_;
  std::vector<Point> points_;
  std::vector<bool> cut_;
};

std::optional<std::vector<Path>> flatLoops(std::span<const Path> loops, double tolerance,
                                           Box& box) {
  std::vector<Path> flat;
  for (const Path& loop : loops) {
    if (!isUsable(loop)) return std::nullopt;
    Path closed = loop;
    closed.closed = true;
    flat.push_back(flattened(closed, tolerance));
    if (!flat.back().vertices.empty()) box.add(boundsOf(flat.back()));
  }
  return flat;
}

}  // namespace

CrossingFaces facesOf(std::span<const Path> loops, const CrossingOptions& options) {
  CrossingFaces result;
  Box box;
  const auto flat = flatLoops(loops, options.tolerance, box);
  if (!flat) return {{}, false};
  const Grid grid(box, options.tolerance / 10.0);
  std::vector<GridSegment> segments;
  for (const Path& loop : *flat) {
    for (std::size_t i = 0; i < edgeCount(loop); ++i) {
      const Edge edge = edgeAt(loop, i);
      segments.push_back({grid(edge.from), grid(edge.to)});
    }
  }
  if (!splitAtCrossings(segments)) return {{}, false};
  for (const GridFace& face : oddFaces(segments)) {
    Region region{CornerCutter(face.outer, grid, options.gap).outline(), {}};
    for (const auto& hole : face.holes) {
      region.holes.push_back(CornerCutter(hole, grid, options.gap).outline());
    }
    result.faces.push_back(std::move(region));
  }
  return result;
}

}  // namespace quillon::geometry
