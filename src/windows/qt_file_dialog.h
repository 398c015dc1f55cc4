#pragma once

#include "windows/file_dialog.h"

namespace quillon::windows {

/// Shows Qt's file dialog (the desktop's own where Qt supports it) and returns the chosen path, or
/// "".
QString runQtFileDialog(const FileDialogRecord& record, bool save, QWidget* owner);

}  // namespace quillon::windows
