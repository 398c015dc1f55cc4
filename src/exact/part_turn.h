#pragma once

#include <optional>

#include "exact/options.h"
#include "geometry/affine.h"

namespace quillon::exact {

/// How a library part is placed so that it shows its block at some place of the drawing.
struct PartTurn {
  bool mirrored = false;  ///< the part holds the block mirrored: from x to -x
  double scale = 1.0;     ///< of the part's content, on top of the factor of all drawings
  int tenths = 0;         ///< of a degree by which the part is turned, 0 to 3599
};

/// The same for a map from a block's coordinates to the script; nothing where EAGLE has no such
/// turn, or the map is none that keeps shapes.
std::optional<PartTurn> partTurnOf(const geometry::Affine& map, const Options& options);

/// From a block's coordinates to those of a part, whose origin shows the point `base`.
geometry::Affine partContent(const PartTurn& turn, geometry::Point base, const Options& options);

/// From a part's coordinates to the script, for a part placed at a point.
geometry::Affine partPlace(const PartTurn& turn, geometry::Point at);

}  // namespace quillon::exact
