#pragma once

#include <array>
#include <string_view>

#include "dxf/entity_store.h"

namespace quillon::dxf {

// Named access to the values of entities: lengths in drawing units, angles in degrees unless
// noted. An absent number is 0. Polylines, texts and block references: see polyline_values.h and
// placed_values.h.

/// The texts that decide about mirroring in x and y.
struct ExtrusionTexts {
  std::string_view x;
  std::string_view y;
};
inline ExtrusionTexts extrusionOf(const DxfEntity& entity) {
  const SlotLayout& layout = slotLayout(entity.kind);
  return {entity.value(layout.extrusionX), entity.value(layout.extrusionY)};
}

/// Whether there are any.
inline bool hasExtrusion(const DxfEntity& entity) {
  return (entity.filled & kExtrusionSlots[static_cast<std::size_t>(entity.kind)]) != 0;
}

/// The entity's own line type, or that of its layer.
inline std::string_view lineTypeOf(const DxfEntity& entity) {
  return entity.value(slotLayout(entity.kind).lineType);
}

struct Position {
  double x;
  double y;
};
inline Position positionAt(const DxfEntity& entity, std::size_t slot) {
  return {entity.number(slot), entity.number(slot + 1)};
}

struct LineValues {
  Position start;
  Position end;
};
inline LineValues lineOf(const DxfEntity& entity) {
  return {positionAt(entity, 0), positionAt(entity, 2)};
}

struct CircleValues {
  Position centre;
  double radius;
};
inline CircleValues circleOf(const DxfEntity& entity) {
  return {positionAt(entity, 0), entity.number(2)};
}

struct ArcValues {
  Position centre;
  double radius;
  double startAngle;
  double endAngle;
};
inline ArcValues arcOf(const DxfEntity& entity) {
  return {positionAt(entity, 0), entity.number(2), entity.number(3), entity.number(4)};
}

struct EllipseValues {
  Position centre;
  Position majorAxis;     ///< from the centre
  double ratio;           ///< of the minor to the major axis
  double startParameter;  ///< radians
  double endParameter;    ///< radians
};
inline EllipseValues ellipseOf(const DxfEntity& entity) {
  return {positionAt(entity, 0), positionAt(entity, 2), entity.number(4), entity.number(5),
          entity.number(6)};
}

/// SOLID, TRACE and 3DFACE: the corners in the order of the file.
inline std::array<Position, 4> cornersOf(const DxfEntity& entity) {
  return {positionAt(entity, 0), positionAt(entity, 2), positionAt(entity, 4),
          positionAt(entity, 6)};
}

inline Position pointOf(const DxfEntity& entity) { return positionAt(entity, 0); }

}  // namespace quillon::dxf
