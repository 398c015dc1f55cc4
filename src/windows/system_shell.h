#pragma once

#include "windows/shell.h"

namespace quillon::windows {

/// Lets the system open a document. The result is as on Windows: 0 to 32 means failure.
int runSystemShell(const ShellRequest& request, QWidget* owner);

}  // namespace quillon::windows
