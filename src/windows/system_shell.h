#pragma once

#include "windows/shell.h"

namespace quillon::windows {

/// Lets the system open a document. The result is Windows': 0 to 32 for a failure.
int runSystemShell(const ShellRequest& request, QWidget* owner);

}  // namespace quillon::windows
