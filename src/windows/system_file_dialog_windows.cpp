#include <windows.h>

#include "windows/system_file_dialog.h"
// The order matters.
#include <commdlg.h>

#include <QCoreApplication>
#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "windows/qt_file_dialog.h"

namespace quillon::windows {
namespace {

// Version 4.00 of the structure ends where newer versions continue.
static_assert(offsetof(OPENFILENAMEW, pvReserved) == (sizeof(void*) == 4 ? 76 : 136));

/// The preset file name in a buffer large enough for the chosen one.
std::vector<wchar_t> nameBuffer(const QString& preset) {
  std::wstring name = preset.toStdWString();
  std::replace(name.begin(), name.end(), L'/', L'\\');  // the dialog does not accept "/"
  std::vector<wchar_t> buffer(std::max<std::size_t>(name.size() + 1, 513), L'\0');
  std::copy(name.begin(), name.end(), buffer.begin());
  return buffer;
}

}  // namespace

QString runSystemFileDialog(const FileDialogRecord& record, bool save, QWidget* owner) {
  if (QCoreApplication::testAttribute(Qt::AA_DontUseNativeDialogs)) {
    return runQtFileDialog(record, save, owner);
  }
  const std::wstring filter = record.filter.toStdWString();
  const std::wstring initDir = record.initDir.toStdWString();
  const std::wstring title = record.title.toStdWString();
  const std::wstring defaultExt = record.defaultExt.toStdWString();
  std::vector<wchar_t> name = nameBuffer(record.buffer);
  OPENFILENAMEW dialog{};
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
    return save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
  };
  BOOL chosen = show();
  if (chosen == FALSE && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    std::fill(name.begin(), name.end(), L'\0');  // an invalid preset must not get in the way
    chosen = show();
  }
  return chosen == FALSE ? QString() : QString::fromWCharArray(name.data());
}

}  // namespace quillon::windows
