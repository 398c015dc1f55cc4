#pragma once

#include <cstddef>
#include <optional>

#include "convert/driver.h"

namespace quillon::convert {

/// A tolerance with which open ends of outlines would meet.
struct JoinOffer {
  double millimetres = 0.0;  ///< for exact::Options::joinTolerance
  std::size_t ends = 0;      ///< that would meet, of those that the findings list
};

/// The tolerance for all open ends that are at most 1 mm from another one: further apart, they were
/// hardly meant to meet. None where there are no such ends.
std::optional<JoinOffer> joinOfferOf(const ExactFindings& findings);

}  // namespace quillon::convert
