#pragma once

#include "app/headless/options.h"

namespace quillon::headless {

/// Carries out what the options ask for; the result is the program's exit code.
int run(const Options& options);

}  // namespace quillon::headless
