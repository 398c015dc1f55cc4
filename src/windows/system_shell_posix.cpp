#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include "windows/system_shell.h"

namespace quillon::windows {
namespace {

constexpr int kOpened = 33;
constexpr int kFileNotFound = 2;
constexpr int kPathNotFound = 3;
constexpr int kAccessDenied = 5;
constexpr int kNoAssociation = 31;

/// A URL has a scheme of more than one letter; a single letter is a drive.
bool isAddress(const QString& file) { return QUrl(file).scheme().size() > 1; }

int open(const QUrl& url) { return QDesktopServices::openUrl(url) ? kOpened : kNoAssociation; }

}  // namespace

int runSystemShell(const ShellRequest& request, QWidget*) {
  if (isAddress(request.file)) return open(QUrl(request.file));
  const QFileInfo file(request.file);
  if (!file.exists()) return file.dir().exists() ? kFileNotFound : kPathNotFound;
  if (!file.isReadable()) return kAccessDenied;
  if (request.parameters.isEmpty() && !file.isExecutable()) {
    return open(QUrl::fromLocalFile(file.absoluteFilePath()));
  }
  if (file.isDir()) return open(QUrl::fromLocalFile(file.absoluteFilePath()));
  const bool started = QProcess::startDetached(
      file.absoluteFilePath(), QProcess::splitCommand(request.parameters), request.folder);
  return started ? kOpened : kAccessDenied;
}

}  // namespace quillon::windows
