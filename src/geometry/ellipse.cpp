#include "geometry/ellipse.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <vector>

#include "geometry/arc.h"
#include "geometry/biarcs.h"
#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// Ends of axes that are closer to an end of the curve are no places to cut at.
constexpr double kAtEnd = 1e-7;

bool isUsable(const Ellipse& e) {
  return usable(e.centre) && usable(e.u) && usable(e.v) && usable(e.start) && usable(e.sweep);
}

/// The parameter in degrees at which the ellipse is furthest from its centre; the other ends of
/// axes are quarters from there.
double farthest(const Ellipse& e) {
  const double lengths = dot(e.u, e.u) - dot(e.v, e.v);
  return 0.5 * directionOf({lengths, 2.0 * dot(e.u, e.v)});
}

/// The least parameter above start that is `offset` or steps away from it.
double firstAbove(double start, double offset, double step) {
  return start + sweepBetween(start * (360.0 / step), offset * (360.0 / step)) * (step / 360.0);
}

/// The parameters `offset`, and steps away from it, within the curve but not at its ends.
std::vector<double> within(const Ellipse& e, double offset, double step) {
  std::vector<double> parameters;
  const double first = firstAbove(e.start, offset, step);
  for (int i = 0; i < 5; ++i) {  // more there are not in a turn
    const double t = first + step * i;
    if (t > e.start + kAtEnd && t < e.start + e.sweep - kAtEnd) parameters.push_back(t);
  }
  return parameters;
}

Path circlePath(const Ellipse& e, double resolution) {
  const double r = norm(e.u);
  if (e.full()) {
    const Point left{e.centre.x - r, e.centre.y};
    return {{{left, 180.0}, {{e.centre.x + r, e.centre.y}, 180.0}}, true};
  }
  const double curve = cross(e.u, e.v) < 0.0 ? -e.sweep : e.sweep;
  const Arc arc{e.at(e.start), e.at(e.start + e.sweep), curve};
  if (std::fabs(curve) > 359.0) {
    const Point between = e.at(e.start + 0.5 * e.sweep);
    return {{{arc.start, 0.5 * curve}, {between, 0.5 * curve}, {arc.end, 0.0}}, false};
  }
  return {{{arc.start, isStraight(arc, resolution) ? 0.0 : curve}, {arc.end, 0.0}}, false};
}

/// The outermost points of a flat ellipse, in the order in which they come.
Path segmentOf(const Ellipse& e) {
  const double direction = farthest(e);
  const Point axis = e.at(direction) - e.centre;
  std::vector<double> parameters = within(e, direction, 180.0);
  parameters.insert(parameters.begin(), e.start);
  parameters.push_back(e.start + e.sweep);
  const auto along = [&](double t) { return dot(e.at(t) - e.centre, axis); };
  const auto [low, high] =
      std::minmax_element(parameters.begin(), parameters.end(),
                          [&](double a, double b) { return along(a) < along(b); });
  const auto [first, second] = std::minmax(*low, *high);
  return {{{e.at(first), 0.0}, {e.at(second), 0.0}}, false};
}

/// Points by turns of the first one: parts of the same width share their turns.
class EllipsePoints final : public CurvePoints {
 public:
  explicit EllipsePoints(const Ellipse& ellipse) : ellipse_(ellipse) {}

  void divide(double from, double to, const CurveSample& start, PartPoints& points) override {
    const PartPoints& turns = turnsBy((to - from) / static_cast<double>(kPointsInPart + 1));
    const Point centre = ellipse_.centre;
    const Point out = start.at - centre;
    const Point along = start.derivative;
    for (std::size_t i = 0; i < points.x.size(); ++i) {
      points.x[i] = centre.x + out.x * turns.x[i] + along.x * turns.y[i];
      points.y[i] = centre.y + out.y * turns.x[i] + along.y * turns.y[i];
    }
  }
  Point middle(double from, double to, const CurveSample& start) override {
    const PartPoints& turns = turnsBy((to - from) / static_cast<double>(kPointsInPart + 1));
    const Point turn = turns[kPointsInPart / 2];
    return ellipse_.centre + (start.at - ellipse_.centre) * turn.x + start.derivative * turn.y;
  }
  Point at(double parameter) override { return ellipse_.at(parameter); }
  double size() const override {
    // Larger parameters are not exact enough.
    constexpr double kMostDegrees = 1e4;
    if (!(std::fabs(ellipse_.start) < kMostDegrees)) return std::numeric_limits<double>::infinity();
    return norm(ellipse_.centre) + norm(ellipse_.u) + norm(ellipse_.v);
  }

 private:
  struct Turns {
    double step = std::numeric_limits<double>::quiet_NaN();  ///< degrees; not a number at first
    PartPoints by;
  };

  /// The unit vectors of the multiples of an angle.
  const PartPoints& turnsBy(double step) {
    constexpr double kSame = 1e-12;
    Turns& turns = turns_[static_cast<std::size_t>(std::ilogb(step)) % turns_.size()];
    if (std::fabs(turns.step - step) <= kSame) return turns.by;
    turns.step = step;
    const Point once = unitVector(step);
    Point turn = once;
    for (std::size_t i = 0; i < kPointsInPart; ++i, turn = turned(turn, once)) {
      turns.by.set(i, turn);
    }
    return turns.by;
  }

