#include "batch/drawing_files.h"

#include <algorithm>
#include <utility>

#include "base/encoding.h"
#include "files/file_name.h"
#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::batch {

namespace fs = std::filesystem;

namespace {

bool isDrawingName(std::string_view name) {
  constexpr std::string_view kExtension = ".DXF";
  return name.size() > kExtension.size() &&
         base::equalsUpperCased(name.substr(name.size() - kExtension.size()), kExtension);
}

/// The order of paths from one folder, as std::filesystem::path has it: a separator, which ends the
/// name of a folder, comes before all other characters.
bool isBefore(std::string_view a, std::string_view b) {
  const auto [one, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  if (one == a.end() || other == b.end()) return one == a.end() && other != b.end();
  constexpr auto kSeparator = static_cast<char>(fs::path::preferred_separator);
  const auto rank = [](char c) { return c == kSeparator ? 0 : static_cast<unsigned char>(c); };
  return rank(*one) < rank(*other);
}

/// Collects the drawings of one folder after the other.
class FolderWalk {
 public:
  FolderWalk(const fs::path& folder, bool recursive) : recursive_(recursive), open_{folder} {
    while (!open_.empty()) {
      const fs::path next = std::move(open_.back());
      open_.pop_back();
      list(next);
    }
    std::sort(found_.drawings.begin(), found_.drawings.end(),
              [](const auto& a, const auto& b) { return isBefore(a.path, b.path); });
    std::sort(found_.others.begin(), found_.others.end(), isBefore);
  }

  FolderDrawings take() { return std::move(found_); }

 private:
  void list(const fs::path& folder) {
    int reason = 0;
    const std::vector<files::FolderEntry> entries = files::listNames(folder, reason);
    if (reason != 0 && found_.reason == 0) found_.reason = reason;
    if (reason != 0) found_.unreadable.push_back(folder);
    const std::string prefix = files::prefixOf(folder);
    for (const files::FolderEntry& entry : entries) {
      const bool isNamed = isDrawingName(entry.name);
      if (isNamed || recursive_) add(prefix + entry.name, entry.kind, isNamed);
    }
  }

  void add(std::string path, files::FileKind listed, bool isNamed) {
    const bool isListed = listed != files::FileKind::Unknown;
    const files::FileKind kind = isListed ? listed : files::fileKind(files::toPath(path));
    if (kind == files::FileKind::Folder) {
      if (recursive_ && (isListed || !files::isLink(path))) open_.push_back(files::toPath(path));
    } else if (isNamed && kind == files::FileKind::Other) {
      found_.others.push_back(std::move(path));
    } else if (isNamed) {
      found_.drawings.push_back({std::move(path), isListed});
    }
  }

  bool recursive_;
  std::vector<fs::path> open_;
  FolderDrawings found_;
};

}  // namespace

FolderDrawings drawingsIn(const fs::path& folder, bool recursive) {
  return FolderWalk(folder, recursive).take();
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
