#pragma once

#include <vector>

#include "geometry/duplicates.h"

namespace quillon::geometry {

/// Joins lines, and arcs and circles, that overlap by more than the resolution into the first one
/// of them. Returns which strokes are to stay. Strokes have a length and can be reckoned with.
std::vector<bool> mergeOverlaps(std::vector<Stroke>& strokes, double resolution);

}  // namespace quillon::geometry
