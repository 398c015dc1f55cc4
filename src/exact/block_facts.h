#pragma once

#include <vector>

#include "dxf/drawing.h"
#include "rules/cancel_poll.h"

namespace quillon::exact {

/// What of a block, nested blocks included, depends on how and where it is inserted.
struct BlockFacts {
  bool takesLayer = false;  ///< something is on layer 0, and so on the layer of the insertion
  bool takesPen = false;    ///< a line type or weight is BYBLOCK, that of the insertion
  bool hasEndless = false;  ///< a RAY or XLINE, which ends where everything else does

  bool operator==(const BlockFacts&) const = default;
};

/// The facts about all blocks, by index; incomplete once the poll says so.
std::vector<BlockFacts> blockFactsOf(dxf::Drawing& drawing, rules::CancelPoll& poll);

}  // namespace quillon::exact
