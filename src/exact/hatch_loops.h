#pragma once

#include <vector>

#include "exact/hatch_reader.h"

namespace quillon::exact {

/// The loops of a hatch in units of the script, closed, as EAGLE can draw them. Those without an
/// area and the boxes of texts are left out.
std::vector<Path> hatchLoops(const Item& item, Canvas& canvas, const HatchGroups& hatch);

}  // namespace quillon::exact
