#include "batch/drawing_files.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "base/encoding.h"
#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::batch {

namespace fs = std::filesystem;

namespace {

bool isDrawingName(const fs::path& path) {
  return base::equalsUpperCased(files::fromPath(path.extension()), ".DXF");
}

bool isLink(const fs::path& path) {
  std::error_code ignored;
  return fs::is_symlink(path, ignored);
}

}  // namespace

FolderDrawings drawingsIn(const fs::path& folder, bool recursive) {
  FolderDrawings found;
  std::vector<fs::path> open = {folder};
  while (!open.empty()) {
    const fs::path next = std::move(open.back());
    open.pop_back();
    int reason = 0;
    std::vector<fs::path> paths = files::listFolder(next, reason);
    if (reason != 0 && found.reason == 0) found.reason = reason;
    if (reason != 0) found.unreadable.push_back(next);
    for (fs::path& path : paths) {
      const bool isNamed = isDrawingName(path);
      if (!isNamed && !recursive) continue;
      const files::FileKind kind = files::fileKind(path);
      if (kind == files::FileKind::Folder) {
        if (recursive && !isLink(path)) open.push_back(std::move(path));
      } else if (isNamed) {
        (kind == files::FileKind::Other ? found.others : found.drawings).push_back(std::move(path));
      }
    }
  }
  std::sort(found.drawings.begin(), found.drawings.end());
  std::sort(found.others.begin(), found.others.end());
  return found;
}

std::string nameFromFile(std::string_view stem) {
  std::string name;
  for (const char c : stem) {
    if ((static_cast<unsigned char>(c) & 0xC0) == 0x80) continue;  // continuation byte
    const bool allowed = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                         (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
    name += allowed ? c : '_';
  }
  return name;
}

}  // namespace quillon::batch
