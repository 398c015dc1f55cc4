#include "dxf/entities.h"

#include <vector>

#include "base/run_time_error.h"
#include "dxf/entity_walk.h"
#include "dxf/line_counter.h"

namespace quillon::dxf {
namespace {

constexpr std::uint32_t kPairsPerPoll = 256;

/// Reads the section window by window. An entity that extends beyond the window is read again once
/// the window holds more lines.
class SectionReading {
 public:
  SectionReading(Drawing& drawing, LineReader& reader, EntitySink& sink)
      : drawing_(drawing), reader_(reader), sink_(sink) {}

  void run() {
    while (readWindow() && reader_.extendWindow()) {
      reader_.poll(true);
      if (reader_.cancelled()) break;
    }
    drawing_.otherEntities.finish();
    sink_.endOfEntities();
    if (count_ > 0) reader_.monitor().setStatus(base::ReadPhase::Entities, count_);
  }

 private:
  /// Reads what is complete within the window; false when the section is done.
  bool readWindow() {
    const TextSource& source = reader_.source();
    LineCounter lines(reader_.window().begin, reader_.lineAt(reader_.window().begin),
                      source.lineEnds().eolChar);
    EntityWalk walk(drawing_, LineCursor(reader_.window(), source.lineEnds()), "ENDSEC",
                    !source.atFileEnd(), kept_);
    walk.countBy(lines);
    while (!walk.atEnd()) {
      const char* const start = walk.position();
      if (lost_) {
        lost_ = !walk.findNextEntity();
        if (lost_) break;
        continue;
      }
      switch (step(walk)) {
        case Step::Entity:
          ++count_;
          entity_.lines = &lines;
          if (drawing_.everyKind) entity_.line = lines.lineAt(entity_.groups);
          sink_.takeEntity(entity_);
          break;
        case Step::Other:
          break;
        case Step::Beyond:
          reader_.skipTo(start);
          return true;
      }
      if (!pacer_.due()) continue;
      reader_.skipTo(walk.position());
      reader_.poll(true);
      reader_.monitor().setStatus(base::ReadPhase::Entities, count_);
      if (reader_.cancelled()) return false;
    }
    reader_.skipTo(walk.position());
    return !walk.ended();
  }

  enum class Step { Entity, Other, Beyond };

  Step step(EntityWalk& walk) {
    try {
      return walk.step(entity_) ? Step::Entity : Step::Other;
    } catch (const base::RunTimeError& error) {
      const bool ranOut = error.fault() == base::Fault::TextEndsTooEarly && !walk.ended();
      if (ranOut && !reader_.source().atFileEnd()) return Step::Beyond;
      // An entity with an error is dropped and counted; the conversion goes on, so that a damaged
      // drawing still gives a script.
      if (walk.failedInEntity()) noteDropped(error);
      walk.skipFailedName();
      lost_ = true;
      return Step::Other;
    }
  }

  void noteDropped(const base::RunTimeError& error) {
    DroppedEntities& dropped = drawing_.dropped;
    if (++dropped.count > 1) return;
    // If the file ends too early, its last line is the damaged one.
    const bool atEnd = error.position() == reader_.window().end;
    dropped.firstLine = reader_.lineAt(atEnd ? error.position() - 1 : error.position());
  }

  Drawing& drawing_;
  LineReader& reader_;
  EntitySink& sink_;
  DxfEntity entity_;
  std::vector<Group> kept_;
  base::Pacer pacer_{kPairsPerPoll};
  std::uint64_t count_ = 0;
  bool lost_ = false;  ///< looking for the next entity after an error
};

}  // namespace

void readEntities(Drawing& drawing, LineReader& reader, EntitySink& sink) {
  if (reader.atEnd()) return;
  SectionReading(drawing, reader, sink).run();
}

}  // namespace quillon::dxf
