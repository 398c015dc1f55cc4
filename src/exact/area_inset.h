#pragma once

#include <optional>

#include "geometry/path.h"

namespace quillon::exact {

/// The outline of a convex polygon moved inwards by a distance, so that an edge drawn with twice
/// that width reaches the outline again. It keeps its sense and begins at the same corner, unless
/// edges that are too short vanish. None for outlines with curves or a corner that points inwards,
/// and where nothing would be left. The outline is closed and does not cross itself.
std::optional<geometry::Path> insetOfConvex(const geometry::Path& outline, double distance);

}  // namespace quillon::exact
