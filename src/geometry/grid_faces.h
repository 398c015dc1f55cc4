#pragma once

#include <vector>

#include "geometry/grid_segments.h"

namespace quillon::geometry {

/// A face of a net of segments. Rings keep the face at their left: the outer one runs
/// counter-clockwise, holes clockwise. A ring may pass through a point several times.
struct GridFace {
  std::vector<GridPoint> outer;
  std::vector<std::vector<GridPoint>> holes;
};

/// The faces that a way from far outside reaches through an odd number of segments. The segments
/// meet in their ends alone, and in each point an even number of them.
std::vector<GridFace> oddFaces(const std::vector<GridSegment>& segments);

}  // namespace quillon::geometry
