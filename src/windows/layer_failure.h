#pragma once

#include <functional>
#include <string>

#include "windows/app_context.h"

namespace quillon::windows {

/// Runs what reads and saves a layer file. "" when that succeeded, else what is wrong and what to
/// do, for a message; other errors are not caught.
std::string layerFailure(const AppContext& context, const std::string& path,
                         const std::function<void()>& save);

}  // namespace quillon::windows
