#include "windows/qt_file_dialog.h"
#include "windows/system_file_dialog.h"

namespace quillon::windows {

QString runSystemFileDialog(const FileDialogRecord& record, bool save, QWidget* owner) {
  return runQtFileDialog(record, save, owner);
}

}  // namespace quillon::windows
