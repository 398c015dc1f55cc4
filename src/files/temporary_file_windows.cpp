// Windows does not remove a file that is open for writing. A writer closes its file only to rename
// it, so the process whose id is in the file's name must be gone as well.
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cwchar>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

#include "files/temporary_file.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

constexpr std::wstring_view kPrefix = L".quillon-";
constexpr std::wstring_view kSuffix = L".tmp";

std::wstring newName() {
  static std::atomic<unsigned> counter{0};
  thread_local std::mt19937 random{std::random_device{}()};
  return std::wstring(kPrefix) + std::to_wstring(GetCurrentProcessId()) + L"-" +
         std::to_wstring(random()) + L"-" + std::to_wstring(++counter) + std::wstring(kSuffix);
}

bool isRunning(DWORD process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
  if (handle == nullptr) return GetLastError() == ERROR_ACCESS_DENIED;
  const bool running = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
  CloseHandle(handle);
  return running;
}

bool isAbandoned(const std::wstring& name) {
  if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix)) return false;
  const wchar_t* const number = name.c_str() + kPrefix.size();
  wchar_t* end = nullptr;
  const unsigned long process = std::wcstoul(number, &end, 10);
  return end != number && *end == L'-' && !isRunning(process);
}

}  // namespace

/// The new file gets the old one's permissions when it replaces it.
std::optional<TemporaryFile> makeTemporaryFile(const fs::path& folder, std::FILE*) {
  TemporaryFile made;
  made.path = folder / newName();
  made.file = openFile(made.path, "wbx");
  if (made.file == nullptr) return std::nullopt;
  return made;
}

/// The system removes the file when it is closed, even if the process crashes.
FileHandle makeNamelessFile() {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (error) {
    errno = ENOENT;
    return nullptr;
  }
  const int file = _wopen((folder / newName()).c_str(),
                          _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT | _O_TEMPORARY,
                          _S_IREAD | _S_IWRITE);
  return FileHandle(file < 0 ? nullptr : _fdopen(file, "w+b"));
}

void clearAbandonedFiles(const fs::path& folder) {
  std::error_code error;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    if (!isAbandoned(entry->path().filename().native())) continue;
    std::error_code ignored;  // what cannot be removed stays
    if (fs::is_regular_file(entry->symlink_status(ignored))) fs::remove(entry->path(), ignored);
  }
}

}  // namespace quillon::files
