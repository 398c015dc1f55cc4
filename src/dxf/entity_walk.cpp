#include "dxf/entity_walk.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "dxf/entity_marks.h"
#include "dxf/group_cursor.h"
#include "dxf/spline_points.h"

namespace quillon::dxf {
namespace {

constexpr std::size_t kFirstKept = 256;  ///< groups that there is room for at first

/// Names after a group 0 that start or end parts of a drawing and are not entities.
bool isStructureName(std::string_view name) {
  static constexpr std::array<std::string_view, 7> kStructureNames = {
      "SECTION", "ENDSEC", "TABLE", "ENDTAB", "BLOCK", "ENDBLK", "EOF"};
  return std::find(kStructureNames.begin(), kStructureNames.end(), name) != kStructureNames.end();
}

/// Whether a code line other than a plain "0" still reads as 0.
bool readsZero(std::string_view code) {
  const bool usual = !code.empty() && code.front() >= '1' && code.front() <= '9';
  return !usual && base::numberValue(code) == 0.0;
}

/// Whether a text where an entity's name should be shows that a line is missing or surplus.
bool isNoName(std::string_view text) {
  if (text.empty()) return true;
  return !startsName(text.front()) && base::isNumber(text);
}

/// Fails at a text where an entity's name should be.
[[noreturn]] void failWithoutName(std::string_view text) {
  throw base::RunTimeError(base::Fault::BadGroupCode, text, text.data());
}

/// Where groups are kept; empty: nowhere. The vector only grows, so that the next entity finds it
/// as large, and nothing is cleared.
struct Keeping {
  Group* next = nullptr;
  Group* end = nullptr;
};

Keeping keepingFrom(std::vector<Group>& kept, std::size_t index) {
  return {kept.data() + index, kept.data() + kept.size()};
}

/// After the last one that there was a place for: makes more, up to the limit.
[[gnu::noinline]] Keeping moreRoom(std::vector<Group>& kept) {
  const std::size_t used = kept.size();
  if (used < EntityWalk::kMostKept) kept.resize(std::min(2 * used, EntityWalk::kMostKept));
  return keepingFrom(kept, used);
}

}  // namespace

/// Takes two lines, which mostly are those that an entity starts with.
EntityWalk::Start EntityWalk::takeStart() {
  const char* const afterZero = std::exchange(afterZero_, nullptr);
  if (afterZero != nullptr && lines_.hasLeft(kShortCodeRoom) && !ended_) {
    const std::string_view name = withoutBlanks(lines_.takeAfter(afterZero));
    ended_ = isEndMarker(name);
    return {"0", afterZero, name};
  }
  const std::string_view code = nextCode();
  const char* const nameLine = lines_.position();
  return {code, nameLine, nextLine()};
}

bool EntityWalk::step(DxfEntity& entity) {
  inEntity_ = false;
  afterName_ = lines_.position();
  const auto [code, nameLine, name] = takeStart();
  const EntityKind kind = entityKind(name);
  const bool isStart = code == "0";
  if (kind == EntityKind::None) {
    // Blank lines may follow the last section of a file.
    const bool blank = code.empty() && name.empty();
    if (isSection() && !blank && (isStart || readsZero(code)) && isNoName(name)) {
      afterName_ = nameLine;
      inEntity_ = true;
      failWithoutName(name);
    }
    afterName_ = lines_.position();
    if (isStart && isOtherEntity(name)) {
      inEntity_ = true;
      entity.kind = kind;
      entity.name = name;
      skipGroups(entity);
      return true;
    }
    if (isStart) {
      noteUnknown(name);
    } else {
      drawing_.otherEntities.visit(code, name);
    }
    return false;
  }
  afterName_ = lines_.position();
  if (!isStart && base::numberValue(code) != 0.0) return false;
  entity.kind = kind;
  inEntity_ = true;
  entity.name = name;
  if (drawing_.everyKind) {
    skipGroups(entity);
  } else {
    readGroups(entity);
  }
  return true;
}

/// Whether this name of no recognised kind is handed on all the same.
bool EntityWalk::isOtherEntity(std::string_view name) const {
  return drawing_.everyKind && !isNoName(name) && !isStructureName(name);
}

bool EntityWalk::findNextEntity() {
  afterZero_ = nullptr;
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

/// The next line where a group code should be.
std::string_view EntityWalk::nextCode() {
  const ShortCodeLine line = shortCode();
  if (line.code != 0 || ended_) return nextLine();
  lines_.skipLine(line.next);
  return "0";
}

/// What the next line is as a group code in its usual form.
ShortCodeLine EntityWalk::shortCode() const {
  return lines_.hasLeft(kShortCodeRoom) ? readShortCode(lines_.text(), lines_.eol())
                                        : ShortCodeLine{};
}

std::string_view EntityWalk::nextLine() {
  if (atEnd()) throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, lines_.position());
  const std::string_view line = base::trimBlanks(lines_.next());
  ended_ = isEndMarker(line);
  return line;
}

void EntityWalk::readGroups(DxfEntity& entity) {
  entity.groups = lines_.position();
  entity.filled = 0;
  entity.marks = 0;
  entity.split = {};
  entity.sideIndex = 0;
  if (!hasSideRecord(entity.kind)) {
    fillUsual(entity);
    if (isSection()) checkEnd();
    return;
  }
  fillSlots<true>(entity);
  if (isSection()) checkEnd();
  LineCursor after = lines_;
  after.next();
  entity.groupsEnd = after.position();
  entity.sideIndex = drawing_.nextSideIndex(entity.kind);
}

/// Fills the slots of an entity without a side record: by the groups that are usual, as far as they
/// are there, and by the others.
void EntityWalk::fillUsual(DxfEntity& entity) {
  UsualGroups& usualGroups = drawing_.usualGroups[static_cast<std::size_t>(entity.kind)];
  const UsualGroup* usual = usualGroups.begin();
  LineCursor lines = lines_;
  for (; lines.hasLeft(kUsualRoom) && usual->isAt(lines.line()); ++usual) {
    const std::string_view value = withoutBlanks(lines.takeAfter(lines.line() + usual->length));
    if (isEndMarker(value)) failAtEndMarker(value);
    entity.values[usual->place] = value;
  }
  lines_ = lines;
  entity.filled = usual->filled;
  const UsualGroup& next = usualGroups.next();
  if (usual->isNothing() && lines.hasLeft(kUsualRoom) && next.isAt(lines.line())) {
    usualGroups.noteHit();
    if (usualGroups.areAll()) {
      afterZero_ = lines.line() + next.length;
    } else {
      fillSlots<false>(entity);
    }
    return;
  }
  fillSlots<false>(entity);
  if (usualGroups.noteMiss()) {
    lines.seek(entity.groups);
    usualGroups.learn(lines, slotLayout(entity.kind));
  }
}

/// Fails at a value that is the section's end marker.
void EntityWalk::failAtEndMarker(std::string_view value) {
  ended_ = true;
  throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, value.data());
}

