#include "windows/dragged_files.h"

#include <QDir>
#include <QUrl>

#include "files/paths.h"
#include "windows/app_context.h"

namespace quillon::windows {

QStringList draggedFiles(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths << QDir::toNativeSeparators(url.toLocalFile());
  }
  return paths;
}

bool isLayerFile(const QString& path) {
  return path.endsWith(".lay", Qt::CaseInsensitive) &&
         !files::namesFolder(files::toPath(fromQt(path)));
}

bool isSamePath(const QString& a, const QString& b) {
  return a.compare(b, files::namesHaveCase() ? Qt::CaseSensitive : Qt::CaseInsensitive) == 0;
}

}  // namespace quillon::windows
