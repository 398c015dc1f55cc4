#pragma once

#include <cstddef>
#include <limits>

namespace quillon::geometry {

/// In place of an index where there is nothing.
inline constexpr std::size_t kNoIndex = std::numeric_limits<std::size_t>::max();

}  // namespace quillon::geometry
