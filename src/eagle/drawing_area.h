#pragma once

#include <cmath>

#include "base/units.h"
#include "geometry/point.h"

namespace quillon::eagle {

/// Maps points of the drawing to EAGLE: the unit of its grid and the offset added to every
/// coordinate.
struct Coordinates {
  base::Unit unit = base::Unit::Mil;
  double offsetX = 0.0;
  double offsetY = 0.0;
  /// The largest absolute coordinate, in this unit; 0: that of EAGLE up to version 5.
  double limit = 0.0;
};

/// EAGLE's drawing area, a square centred on the origin.
class DrawingArea {
 public:
  explicit DrawingArea(const Coordinates& coordinates)
      : coordinates_(coordinates),
        limit_(coordinates.limit > 0.0 ? coordinates.limit
                                       : base::unitRecord(coordinates.unit).coordinateLimit) {}

  base::Unit unit() const { return coordinates_.unit; }
  /// The largest absolute coordinate inside.
  double limit() const { return limit_; }

  geometry::Point offset(double x, double y) const {
    return {x + coordinates_.offsetX, y + coordinates_.offsetY};
  }
  /// True when the point, with the offsets added, is outside.
  bool isOutside(double x, double y) const {
    const geometry::Point at = offset(x, y);
    return std::fabs(at.x) > limit_ || std::fabs(at.y) > limit_;
  }

 private:
  Coordinates coordinates_;
  double limit_;
};

}  // namespace quillon::eagle
