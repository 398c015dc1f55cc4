#include "dxf/entity_kinds.h"

#include <initializer_list>

namespace quillon::dxf {
namespace {

constexpr std::array<std::string_view, kEntityKindCount> kNames = {
    "",       "LINE",   "3DLINE", "VERTEX",     "POLYLINE", "CIRCLE", "ARC",    "ELLIPSE",
    "SPLINE", "TEXT",   "INSERT", "DIMENSION",  "POINT",    "ATTDEF", "ATTRIB", "TRACE",
    "SOLID",  "SEQEND", "3DFACE", "LWPOLYLINE", "SHAPE",    "MTEXT",  "LEADER"};

/// A slot that is never filled from a group.
constexpr int kUnread = -1;
constexpr int kLayerCode = 8;
constexpr int kLineTypeCode = 6;

/// The slots of one kind: the group code for each, in slot order.
struct SlotRow {
  EntityKind kind;
  std::initializer_list<int> codes;
};

using enum EntityKind;

constexpr std::initializer_list<int> kLineCodes = {10, 20, 11, 21, 8, 6, 230, 220};
constexpr std::initializer_list<int> kTextCodes = {10, 20, 40, 41, 50, 7, 1, 8, 6, 230, 220};
// The first slot is the index of the vertex list, which has no group.
constexpr std::initializer_list<int> kLwPolylineCodes = {kUnread, 43, 70, 8, 6, 230, 220};

constexpr SlotRow kRows[] = {
    {Line, kLineCodes},
    {Line3d, kLineCodes},
    {Arc, {10, 20, 40, 50, 51, 8, 6, 230, 220}},
    {Circle, {10, 20, 40, 8, 6, 230, 220}},
    {Ellipse, {10, 20, 11, 21, 40, 41, 42, 8, 6, 230, 220}},
    {Vertex, {10, 20, 40, 41, 42, 70, 8, 6, 230, 220}},
    {Polyline, {40, 41, 70, 8, 6, 230, 220}},
    {LwPolyline, kLwPolylineCodes},
    {Leader, kLwPolylineCodes},
    {Spline, {kUnread, 41, 42, 43, 44, 70, 8, 6, 12, 22, 13, 23, 230, 220, 71, 72, 73, 74}},
    {Text, kTextCodes},
    {Attdef, kTextCodes},
    {Attrib, kTextCodes},
    {Mtext, {10, 20, 11, 21, 40, 72, 50, 7, 1, 8, 6, 230, 220}},
    {Insert, {2, 10, 20, 41, 42, 50, 8, 6, 230, 220}},
    {Dimension, {2, 10, 20, 11, 21, 12, 22, 13, 23, 14, 24, 8, 6, 230, 220}},
    {Point, {10, 20, 8, 6, 230, 220}},
    // The slot of a TRACE's x extrusion is never filled, so a TRACE is not mirrored in x; kept so
    // that scripts stay the same.
    {Trace, {10, 20, 11, 21, 12, 22, 13, 23, 8, 6, kUnread, kUnread, 220}},
    {Solid, {10, 20, 11, 21, 12, 22, 13, 23, 8, 6, kUnread, 230, 220}},
    {Face3d, {10, 20, 11, 21, 12, 22, 13, 23, 8, 70, 6, 230, 220}},
    {Shape, {10, 20, 40, 2, 50, 41, kUnread, kUnread, 8, 6, 230, 220}},
};

/// A TRACE has 113 slots, but only the first 13 are ever filled.
constexpr std::uint8_t kTraceSlotCount = 113;

constexpr SlotLayout makeLayout(const SlotRow& row) {
  SlotLayout layout;
  layout.slotOfCode.fill(kNoSlot);
  std::uint8_t slot = 0;
  for (const int code : row.codes) {
    if (code != kUnread) layout.slotOfCode[static_cast<std::size_t>(code)] = slot;
    ++slot;
  }
  layout.slotCount = row.kind == Trace ? kTraceSlotCount : slot;
  layout.layer = layout.slotOfCode[kLayerCode];
  layout.lineType = layout.slotOfCode[kLineTypeCode];
  layout.extrusionX = row.kind == Trace ? kNoSlot : layout.slotOfCode[230];
  layout.extrusionY = row.kind == Trace ? kNoSlot : layout.slotOfCode[220];
  return layout;
}

constexpr std::array<SlotLayout, kEntityKindCount> makeLayouts() {
  std::array<SlotLayout, kEntityKindCount> layouts;
  for (SlotLayout& layout : layouts) layout.slotOfCode.fill(kNoSlot);
  for (const SlotRow& row : kRows) layouts[static_cast<std::size_t>(row.kind)] = makeLayout(row);
  return layouts;
}

constexpr std::array<SlotLayout, kEntityKindCount> kLayouts = makeLayouts();

constexpr EntityKind pick(std::string_view name, std::initializer_list<EntityKind> candidates) {
  for (const EntityKind kind : candidates) {
    if (name == kNames[static_cast<std::size_t>(kind)]) return kind;
  }
  return None;
}

}  // namespace

EntityKind entityKind(std::string_view name) {
  switch (name.size()) {
    case 3:
      return pick(name, {Arc});
    case 4:
      return pick(name, {Line, Text});
    case 5:
      return pick(name, {Point, Mtext, Solid, Trace, Shape});
    case 6:
      return pick(name,
                  {Vertex, Insert, Circle, Seqend, Attrib, Attdef, Spline, Leader, Line3d, Face3d});
    case 7:
      return pick(name, {Ellipse});
    case 8:
      return pick(name, {Polyline});
    case 9:
      return pick(name, {Dimension});
    case 10:
      return pick(name, {LwPolyline});
    default:
      return None;
  }
}

std::string_view entityName(EntityKind kind) { return kNames[static_cast<std::size_t>(kind)]; }

const SlotLayout& slotLayout(EntityKind kind) { return kLayouts[static_cast<std::size_t>(kind)]; }

}  // namespace quillon::dxf
