#pragma once

#include <optional>

#include "geometry/affine.h"
#include "geometry/curve.h"
#include "geometry/path.h"

namespace quillon::geometry {

/// The path under a map where its arcs stay arcs, as transform() tells, and everything is usable;
/// else nothing. mapPath() then has the same.
std::optional<Path> mapExactly(const Path& path, const Affine& map, double resolution);

/// The path under any affine map. Where arcs stay arcs, it is transform()'s; else arcs, which have
/// become parts of ellipses, are drawn by biarcs between the mapped vertices, and lines stay lines.
/// Vertices whose image is huge or no number make the report unusable, and the path empty.
CurvePath mapPath(const Path& path, const Affine& map, const CurveSettings& settings);

}  // namespace quillon::geometry
