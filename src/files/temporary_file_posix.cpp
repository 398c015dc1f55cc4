// A writer holds a lock on its temporary file. The system releases the lock when the process ends
// for any reason, so a file without a lock is abandoned. Process ids would not do: they are reused,
// and mean nothing on another machine that shares the folder.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

#include "base/text_hash.h"
#include "files/folder_names_posix.h"
#include "files/temporary_file.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kPrefix = ".quillon-";
constexpr std::string_view kSuffix = ".tmp";
/// Permissions of a new file, before the umask.
constexpr mode_t kUsualRights = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

/// The name carries the writer's process id, for whoever finds the file. Nobody else can tell the
/// next name from others and have it taken.
std::string newName() {
  static std::atomic<unsigned> counter{0};
  static const std::string start = std::string(kPrefix) + std::to_string(getpid()) + "-";
  const std::string number = std::to_string(++counter);
  const auto random = static_cast<std::uint32_t>(base::TextHash()(number));
  return start + std::to_string(random) + "-" + number + std::string(kSuffix);
}

bool isTemporaryName(std::string_view name) {
  return name.starts_with(kPrefix) && name.ends_with(kSuffix);
}

bool lock(int file, int operation) {
  int result = 0;
  do {
    result = flock(file, operation);
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

/// Creates a file with these permissions, less those that the umask takes away.
FileHandle create(const fs::path& path, mode_t rights) {
  // The C library's way needs no call of the system to find out how the file was opened.
  if (rights == kUsualRights) return FileHandle(std::fopen(path.c_str(), "wbxe"));
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights);
  return FileHandle(file < 0 ? nullptr : fdopen(file, "wb"));
}

/// Gives a new file the owner and group of an old one, then its permissions, which are for that
/// group.
void takeRights(int file, const struct stat& now, const struct stat& old) {
  constexpr auto kSameOwner = static_cast<uid_t>(-1);
  const bool sameGroup = (now.st_uid == old.st_uid && now.st_gid == old.st_gid) ||
                         fchown(file, old.st_uid, old.st_gid) == 0 ||
                         fchown(file, kSameOwner, old.st_gid) == 0;
  mode_t rights = old.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
  // If the group differs, its members were "others" before and get no more than others.
  if (!sameGroup) rights &= ~static_cast<mode_t>(S_IRWXG) | ((rights & S_IRWXO) << 3);
  fchmod(file, rights);
}

/// Keeps the lock of a file after its stream is closed.
std::shared_ptr<void> keepLock(int file) {
  const int copy = fcntl(file, F_DUPFD_CLOEXEC, 0);
  if (copy < 0) return nullptr;
  return {nullptr, [copy](void*) { close(copy); }};
}

void removeUnlessLocked(const fs::path& path) {
  const int file = open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return;
  if (lock(file, LOCK_EX | LOCK_NB)) unlink(path.c_str());
  close(file);
}

}  // namespace

std::optional<TemporaryFile> makeTemporaryFile(const fs::path& folder, std::FILE* replaced) {
  struct stat old {};
  if (replaced != nullptr && fstat(fileno(replaced), &old) != 0) return std::nullopt;
  for (;;) {
    TemporaryFile made;
    made.path = folder / newName();
    made.file = create(made.path, replaced == nullptr ? kUsualRights : old.st_mode & S_IRWXU);
    if (made.file == nullptr) return std::nullopt;
    const int file = fileno(made.file.get());
    // Where locks are not supported, the file never counts as abandoned, as nobody can lock it.
    lock(file, LOCK_EX);
    struct stat now {};
    if (fstat(file, &now) != 0) return std::nullopt;
    // It may have been taken for abandoned just before it was locked.
    if (now.st_nlink == 0) continue;
    if (replaced != nullptr) takeRights(file, now, old);
    made.claim = keepLock(file);
    return made;
  }
}

FileHandle makeNamelessFile() {
  std::error_code error;
  std::string path = (fs::temp_directory_path(error) / (std::string(kPrefix) + "XXXXXX")).native();
  const int file = error ? -1 : mkostemp(path.data(), O_CLOEXEC);
  if (error) errno = error.value();
  if (file < 0) return nullptr;
  unlink(path.c_str());
  return FileHandle(fdopen(file, "w+b"));
}

void clearAbandonedFiles(const fs::path& folder) {
  forEachName(folder, [&folder](std::string_view name) {
    if (isTemporaryName(name)) removeUnlessLocked(folder / name);
  });
}

}  // namespace quillon::files
