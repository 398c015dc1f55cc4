#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::exact {

/// The entities that the exact rules tell apart. `Other` is any name that is none of these.
enum class Kind : std::uint8_t {
  Other,
  Line,
  Arc,
  Circle,
  Ellipse,
  Spline,
  Helix,
  LwPolyline,
  Polyline,
  Vertex,
  Seqend,
  Solid,
  Trace,
  Face3d,
  Hatch,
  MPolygon,
  Mline,
  Mesh,
  Text,
  Attrib,
  Attdef,
  Mtext,
  Insert,
  Dimension,
  ArcDimension,
  LargeRadialDimension,
  Leader,
  MultiLeader,
  Tolerance,
  AcadTable,
  Point,
  Ray,
  Xline,
  Viewport,
  Wipeout,
};
inline constexpr std::size_t kKindCount = 35;

/// The kind with exactly this DXF name; 3DLINE is a Line.
Kind kindOf(std::string_view name);

}  // namespace quillon::exact
