#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

#include "emit/areas.h"
#include "emit/placement.h"

namespace quillon::emit {

/// The places where the translation deliberately simplifies a drawing. The handlers ask this
/// object, so that a more exact set of rules can stand beside it.
class TranslationRules {
 public:
  virtual ~TranslationRules() = default;

  /// Whether a text counts as negative: its number is not tiny and it contains "-" anywhere, also
  /// in the exponent: intended.
  virtual bool isNegativeText(std::string_view text) const;

  /// The corners of a filled area keep the order of the drawing: intended.
  virtual std::array<Corner, 4> areaCorners(const std::array<Corner, 4>& corners) const {
    return corners;
  }

  /// A text is turned by its own degrees plus the placement's radians: intended.
  virtual double textRotation(double degrees, const Placement& placement) const {
    return degrees + placement.rotation;
  }

  /// A text is mirrored, scaled and moved, but not carried round by the rotation: intended.
  virtual Corner textPosition(double x, double y, const Mirror& mirror,
                              const Placement& placement) const {
    return {x * mirror.x * placement.scaleX + placement.dx,
            y * mirror.y * placement.scaleY + placement.dy};
  }

  /// Translation of an expanded block. The base point is scaled but not rotated: intended.
  virtual Corner blockTranslation(Corner insertion, Corner base, const Placement& placement) const {
    return {insertion.x - base.x * placement.scaleX, insertion.y - base.y * placement.scaleY};
  }

  /// Angles of a mirrored arc. The mirror in y uses 180 - angle as the mirror in x does: intended.
  virtual void mirrorArc(const Mirror& mirror, double& startAngle, double& endAngle) const {
    constexpr double kHalfTurn = 180.0;
    if (mirror.x != -1.0 && mirror.y != -1.0) return;
    std::swap(startAngle, endAngle);
    startAngle = kHalfTurn - startAngle;
    endAngle = kHalfTurn - endAngle;
  }

  /// The bulge of a mirrored segment stays as it is: intended.
  virtual double placedBulge(double bulge, const Mirror&, const Placement&) const { return bulge; }

  /// Order of a spline whose control points have the upper bound n: n + 1 up to 13, then 7:
  /// intended.
  virtual std::size_t splineOrder(std::size_t n) const {
    constexpr std::size_t kLongSpline = 14;
    constexpr std::size_t kOrderOfLongSplines = 7;
    if (n < 2) return 2;
    return n < kLongSpline ? n + 1 : kOrderOfLongSplines;
  }

  /// Number of points that such a spline is drawn with.
  virtual std::size_t splineSamples(std::size_t n) const {
    constexpr std::size_t kPointsForEach = 10;
    return n * kPointsForEach;
  }

  /// Radius of the circle that stands for an ellipse: its placed half major axis.
  virtual double ellipseAsCircleRadius(Corner majorAxis) const {
    return std::sqrt(majorAxis.x * majorAxis.x + majorAxis.y * majorAxis.y);
  }
};

}  // namespace quillon::emit