/// Fills the slots that are still empty by the groups up to the next entity. Those that will be
/// read again are kept, as far as there is room, but not in a block, which is read once and drawn
/// often. Not put in line, where it would take registers from the loop that is run more often.
template <bool kAreReadAgain>
[[gnu::noinline]] void EntityWalk::fillSlots(DxfEntity& entity) {
  const auto& slotOfCode = slotLayout(entity.kind).slotOfCode;
  const bool isSpline = kAreReadAgain && entity.kind == EntityKind::Spline;
  FitPointRule fitPoints;
  Keeping keeping;
  if (kAreReadAgain && kept_ != nullptr) {
    if (kept_->empty()) kept_->resize(kFirstKept);
    keeping = keepingFrom(*kept_, 0);
  }
  // Of its own, as every store to the entity might change what is read of it.
  std::uint32_t filled = entity.filled | kMarkingBits;
  GroupCursor groups(lines_);
  for (Group group; groups.next(group);) {
    if (isEndMarker(group.value)) failAtEndMarker(group.value);
    if (kAreReadAgain && keeping.next != keeping.end) {
      keeping.next->code = group.code;
      keeping.next->value = group.value;
      ++keeping.next;
      if (keeping.next == keeping.end) {
        keeping = moreRoom(*kept_);
        if (keeping.next == keeping.end) entity.afterSplit = groups.lines().position();
      }
    }
    if (isSpline) fitPoints.visit(group);
    const auto code = static_cast<std::uint16_t>(group.code);
    if (code >= slotOfCode.size()) continue;
    // The first occurrence of a group code fills its slot.
    const std::uint8_t slot = slotOfCode[code];
    if (slot == kNoSlot) continue;
    if ((filled >> slot & 1U) == 0) {
      entity.values[slot] = group.value;
      filled |= 1U << slot;
    } else if (slot >= kMaxSlots) {
      entity.filled = filled;
      entity.marks |= marksOf(static_cast<Marking>(slot), group.value, entity);
    }
  }
  lines_ = groups.lines();
  afterZero_ = groups.afterEnd();
  entity.filled = filled & ~kMarkingBits;
  if (!kAreReadAgain || kept_ == nullptr) return;
  entity.split = {kept_->data(), keeping.next};
  if (keeping.next != keeping.end) entity.afterSplit = lines_.position();
}

/// Goes past the groups without looking at their values, and keeps them if they are few.
void EntityWalk::skipGroups(DxfEntity& entity) {
  entity.groups = lines_.position();
  entity.filled = 0;
  entity.sideIndex = 0;
  GroupCursor groups(lines_);
  std::size_t count = 0;
  for (Group group; groups.next(group); ++count) {
    if (isEndMarker(group.value)) failAtEndMarker(group.value);
    if (count < split_.size()) split_[count] = group;
  }
  entity.split = count <= split_.size() ? std::span<const Group>(split_.data(), count)
                                        : std::span<const Group>();
  lines_ = groups.lines();
  afterZero_ = groups.afterEnd();
  if (isSection()) checkEnd();
  LineCursor after = lines_;
  after.next();
  entity.groupsEnd = after.position();
}

/// Checks what follows the "0" line that ended the groups.
void EntityWalk::checkEnd() {
  // Nearly always a name. Its first letter is readable even where its line is incomplete.
  const char* const line = afterZero_;
  if (line != nullptr && startsName(*line == '\n' || *line == '\r' ? line[1] : *line)) return;
  checkName();
}

/// The "0" line may be a value whose code line is missing; then a code follows instead of a name,
/// the entity is cut off, and RunTimeError is thrown. If the codes are those that start the next
/// entity, only its name is missing and this entity is complete.
void EntityWalk::checkName() {
  LineCursor after = lines_;
  after.next();
  const auto next = [this, &after] {
    if (!after.atEnd()) return base::trimBlanks(after.next());
    if (goesOn_) throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, after.position());
    return std::string_view{};
  };
  const std::string_view text = next();
  if (text.empty() || !isNoName(text)) return;
  const bool begins =
      text == "0" || text == "5" || text == "8" || (text == "100" && next() == "AcDbEntity");
  if (!begins) failWithoutName(text);
}

void EntityWalk::noteUnknown(std::string_view name) {
  constexpr std::size_t kMostNames = 1000;
  if (drawing_.otherEntities.begin(name) && counter_ != nullptr) {
    drawing_.otherEntities.place(block_, counter_->lineAt(lines_.position()));
  }
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
