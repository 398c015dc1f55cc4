#include "dxf/section_walker.h"

#include <algorithm>
#include <cstddef>

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "dxf/blocks.h"
#include "dxf/entities.h"
#include "dxf/header.h"
#include "dxf/tables.h"

namespace quillon::dxf {
namespace {

enum class Search { Found, Stopped, AtEnd };

/// Skips past a line that is `marker` in upper case. Stopped when `stopMarker` comes first or the
/// user cancels, AtEnd at the end of the file.
Search searchMarker(LineReader& reader, std::string_view marker, std::string_view stopMarker,
                    bool showProgress) {
  while (!reader.atEnd()) {
    if (reader.cancelled()) return Search::Stopped;
    const std::string_view line = base::trimBlanks(reader.readDxfLine(showProgress));
    if (base::equalsUpperCased(line, stopMarker)) return Search::Stopped;
    if (base::equalsUpperCased(line, marker)) return Search::Found;
  }
  return Search::AtEnd;
}

SectionLines splitLines(LineRange range, const LineEnds& ends) {
  // Room for the lines of a small table at once; a large one grows.
  constexpr std::ptrdiff_t kUsualLine = 6;  // bytes, with its end
  constexpr std::ptrdiff_t kMostAtOnce = 4096;
  SectionLines lines;
  lines.reserve(
      static_cast<std::size_t>(std::min((range.end - range.begin) / kUsualLine, kMostAtOnce)));
  for (LineCursor cursor(range, ends); !cursor.atEnd();)
    lines.push_back(base::trimBlanks(cursor.next()));
  return lines;
}

/// The table's name: the line after the first line that is exactly "2", or the first line when
/// there is none. Throws RunTimeError when the lines end with the "2".
std::string_view tableName(LineRange range, const LineEnds& ends) {
  for (LineCursor search(range, ends); !search.atEnd();) {
    if (base::trimBlanks(search.next()) != "2") continue;
    if (search.atEnd())
      throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, search.position());
    return base::trimBlanks(search.next());
  }
  return base::trimBlanks(LineCursor(range, ends).next());
}

void parseTable(Drawing& drawing, LineRange range) {
  if (drawing.everyKind) {
    drawing.tableEntries.add(range, drawing.lineEnds, drawing.encoding, drawing.arena);
  }
  const std::string_view name = tableName(range, drawing.lineEnds);
  if (!isTableName(name)) return;
  const SectionLines lines = splitLines(range, drawing.lineEnds);
  if (base::equalsUpperCased(name, "LTYPE")) parseLineTypeTable(lines, drawing);
  if (base::equalsUpperCased(name, "LAYER")) parseLayerTable(lines, drawing);
  if (base::equalsUpperCased(name, "STYLE")) checkStyleTable(lines);
}

/// Runs a parser on collected lines and adds the file's line number to its errors.
template <typename Parse>
void withLineNumbers(const LineReader& reader, const Parse& parse) {
  try {
    parse();
  } catch (base::RunTimeError& error) {
    if (error.line() == 0) error.setLine(reader.lineAt(error.position()));
    throw;
  }
}

void readTables(Drawing& drawing, LineReader& reader) {
  LineRange lines;
  while (!reader.cancelled() && !reader.atEnd() &&
         collectBetween(reader, "TABLE", "ENDTAB", "ENDSEC", lines, true)) {
    withLineNumbers(reader, [&] { parseTable(drawing, lines); });
  }
}

[[noreturn]] void failAtFileEnd(const LineReader& reader) {
  base::RunTimeError error(base::Fault::TextEndsTooEarly, {});
  error.setLine(reader.linesRead());
  throw error;
}

void readBlocks(Drawing& drawing, LineReader& reader) {
  reader.monitor().setStatus(base::ReadPhase::Blocks, 0);
  LineRange lines;
  while (!reader.cancelled() && collectBetween(reader, "BLOCK", "ENDBLK", "ENDSEC", lines, true)) {
    if (lines.begin == nullptr) failAtFileEnd(reader);
    parseBlock(drawing, lines, reader.lineAt(lines.begin));
    reader.monitor().setStatus(base::ReadPhase::Blocks, drawing.blocks.size());
  }
}

void readEntitiesSection(Drawing& drawing, LineReader& reader, EntitySink& sink) {
  reader.monitor().setStatus(base::ReadPhase::Entities, 0);
  // A line that occurs in no drawing, so that the ENDSEC of an earlier section does not stop the
  // search.
  constexpr std::string_view kNeverMet = "123456733EREW";
  if (searchMarker(reader, "ENTITIES", kNeverMet, true) != Search::Found) return;
  drawing.anySection = true;
  readEntities(drawing, reader, sink);
}

bool openSection(Drawing& drawing, LineReader& reader, std::string_view name) {
  const bool found = !reader.cancelled() && findSection(reader, name, true);
  drawing.anySection = drawing.anySection || found;
  return found;
}

int objectGroupCode(std::string_view line) {
  constexpr int kNoCode = -1;
  const std::string_view text = base::trimBlanks(line);
  const bool isNumber = !text.empty() && text.size() <= 4 &&
                        text.find_first_not_of("0123456789") == std::string_view::npos;
  return isNumber ? static_cast<int>(base::numberValue(text)) : kNoCode;
}

/// Hands on the groups of OBJECTS up to its end.
void readObjects(LineReader& reader, ObjectSink& sink) {
  while (!reader.cancelled() && !reader.atEnd()) {
    const int code = objectGroupCode(reader.readDxfLine(true));
    if (reader.atEnd()) break;
    const std::string_view value = base::trimBlanks(reader.readDxfLine(true));
    if (code == 0 && base::equalsUpperCased(value, "ENDSEC")) break;
    sink.takeGroup(code, value);
  }
  if (!reader.cancelled()) sink.endOfObjects();
}

/// Most of the time nothing in OBJECTS is needed; reading it moves the progress bar to the end.
void skipObjects(LineReader& reader, bool endsAtFileEnd) {
  bool sawEnd = endsAtFileEnd;
  while (!reader.cancelled() && !(sawEnd && reader.atEnd())) {
    if (reader.atEnd()) {
      // Without an ENDSEC, wait at the end of the file until the user cancels; kept so that such
      // drawings end as they always have.
      reader.monitor().waitForUser();
      reader.poll(true);
    }
    if (base::equalsUpperCased(reader.readDxfLine(true), "ENDSEC")) sawEnd = true;
  }
}

}  // namespace

