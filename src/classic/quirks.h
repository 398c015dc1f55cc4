#pragma once

#include <cstddef>
#include <string_view>

#include "geometry/placement.h"

namespace quillon::classic {

/// The places where the classic rules deliberately simplify a drawing, or differ from what a CAD
/// program shows. Scripts that people keep depend on each of them; the exact rules share none.

/// Whether a text counts as negative: its number is not tiny and it contains "-" anywhere, also in
/// the exponent. Decides on mirroring.
bool isNegativeText(std::string_view text);

/// A text is turned by its own degrees plus the placement's radians, units mixed.
double textRotation(double degrees, const geometry::Placement& placement);

/// A text is mirrored, scaled and moved, but not carried round by the rotation.
geometry::Point textPosition(double x, double y, const geometry::Mirror& mirror,
                             const geometry::Placement& placement);

/// Translation of an expanded block. The base point is scaled but not rotated.
geometry::Point blockTranslation(geometry::Point insertion, geometry::Point base,
                                 const geometry::Placement& placement);

/// Angles of a mirrored arc. The mirror in y uses 180 - angle as the mirror in x does.
void mirrorArc(const geometry::Mirror& mirror, double& startAngle, double& endAngle);

/// Order of a spline whose control points have the upper bound n: n + 1 up to 13, then 7. The
/// degree in the file is not used.
std::size_t splineOrder(std::size_t n);

/// Number of points that such a spline is drawn with.
std::size_t splineSamples(std::size_t n);

}  // namespace quillon::classic
