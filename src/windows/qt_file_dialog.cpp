#include "windows/qt_file_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>

#include "files/paths.h"
#include "windows/app_context.h"

namespace quillon::windows {
namespace {

QString untilNul(const QString& text) { return text.left(text.indexOf(QChar(u'\0'))); }

/// The pairs of text and pattern as Qt name filters.
QStringList nameFilters(const QString& filter) {
  const QStringList parts = filter.split(QChar(u'\0'), Qt::SkipEmptyParts);
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString pattern = parts[i + 1] == "*.*" ? QStringLiteral("*") : parts[i + 1];
    filters.push_back(parts[i] + " (" + pattern + ")");
  }
  return filters;
}

/// Qt's own dialog cuts off the columns after the name, however wide it is.
void showWholeColumns(const QFileDialog& dialog) {
  const auto* const files = dialog.findChild<QTreeView*>("treeView");
  if (files == nullptr) return;
  files->header()->setStretchLastSection(false);
  files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

/// The start folder if it exists, ignoring case in its name.
QString existingFolder(const QString& folder) {
  const QString found = toQt(files::fromPath(files::findExisting(fromQt(folder))));
  return !found.isEmpty() && QDir(found).exists() ? found : QDir::currentPath();
}

}  // namespace

QString runQtFileDialog(const FileDialogRecord& record, bool save, QWidget* owner) {
  QFileDialog dialog(owner, untilNul(record.title), existingFolder(untilNul(record.initDir)));
  dialog.setObjectName("fileDialog");
  dialog.setEnabled(true);  // also usable above a disabled window
  const bool mustExist = (record.flags & kFileMustExist) != 0;
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, (record.flags & kOverwritePrompt) == 0);
  // Native open dialogs do not allow typing a new name.
  dialog.setOption(QFileDialog::DontUseNativeDialog, !save && !mustExist);
  dialog.setNameFilters(nameFilters(record.filter));
  if (save) dialog.setDefaultSuffix(untilNul(record.defaultExt));
  const QString preset = untilNul(record.buffer);
  if (!preset.isEmpty() && !preset.contains('*')) dialog.selectFile(preset);
  showWholeColumns(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  return QDir::toNativeSeparators(dialog.selectedFiles().front());
}

}  // namespace quillon::windows
