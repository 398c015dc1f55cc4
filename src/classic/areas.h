#pragma once

#include <array>

#include "classic/context.h"

namespace quillon::classic {

/// Writes a filled area with four corners (SOLID, TRACE, 3DFACE), in the order of the drawing.
/// Nothing is written when fewer than three corners differ from the previous one.
void writeSolid(Context& context, const std::array<Point, 4>& corners, int layer);

}  // namespace quillon::classic
