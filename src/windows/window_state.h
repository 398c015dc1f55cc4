#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "settings/settings_store.h"

namespace quillon::windows {

/// What the main window remembers from one run to the next, in a file of its own beside the
/// settings: nothing of it changes a script. Whatever cannot be read is as at the first start, and
/// what cannot be written is forgotten.
struct WindowState {
  static constexpr qsizetype kMostRecent = 10;

  QByteArray geometry;
  QByteArray splitter;      ///< between controls and preview
  QByteArray previewParts;  ///< between picture and lists
  bool previewFolded = false;
  bool rulesUnfolded = false;
  QStringList recentDrawings;  ///< the latest first

  static WindowState load(const settings::SettingsStore& store);
  void save(const settings::SettingsStore& store) const;
  /// Puts a drawing first.
  void remember(const QString& drawing);
};

}  // namespace quillon::windows
