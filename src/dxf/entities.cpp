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
  EntityWalk(Drawing& drawing, LineRange lines, EntityList& items, LineReader& reader)
      : drawing_(drawing),
        end_(lines.end),
        lines_(lines, reader.lineEnds()),
        items_(items),
        reader_(reader) {}

  bool atEnd() const { return lines_.atEnd(); }

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
    reader_.poll(false);
    return !reader_.cancelled();
  }

  /// Goes on behind the name of the entity that failed, line by line, at the next "0" line that an
  /// entity name follows.
  void resume() {
    lines_.seek(afterName_);
    const char* previous = afterName_;
    bool previousIsZero = false;
    while (!lines_.atEnd()) {
      const char* const start = lines_.position();
      const std::string_view line = trimBlanks(lines_.next());
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
    if (lines_.atEnd()) throw RunTimeError(Fault::TextEndsTooEarly, {}, lines_.position());
    return trimBlanks(lines_.next());
  }

  void readOne(EntityKind kind) {
    const char* const start = lines_.position();
    LineCursor rest({start, end_}, reader_.lineEnds());
    GroupCursor groups(rest);
    Group group;
    if (kind == EntityKind::Spline) {
      for (FitPointRule fitPoints; groups.next(group);) fitPoints.visit(group);
    } else {
      while (groups.next(group)) {
      }
    }
    lines_.seek(groups.position());
    items_.emplace_back(kind, placeOf(kind, start));
  }

  std::uint64_t placeOf(EntityKind kind, const char* start) {
    const auto offset = static_cast<std::uint64_t>(start - drawing_.text->begin());
    std::deque<std::uint64_t>* sideStore = nullptr;
    if (kind == EntityKind::LwPolyline || kind == EntityKind::Leader) {
      sideStore = &drawing_.polyVertexLists;
    } else if (kind == EntityKind::Spline) {
      sideStore = &drawing_.splineData;
    } else {
      return offset;
    }
    sideStore->push_back(offset);
    return sideStore->size() - 1;
  }

  void noteUnknown(std::string_view name) {
    if (name != "ENDBLK" && name != "ENDSEC" && !name.empty()) ++drawing_.unknownKinds[name];
  }

  Drawing& drawing_;
  const char* end_;
  LineCursor lines_;
  EntityList& items_;
  LineReader& reader_;
  const char* afterName_ = nullptr;
  Pacer pacer_{kEntitiesPerPoll};
};

}  // namespace

void readEntities(Drawing& drawing, LineRange lines, LineReader& reader) {
  EntityWalk walk(drawing, lines, drawing.entities, reader);
  std::size_t shown = 0;
  Pacer pacer(kEntitiesPerPoll);
  while (!walk.atEnd()) {
    try {
      if (!walk.step()) return;
    } catch (const RunTimeError&) {
      // The entity in which an error arises is dropped without a message: intended.
      walk.resume();
    }
    if (pacer.due() && drawing.entities.size() != shown) {
      shown = drawing.entities.size();
      reader.monitor().setStatus(ReadPhase::Entities, shown);
    }
  }
  if (drawing.entities.size() != shown) {
    reader.monitor().setStatus(ReadPhase::Entities, drawing.entities.size());
  }
}

void readBlockEntities(Drawing& drawing, LineRange lines, EntityList& items, LineReader& reader) {
  EntityWalk walk(drawing, lines, items, reader);
  while (!walk.atEnd() && walk.step()) {
  }
}

}  // namespace quillon::dxf
