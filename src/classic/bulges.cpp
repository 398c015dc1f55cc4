#include <algorithm>
#include <cmath>

#include "classic/curves.h"
#include "classic/near.h"
#include "geometry/angles.h"
#include "geometry/trigonometry.h"

namespace quillon::classic {

using geometry::arcTangent;
using geometry::cosine;
using geometry::polarAngle;
using geometry::sine;

namespace {

/// The circle through a bulge segment: its included angle and the point opposite the start.
struct BulgeCircle {
  double theta = 0.0;  ///< included angle; negative is clockwise
  double diameterX = 0.0;
  double diameterY = 0.0;
};

BulgeCircle bulgeCircle(const BulgeSegment& s) {
  const double dx = s.x2 - s.x1;
  const double dy = s.y2 - s.y1;
  const double chord = std::sqrt(dx * dx + dy * dy);
  const double phi = polarAngle(dx, dy);
  BulgeCircle circle;
  circle.theta = 4.0 * arcTangent(s.bulge);
  const double radius = chord / (2.0 * sine(circle.theta / 2.0));
  if (circle.theta <= 0.0) {
    const double angle = phi - (circle.theta + kPi) / 2.0;
    circle.diameterX = s.x1 - 2.0 * radius * cosine(angle);
    circle.diameterY = s.y1 - 2.0 * radius * sine(angle);
  } else {
    const double angle = phi + (kPi - circle.theta) / 2.0;
    circle.diameterX = s.x1 + 2.0 * radius * cosine(angle);
    circle.diameterY = s.y1 + 2.0 * radius * sine(angle);
  }
  return circle;
}

}  // namespace

void writeBulgeSegment(Context& context, const BulgeSegment& s, double scaleX, double scaleY,
                       int layer) {
  if (layer == kNotConverted) return;
  const double width =
      context.settings.poly == kModeWithoutWidth ? 0.0 : s.width * std::max(scaleX, scaleY);
  BulgeCircle circle;
  const auto near = [&context](double xa, double ya, double xb, double yb) {
    return pointsNear(xa, ya, xb, yb, 0, context.area.unit());
  };
  const auto straight = [&] {
    if (std::fabs(s.bulge) < kSmallestBulge) return true;
    circle = bulgeCircle(s);
    return near(s.x1, s.y1, circle.diameterX, circle.diameterY) ||
           near(circle.diameterX, circle.diameterY, s.x2, s.y2) || near(s.x1, s.y1, s.x2, s.y2) ||
           (context.settings.arcRangeCheck &&
            context.area.isOutside(circle.diameterX, circle.diameterY));
  };
  context.commands.layer(layer);
  if (straight()) {
    context.commands.wire({.width = width, .from = {s.x1, s.y1}, .to = {s.x2, s.y2}});
  } else {
    context.commands.arc(
        {.sense = circle.theta <= 0.0 ? eagle::Sense::Clockwise : eagle::Sense::CounterClockwise,
         .width = width,
         .start = {s.x1, s.y1},
         .opposite = {circle.diameterX, circle.diameterY},
         .end = {s.x2, s.y2}});
  }
}

}  // namespace quillon::classic
