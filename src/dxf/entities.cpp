#include "dxf/entities.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/byte_scan.h"
#include "base/number_text.h"
#include "base/run_time_error.h"
#include "dxf/entity_kinds.h"
#include "dxf/entity_walk.h"
#include "dxf/line_counter.h"

namespace quillon::dxf {
namespace {

constexpr std::uint32_t kPairsPerPoll = 256;

/// The start of the last line "0" before one that starts with a letter, as an entity's name does;
/// null where the lines have none, or not in their last 64 KB.
const char* lastEntityStart(LineRange lines, const LineEnds& ends) {
  constexpr std::ptrdiff_t kMostLooked = std::ptrdiff_t{64} << 10;
  const std::ptrdiff_t looked = std::min(lines.end - lines.begin, kMostLooked);
  std::string_view text(lines.end - looked, static_cast<std::size_t>(looked));
  bool isBeforeName = false;
  while (!text.empty()) {
    text.remove_suffix(1);  // the end of the line
    const std::size_t before = text.rfind(ends.eolChar);
    if (before == std::string_view::npos) return nullptr;
    std::string_view line = text.substr(before + 1);
    text.remove_suffix(line.size());
    const char* const start = line.data();
    if (line.starts_with(ends.eolOther)) line.remove_prefix(1);
    if (isBeforeName && base::trimBlanks(line) == "0") return start;
    isBeforeName = !line.empty() && startsName(line.front());
  }
  return nullptr;
}

/// Reads the section window by window. An entity that extends beyond the window is read again once
/// the window holds more lines.
class SectionReading {
 public:
  SectionReading(Drawing& drawing, LineReader& reader, EntitySink& sink)
      : drawing_(drawing), reader_(reader), sink_(sink) {}

  void run() {
    while (readWindow() && readMore()) {
      reader_.poll(true);
      if (reader_.cancelled()) break;
    }
    drawing_.otherEntities.finish();
    sink_.endOfEntities();
    if (count_ > 0) reader_.monitor().setStatus(base::ReadPhase::Entities, count_);
  }

 private:
  /// Reads more lines into the window, after an entity that is not complete up to what may be its
  /// end: walking along all of a long one again would take longer. False at the end of the file.
  bool readMore() {
    const std::string end = isCut_ ? entityEnd() : std::string();
    std::size_t known = windowText().size();
    if (!reader_.extendWindow()) return false;
    while (!end.empty() && !reader_.cancelled()) {
      // The end may have begun in what was known.
      const std::string_view added = windowText().substr(known - (end.size() - 1));
      if (base::findText(added, end) != std::string_view::npos) break;
      known = windowText().size();
      reader_.poll(true);
      if (!reader_.extendWindow()) break;
    }
    return true;
  }

  std::string_view windowText() const {
    const LineRange lines = reader_.window();
    return {lines.begin, static_cast<std::size_t>(lines.end - lines.begin)};
  }

  /// The end of the line "0" that the window starts with, from the character before the digit on:
  /// the line after the entity is written like it. "" where another line is there.
  std::string entityEnd() const {
    const auto [eol, other, detected] = reader_.source().lineEnds();
    const std::string_view text = windowText();
    const std::size_t stop = text.find(eol);
    if (stop == std::string_view::npos || stop == 0 || text[stop - 1] != '0') return {};
    const char before = stop == 1 ? eol : text[stop - 2];
    if (before != ' ' && before != eol && before != other) return {};
    return {before, '0', eol};
  }

  /// Reads what is complete within the window; false when the section is done.
  bool readWindow() {
    isCut_ = false;
    const TextSource& source = reader_.source();
    LineCounter lines(reader_.window().begin, reader_.lineAt(reader_.window().begin),
                      source.lineEnds().eolChar);
    EntityWalk walk(drawing_, LineCursor(reader_.window(), source.lineEnds()), "ENDSEC",
                    !source.atFileEnd(), kept_);
    walk.countBy(lines);
    const char* const last = lastOfWindow();
    while (!walk.atEnd()) {
      const char* const start = walk.position();
      if (start == last) return leaveForNext(start);
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
          return leaveForNext(start);
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

  /// Where the walk need not go on, as the entity there is nearly always not complete, and finding
  /// that out takes an exception; null where only the walk can tell.
  const char* lastOfWindow() const {
    if (reader_.source().atFileEnd()) return nullptr;
    const LineRange window = reader_.window();
    const char* const last = lastEntityStart(window, reader_.source().lineEnds());
    return last == window.begin ? nullptr : last;
  }

  /// The entity at `start` is read with the next window.
  bool leaveForNext(const char* start) {
    reader_.skipTo(start);
    isCut_ = true;
    return true;
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
  bool isCut_ = false;  ///< the window ends within the entity that it starts with
  bool lost_ = false;   ///< looking for the next entity after an error
};

}  // namespace

void readEntities(Drawing& drawing, LineReader& reader, EntitySink& sink) {
  if (reader.atEnd()) return;
  SectionReading(drawing, reader, sink).run();
}

}  // namespace quillon::dxf
