#pragma once

#include "app/headless/options.h"

namespace quillon::headless {

/// Carries out the options and returns the program's exit code.
int run(const Options& options);

}  // namespace quillon::headless
