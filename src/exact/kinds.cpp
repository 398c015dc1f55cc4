#include "exact/kinds.h"

#include <unordered_map>

#include "base/text_hash.h"

namespace quillon::exact {

Kind kindOf(std::string_view name) {
  using Names = std::unordered_map<std::string_view, Kind, base::TextHash>;
  static const Names kNames = {
      {"LINE", Kind::Line},
      {"3DLINE", Kind::Line},
      {"ARC", Kind::Arc},
      {"CIRCLE", Kind::Circle},
      {"ELLIPSE", Kind::Ellipse},
      {"SPLINE", Kind::Spline},
      {"HELIX", Kind::Helix},
      {"LWPOLYLINE", Kind::LwPolyline},
      {"POLYLINE", Kind::Polyline},
      {"VERTEX", Kind::Vertex},
      {"SEQEND", Kind::Seqend},
      {"SOLID", Kind::Solid},
      {"TRACE", Kind::Trace},
      {"3DFACE", Kind::Face3d},
      {"HATCH", Kind::Hatch},
      {"MPOLYGON", Kind::MPolygon},
      {"MLINE", Kind::Mline},
      {"MESH", Kind::Mesh},
      {"TEXT", Kind::Text},
      {"ATTRIB", Kind::Attrib},
      {"ATTDEF", Kind::Attdef},
      {"MTEXT", Kind::Mtext},
      {"INSERT", Kind::Insert},
      {"DIMENSION", Kind::Dimension},
      {"ARC_DIMENSION", Kind::ArcDimension},
      {"LARGE_RADIAL_DIMENSION", Kind::LargeRadialDimension},
      {"LEADER", Kind::Leader},
      {"MULTILEADER", Kind::MultiLeader},
      {"MLEADER", Kind::MultiLeader},
      {"TOLERANCE", Kind::Tolerance},
      {"ACAD_TABLE", Kind::AcadTable},
      {"POINT", Kind::Point},
      {"RAY", Kind::Ray},
      {"XLINE", Kind::Xline},
      {"VIEWPORT", Kind::Viewport},
      {"WIPEOUT", Kind::Wipeout},
  };
  const auto found = kNames.find(name);
  return found == kNames.end() ? Kind::Other : found->second;
}

}  // namespace quillon::exact
