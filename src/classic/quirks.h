#pragma once

#include <cstddef>
#include <string_view>

#include "geometry/placement.h"

namespace quillon::classic {

/// Where the classic rules simplify a drawing or differ from what a CAD program shows. Existing
/// scripts depend on each of these; the exact rules use none of them.

/// Whether a text counts as negative: its number is not tiny and it contains "-" anywhere, even in
/// the exponent. Decides about mirroring.
bool isNegativeText(std::string_view text);

/// A text is rotated by its own degrees plus the placement's radians, mixing the units.
double textRotation(double degrees, const geometry::Placement& placement);

/// A text is mirrored, scaled and moved, but its position is not rotated.
geometry::Point textPosition(double x, double y, const geometry::Mirror& mirror,
                             const geometry::Placement& placement);

/// Translation of an expanded block. The base point is scaled but not rotated.
geometry::Point blockTranslation(geometry::Point insertion, geometry::Point base,
                                 const geometry::Placement& placement);

/// Angles of a mirrored arc. The mirror in y uses 180 - angle, like the mirror in x.
void mirrorArc(const geometry::Mirror& mirror, double& startAngle, double& endAngle);

/// Order of a spline whose control points have the upper bound n: n + 1 up to 13, then 7. The
/// degree in the file is ignored.
std::size_t splineOrder(std::size_t n);

/// Number of points for drawing such a spline.
std::size_t splineSamples(std::size_t n);

}  // namespace quillon::classic
