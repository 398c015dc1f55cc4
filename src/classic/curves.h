#pragma once

#include "classic/context.h"
#include "classic/dash_pattern.h"
#include "geometry/placement.h"

namespace quillon::classic {

using geometry::Placement;

/// A counter-clockwise arc of width 0 by centre, radius and angles in degrees. Writes no layer
/// line.
void writeArc(Context& context, double cx, double cy, double r, double startAngle, double endAngle,
              int layer);

/// An ARC entity under a placement; angles in degrees.
void writeArcEntity(Context& context, double cx, double cy, double r, double startAngle,
                    double endAngle, const Placement& placement, int layer,
                    const DashPattern* dashes);

/// A CIRCLE entity under a placement.
void writeCircle(Context& context, double cx, double cy, double r, const Placement& placement,
                 int layer, const DashPattern* dashes);

/// An ellipse or elliptical arc as a chain of lines. Centre and major axis (relative to the centre)
/// are already placed; parameters in radians; points are π / (2 × segments) apart.
struct EllipseArc {
  double cx = 0.0;
  double cy = 0.0;
  double majorX = 0.0;
  double majorY = 0.0;
  double ratio = 1.0;
  double startParam = 0.0;
  double endParam = kTwoPi;
};
inline constexpr int kEllipseSegments = 32;
void writeEllipse(Context& context, const EllipseArc& ellipse, int segments, int layer,
                  const DashPattern* dashes);

/// A polyline segment with a bulge between two placed points.
struct BulgeSegment {
  double x1 = 0.0;
  double y1 = 0.0;
  double x2 = 0.0;
  double y2 = 0.0;
  double width = 0.0;  ///< before scaling
  double bulge = 0.0;
};
void writeBulgeSegment(Context& context, const BulgeSegment& segment, double scaleX, double scaleY,
                       int layer);

}  // namespace quillon::classic
