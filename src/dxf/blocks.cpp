#include "dxf/blocks.h"

#include <utility>

#include "dxf/entities.h"
#include "dxf/number_text.h"
#include "dxf/run_time_error.h"

namespace quillon::dxf {
namespace {

/// The groups before the first group 0. Codes are compared as text here.
void readBlockHeader(Drawing& drawing, LineCursor lines, BlockRec& block) {
  const auto nextLine = [&lines] {
    if (lines.atEnd()) throw RunTimeError(Fault::TextEndsTooEarly, {}, lines.position());
    return trimBlanks(lines.next());
  };
  for (std::string_view code = nextLine(); code != "0"; code = nextLine()) {
    const std::string_view value = nextLine();
    if (code == "2") block.name = upperCase(value, drawing.encoding, drawing.arena);
    if (code == "8") block.layer = value;
    if (code == "10") block.baseX = value;
    if (code == "20") block.baseY = value;
  }
}

}  // namespace

void parseBlock(Drawing& drawing, LineRange lines, LineReader& reader) {
  BlockRec block;
  block.items = drawing.store.startList();
  readBlockHeader(drawing, LineCursor(lines, reader.lineEnds()), block);
  readBlockEntities(drawing, lines, block.items, reader);
  drawing.addBlock(std::move(block));
}

}  // namespace quillon::dxf
