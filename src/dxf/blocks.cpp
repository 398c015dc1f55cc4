#include "dxf/blocks.h"

#include <string_view>

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "dxf/block_text.h"
#include "dxf/entity_walk.h"
#include "dxf/line_counter.h"

namespace quillon::dxf {
namespace {

/// A copy of all lines that outlives the window, with the margin that a LineCursor needs.
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
  block.baseX = drawing.arena.keep(block.baseX);
  block.baseY = drawing.arena.keep(block.baseY);
}

/// Reads the entities of a block. `text` keeps what they need; null where nothing is kept of them.
void readItems(Drawing& drawing, LineRange lines, BlockText* text, BlockRec& block) {
  block.items = drawing.store.startList();
  LineCounter counter(lines.begin, block.firstLine, drawing.lineEnds.eolChar);
  EntityWalk walk(drawing, LineCursor(lines, drawing.lineEnds));
  walk.countBy(counter, drawing.blocks.size());
  for (DxfEntity entity; !walk.atEnd();) {
    if (!walk.step(entity) || text == nullptr) continue;
    text->keep(entity);
    drawing.store.append(block.items, entity);
  }
  drawing.otherEntities.finish();
}

void readBlock(Drawing& drawing, LineRange lines, BlockRec& block) {
  readBlockHeader(drawing, LineCursor(lines, drawing.lineEnds), block);
  if (drawing.everyKind) {
    block.text = keepLines(drawing, lines);
    readItems(drawing, lines, nullptr, block);
    return;
  }
  BlockText text(drawing.arena, lines, drawing.lineEnds.eolChar);
  readItems(drawing, lines, &text, block);
  block.text = text.finish();
}

}  // namespace

void parseBlock(Drawing& drawing, LineRange lines, std::uint64_t firstLine) {
  BlockRec block;
  block.firstLine = firstLine;
  try {
    readBlock(drawing, lines, block);
  } catch (base::RunTimeError& error) {
    block.text = lines;  // which the error is in
    error.setLine(block.lineAt(error.position(), drawing.lineEnds.eolChar));
    throw;
  }
  drawing.addBlock(block);
}

}  // namespace quillon::dxf
