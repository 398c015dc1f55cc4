#pragma once

#include <cstddef>

#include "geometry/end_grid.h"
#include "geometry/path_samples.h"

namespace quillon::testing {

inline geometry::Piece linePiece(geometry::Point from, geometry::Point to, std::size_t layer = 0,
                                 std::size_t style = 0) {
  return {geometry::openPath({{from}, {to}}), layer, style, false};
}

}  // namespace quillon::testing
