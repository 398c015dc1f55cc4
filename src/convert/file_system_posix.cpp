#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "convert/file_system.h"
#include "convert/paths.h"

namespace quillon::convert {

namespace fs = std::filesystem;

FileHandle openFile(const fs::path& path, const char* mode) {
  return FileHandle(std::fopen(path.c_str(), mode));
}

FileKind fileKind(const fs::path& path) {
  std::error_code error;
  switch (fs::status(path, error).type()) {
    case fs::file_type::not_found:
      return FileKind::Missing;
    case fs::file_type::regular:
      return FileKind::Regular;
    case fs::file_type::directory:
      return FileKind::Folder;
    case fs::file_type::none:
      return FileKind::Unknown;
    default:
      return FileKind::Other;
  }
}

bool isSameFile(const fs::path& a, const fs::path& b) {
  std::error_code error;
  return fs::equivalent(a, b, error);
}

fs::path uniquePath(const fs::path& path) {
  std::error_code error;
  const fs::path whole = fs::absolute(path, error);
  const fs::path canonical = fs::weakly_canonical(whole, error);
  return error ? whole : canonical;
}

std::vector<fs::path> listFolder(const fs::path& folder, int& reason) {
  std::vector<fs::path> found;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    found.push_back(entry->path());
  }
  reason = error.value();
  return found;
}

bool makeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  return !error && fs::is_directory(folder, error);
}

fs::path followLinks(const fs::path& path) {
  std::error_code error;
  fs::path target = path;
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks && fs::is_symlink(target, error); ++i) {
    const fs::path next = fs::read_symlink(target, error);
    if (error) break;
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  return target;
}

int replaceWith(const fs::path& target, const fs::path& newFile) {
  std::error_code error;
  fs::rename(newFile, target, error);
  return error.value();
}

void removeFile(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

bool isBrokenWait(int reason) { return reason == EINTR; }

int putOnDisk(std::FILE* stream) {
  return std::fflush(stream) == 0 && fsync(fileno(stream)) == 0 ? 0 : errno;
}

}  // namespace quillon::convert
