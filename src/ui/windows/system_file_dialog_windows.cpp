#include <windows.h>

#include "ui/windows/system_file_dialog.h"
// In this order.
#include <commdlg.h>

#include <QCoreApplication>
#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "ui/windows/qt_file_dialog.h"

namespace quillon::ui {
namespace {

// The version 4.00 of the structure ends where later ones go on.
static_assert(offsetof(OPENFILENAMEA, pvReserved) == (sizeof(void*) == 4 ? 76 : 136));

/// A text of the record in the system's code page, NUL characters included.
std::string ansi(const QString& text) { return text.toLocal8Bit().toStdString(); }

/// The preset file name with room for the one that is chosen.
std::vector<char> nameBuffer(const QString& preset) {
  std::string name = ansi(preset);
  std::replace(name.begin(), name.end(), '/', '\\');  // the dialog takes no others
  std::vector<char> buffer(std::max<std::size_t>(name.size() + 1, 513), '\0');
  std::copy(name.begin(), name.end(), buffer.begin());
  return buffer;
}

}  // namespace

QString runSystemFileDialog(const FileDialogRecord& record, bool save, QWidget* owner) {
  if (QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs)) {
    return runQtFileDialog(record, save, owner);
  }
  const std::string filter = ansi(record.filter);
  const std::string initDir = ansi(record.initDir);
  const std::string title = ansi(record.title);
  const std::string defaultExt = ansi(record.defaultExt);
  std::vector<char> name = nameBuffer(record.buffer);
  OPENFILENAMEA dialog{};
  dialog.lStructSize = static_cast<DWORD>(record.structureSize);
  dialog.hwndOwner = owner == nullptr ? nullptr : reinterpret_cast<HWND>(owner->winId());
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(record.filterIndex);
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.lpstrInitialDir = initDir.c_str();
  dialog.lpstrTitle = title.c_str();
  dialog.Flags = record.flags;
  dialog.lpstrDefExt = defaultExt.c_str();
  const auto show = [save, &dialog] {
    return save ? GetSaveFileNameA(&dialog) : GetOpenFileNameA(&dialog);
  };
  BOOL chosen = show();
  if (chosen == FALSE && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    std::fill(name.begin(), name.end(), '\0');  // a preset that is no name shall not be in the way
    chosen = show();
  }
  return chosen == FALSE ? QString() : QString::fromLocal8Bit(name.data());
}

}  // namespace quillon::ui
