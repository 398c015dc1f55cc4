#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::bench {

/// Converts series of drawings in which one thing doubles and doubles, and prints what a unit of it
/// costs. False when the time of some series grows clearly faster than its drawings. No `names`
/// means all series.
bool measureGrowth(const std::string& folder, const std::vector<std::string>& names,
                   std::size_t rounds);

}  // namespace quillon::bench
