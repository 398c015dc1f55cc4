#include "exact/hatch_loops.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/area.h"
#include "geometry/crossings.h"
#include "geometry/degrees.h"
#include "geometry/ellipse.h"
#include "geometry/fit_spline.h"
#include "geometry/path_tools.h"
#include "geometry/spline.h"

namespace quillon::exact {
namespace {

using geometry::distance;
using geometry::Ellipse;
using geometry::usable;

/// Joins edges, in units of the script, in their order. Each path may be several loops: one ends
/// where it comes back to its start and the next edge is elsewhere.
class LoopJoiner {
 public:
  LoopJoiner(const Item& item, Canvas& canvas, std::vector<Path>& loops)
      : item_(item),
        canvas_(canvas),
        loops_(loops),
        resolution_(canvas.measures().resolution),
        join_(std::max(canvas.measures().join, resolution_)) {}

  void add(Path edge) {
    if (edge.vertices.size() < 2) return;
    if (edge.closed) return loops_.push_back(std::move(edge));
    if (edges_ == 1) turnFirstTowards(edge);
    if (edges_ > 1 && meet(start(), end()) && !meet(end(), edge.vertices.front().at) &&
        !meet(end(), edge.vertices.back().at)) {
      finish();
    }
    ++edges_;
    if (edges_ == 1) {
      chain_ = std::move(edge);
      return;
    }
    const double toFront = distance(end(), edge.vertices.front().at);
    const double toBack = distance(end(), edge.vertices.back().at);
    if (toBack <= join_ && toBack < toFront) geometry::reverse(edge);
    connect(std::move(edge));
  }

  void finish() {
    if (edges_ > 0) close();
    chain_ = {};
    edges_ = 0;
  }

 private:
  Point start() const { return chain_.vertices.front().at; }
  Point end() const { return chain_.vertices.back().at; }
  bool meet(Point a, Point b) const { return distance(a, b) <= join_; }
  bool endsStraight() const { return chain_.vertices[chain_.vertices.size() - 2].curve == 0.0; }

  /// Only the second edge tells in which sense the first one is walked.
  void turnFirstTowards(const Path& edge) {
    const auto meetsEdge = [&](Point p) {
      return meet(p, edge.vertices.front().at) || meet(p, edge.vertices.back().at);
    };
    if (!meetsEdge(end()) && meetsEdge(start())) geometry::reverse(chain_);
  }

  /// Of two ends that are one point, that of a line gives way: arcs stay as they are.
  void connect(Path edge) {
    Point& next = edge.vertices.front().at;
    const double gap = distance(end(), next);
    if (gap > join_) {
      canvas_.lose(item_, LossRule::HatchGapClosed, end(), gap);
    } else if (endsStraight()) {
      chain_.vertices.back().at = next;
    } else if (edge.vertices.front().curve == 0.0) {
      next = end();
    }
    geometry::append(chain_, edge, resolution_);
  }

  void close() {
    std::vector<geometry::Vertex>& vertices = chain_.vertices;
    const double gap = distance(start(), end());
    if (gap > join_) {
      canvas_.lose(item_, LossRule::HatchGapClosed, end(), gap);
    } else if (!endsStraight() && vertices.front().curve == 0.0) {
      vertices.front().at = end();
      vertices.pop_back();
    } else if (endsStraight() || gap < resolution_) {
      vertices.pop_back();
    }
    chain_.closed = true;
    loops_.push_back(std::move(chain_));
  }

  const Item& item_;
  Canvas& canvas_;
  std::vector<Path>& loops_;
  double resolution_;
  double join_;
  Path chain_;
  std::size_t edges_ = 0;  ///< in the chain
};

/// The parameter in degrees at which an ellipse is in this direction from its centre.
double parameterAt(double degrees, double ratio) {
  const Point way = geometry::unitVector(degrees);
  return ratio == 0.0 ? degrees : geometry::directionOf({way.x, way.y / ratio});
}

/// An arc of a circle or an ellipse; clockwise ones have their angles counted clockwise, too.
Ellipse ellipseOf(const HatchEdge& edge) {
  Ellipse ellipse = geometry::circle(edge.from, edge.radius);
  ellipse.start = edge.start;
  double end = edge.end;
  if (edge.kind == HatchEdge::Kind::Ellipse) {
    ellipse.u = edge.to;
    ellipse.v = geometry::leftOf(edge.to) * edge.radius;
    ellipse.start = parameterAt(edge.start, edge.radius);
    end = parameterAt(edge.end, edge.radius);
  }
  constexpr double kWholeTurn = 360.0 - 1e-7;
  ellipse.sweep = geometry::sweepBetween(ellipse.start, end);
  if (ellipse.sweep > kWholeTurn) ellipse.sweep = 360.0;
  return edge.isClockwise ? geometry::clockwise(ellipse) : ellipse;
}

class LoopMaker {
 public:
  LoopMaker(const Item& item, Canvas& canvas, const Affine& map)
      : item_(item), canvas_(canvas), map_(map) {}

