#pragma once

#include <span>
#include <vector>

#include "exact/canvas.h"
#include "geometry/hatch_lines.h"

namespace quillon::exact {

/// Draws the lines of a pattern, mapped by `map`, inside of loops in units of the script. False,
/// and nothing is drawn, when the lines are too many or too close to each other.
bool drawPattern(const Item& item, Canvas& canvas, std::span<const Path> loops,
                 const std::vector<geometry::HatchFamily>& families, const Affine& map);

}  // namespace quillon::exact
