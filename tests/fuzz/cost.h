#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace quillon::fuzz {

/// Most that some work may cost: a fixed part, and one for each of its units.
struct CostBound {
  double fixed = 0.0;
  double perUnit = 0.0;
};

/// What any part of Quillon may cost. What grows with the square of the input breaks a bound. The
/// bytes are the same in every run; the time is the processor's and has room for slow machines.
struct CostBounds {
  CostBound bytesInUse{1 << 20, 64.0};       ///< at once; a unit is a byte of the input
  CostBound bytesAllocated{2 << 20, 512.0};  ///< over the run; a unit is such a byte, or a step
  CostBound seconds{0.1, 10e-6};             ///< the same units
};

/// Does the work, which gives the steps that it took, and ends the fuzzer when it cost too much.
/// Work that took too long gets two more runs: what else the machine does must not decide.
void requireCost(const CostBounds& bounds, std::size_t inputBytes,
                 const std::function<std::uint64_t()>& work);

}  // namespace quillon::fuzz
