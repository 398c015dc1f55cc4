#pragma once

#include <QMimeData>
#include <QStringList>

namespace quillon::windows {

/// The paths of dragged local files and folders.
QStringList draggedFiles(const QMimeData& data);

/// True for the name of a layer file that is no folder.
bool isLayerFile(const QString& path);

/// True for two spellings of one path.
bool isSamePath(const QString& a, const QString& b);

}  // namespace quillon::windows
