#pragma once

#include <span>
#include <vector>

#include "geometry/loops.h"
#include "geometry/path.h"

namespace quillon::geometry {

/// The width of an edge where it starts and where it ends, in units of the path, not negative; it
/// changes evenly along the edge.
struct EdgeWidth {
  double start = 0.0;
  double end = 0.0;

  bool operator==(const EdgeWidth&) const = default;
};

/// What a polyline with widths is drawn as.
struct Band {
  /// A part with one width all along it, to be drawn by its middle line or as an area.
  struct Run {
    Path middle;  ///< closed only when it is the whole of a closed polyline
    double width = 0.0;

    bool operator==(const Run&) const = default;
  };

  std::vector<Run> runs;    ///< in the order of the polyline
  std::vector<Path> areas;  ///< of edges whose width changes: closed, counter-clockwise
};

/// Parts a polyline by its widths, of which `widths` has one for each edge; missing ones are 0.
/// Edges without length are left out. Borders of arcs that change their width are arcs within
/// `tolerance` (above 0) of the right line. Coordinates or widths that cannot be reckoned with give
/// nothing.
Band bandOf(const Path& path, std::span<const EdgeWidth> widths, double tolerance);

/// The area of a band of one width (above 0) along a path: flat ends, corners mitred as far as
/// twice the width from the vertex, else cut off, and borders of arcs around the same centres.
/// It is one region, with a hole where the path is closed and encloses something. Where bends are
/// so narrow that its outline would cross itself, each edge and each corner is a region of its own;
/// they overlap. A path without length or that cannot be reckoned with gives none.
std::vector<Region> bandAreas(const Path& path, double width);

}  // namespace quillon::geometry
