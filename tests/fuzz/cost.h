#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace quillon::fuzz {

/// The most that some work may cost: a fixed part plus a part per unit.
struct CostBound {
  double fixed = 0.0;
  double perUnit = 0.0;
};

/// The most that any part of Quillon may cost; quadratic growth exceeds it. Bytes are the same in
/// every run; seconds are processor time, with room for slow machines.
struct CostBounds {
  CostBound bytesInUse{1 << 20, 64.0};       ///< peak; the unit is a byte of the input
  double bytesInUsePerStep = 0.0;            ///< in addition to that
  CostBound bytesAllocated{2 << 20, 512.0};  ///< total; the unit is an input byte or a step
  CostBound seconds{0.1, 10e-6};             ///< the same units
};

/// Does the work, which returns its number of steps, and ends the fuzzer when it cost too much. If
/// it took too long it is run up to five times more, so that a busy machine does not cause
/// failures.
void requireCost(const CostBounds& bounds, std::size_t inputBytes,
                 const std::function<std::uint64_t()>& work);

}  // namespace quillon::fuzz
