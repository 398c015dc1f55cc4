#include "app/unattended/batch.h"

#include <filesystem>
#include <system_error>

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

/// The folder part of a path, with a separator at its end.
std::string folderOf(std::string_view path, const settings::SettingsStore& store) {
  std::string folder = store.GetDirectory(rooted(path));
  const bool separated = folder.ends_with('\\') || folder.ends_with('/');
  return separated ? folder : folder + '/';
}

}  // namespace

Batch listBatch(const settings::Settings& settings, const settings::SettingsStore& store) {
  Batch batch;
  batch.folder = folderOf(settings.dxfFile, store);
  const std::string scripts =
      settings::scriptBesideDrawing(settings) ? batch.folder : folderOf(settings.scriptFile, store);
  const fs::path folder = convert::findExisting(batch.folder);
  const fs::path scriptFolder = convert::findExisting(scripts);
  for (const fs::path& path : convert::listFolder(folder, batch.reason)) {
    if (convert::namesFolder(path)) continue;
    const std::string name = convert::fromPath(path.filename());
    if (!dxf::upperCase(name, dxf::Encoding::Utf8).ends_with(kExtension)) continue;
    const std::string stem = name.substr(0, name.size() - kExtension.size());
    batch.files.push_back({convert::fromPath(path),
                           convert::fromPath(scriptFolder / convert::toPath(stem + ".scr"))});
  }
  return batch;
}

}  // namespace quillon::unattended
