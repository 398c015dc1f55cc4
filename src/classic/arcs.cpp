#include <algorithm>
#include <cmath>
#include <utility>

#include "base/run_time_error.h"
#include "classic/curves.h"
#include "classic/lines.h"
#include "classic/near.h"
#include "geometry/angles.h"
#include "geometry/trigonometry.h"

namespace quillon::classic {

using geometry::cosine;
using geometry::normaliseAngle;
using geometry::rotatePoint;
using geometry::sine;

namespace {

Point pointOnCircle(double cx, double cy, double r, double degrees) {
  constexpr double k = kPi / 180.0;
  const double angle = k * degrees;
  return {cx + r * cosine(angle), cy + r * sine(angle)};
}

/// A circle to be walked dash by dash.
struct DashedCircle {
  double cx;
  double cy;
  double r;
  int layer;
};

void walkArc(Context& context, const DashedCircle& circle, double startAngle, double endAngle,
             const DashPattern& pattern) {
  DashWalk walk(pattern);
  double current = startAngle;
  double item = 0.0;
  while (current < endAngle && walk.next(current, item)) {
    if (context.cancelled()) return;
    if (item == 0.0) {
      // The dots of an arc go to its centre; kept so that scripts stay the same.
      writePoint(context, circle.cx, circle.cy, circle.layer);
      continue;
    }
    const double dash = item * context.settings.ltScale;
    const double step = std::fabs(dash) * kDegreesPerRadian / circle.r;
    if (!std::isfinite(step)) throw base::RunTimeError(base::Fault::BadDashLength, {});
    const double next = std::min(current + step, endAngle);
    if (dash > 0.0) {
      writeArc(context, circle.cx, circle.cy, circle.r, current, next, circle.layer);
    }
    current = next;
  }
}

/// An arc whose end is not after its start goes round once.
double walkedEnd(double startAngle, double endAngle) {
  constexpr double kTurn = 360.0;
  return endAngle > startAngle ? endAngle : endAngle + kTurn;
}

void mirrorAngles(double& startAngle, double& endAngle) {
  constexpr double kHalfTurn = 180.0;
  std::swap(startAngle, endAngle);
  startAngle = kHalfTurn - startAngle;
  endAngle = kHalfTurn - endAngle;
}

/// Centre scaled, rotated and moved.
Point placeCentre(double cx, double cy, const Placement& placement) {
  Point centre{cx * placement.scaleX, cy * placement.scaleY};
  if (placement.rotation != 0.0) centre = rotatePoint(centre.x, centre.y, placement.rotation);
  return {centre.x + placement.dx, centre.y + placement.dy};
}

/// A placement that leaves no ellipse of a circle or an arc.
bool isFlat(const Placement& placement) {
  return placement.scaleX == 0.0 && placement.scaleY != 0.0;
}

/// With unequal scales a circle or an arc is an ellipse, whatever the ellipse option says.
void writeAsEllipse(Context& context, double cx, double cy, double r, double startParam,
                    double endParam, const Placement& placement, int layer,
                    const DashPattern* dashes) {
  const auto [x, y] = placeCentre(cx, cy, placement);
  const double major = r * placement.scaleX;
  EllipseArc ellipse{.cx = x,
                     .cy = y,
                     .majorX = major,
                     .majorY = 0.0,
                     .ratio = placement.scaleY / placement.scaleX,
                     .startParam = startParam,
                     .endParam = endParam};
  if (placement.rotation != 0.0) {
    const Point turned = rotatePoint(major, 0.0, placement.rotation);
    ellipse.majorX = turned.x;
    ellipse.majorY = turned.y;
  }
  writeEllipse(context, ellipse, kEllipseSegments, layer, dashes);
}

}  // namespace

void writeArc(Context& context, double cx, double cy, double r, double startAngle, double endAngle,
              int layer) {
  if (layer == kNotConverted) return;
  const Point p1 = pointOnCircle(cx, cy, r, startAngle);
  const Point p2 = pointOnCircle(cx, cy, r, startAngle + 180.0);
  const Point p3 = pointOnCircle(cx, cy, r, endAngle);
  const auto near = [&context](const Point& a, const Point& b) {
    return pointsNear(a.x, a.y, b.x, b.y, 0, context.area.unit());
  };
  if (near(p1, p3)) return;
  if (near(p1, p2) || near(p2, p3)) {
    context.commands.wire({.from = p1, .to = p3, .kind = eagle::WireKind::FlatArc});
  } else if (context.settings.arcRangeCheck && context.area.isOutside(p2.x, p2.y)) {
    context.commands.wire({.from = p1, .to = p3, .kind = eagle::WireKind::FarArc});
  } else {
    context.commands.arc({.start = p1, .opposite = p2, .end = p3});
  }
}

void writeArcEntity(Context& context, double cx, double cy, double r, double startAngle,
                    double endAngle, const Placement& placement, int layer,
                    const DashPattern* dashes) {
  if (layer == kNotConverted || isFlat(placement)) return;
  startAngle = normaliseAngle(startAngle);
  endAngle = normaliseAngle(endAngle);
  context.commands.layer(layer);
  if (placement.scaleX != placement.scaleY) {
    if (context.settings.angDir == 1.0) std::swap(startAngle, endAngle);
    writeAsEllipse(context, cx, cy, r, radians(startAngle), radians(endAngle), placement, layer,
                   dashes);
    return;
  }
  const auto [x, y] = placeCentre(cx, cy, placement);
  r *= placement.scaleX;
  if (placement.scaleX < 0.0) mirrorAngles(startAngle, endAngle);
  startAngle += kDegreesPerRadian * placement.rotation;
  endAngle += kDegreesPerRadian * placement.rotation;
  if (startAngle == endAngle) {
    // The placement is applied a second time to the placed full circle; kept so that scripts stay
    // the same.
    writeCircle(context, x, y, r, placement, layer, dashes);
    return;
  }
  if (context.settings.angDir == 1.0) std::swap(startAngle, endAngle);
  if (dashes != nullptr && r != 0.0) {
    walkArc(context, {x, y, r, layer}, startAngle, walkedEnd(startAngle, endAngle), *dashes);
  } else {
    writeArc(context, x, y, r, startAngle, endAngle, layer);
  }
}

void writeCircle(Context& context, double cx, double cy, double r, const Placement& placement,
                 int layer, const DashPattern* dashes) {
  if (layer == kNotConverted || isFlat(placement)) return;
  if (placement.scaleX != placement.scaleY) {
    writeAsEllipse(context, cx, cy, r, 0.0, kTwoPi, placement, layer, dashes);
    return;
  }
  const auto [x, y] = placeCentre(cx, cy, placement);
  if (placement.scaleX != 1.0) r *= placement.scaleX;
  context.commands.layer(layer);
  if (dashes != nullptr && r != 0.0) {
    walkArc(context, {x, y, r, layer}, 0.0, 360.0, *dashes);
    return;
  }
  context.commands.circle(
      {.kind = eagle::CircleKind::RingAsBefore, .centre = {x, y}, .onCircle = {x, y + r}});
}

}  // namespace quillon::classic
