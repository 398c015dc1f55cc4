#pragma once

#include <string_view>

#include "dxf/entity_values.h"

namespace quillon::dxf {

// The values of POLYLINE, VERTEX, LWPOLYLINE and LEADER by name.

struct PolylineValues {
  double startWidth;
  double endWidth;
  std::string_view flags;
};
inline PolylineValues polylineOf(const DxfEntity& entity) {
  return {entity.number(0), entity.number(1), entity.value(2)};
}

struct VertexValues {
  Position at;
  double startWidth;
  double bulge;
};
inline VertexValues vertexOf(const DxfEntity& entity) {
  return {positionAt(entity, 0), entity.number(2), entity.number(3)};
}

/// LWPOLYLINE, and LEADER, which is read like one.
struct LwPolylineValues {
  std::string_view width;
  std::string_view flags;
};
inline LwPolylineValues lwPolylineOf(const DxfEntity& entity) {
  return {entity.value(0), entity.value(1)};
}

}  // namespace quillon::dxf
