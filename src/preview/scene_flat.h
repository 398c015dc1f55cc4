#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/arc.h"
#include "geometry/box.h"
#include "preview/scene.h"

namespace quillon::preview {

/// Adds points of an arc after its start, up to its end, whose lines keep within `tolerance` of it.
/// Where it is outside `nearby`, the lines are as well, but may be further from it.
void flatten(const geometry::Arc& arc, double tolerance, const geometry::Box& nearby,
             std::vector<geometry::Point>& points);

/// The outline of a circle, from its rightmost point to that point again.
void flatten(const SceneCircle& circle, double tolerance, const geometry::Box& nearby,
             std::vector<geometry::Point>& points);

/// Adds points of an area's edge after its start, up to its end.
void flattenEdge(std::span<const SceneCorner> corners, std::size_t edge, double tolerance,
                 const geometry::Box& nearby, std::vector<geometry::Point>& points);

/// The outline of an area, without its first corner at the end.
void flatten(std::span<const SceneCorner> corners, double tolerance, const geometry::Box& nearby,
             std::vector<geometry::Point>& points);

}  // namespace quillon::preview
