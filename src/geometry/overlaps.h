#pragma once

#include <vector>

#include "geometry/duplicates.h"

namespace quillon::geometry {

/// Radians; lines that turn from each other by less than half of it are compared.
inline constexpr double kOverlapAngleCell = 1e-4;
/// Lines whose distances from the middle of all differ by less than half of it are compared. `size`
/// is the diagonal of the box around all of them.
double overlapOffsetCell(double resolution, double size);
/// Arcs and circles whose centres and radii differ by less than half of it are compared.
double overlapCircleCell(double resolution);
/// The circle that an arc is part of, or a circle itself.
Circle overlapCircleOf(const Stroke& stroke);

/// Joins lines, and arcs and circles, that overlap by more than the resolution into the first one
/// of them. Returns which strokes are to stay. Strokes have a length and can be reckoned with.
/// `others` is around strokes that are not given. Adds each union to the list. Ends early where
/// `stop` says so.
std::vector<bool> mergeOverlaps(std::vector<Stroke>& strokes, double resolution, const Box& others,
                                std::vector<Union>& unions, const StopCheck& stop);

}  // namespace quillon::geometry