  const Ellipse& ellipse_;
  std::array<Turns, 8> turns_;  ///< each half as wide as the one before
};

CurvePath biarcPath(const Ellipse& e, const CurveSettings& settings) {
  Ellipse drawn = e;
  if (e.full()) {
    // Then all cuts, the start among them, are ends of axes.
    const double way = firstAbove(e.start, farthest(e), 90.0) - e.start;
    if (way > kAtEnd && way < 90.0 - kAtEnd) drawn.start += way;
  }
  std::vector<double> cuts = within(drawn, farthest(drawn), 90.0);
  cuts.insert(cuts.begin(), drawn.start);
  cuts.push_back(drawn.start + drawn.sweep);
  const Curve curve = [&drawn](double t, Side) -> CurveSample {
    const Point direction = unitVector(t);
    return {drawn.centre + drawn.u * direction.x + drawn.v * direction.y,
            drawn.v * direction.x - drawn.u * direction.y};
  };
  EllipsePoints points(drawn);
  CurvePath result;
  result.report = appendBiarcs(curve, cuts, {}, settings, result.path, &points);
  if (drawn.full() && result.path.vertices.size() > 2) {
    result.path.vertices.pop_back();  // the first one again, but for rounding
    result.path.closed = true;
  }
  return result;
}

}  // namespace

Point Ellipse::at(double degrees) const {
  const Point direction = unitVector(degrees);
  return centre + u * direction.x + v * direction.y;
}

Ellipse circle(Point centre, double radius) {
  const double r = std::fabs(radius);
  return {centre, {r, 0.0}, {0.0, r}};
}

Ellipse circularArc(Point centre, double radius, double startDegrees, double endDegrees) {
  Ellipse arc = circle(centre, radius);
  arc.start = startDegrees;
  arc.sweep = sweepBetween(startDegrees, endDegrees);
  return arc;
}

Ellipse ellipticArc(Point centre, Point major, Point minor, double startRadians,
                    double endRadians) {
  constexpr double kTurn = 2.0 * std::numbers::pi;
  double sweep = endRadians - startRadians;
  if (sweep <= 0.0) sweep = std::fmod(sweep, kTurn) + kTurn;
  Ellipse arc{centre, major, minor, degreesOf(startRadians), degreesOf(sweep)};
  if (sweep >= kTurn - 1e-9) arc.sweep = 360.0;
  return arc;
}

Ellipse clockwise(const Ellipse& ellipse) {
  return {ellipse.centre, ellipse.u, -ellipse.v, ellipse.start, ellipse.sweep};
}

Ellipse mapped(const Ellipse& ellipse, const Affine& map) {
  return {map(ellipse.centre), map.turn(ellipse.u), map.turn(ellipse.v), ellipse.start,
          ellipse.sweep};
}

bool isCircle(const Ellipse& ellipse, double resolution) {
  const double length = norm(ellipse.u);
  const double most = std::max(0.5 * resolution, 1e-9 * length);
  return std::fabs(length - norm(ellipse.v)) <= most &&
         std::fabs(dot(ellipse.u, ellipse.v)) <= most * length;
}

bool isFlat(const Ellipse& ellipse) {
  // The longest half axis squared is at most the sum of any two squared, which mostly is enough,
  // unless rounding next to the centre counts.
  constexpr double kClearly = 1.001;
  const double most = dot(ellipse.u, ellipse.u) + dot(ellipse.v, ellipse.v);
  const double area = std::fabs(cross(ellipse.u, ellipse.v));
  if (area > kClearly * 1e-6 * most && most > 1e-20 * dot(ellipse.centre, ellipse.centre)) {
    return false;
  }
  const double longest = norm(ellipse.at(farthest(ellipse)) - ellipse.centre);
  return !(std::fabs(cross(ellipse.u, ellipse.v)) >= 1e-6 * longest * longest) || longest == 0.0;
}

double mostDiagonal(const Ellipse& ellipse) {
  constexpr double kMore = 1.0 + 1e-9;
  constexpr double kRounding = 1e-12;
  const double half = std::sqrt(dot(ellipse.u, ellipse.u) + dot(ellipse.v, ellipse.v));
  return 2.0 * kMore * half + kRounding * norm(ellipse.centre);
}

Box bounds(const Ellipse& ellipse) {
  Box box;
  if (!isUsable(ellipse)) return box;
  box.add(ellipse.at(ellipse.start));
  box.add(ellipse.at(ellipse.start + ellipse.sweep));
  for (const double offset :
       {directionOf({ellipse.u.x, ellipse.v.x}), directionOf({ellipse.u.y, ellipse.v.y})}) {
    for (const double t : within(ellipse, offset, 180.0)) box.add(ellipse.at(t));
  }
  return box;
}

CurvePath ellipsePath(const Ellipse& ellipse, const CurveSettings& settings) {
  if (!isUsable(ellipse) || !(ellipse.sweep > 0.0)) {
    CurvePath none;
    none.report.unusable = true;
    return none;
  }
  if (isCircle(ellipse, settings.resolution)) {
    return {circlePath(ellipse, settings.resolution), {}};
  }
  if (isFlat(ellipse)) return {segmentOf(ellipse), {}};
  return biarcPath(ellipse, settings);
}

}  // namespace quillon::geometry
