#include "dxf/blocks.h"

#include <string_view>

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "dxf/entity_walk.h"
#include "dxf/line_counter.h"

namespace quillon::dxf {
namespace {

/// A copy of the lines that outlives the window, with the margin that a LineCursor needs.
LineRange keepLines(Drawing& drawing, LineRange lines) {
  const std::string_view text(lines.begin, static_cast<std::size_t>(lines.end - lines.begin));
  const std::string_view kept =
      drawing.arena.keep(text, TextSource::kMargin, drawing.lineEnds.eolChar);
  return {kept.data(), kept.data() + kept.size()};
}

/// Reads the groups before the first group 0. Codes are compared as text here.
void readBlockHeader(Drawing& drawing, LineCursor lines, BlockRec& block) {
  const auto nextLine = [&lines] {
    if (lines.atEnd())
      throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, lines.position());
    return base::trimBlanks(lines.next());
  };
  for (std::string_view code = nextLine(); code != "0"; code = nextLine()) {
    const std::string_view value = nextLine();
    if (code == "2") block.name = drawing.arena.keep(base::upperCase(value, drawing.encoding));
    if (code == "10") block.baseX = value;
    if (code == "20") block.baseY = value;
  }
}

void readItems(Drawing& drawing, LineCursor lines, BlockRec& block) {
  block.items = drawing.store.startList();
  LineCounter counter(block.text.begin, block.firstLine, drawing.lineEnds.eolChar);
  EntityWalk walk(drawing, lines);
  walk.countBy(counter, drawing.blocks.size());
  for (DxfEntity entity; !walk.atEnd();) {
    if (walk.step(entity) && !drawing.everyKind) drawing.store.append(block.items, entity);
  }
  drawing.otherEntities.finish();
}

}  // namespace

void parseBlock(Drawing& drawing, LineRange lines, std::uint64_t firstLine) {
  BlockRec block;
  block.firstLine = firstLine;
  block.text = keepLines(drawing, lines);
  const LineCursor cursor(block.text, drawing.lineEnds);
  try {
    readBlockHeader(drawing, cursor, block);
    readItems(drawing, cursor, block);
  } catch (base::RunTimeError& error) {
    error.setLine(block.lineAt(error.position(), drawing.lineEnds.eolChar));
    throw;
  }
  drawing.addBlock(block);
}

}  // namespace quillon::dxf
