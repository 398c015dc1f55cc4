#pragma once

#include "app/headless/options.h"
#include "convert/script_frame.h"

namespace quillon::headless {

/// The frame file that was asked for, else the one of the program. It is read here, once for all
/// drawings; if that fails, each conversion tries again and says what is wrong.
convert::FrameSource frameOf(const Options& options);

}  // namespace quillon::headless
