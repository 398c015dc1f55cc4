#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

/// A descriptor for looking at something without opening it.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }

 private:
  int number_;
};

/// Linux's rule for links in world-writable sticky folders (fs.protected_symlinks), applied even
/// where it is switched off: anybody may have replaced a file there by a link, so only links owned
/// by this user or by the folder's owner are followed.
bool mayFollow(const struct stat& link, const struct stat& folder) {
  constexpr mode_t kShared = S_ISVTX | S_IWOTH;
  return (folder.st_mode & kShared) != kShared || link.st_uid == geteuid() ||
         link.st_uid == folder.st_uid;
}

/// The target of a link; empty when the path is missing or not a link. `reason` says why it must
/// not be followed. Descriptors make sure that all checks see the same folder and link.
fs::path linkAt(const fs::path& path, int& reason) {
  struct stat first {};
  reason = lstat(path.c_str(), &first) == 0 || errno == ENOENT || errno == ENOTDIR ? 0 : errno;
  if (reason != 0 || !S_ISLNK(first.st_mode)) return {};
  const fs::path parent = path.has_parent_path() ? path.parent_path() : fs::path(".");
  const Descriptor folder(open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  const Descriptor entry(folder.number() < 0 ? -1
                                             : openat(folder.number(), path.filename().c_str(),
                                                      O_PATH | O_NOFOLLOW | O_CLOEXEC));
  struct stat link {};
  struct stat around {};
  if (entry.number() < 0 || fstat(entry.number(), &link) != 0 ||
      fstat(folder.number(), &around) != 0) {
    reason = errno == ENOENT || errno == ENOTDIR ? 0 : errno;
    return {};
  }
  if (!S_ISLNK(link.st_mode)) return {};
  std::string text(PATH_MAX, '\0');
  const ssize_t size = readlinkat(entry.number(), "", text.data(), text.size());
  reason = size < 0 ? errno : mayFollow(link, around) ? 0 : EACCES;
  text.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
  return text;
}

/// What the system tells of an entry when it lists a folder.
FileKind listedKind(const dirent& entry) {
#ifdef DT_REG
  if (entry.d_type == DT_REG) return FileKind::Regular;
  if (entry.d_type == DT_DIR) return FileKind::Folder;
#else
  static_cast<void>(entry);
#endif
  return FileKind::Unknown;
}

}  // namespace

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

std::vector<FolderEntry> listNames(const fs::path& folder, int& reason) {
  std::vector<FolderEntry> found;
  const auto close = [](DIR* open) { closedir(open); };
  const std::unique_ptr<DIR, decltype(close)> open(opendir(folder.c_str()), close);
  reason = open == nullptr ? errno : 0;
  while (open != nullptr) {
    errno = 0;
    const dirent* const entry = readdir(open.get());
    if (entry == nullptr) {
      reason = errno;
      break;
    }
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") found.push_back({std::string(name), listedKind(*entry)});
  }
  return found;
}

bool isLink(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool makeFolders(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  return !error && fs::is_directory(folder, error);
}

fs::path followLinks(const fs::path& path, int& reason) {
  constexpr int kMostLinks = 40;
  fs::path target = path;
  reason = 0;
  for (int i = 0; i <= kMostLinks; ++i) {
    const fs::path next = linkAt(target, reason);
    if (reason != 0) return path;
    if (next.empty()) return target;
    target = target.parent_path() / next;
  }
  reason = ELOOP;
  return path;
}

bool isVacant(const fs::path& path) {
  struct stat ignored {};
  return lstat(path.c_str(), &ignored) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

bool isInTheWay(const fs::path& path) {
  std::error_code error;
  switch (fs::symlink_status(path, error).type()) {
    case fs::file_type::not_found:
    case fs::file_type::directory:
    case fs::file_type::character:
    case fs::file_type::fifo:
      return false;
    default:
      return error != std::errc::filename_too_long;  // no file can have that name
  }
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

int makeRoom(std::FILE* file, std::uint64_t size) {
  struct stat before {};
  if (fstat(fileno(file), &before) != 0) return errno;
  const auto wanted = static_cast<off_t>(size);
  if (wanted <= before.st_size) return 0;
  int reason = 0;
  do {
    reason = posix_fallocate(fileno(file), 0, wanted);
  } while (reason == EINTR);
  if (reason == 0) return 0;
  // Give back what was reserved before the space ran out.
  if (ftruncate(fileno(file), before.st_size) != 0) return errno;
  return reason == EINVAL || reason == EOPNOTSUPP ? 0 : reason;
}

int cutOff(std::FILE* file, std::uint64_t size) {
  const bool done =
      std::fflush(file) == 0 && ftruncate(fileno(file), static_cast<off_t>(size)) == 0;
  return done ? 0 : errno;
}

int putOnDisk(std::FILE* stream) {
  return std::fflush(stream) == 0 && fsync(fileno(stream)) == 0 ? 0 : errno;
}

}  // namespace quillon::files
