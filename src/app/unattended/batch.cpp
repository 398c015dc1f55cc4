#include "app/unattended/batch.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>
#include <utility>

#include "convert/file_system.h"
#include "convert/paths.h"
#include "dxf/encoding.h"
#include "dxf/number_text.h"

namespace quillon::unattended {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kExtension = ".DXF";

/// The path with the current folder in front of one that begins with neither a folder's sign nor a
/// drive.
std::string rooted(std::string_view path) {
  path = dxf::trimBlanks(path);
  const bool hasRoot = path.starts_with('/') || path.starts_with('\\');
  if (path.empty() || hasRoot || path.substr(1, 1) == ":") return std::string(path);
  std::error_code error;
  const fs::path current = fs::current_path(error);
  return error ? std::string(path) : convert::fromPath(current / convert::toPath(path));
}

bool isSeparated(std::string_view path) { return path.ends_with('\\') || path.ends_with('/'); }

/// True for a folder, and for what is neither there nor has an extension: that was meant for a
/// folder, and must not stand for the one above.
bool meansFolder(std::string_view path) {
  const bool isDrive = path.size() == 2 && path[1] == ':';
  if (isDrive || path.find('*') != std::string_view::npos) return false;
  const fs::path found = convert::findExisting(path);
  const bool hasExtension = convert::lastComponent(path).find('.') != std::string_view::npos;
  return convert::namesFolder(found) || (!hasExtension && !convert::namesFile(found));
}

/// The folder that a path means, or the part of it before its name, with a separator at its end.
std::string folderOf(std::string_view typed, const settings::SettingsStore& store) {
  std::string path = rooted(typed);
  if (path.empty()) path = convert::fromPath(store.programFolder());
  if (path.empty()) return path;
  if (meansFolder(path)) return isSeparated(path) ? path : path + '/';
  path.erase(std::min(path.find('*'), path.size()));
  const std::string before = path.substr(0, path.size() - convert::lastComponent(path).size());
  return before.empty() ? path.substr(0, 2) + '\\' : before;
}

/// True when there is surely no folder at a path.
bool isNoFolder(const fs::path& path) {
  return convert::isMissing(path) || convert::namesFile(path);
}

}  // namespace

Batch listBatch(const settings::Settings& settings, const settings::SettingsStore& store) {
  Batch batch;
  batch.folder = folderOf(settings.dxfFile, store);
  const std::string scripts =
      settings::scriptBesideDrawing(settings) ? batch.folder : folderOf(settings.scriptFile, store);
  const fs::path folder = convert::findExisting(batch.folder);
  const fs::path scriptFolder = convert::findExisting(scripts);
  if (isNoFolder(folder)) batch.missing = {batch.folder, "/x:"};
  if (batch.missing.item.empty() && isNoFolder(scriptFolder)) batch.missing = {scripts, "/s:"};
  if (!batch.missing.item.empty()) return batch;
  std::map<std::string, std::string> drawingOf;
  for (const fs::path& path : convert::listFolder(folder, batch.reason)) {
    const convert::FileKind kind = convert::fileKind(path);
    if (kind == convert::FileKind::Folder) continue;
    const std::string name = convert::fromPath(path.filename());
    if (!dxf::upperCase(name, dxf::Encoding::Utf8).ends_with(kExtension)) continue;
    const std::string stem = name.substr(0, name.size() - kExtension.size());
    BatchFile file{convert::fromPath(path),
                   convert::fromPath(scriptFolder / convert::toPath(stem + ".scr")),
                   {}};
    if (kind == convert::FileKind::Other) {
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