void readHeaderAndTables(Drawing& drawing, LineReader& reader) {
  drawing.lineEnds = reader.source().lineEnds();
  reader.monitor().setStatus(base::ReadPhase::Header, 0);
  if (openSection(drawing, reader, "HEADER")) readHeader(drawing, reader);
  if (openSection(drawing, reader, "TABLES")) readTables(drawing, reader);
}

void readDefinitions(Drawing& drawing, LineReader& reader) {
  readHeaderAndTables(drawing, reader);
  if (openSection(drawing, reader, "BLOCKS")) readBlocks(drawing, reader);
}

void readContents(Drawing& drawing, LineReader& reader, EntitySink& sink, bool endsAtFileEnd) {
  if (!reader.cancelled()) readEntitiesSection(drawing, reader, sink);
  if (!openSection(drawing, reader, "OBJECTS")) return;
  ObjectSink* const objects = sink.objectSink();
  if (objects != nullptr) readObjects(reader, *objects);
  // After the groups it is at the end of the section or of the file.
  skipObjects(reader, endsAtFileEnd || objects != nullptr);
  reader.poll(true);
}

bool findSection(LineReader& reader, std::string_view name, bool showProgress) {
  const bool found = reader.skipPastLine(name, showProgress);
  if (reader.cancelled()) return false;
  if (!reader.atEnd()) return found;
  // A name on the very last line counts as not found; kept so that scripts stay the same.
  reader.rewind();
  return false;
}

bool collectBetween(LineReader& reader, std::string_view startMarker, std::string_view endMarker,
                    std::string_view stopMarker, LineRange& lines, bool showProgress) {
  lines = {};
  const Search search = searchMarker(reader, startMarker, stopMarker, showProgress);
  if (search != Search::Found) return search == Search::AtEnd;
  reader.beginKeeping();
  const bool ended = reader.skipPastLine(endMarker, showProgress);
  lines = reader.keptLines();
  reader.endKeeping();
  return ended || !reader.cancelled();
}

}  // namespace quillon::dxf
