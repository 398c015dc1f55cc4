#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/end_grid.h"

namespace quillon::geometry {

/// Pieces of one edge that joinEnds() has laid upon one before, of the same layer and style and in
/// either sense; ascending. Their middles are at most `resolution` (units of the pieces) from each
/// other. Linear time.
std::vector<std::size_t> twinsOf(std::span<const Piece> pieces, const JoinedEnds& joined,
                                 double resolution);

}  // namespace quillon::geometry