  void add(const HatchLoop& loop) {
    if (loop.isPolyline) {
      loops_.push_back(canvas_.mapped(item_, loop.polyline, map_));
      return;
    }
    LoopJoiner joiner(item_, canvas_, loops_);
    for (const HatchEdge& edge : loop.edges) {
      if (canvas_.step()) return;
      joiner.add(pathOf(loop, edge));
    }
    joiner.finish();
  }

  /// Those that are left when all is done that EAGLE's precision asks for.
  std::vector<Path> result() {
    std::vector<Path> kept;
    for (Path& loop : loops_) {
      if (canvas_.step()) break;
      geometry::tidy(loop, canvas_.measures().resolution);
      if (hasArea(loop)) kept.push_back(std::move(loop));
    }
    return kept;
  }

 private:
  Path pathOf(const HatchLoop& loop, const HatchEdge& edge) {
    switch (edge.kind) {
      case HatchEdge::Kind::Unknown:
        break;
      case HatchEdge::Kind::Line:
        return lineOf(edge);
      case HatchEdge::Kind::Arc:
      case HatchEdge::Kind::Ellipse:
        return canvas_.mapped(item_, ellipseOf(edge), map_);
      case HatchEdge::Kind::Spline:
        return splineOf(loop.splines[edge.spline]);
    }
    canvas_.lose(item_, LossRule::DamagedEntity);
    return {};
  }

  Path lineOf(const HatchEdge& edge) {
    const Point from = map_(edge.from);
    const Point to = map_(edge.to);
    if (usable(from) && usable(to)) return {{{from}, {to}}, false};
    canvas_.lose(item_, LossRule::UnusableNumbers);
    return {};
  }

  Path splineOf(const HatchSpline& spline) {
    if (spline.controlPoints.size() >= 2) {
      std::vector<Point> points = spline.controlPoints;
      for (Point& point : points) point = map_(point);
      return canvas_.mapped(item_,
                            geometry::Spline(spline.degree, points, spline.knots, spline.weights));
    }
    geometry::FitEnds ends;
    ends.closed = spline.isPeriodic;
    if (spline.startTangent != Point{}) ends.startDirection = spline.startTangent;
    if (spline.endTangent != Point{}) ends.endDirection = spline.endTangent;
    const geometry::FitSpline fit(spline.fitPoints, ends);
    if (fit.usable()) return canvas_.mapped(item_, fit, map_);
    canvas_.lose(item_, LossRule::DamagedEntity);
    return {};
  }

  /// A loop whose parts cancel out, like an eight, has one all the same.
  bool hasArea(const Path& loop) const {
    if (loop.vertices.size() < 2) return false;
    const double size = geometry::bounds(loop).diagonal();
    const double least = 0.5 * canvas_.measures().resolution * size;
    if (std::fabs(geometry::signedArea(loop)) > least) return true;
    const auto faces =
        geometry::facesOf({&loop, 1}, {.tolerance = canvas_.curveSettings(size).tolerance});
    return !faces.complete || !faces.faces.empty();
  }

  const Item& item_;
  Canvas& canvas_;
  Affine map_;
  std::vector<Path> loops_;
};

}  // namespace

std::vector<Path> hatchLoops(const Item& item, Canvas& canvas, const HatchGroups& hatch) {
  LoopMaker maker(item, canvas, item.objectMap(hatch.elevation) * Affine::shift(hatch.offset));
  for (const HatchLoop& loop : hatch.loops) {
    if (canvas.step()) break;
    if (loop.isTextBox) {
      canvas.lose(item, LossRule::HatchTextBox);
      continue;
    }
    maker.add(loop);
  }
  return maker.result();
}

}  // namespace quillon::exact
