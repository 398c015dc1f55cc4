#pragma once

#include <string>

#include "app/headless/plan.h"

namespace quillon::headless {

/// Makes sure that no result replaces an input or another result. Returns the usage error, or "".
/// When two drawings found in folders or lists have the same result, the second one is marked in
/// the plan instead. Notes the folders that get results in the plan.
std::string checkCollisions(const Options& options, Plan& plan);

}  // namespace quillon::headless
