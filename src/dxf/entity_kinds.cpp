#include "dxf/entity_kinds.h"

#include <algorithm>
#include <initializer_list>

#include "dxf/entity_marks.h"

namespace quillon::dxf {
namespace {

constexpr std::array<std::string_view, kEntityKindCount> kNames = {
    "",       "LINE",   "3DLINE", "VERTEX",     "POLYLINE", "CIRCLE", "ARC",    "ELLIPSE",
    "SPLINE", "TEXT",   "INSERT", "DIMENSION",  "POINT",    "ATTDEF", "ATTRIB", "TRACE",
    "SOLID",  "SEQEND", "3DFACE", "LWPOLYLINE", "SHAPE",    "MTEXT",  "LEADER"};

constexpr int kLayerCode = 8;
constexpr int kLineTypeCode = 6;

/// The slots of one kind: the group code for each, in slot order.
struct SlotRow {
  EntityKind kind;
  std::initializer_list<int> codes;
};

using enum EntityKind;

constexpr std::initializer_list<int> kLineCodes = {10, 20, 11, 21, 8, 6, 230, 220};
constexpr std::initializer_list<int> kTextCodes = {10, 20, 40, 50, 1, 8, 6, 230, 220};
constexpr std::initializer_list<int> kLwPolylineCodes = {43, 70, 8, 6, 230, 220};
constexpr std::initializer_list<int> kCornerCodes = {10, 20, 11, 21, 12,  22,
                                                     13, 23, 8,  6,  230, 220};

// The values of these slots have names in entity_values.h, placed_values.h and polyline_values.h.
constexpr SlotRow kRows[] = {
    {Line, kLineCodes},
    {Line3d, kLineCodes},
    {Arc, {10, 20, 40, 50, 51, 8, 6, 230, 220}},
    {Circle, {10, 20, 40, 8, 6, 230, 220}},
    {Ellipse, {10, 20, 11, 21, 40, 41, 42, 8, 6, 230, 220}},
    {Vertex, {10, 20, 40, 42, 8, 6, 230, 220}},
    {Polyline, {40, 41, 70, 8, 6, 230, 220}},
    {LwPolyline, kLwPolylineCodes},
    {Leader, kLwPolylineCodes},
    {Spline, {8, 6, 230, 220}},
    {Text, kTextCodes},
    {Attdef, kTextCodes},
    {Attrib, kTextCodes},
    {Mtext, kTextCodes},
    {Insert, {2, 10, 20, 41, 42, 50, 8, 6, 230, 220}},
    {Dimension, {2, 10, 20, 8, 6, 230, 220}},
    {Point, {10, 20, 8, 6, 230, 220}},
    // The extrusion of a TRACE is not read, so a TRACE is never mirrored; kept so that scripts stay
    // the same.
    {Trace, {10, 20, 11, 21, 12, 22, 13, 23, 8, 6}},
    {Solid, kCornerCodes},
    {Face3d, kCornerCodes},
    {Shape, {8, 6}},
};

/// Groups that have no slot but give marks.
struct MarkRow {
  std::initializer_list<EntityKind> kinds;  ///< empty: all
  int code;
  Marking marking;
};

constexpr MarkRow kMarkRows[] = {
    {{}, 60, Marking::Invisible},
    {{}, 67, Marking::PaperSpace},
    {{}, 210, Marking::Extrusion},
    {{Trace}, 220, Marking::Extrusion},
    {{Trace}, 230, Marking::ExtrusionDown},
    {{Text, Attrib, Attdef}, 72, Marking::Alignment},
    {{Text}, 73, Marking::Alignment},
    {{Attrib, Attdef}, 74, Marking::Alignment},
    {{Text, Attrib, Attdef}, 71, Marking::TextMirror},
    {{Mtext}, 71, Marking::Attachment},
    {{Mtext}, 3, Marking::EarlierText},
    {{Mtext}, 11, Marking::DirectionX},
    {{Mtext}, 21, Marking::DirectionY},
    {{Attrib, Attdef}, 70, Marking::AttributeFlags},
    {{Insert}, 70, Marking::Cells},
    {{Insert}, 71, Marking::Cells},
    {{Leader}, 71, Marking::Arrow},
    {{Leader}, 72, Marking::PathKind},
    {{Vertex}, 41, Marking::EndWidth},
};

constexpr std::size_t mostSlots() {
  std::size_t most = 0;
  for (const SlotRow& row : kRows) most = std::max(most, row.codes.size());
  return most;
}
static_assert(mostSlots() == kMaxSlots);

constexpr SlotLayout makeLayout(const SlotRow& row) {
  SlotLayout layout;
  layout.slotOfCode.fill(kNoSlot);
  for (const int code : row.codes) {
    layout.slotOfCode[static_cast<std::size_t>(code)] = layout.slotCount++;
  }
  layout.layer = layout.slotOfCode[kLayerCode];
  layout.lineType = layout.slotOfCode[kLineTypeCode];
  layout.extrusionX = layout.slotOfCode[230];
  layout.extrusionY = layout.slotOfCode[220];
  return layout;
}

constexpr bool isFor(const MarkRow& row, EntityKind wanted) {
  if (row.kinds.size() == 0) return true;
  for (const EntityKind kind : row.kinds) {
    if (kind == wanted) return true;
  }
  return false;
}

constexpr std::array<SlotLayout, kEntityKindCount> makeLayouts() {
  std::array<SlotLayout, kEntityKindCount> layouts;
  for (SlotLayout& layout : layouts) layout.slotOfCode.fill(kNoSlot);
  for (const SlotRow& row : kRows) layouts[static_cast<std::size_t>(row.kind)] = makeLayout(row);
  for (const MarkRow& mark : kMarkRows) {
    for (const SlotRow& row : kRows) {
      if (isFor(mark, row.kind)) {
        layouts[static_cast<std::size_t>(row.kind)]
            .slotOfCode[static_cast<std::size_t>(mark.code)] =
            static_cast<std::uint8_t>(mark.marking);
      }
    }
  }
  return layouts;
}

constexpr std::array<SlotLayout, kEntityKindCount> kLayouts = makeLayouts();

constexpr std::array<std::uint32_t, kEntityKindCount> makeExtrusionSlots() {
  std::array<std::uint32_t, kEntityKindCount> slots{};
  for (std::size_t kind = 0; kind < slots.size(); ++kind) {
    for (const std::uint8_t slot : {kLayouts[kind].extrusionX, kLayouts[kind].extrusionY}) {
      if (slot != kNoSlot) slots[kind] |= 1U << slot;
    }
  }
  return slots;
}

constexpr EntityKind pick(std::string_view name, std::initializer_list<EntityKind> candidates) {
  for (const EntityKind kind : candidates) {
    if (name == kNames[static_cast<std::size_t>(kind)]) return kind;
  }
  return None;
}

}  // namespace

constexpr std::array<std::uint32_t, kEntityKindCount> kExtrusionSlots = makeExtrusionSlots();

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
