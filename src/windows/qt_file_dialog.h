#pragma once

#include "windows/file_dialog.h"

namespace quillon::windows {

/// Shows Qt's dialog for a file, which is the desktop's own where Qt knows that, and returns the
/// chosen path, or "".
QString runQtFileDialog(const FileDialogRecord& record, bool save, QWidget* owner);

}  // namespace quillon::windows
