#pragma once

#include <cstdint>

namespace quillon::geometry {

/// The lower half of the bits, with a zero between each two of them: two numbers so spread, one of
/// them shifted by a bit, make one that sorts points along a line that keeps neighbours together.
inline std::uint64_t spreadBits(std::uint64_t bits) {
  bits &= 0xffffffffU;
  bits = (bits | bits << 16) & 0x0000ffff0000ffffU;
  bits = (bits | bits << 8) & 0x00ff00ff00ff00ffU;
  bits = (bits | bits << 4) & 0x0f0f0f0f0f0f0f0fU;
  bits = (bits | bits << 2) & 0x3333333333333333U;
  return (bits | bits << 1) & 0x5555555555555555U;
}

}  // namespace quillon::geometry
