#pragma once

#include <vector>

#include "geometry/point.h"

namespace quillon::geometry {

/// A corner of a path, and the arc that leads from it to the next one.
struct Vertex {
  Point at;
  double curve = 0.0;  ///< degrees in -360..360, both excluded; counter-clockwise when positive, 0:
                       ///< straight

  bool operator==(const Vertex&) const = default;
};

/// Lines and arcs that follow each other. The last vertex of a closed path leads back to the first
/// one; that of an open path ends it, and its curve means nothing.
struct Path {
  std::vector<Vertex> vertices;
  bool closed = false;

  bool operator==(const Path&) const = default;
};

}  // namespace quillon::geometry
