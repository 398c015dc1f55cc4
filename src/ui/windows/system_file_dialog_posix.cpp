#include "ui/windows/qt_file_dialog.h"
#include "ui/windows/system_file_dialog.h"

namespace quillon::ui {

QString runSystemFileDialog(const FileDialogRecord& record, bool save, QWidget* owner) {
  return runQtFileDialog(record, save, owner);
}

}  // namespace quillon::ui
