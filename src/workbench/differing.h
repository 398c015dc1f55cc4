#pragma once

#include <memory>

#include "preview/differences.h"
#include "workbench/reading.h"

namespace quillon::workbench {

/// How a result differs from the whole drawing; null when cancelled.
std::shared_ptr<const preview::Differences> differencesOf(const Reading& drawing,
                                                          const Reading& result,
                                                          const Cancelled& cancelled);

}  // namespace quillon::workbench
