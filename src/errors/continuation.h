#pragma once

#include <cstdint>

namespace quillon::errors {

/// How the program goes on after an error; the result of `OnError`.
enum Continuation : std::int16_t {
  kRetry = 0,   ///< run what failed again
  kResume = 1,  ///< go on after what failed
  kLeave = 2,   ///< leave the procedure
  kEnd = 3,     ///< end the program
};

/// Which continuations are offered: one bit each.
enum ContinuationBits : unsigned {
  kMayRetry = 1U << kRetry,
  kMayResume = 1U << kResume,
  kMayLeave = 1U << kLeave,
  kMayEnd = 1U << kEnd,
  kEveryContinuation = kMayRetry | kMayResume | kMayLeave | kMayEnd,
  /// For a procedure that is one step: resuming after it means leaving it.
  kWholeProcedure = kMayRetry | kMayLeave | kMayEnd,
};

}  // namespace quillon::errors
