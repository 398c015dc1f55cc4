#pragma once

#include <string>

#include "app/headless/plan.h"

namespace quillon::headless {

/// Makes sure that no result replaces an input or another result. Returns the usage error, or "".
/// When two drawings found in folders or lists have the same result, the second one is marked in
/// the plan instead.
std::string checkCollisions(const Options& options, Plan& plan);

}  // namespace quillon::headless
