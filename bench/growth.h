#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::bench {

/// Converts series of drawings in which one thing keeps doubling, and prints its cost per unit and
/// the exponent that its time grows with. False when that is too large for one of them. Empty
/// `names` means all series.
bool measureGrowth(const std::string& folder, const std::vector<std::string>& names,
                   std::size_t rounds);

}  // namespace quillon::bench
