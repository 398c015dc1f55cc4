#pragma once

#include "ui/windows/file_dialog.h"

namespace quillon::ui {

/// Shows the system's dialog for a file and returns the chosen path, or "".
QString runSystemFileDialog(const FileDialogRecord& record, bool save, QWidget* owner);

}  // namespace quillon::ui
