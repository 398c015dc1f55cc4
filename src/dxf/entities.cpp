#include "dxf/entities.h"

#include "dxf/group_cursor.h"
#include "dxf/run_time_error.h"
#include "dxf/spline_points.h"

namespace quillon::dxf {
namespace {

constexpr std::uint32_t kEntitiesPerPoll = 256;

/// Walks lines pair by pair and collects the entities among them.
class EntityWalk {
 public:
  /// The walk ends with the lines, or behind the first line that is `endMarker` ("": none is).
  EntityWalk(Drawing& drawing, LineRange lines, std::string_view endMarker, EntityList& items,
             LineReader& reader)
      : drawing_(drawing),
        lines_(lines, reader.lineEnds()),
        endMarker_(endMarker),
        items_(items),
        reader_(reader) {}

  bool atEnd() const { return ended_ || lines_.atEnd(); }
  const char* position() const { return lines_.position(); }

  /// Reads one entity or steps over one pair. False once the user has cancelled.
  bool step() {
    const std::string_view code = nextLine();
    const std::string_view name = nextLine();
    afterName_ = lines_.position();
    const EntityKind kind = entityKind(name);
    if (kind == EntityKind::None) {
      if (code == "0") noteUnknown(name);
    } else if (code == "0" || numberValue(code) == 0.0) {
      readOne(kind);
    }
    if (!pacer_.due()) return true;
    reader_.pollAt(lines_.position(), true);
    return !reader_.cancelled();
  }

  /// Goes on behind the name of the entity that failed, line by line, at the next "0" line that an
  /// entity name follows.
  void resume() {
    lines_.seek(afterName_);
    ended_ = false;
    const char* previous = afterName_;
    bool previousIsZero = false;
    while (!atEnd()) {
      const char* const start = lines_.position();
      const std::string_view line = nextLine();
      if (previousIsZero && isEntityName(line)) {
        lines_.seek(previous);
        return;
      }
      previousIsZero = line == "0";
      previous = start;
    }
  }

 private:
  std::string_view nextLine() {
    if (atEnd()) throw RunTimeError(Fault::TextEndsTooEarly, {}, lines_.position());
    const std::string_view line = trimBlanks(lines_.next());
    ended_ = isEndMarker(line);
    return line;
  }

  bool isEndMarker(std::string_view line) const {
    return line.size() == endMarker_.size() && !line.empty() && line == endMarker_;
  }

  void readOne(EntityKind kind) {
    entity_.kind = kind;
    entity_.groups = lines_.position();
    entity_.filled = 0;
    const auto& slotOfCode = slotLayout(kind).slotOfCode;
    GroupCursor groups(lines_);
    FitPointRule fitPoints;
    for (Group group; groups.next(group);) {
      if (isEndMarker(group.value)) {
        throw RunTimeError(Fault::TextEndsTooEarly, {}, group.value.data());
      }
      if (kind == EntityKind::Spline) fitPoints.visit(group);
      if (group.code < 0 || group.code > 255) continue;
      // Every slot takes the first occurrence of its group code.
      const std::uint8_t slot = slotOfCode[static_cast<std::size_t>(group.code)];
      if (slot == kNoSlot || (entity_.filled >> slot & 1U) != 0) continue;
      entity_.filled |= 1U << slot;
      entity_.values[slot] = group.value;
    }
    lines_ = groups.lines();
    if (kind == EntityKind::LwPolyline || kind == EntityKind::Leader) {
      entity_.sideIndex = ++drawing_.polyVertexLists;
    } else if (kind == EntityKind::Spline) {
      entity_.sideIndex = ++drawing_.splineData;
    }
    drawing_.store.append(items_, entity_);
  }

  void noteUnknown(std::string_view name) {
    if (name != "ENDBLK" && name != "ENDSEC" && !name.empty()) ++drawing_.unknownKinds[name];
  }

  Drawing& drawing_;
  LineCursor lines_;
  std::string_view endMarker_;
  EntityList& items_;
  LineReader& reader_;
  EntitySlots entity_;
  const char* afterName_ = nullptr;
  bool ended_ = false;
  Pacer pacer_{kEntitiesPerPoll};
};

}  // namespace

void readEntities(Drawing& drawing, LineReader& reader) {
  drawing.entities = drawing.store.startList();
  const LineRange rest{reader.position(), drawing.text->end()};
  EntityWalk walk(drawing, rest, "ENDSEC", drawing.entities, reader);
  std::size_t shown = 0;
  Pacer pacer(kEntitiesPerPoll);
  bool goesOn = true;
  while (goesOn && !walk.atEnd()) {
    try {
      goesOn = walk.step();
    } catch (const RunTimeError&) {
      // The entity in which an error arises is dropped without a message: intended.
      walk.resume();
    }
    if (pacer.due() && drawing.entities.size() != shown) {
      shown = drawing.entities.size();
      reader.monitor().setStatus(ReadPhase::Entities, shown);
    }
  }
  reader.skipTo(walk.position());
  if (drawing.entities.size() != shown) {
    reader.monitor().setStatus(ReadPhase::Entities, drawing.entities.size());
  }
}

void readBlockEntities(Drawing& drawing, LineRange lines, EntityList& items, LineReader& reader) {
  EntityWalk walk(drawing, lines, {}, items, reader);
  while (!walk.atEnd() && walk.step()) {
  }
}

}  // namespace quillon::dxf
