#pragma once

#include "geometry/angles.h"
#include "geometry/point.h"

namespace quillon::geometry {

/// Where an entity is placed: scale, then rotation, then translation.
struct Placement {
  double dx = 0.0;
  double dy = 0.0;
  double scaleX = 1.0;
  double scaleY = 1.0;
  double rotation = 0.0;  ///< radians
};

/// Factors (1 or -1) from an entity's extrusion, applied before the scale.
struct Mirror {
  double x = 1.0;
  double y = 1.0;
};

/// A point mirrored, scaled and rotated, but not moved.
inline Point turnPoint(double x, double y, const Mirror& mirror, const Placement& placement) {
  x = x * mirror.x * placement.scaleX;
  y = y * mirror.y * placement.scaleY;
  if (placement.rotation == 0.0) return {x, y};
  return rotatePoint(x, y, placement.rotation);
}

/// A placed point: mirrored, scaled, rotated and moved, in this order.
inline Point placePoint(double x, double y, const Mirror& mirror, const Placement& placement) {
  const Point turned = turnPoint(x, y, mirror, placement);
  return {turned.x + placement.dx, turned.y + placement.dy};
}

}  // namespace quillon::geometry
