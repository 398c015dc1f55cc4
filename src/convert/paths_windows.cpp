#include <windows.h>

#include "convert/file_system_windows.h"
#include "convert/paths.h"

namespace quillon::convert {

namespace fs = std::filesystem;

namespace {

/// The name of a file or folder as the system keeps it; as written where there is none.
fs::path storedName(const fs::path& folder, const fs::path& name) {
  if (name.native().find_first_of(L"*?") != std::wstring::npos || name == "." || name == "..") {
    return name;
  }
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(unlimited(folder / name).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return name;
  FindClose(search);
  return found.cFileName;
}

}  // namespace

// The system itself disregards case and takes both separators.
fs::path findExisting(std::string_view path) {
  const fs::path written = toPath(path);
  if (path.starts_with("\\\\") || path.starts_with("//")) return written;  // another machine's
  if (GetFileAttributesW(unlimited(written).c_str()) == INVALID_FILE_ATTRIBUTES) return written;
  fs::path stored = written.root_path();
  for (const fs::path& name : written.relative_path()) stored /= storedName(stored, name);
  return stored == written ? written : stored;
}

fs::path findForCreation(std::string_view path) { return toPath(path); }

bool namesHaveCase() { return false; }

}  // namespace quillon::convert
