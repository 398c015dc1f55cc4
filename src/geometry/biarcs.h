#pragma once

#include <optional>
#include <span>

#include "geometry/arc.h"
#include "geometry/curve.h"

namespace quillon::geometry {

/// Two arcs that touch: the first one leaves the start in its direction, the second one meets the
/// end in its own.
struct Biarc {
  Arc first;
  Arc second;
};

/// The two arcs between points with these directions (unit vectors) whose joint is as far from the
/// start as from the end, measured along the directions. None where one of them would turn by 180
/// degrees or more, where start and end are the same, or where a direction is (0 0).
std::optional<Biarc> biarcBetween(Point start, Point startDirection, Point end, Point endDirection);

/// Draws a curve as lines and arcs that touch each other, and adds them to the path: from the first
/// of the cuts, which rise, to the last. Curves may have kinks at the cuts and nowhere else. A path
/// that does not end at the curve's start gets a line to there; one that ends within the resolution
/// of it goes on from its own end.
///
/// Each piece is halved until 15 points within it, and those at the `checks` (parameters that rise,
/// where the curve may stray from what the 15 show), lie within the tolerance, but at most 24
/// times. Arcs whose sagitta is below half of the resolution are lines. It adds at most
/// settings.maxVertices vertices, and one more for each cut and each halving. Points of the curve
/// that are unusable() are left out. `points`, if there are any, save samples; the path is the
/// same.
CurveReport appendBiarcs(const Curve& curve, std::span<const double> cuts,
                         std::span<const double> checks, const CurveSettings& settings, Path& path,
                         CurvePoints* points = nullptr);

}  // namespace quillon::geometry
