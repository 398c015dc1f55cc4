#include "dxf/entity_walk.h"

#include <algorithm>
#include <array>

#include "dxf/group_cursor.h"
#include "dxf/number_text.h"
#include "dxf/run_time_error.h"
#include "dxf/spline_points.h"

namespace quillon::dxf {
namespace {

/// Names behind a group 0 that start or end parts of a drawing and are no entities.
bool isStructureName(std::string_view name) {
  static constexpr std::array<std::string_view, 7> kNames = {"SECTION", "ENDSEC", "TABLE", "ENDTAB",
                                                             "BLOCK",   "ENDBLK", "EOF"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

}  // namespace

bool EntityWalk::step(DxfEntity& entity) {
  inEntity_ = false;
  afterName_ = lines_.position();
  const std::string_view code = nextLine();
  const std::string_view name = nextLine();
  afterName_ = lines_.position();
  const EntityKind kind = entityKind(name);
  const bool isStart = code == "0";
  if (kind == EntityKind::None) {
    if (isStart) noteUnknown(name);
    return false;
  }
  if (!isStart && numberValue(code) != 0.0) return false;
  entity.kind = kind;
  inEntity_ = true;
  readGroups(entity);
  return true;
}

bool EntityWalk::findNextEntity() {
  const char* previous = lines_.position();
  bool previousIsZero = false;
  while (!atEnd()) {
    const char* const start = lines_.position();
    const std::string_view line = nextLine();
    if (previousIsZero && isEntityName(line)) {
      lines_.seek(previous);
      return true;
    }
    previousIsZero = line == "0";
    previous = start;
  }
  if (previousIsZero && !ended_) lines_.seek(previous);
  return false;
}

std::string_view EntityWalk::nextLine() {
  if (atEnd()) throw RunTimeError(Fault::TextEndsTooEarly, {}, lines_.position());
  const std::string_view line = trimBlanks(lines_.next());
  ended_ = isEndMarker(line);
  return line;
}

void EntityWalk::readGroups(DxfEntity& entity) {
  entity.groups = lines_.position();
  entity.filled = 0;
  const auto& slotOfCode = slotLayout(entity.kind).slotOfCode;
  GroupCursor groups(lines_);
  FitPointRule fitPoints;
  for (Group group; groups.next(group);) {
    if (isEndMarker(group.value)) {
      ended_ = true;
      throw RunTimeError(Fault::TextEndsTooEarly, {}, group.value.data());
    }
    if (entity.kind == EntityKind::Spline) fitPoints.visit(group);
    if (group.code < 0 || group.code > 255) continue;
    // Every slot takes the first occurrence of its group code.
    const std::uint8_t slot = slotOfCode[static_cast<std::size_t>(group.code)];
    if (slot == kNoSlot || (entity.filled >> slot & 1U) != 0) continue;
    entity.setValue(slot, group.value);
  }
  lines_ = groups.lines();
  entity.sideIndex = 0;
  if (hasSideRecord(entity.kind)) {
    LineCursor behind = lines_;
    behind.next();
    entity.groupsEnd = behind.position();
    entity.sideIndex = drawing_.nextSideIndex(entity.kind);
  }
}

void EntityWalk::noteUnknown(std::string_view name) {
  constexpr std::size_t kMostNames = 1000;
  if (name.empty() || isStructureName(name)) return;
  if (drawing_.unknownKinds.size() >= kMostNames && !drawing_.unknownKinds.contains(name)) {
    name = "(other)";
  }
  const auto found = drawing_.unknownKinds.find(name);
  if (found != drawing_.unknownKinds.end()) {
    ++found->second;
  } else {
    drawing_.unknownKinds.emplace(name, 1);
  }
}

}  // namespace quillon::dxf
