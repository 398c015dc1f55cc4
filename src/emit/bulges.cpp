#include <algorithm>
#include <cmath>

#include "emit/curves.h"
#include "emit/geometry.h"
#include "emit/trigonometry.h"

namespace quillon::emit {
namespace {

constexpr double kSmallestBulge = 1e-6;
constexpr int kModeWithoutWidth = 0;

/// The circle through a bulge segment: its turn and the point opposite the start.
struct BulgeCircle {
  double theta = 0.0;  ///< included angle, negative: clockwise
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

void writeBulgeSegment(EmitContext& context, const BulgeSegment& s, double scaleX, double scaleY,
                       int layer) {
  if (layer == kNotConverted) return;
  ScriptWriter& script = context.script;
  const double width =
      context.settings.poly == kModeWithoutWidth ? 0.0 : s.width * std::max(scaleX, scaleY);
  BulgeCircle circle;
  const auto near = [&script](double xa, double ya, double xb, double yb) {
    return pointsNear(xa, ya, xb, yb, 0, script.unit());
  };
  const auto straight = [&] {
    if (std::fabs(s.bulge) < kSmallestBulge) return true;
    circle = bulgeCircle(s);
    return near(s.x1, s.y1, circle.diameterX, circle.diameterY) ||
           near(circle.diameterX, circle.diameterY, s.x2, s.y2) || near(s.x1, s.y1, s.x2, s.y2) ||
           (context.settings.arcRangeCheck &&
            script.isOutOfRange(circle.diameterX, circle.diameterY));
  };
  script.writeLayer(layer);
  if (straight()) {
    script.text("Wire ").number(width).text(" ").formatPoint(s.x1, s.y1).text(" ");
  } else {
    script.text(circle.theta <= 0.0 ? "Arc CW " : "Arc CCW ").number(width).text(" ");
    script.formatPoint(s.x1, s.y1).text(" ");
    script.formatPoint(circle.diameterX, circle.diameterY).text(" ");
  }
  script.formatPoint(s.x2, s.y2).text(";").endLine();
  script.finishCommand(2);
}

}  // namespace quillon::emit
