#include "windows/window_state.h"

#include <QSettings>

#include "files/paths.h"
#include "windows/app_context.h"
#include "windows/dragged_files.h"

namespace quillon::windows {
namespace {

constexpr const char* kGeometry = "window/geometry";
constexpr const char* kSplitter = "window/splitter";
constexpr const char* kPreviewParts = "window/previewParts";
constexpr const char* kPreviewFolded = "window/previewFolded";
constexpr const char* kRulesUnfolded = "window/rulesUnfolded";
constexpr const char* kRecent = "recent/drawings";

/// "" where there is no folder for it.
QString fileOf(const settings::SettingsStore& store) {
  if (store.programFolder().empty()) return {};
  return toQt(files::fromPath(store.file().parent_path() / "window.ini"));
}

}  // namespace

WindowState WindowState::load(const settings::SettingsStore& store) {
  WindowState state;
  const QString path = fileOf(store);
  if (path.isEmpty()) return state;
  const QSettings file(path, QSettings::IniFormat);
  state.geometry = file.value(kGeometry).toByteArray();
  state.splitter = file.value(kSplitter).toByteArray();
  state.previewParts = file.value(kPreviewParts).toByteArray();
  state.previewFolded = file.value(kPreviewFolded).toBool();
  state.rulesUnfolded = file.value(kRulesUnfolded).toBool();
  state.recentDrawings = file.value(kRecent).toStringList().mid(0, kMostRecent);
  return state;
}

void WindowState::save(const settings::SettingsStore& store) const {
  const QString path = fileOf(store);
  if (path.isEmpty()) return;
  QSettings file(path, QSettings::IniFormat);
  file.setValue(kGeometry, geometry);
  file.setValue(kSplitter, splitter);
  file.setValue(kPreviewParts, previewParts);
  file.setValue(kPreviewFolded, previewFolded);
  file.setValue(kRulesUnfolded, rulesUnfolded);
  file.setValue(kRecent, recentDrawings);
}

void WindowState::remember(const QString& drawing) {
  recentDrawings.removeIf([&](const QString& known) { return isSamePath(known, drawing); });
  recentDrawings.prepend(drawing);
  recentDrawings = recentDrawings.mid(0, kMostRecent);
}

}  // namespace quillon::windows
