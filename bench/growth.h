#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::bench {

/// Converts series of drawings in which one thing keeps doubling, and prints its cost per unit.
/// False when the time of a series clearly grows faster than its drawings. Empty `names` means all
/// series.
bool measureGrowth(const std::string& folder, const std::vector<std::string>& names,
                   std::size_t rounds);

}  // namespace quillon::bench
