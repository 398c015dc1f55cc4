#pragma once

#include "windows/file_dialog.h"

namespace quillon::windows {

/// Shows the system's file dialog and returns the chosen path, or "".
QString runSystemFileDialog(const FileDialogRecord& record, bool save, QWidget* owner);

}  // namespace quillon::windows
