#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/end_grid.h"

namespace quillon::geometry {

/// Pieces that follow each other.
struct Chain {
  Path path;                        ///< closed when its ends are one point
  std::vector<std::size_t> pieces;  ///< in the order of the path

  bool operator==(const Chain&) const = default;
};

/// Chains pieces in the points at which exactly two ends of the same layer and style meet. Each
/// piece is in one chain, whose first piece in the order of the pieces keeps its sense; chains
/// come in the order of those first pieces. A closed chain starts with its first piece. Pieces
/// without vertices are chains too. Time n log n. Ends early where `stop` says so.
std::vector<Chain> chainsOf(std::span<const Piece> pieces, const JoinedEnds& ends,
                            const StopCheck& stop = {});

}  // namespace quillon::geometry
