#include "app/unattended/batch.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>
#include <utility>

#include "base/encoding.h"
#include "base/number_text.h"
#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::unattended {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kExtension = ".DXF";

/// Prepends the current folder to a path that starts with neither a separator nor a drive.
std::string rooted(std::string_view path) {
  path = base::trimBlanks(path);
  const bool hasRoot = path.starts_with('/') || path.starts_with('\\');
  if (path.empty() || hasRoot || path.substr(1, 1) == ":") return std::string(path);
  std::error_code error;
  const fs::path current = fs::current_path(error);
  return error ? std::string(path) : files::fromPath(current / files::toPath(path));
}

bool isSeparated(std::string_view path) { return path.ends_with('\\') || path.ends_with('/'); }

/// True for a folder, and for a missing path without an extension: it was meant as a folder, so its
/// parent must not be used instead.
bool meansFolder(std::string_view path) {
  const bool isDrive = path.size() == 2 && path[1] == ':';
  if (isDrive || path.find('*') != std::string_view::npos) return false;
  const fs::path found = files::findExisting(path);
  const bool hasExtension = files::lastComponent(path).find('.') != std::string_view::npos;
  return files::namesFolder(found) || (!hasExtension && !files::namesFile(found));
}

/// The folder that a path means, or the part before its name, with a trailing separator.
std::string folderOf(std::string_view typed, const settings::SettingsStore& store) {
  std::string path = rooted(typed);
  if (path.empty()) path = files::fromPath(store.programFolder());
  if (path.empty()) return path;
  if (meansFolder(path)) return isSeparated(path) ? path : path + '/';
  path.erase(std::min(path.find('*'), path.size()));
  const std::string before = path.substr(0, path.size() - files::lastComponent(path).size());
  return before.empty() ? path.substr(0, 2) + '\\' : before;
}

/// True when there is certainly no folder at a path.
bool isNoFolder(const fs::path& path) { return files::isMissing(path) || files::namesFile(path); }

}  // namespace

Batch listBatch(const settings::Settings& settings, const settings::SettingsStore& store) {
  Batch batch;
  batch.folder = folderOf(settings.dxfFile, store);
  const std::string scripts =
      settings::scriptBesideDrawing(settings) ? batch.folder : folderOf(settings.scriptFile, store);
  const fs::path folder = files::findExisting(batch.folder);
  const fs::path scriptFolder = files::findExisting(scripts);
  if (isNoFolder(folder)) batch.missing = {batch.folder, "/x:"};
  if (batch.missing.item.empty() && isNoFolder(scriptFolder)) batch.missing = {scripts, "/s:"};
  if (!batch.missing.item.empty()) return batch;
  std::map<std::string, std::string> drawingOf;
  for (const fs::path& path : files::listFolder(folder, batch.reason)) {
    const files::FileKind kind = files::fileKind(path);
    if (kind == files::FileKind::Folder) continue;
    const std::string name = files::fromPath(path.filename());
    if (!base::upperCase(name, base::Encoding::Utf8).ends_with(kExtension)) continue;
    const std::string stem = name.substr(0, name.size() - kExtension.size());
    BatchFile file{
        files::fromPath(path), files::fromPath(scriptFolder / files::toPath(stem + ".scr")), {}};
    if (kind == files::FileKind::Other) {
      batch.leftOut.push_back(std::move(file.dxfFile));
      continue;
    }
    const auto [first, isNew] = drawingOf.try_emplace(file.scriptFile, file.dxfFile);
    if (!isNew) file.sameScriptAs = first->second;
    batch.files.push_back(std::move(file));
  }
  return batch;
}

}  // namespace quillon::unattended
