#pragma once

#include <cstdint>

#include "geometry/piece.h"

namespace quillon::testing {

inline geometry::Piece linePiece(geometry::Point from, geometry::Point to, std::uint32_t layer = 0,
                                 std::uint32_t style = 0) {
  return {geometry::Edge{from, to, 0.0}, layer, style, false};
}

}  // namespace quillon::testing
