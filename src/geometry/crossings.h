#pragma once

#include <span>
#include <vector>

#include "geometry/loops.h"
#include "geometry/path.h"

namespace quillon::geometry {

struct CrossingOptions {
  double tolerance = 0.001;  ///< of chords for arcs, above 0; points are moved by a tenth at most
  double gap = 0.001;        ///< what is taken off a corner in which a face touches itself
};

struct CrossingFaces {
  std::vector<Region> faces;  ///< of straight edges; none when not complete
  /// False when there were more crossings than can be dealt with (millions), or coordinates that
  /// cannot be reckoned with.
  bool complete = true;
};

/// The area inside of closed loops by the even-odd rule, wherever they cross each other or
/// themselves: one region for each face, whose outline neither crosses nor touches itself.
/// Loops larger than 2^28 tenths of the tolerance are rounded to that share of their size.
CrossingFaces facesOf(std::span<const Path> loops, const CrossingOptions& options = {});

}  // namespace quillon::geometry
