#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::bench {

/// Converts drawings by the classic rules and by the exact ones, with and without joining and
/// leaving out duplicates, and prints how much longer these take and how their time
/// grows with the drawing. False when a limit is exceeded. Empty `names` means all
/// drawings.
bool measureExact(const std::string& folder, const std::vector<std::string>& names,
                  std::size_t bytes, std::size_t rounds);

}  // namespace quillon::bench
