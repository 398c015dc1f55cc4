#pragma once

#include <QString>
#include <QWidget>

namespace quillon::windows {

/// Shows a context id of the compiled help file "Larkspur.chm" in a folder with the system's
/// viewer. False if there is no such file or viewer.
bool showSystemHelp(const QString& folder, int contextId, QWidget* owner);

}  // namespace quillon::windows
