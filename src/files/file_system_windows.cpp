#include "files/file_system_windows.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

struct CloseHandleOf {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

int reasonOf(DWORD error) {
  switch (error) {
    case ERROR_SUCCESS:
      return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_CANNOT_MAKE:
      return EACCES;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    default:
      return EIO;
  }
}

fs::path fullPath(const fs::path& path) {
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring full(size, L'\0');
  full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full.empty() ? path : fs::path(full);
}

/// Whether a path is that of a device or a pipe, judged by its spelling alone: merely looking at a
/// pipe would open it and take it from its intended reader. The system spells CON as "\\.\CON".
bool namesDevice(const fs::path& path) {
  const std::wstring full = upperCased(fullPath(path).native());
  std::wstring_view rest = full;
  if (rest.starts_with(L"\\\\.\\") || rest.starts_with(L"\\\\?\\")) {
    rest.remove_prefix(4);
    return rest.find(L'\\') == std::wstring_view::npos || rest.starts_with(L"PIPE\\") ||
           rest.starts_with(L"MAILSLOT\\");
  }
  if (!rest.starts_with(L"\\\\")) return false;
  rest.remove_prefix(std::min(rest.find(L'\\', 2), rest.size()));  // the computer name
  return rest.starts_with(L"\\PIPE\\") || rest.starts_with(L"\\MAILSLOT\\");
}

/// Opens a file or folder for its metadata, without needing read access. Null for a device.
Handle openToLook(const fs::path& path) {
  if (namesDevice(path)) {
    SetLastError(ERROR_ACCESS_DENIED);
    return nullptr;
  }
  const HANDLE handle = CreateFileW(unlimited(path).c_str(), 0,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

/// The path of an open file with links resolved; empty when it has none.
fs::path finalPath(HANDLE handle) {
  const DWORD size = GetFinalPathNameByHandleW(handle, nullptr, 0, FILE_NAME_NORMALIZED);
  if (size == 0) return {};
  std::wstring text(size, L'\0');
  text.resize(GetFinalPathNameByHandleW(handle, text.data(), size, FILE_NAME_NORMALIZED));
  constexpr std::wstring_view kShare = L"\\\\?\\UNC\\";
  constexpr std::wstring_view kPrefix = L"\\\\?\\";
  if (text.starts_with(kShare)) return L"\\\\" + text.substr(kShare.size());
  return text.starts_with(kPrefix) ? text.substr(kPrefix.size()) : text;
}

}  // namespace

std::wstring upperCased(std::wstring text) {
  CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

std::wstring unlimited(const fs::path& path) {
  constexpr std::size_t kLongestPlain = 240;  // a folder's limit, 248, is below that of a file
  std::wstring whole = path.native();
  const DWORD size = GetFullPathNameW(whole.c_str(), 0, nullptr, nullptr);
  if (size <= kLongestPlain || whole.starts_with(L"\\\\?\\")) return whole;
  std::wstring full(size, L'\0');
  full.resize(GetFullPathNameW(whole.c_str(), size, full.data(), nullptr));
  if (full.empty()) return whole;
  if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
  return L"\\\\?\\" + full;
}

FileHandle openFile(const fs::path& path, const char* mode) {
  const std::string_view wanted(mode);
  int flags = _O_BINARY | _O_NOINHERIT;
  if (wanted == "rb") {
    flags |= _O_RDONLY;
  } else if (wanted == "r+b") {
    flags |= _O_RDWR;
  } else {
    flags |= _O_WRONLY | _O_CREAT | (wanted == "wbx" ? _O_EXCL : _O_TRUNC);
  }
  const int file = _wopen(unlimited(path).c_str(), flags, _S_IREAD | _S_IWRITE);
  if (file < 0) {
    if (errno == EACCES && fileKind(path) == FileKind::Folder) errno = EISDIR;
    return nullptr;
  }
  std::FILE* const stream = _fdopen(file, wanted.starts_with('w') ? "wb" : mode);
  if (stream == nullptr) _close(file);
  return FileHandle(stream);
}

FileKind fileKind(const fs::path& path) {
  if (path.empty()) return FileKind::Missing;
  if (namesDevice(path)) return FileKind::Other;
  const DWORD attributes = GetFileAttributesW(unlimited(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return reasonOf(GetLastError()) == ENOENT ? FileKind::Missing : FileKind::Unknown;
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return FileKind::Folder;
  const Handle handle = openToLook(path);
  if (handle == nullptr) {
    return reasonOf(GetLastError()) == ENOENT ? FileKind::Missing : FileKind::Regular;
  }
  return GetFileType(handle.get()) == FILE_TYPE_DISK ? FileKind::Regular : FileKind::Other;
}

bool isSameFile(const fs::path& a, const fs::path& b) {
  const Handle first = openToLook(a);
  const Handle second = openToLook(b);
  BY_HANDLE_FILE_INFORMATION one{};
  BY_HANDLE_FILE_INFORMATION other{};
  return first != nullptr && second != nullptr &&
         GetFileInformationByHandle(first.get(), &one) != 0 &&
         GetFileInformationByHandle(second.get(), &other) != 0 &&
         one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
         one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

fs::path uniquePath(const fs::path& path) {
  if (const Handle handle = openToLook(path)) {
    const fs::path found = finalPath(handle.get());
    if (!found.empty()) return upperCased(found.native());
  }
  const fs::path whole = fullPath(path);
  const fs::path above = whole.parent_path();
  // A device has no folder, and the root of a path with two leading separators leads to itself.
  const bool ends = namesDevice(path) || !whole.has_relative_path() ||
                    above.native().size() >= whole.native().size();
  if (ends) return upperCased(whole.native());
  return uniquePath(above) / upperCased(whole.filename().native());
}

std::vector<fs::path> listFolder(const fs::path& folder, int& reason) {
  std::vector<fs::path> found;
  WIN32_FIND_DATAW entry{};
  const fs::path all = (folder.empty() ? fs::path(L".") : folder) / L"*";
  const HANDLE search = FindFirstFileW(unlimited(all).c_str(), &entry);
  reason = search == INVALID_HANDLE_VALUE ? reasonOf(GetLastError()) : 0;
  if (search == INVALID_HANDLE_VALUE) return found;
  do {
    const std::wstring_view name = entry.cFileName;
    if (name != L"." && name != L"..") found.push_back(folder / name);
  } while (FindNextFileW(search, &entry) != 0);
  if (GetLastError() != ERROR_NO_MORE_FILES) reason = reasonOf(GetLastError());
  FindClose(search);
  return found;
}

std::vector<FolderEntry> listNames(const fs::path& folder, int& reason) {
  std::vector<FolderEntry> found;
  for (const fs::path& path : listFolder(folder, reason)) {
    found.push_back({fromPath(path.filename()), FileKind::Unknown});
  }
  return found;
}

bool isLink(const std::string& path) {
  std::error_code ignored;
  return fs::is_symlink(toPath(path), ignored);
}

bool makeFolders(const fs::path& folder) {
  if (fileKind(folder) == FileKind::Folder) return true;
  const fs::path above = folder.parent_path();
  if (!above.empty() && above != folder && !makeFolders(above)) return false;
  return CreateDirectoryW(unlimited(folder).c_str(), nullptr) != 0 ||
         fileKind(folder) == FileKind::Folder;
}

fs::path followLinks(const fs::path& path, int& reason) {
  reason = 0;
  if (namesDevice(path)) return path;
  const DWORD attributes = GetFileAttributesW(unlimited(path).c_str());
  const bool link =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (!link) return path;
  const Handle handle = openToLook(path);
  if (handle == nullptr) {
    const int error = reasonOf(GetLastError());
    reason = error == ENOENT ? 0 : error;
    return path;
  }
  const fs::path target = finalPath(handle.get());
  return target.empty() ? path : target;
}

bool isVacant(const fs::path& path) {
  // The attributes are those of a link itself.
  return path.empty() || (!namesDevice(path) &&
                          GetFileAttributesW(unlimited(path).c_str()) == INVALID_FILE_ATTRIBUTES &&
                          reasonOf(GetLastError()) == ENOENT);
}

bool isInTheWay(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(unlimited(path).c_str());
  const bool link =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  const FileKind kind = fileKind(path);
  return link || kind == FileKind::Regular || kind == FileKind::Unknown;
}

int replaceWith(const fs::path& target, const fs::path& newFile) {
  const std::wstring to = unlimited(target);
  const std::wstring from = unlimited(newFile);
  // Virus scanners may hold a file for a moment after it was closed.
  constexpr int kTries = 5;
  constexpr DWORD kPause = 40;  // milliseconds
  DWORD error = ERROR_SUCCESS;
  for (int i = 0; i < kTries; ++i) {
    if (i > 0) Sleep(kPause);
    // Keeps the permissions and other attributes of the replaced file.
    if (ReplaceFileW(to.c_str(), from.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                     nullptr) != 0) {
      return 0;
    }
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
        0) {
      return 0;
    }
    error = GetLastError();
    if (reasonOf(error) != EACCES) break;
  }
  return reasonOf(error);
}

void removeFile(const fs::path& path) { DeleteFileW(unlimited(path).c_str()); }

/// The C library has no errno of its own for it.
bool isBrokenWait(int reason) { return reason == EINTR || reason == EINVAL; }

int makeRoom(std::FILE* file, std::uint64_t size) {
  const long long before = _filelengthi64(_fileno(file));
  if (before < 0) return errno;
  if (size <= static_cast<std::uint64_t>(before)) return 0;
  const int reason = cutOff(file, size);
  if (reason != 0) cutOff(file, static_cast<std::uint64_t>(before));
  return reason;
}

int cutOff(std::FILE* file, std::uint64_t size) {
  if (std::fflush(file) != 0) return errno;
  return _chsize_s(_fileno(file), static_cast<long long>(size));
}

int putOnDisk(std::FILE* stream) {
  return std::fflush(stream) == 0 && _commit(_fileno(stream)) == 0 ? 0 : errno;
}

}  // namespace quillon::files
