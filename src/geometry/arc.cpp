#include "geometry/arc.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geometry/degrees.h"
#include "geometry/trigonometry.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

/// Below this a curve has no effect on a double; sines of its parts might be 0.
constexpr double kNoCurve = 1e-12;

double sineOf(double degrees) { return unitVector(degrees).y; }

/// The length of the chord over the length of the arc's diameter.
double halfSine(const Arc& arc) { return sineOf(0.5 * std::fabs(arc.curve)); }

bool hasCurve(const Arc& arc) { return !(std::fabs(arc.curve) < kNoCurve); }

/// Whether the arc's circle is nearest to a side of the plane within the arc: `direction` is that
/// side, the others are the unit vectors from the centre to both ends.
bool passes(const Arc& arc, Point startNormal, Point endNormal, Point direction) {
  const double sense = arc.curve > 0.0 ? 1.0 : -1.0;
  const double pastStart = sense * cross(startNormal, direction);
  const double beforeEnd = sense * cross(direction, endNormal);
  return std::fabs(arc.curve) <= 180.0 ? pastStart > 0.0 && beforeEnd > 0.0
                                       : pastStart > 0.0 || beforeEnd > 0.0;
}

}  // namespace

double curveOfBulge(double bulge) {
  if (!std::isfinite(bulge) || std::fabs(bulge) < 1e-9) return 0.0;
  constexpr double kMost = 360.0 - 1e-9;
  return std::clamp(degreesOf(4.0 * arcTangent(bulge)), -kMost, kMost);
}

Arc arcAround(Point centre, double radius, double startDegrees, double endDegrees) {
  const double r = std::fabs(radius);
  const double sweep = sweepBetween(startDegrees, endDegrees);
  const Point start = centre + unitVector(startDegrees) * r;
  return {start, sweep == 360.0 ? start : centre + unitVector(endDegrees) * r, sweep};
}

Arc reversed(const Arc& arc) { return {arc.end, arc.start, -arc.curve}; }

std::pair<Arc, Arc> halves(const Arc& arc) {
  const Point between = pointAt(arc, 0.5);
  return {{arc.start, between, 0.5 * arc.curve}, {between, arc.end, 0.5 * arc.curve}};
}

double chord(const Arc& arc) { return distance(arc.start, arc.end); }

double sagitta(const Arc& arc) {
  if (arc.curve == 0.0) return 0.0;
  return 0.5 * chord(arc) * tangentOf(0.25 * std::fabs(arc.curve));
}

bool isStraight(const Arc& arc, double resolution) {
  if (arc.curve == 0.0) return 0.0 < 0.5 * resolution;
  // A tangent is no less than its angle, which mostly is enough.
  constexpr double kClearly = 1.0 + 1e-9;
  const Point least = (arc.end - arc.start) * radiansOf(0.25 * std::fabs(arc.curve));
  const double most = kClearly * resolution;
  if (dot(least, least) > most * most && std::fabs(arc.curve) < 360.0) return false;
  return sagitta(arc) < 0.5 * resolution;
}

double radius(const Arc& arc) {
  if (!hasCurve(arc)) return std::numeric_limits<double>::infinity();
  return 0.5 * chord(arc) / halfSine(arc);
}

Point centre(const Arc& arc) {
  const Point half = unitVector(0.5 * arc.curve);
  const Point toLeft = leftOf(arc.end - arc.start) * 0.5;
  return middle(arc.start, arc.end) + toLeft * (half.x / half.y);
}

double length(const Arc& arc) {
  if (!hasCurve(arc)) return chord(arc);
  return chord(arc) * radiansOf(0.5 * std::fabs(arc.curve)) / halfSine(arc);
}

Point pointAt(const Arc& arc, double fraction) {
  if (fraction <= 0.0) return arc.start;
  if (fraction >= 1.0) return arc.end;
  const Point way = arc.end - arc.start;
  if (!hasCurve(arc)) return arc.start + way * fraction;
  // The chord up to there: its length follows the sine of half the angle, and so does its
  // direction.
  const double share = sineOf(0.5 * fraction * arc.curve) / sineOf(0.5 * arc.curve);
  return arc.start + turned(way, unitVector(0.5 * (fraction - 1.0) * arc.curve)) * share;
}

Point tangentAt(const Arc& arc, double fraction) {
  return unit(turned(arc.end - arc.start, unitVector((fraction - 0.5) * arc.curve)));
}

Box bounds(const Arc& arc) {
  Box box;
  box.add(arc.start);
  box.add(arc.end);
  if (!hasCurve(arc) || arc.start == arc.end) return box;
  const Point outward = arc.curve > 0.0 ? Point{0.0, -1.0} : Point{0.0, 1.0};
  const Point startNormal = turned(tangentAt(arc, 0.0), outward);
  const Point endNormal = turned(tangentAt(arc, 1.0), outward);
  const double r = radius(arc);
  for (const Point side : {Point{1.0, 0.0}, {0.0, 1.0}, {-1.0, 0.0}, {0.0, -1.0}}) {
    if (!passes(arc, startNormal, endNormal, side)) continue;
    // 1 - cosine, without the loss of digits when the start is close to that side.
    const double along = dot(startNormal, side);
    const double across = cross(startNormal, side);
    const double rest = along > 0.0 ? across * across / (1.0 + along) : 1.0 - along;
    const Point reach = arc.start + side * (r * rest);
    box.add(side.x != 0.0 ? Point{reach.x, arc.start.y} : Point{arc.start.x, reach.y});
  }
  return box;
}

ArcDistance::ArcDistance(const Arc& arc) : arc_(arc), curvature_(0.0) {
  const Point way = arc.end - arc.start;
  if (arc.curve == 0.0) {
    startTangent_ = endTangent_ = unit(way);
    outward_ = leftOf(startTangent_);
    return;
  }
  // Directions to both sides mirror each other, but for those halfway between quarter turns, which
  // may be rounded to either.
  const double half = 0.5 * arc.curve;
  const Point last = unitVector(half);
  const bool isHalfway = std::fmod(std::fabs(half), 90.0) == 45.0;
  const Point first = isHalfway ? unitVector(-half) : Point{last.x, -last.y};
  startTangent_ = unit(turned(way, first));
  endTangent_ = unit(turned(way, last));
  outward_ = arc.curve > 0.0 ? -leftOf(startTangent_) : leftOf(startTangent_);
  const double sine = isHalfway ? halfSine(arc) : std::fabs(last.y);
  if (hasCurve(arc)) curvature_ = 2.0 * sine / chord(arc);
}

double ArcDistance::operator()(Point p) const {
  if (arc_.start == arc_.end) return distance(p, arc_.start);
  const Point fromStart = p - arc_.start;
  const bool pastStart = dot(fromStart, startTangent_) >= 0.0;
  const bool beforeEnd = dot(p - arc_.end, endTangent_) <= 0.0;
  const bool beside =
      std::fabs(arc_.curve) <= 180.0 ? pastStart && beforeEnd : pastStart || beforeEnd;
  if (!beside) return std::min(norm(fromStart), distance(p, arc_.end));
  // The distance from the centre less the radius, as a quotient in which nothing cancels out when
  // the radius is large, and which is right for lines too.
  const double excess = dot(fromStart, fromStart) * curvature_ + 2.0 * dot(fromStart, outward_);
  return std::fabs(excess / (1.0 + std::sqrt(std::max(0.0, 1.0 + curvature_ * excess))));
}

}  // namespace quillon::geometry
