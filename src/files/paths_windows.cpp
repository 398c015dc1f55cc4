#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "files/file_system_windows.h"
#include "files/paths.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

/// The name of a file or folder as stored; as written when it does not exist.
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

/// Whether a name matches a pattern; both are in upper case.
bool matches(std::wstring_view name, std::wstring_view pattern) {
  std::size_t n = 0;
  std::size_t p = 0;
  std::size_t star = std::wstring_view::npos;  // position of the last "*" so far, and where the
                                               // text it matched ends
  std::size_t starEnd = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == L'*') {
      star = p++;
      starEnd = n;
    } else if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == name[n])) {
      ++p;
      ++n;
    } else if (star != std::wstring_view::npos) {
      p = star + 1;
      n = ++starEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(L'*', p) == std::wstring_view::npos;
}

}  // namespace

// The system itself ignores case and takes both separators.
fs::path findExisting(std::string_view path) {
  const fs::path written = toPath(path);
  if (path.starts_with("\\\\") || path.starts_with("//")) return written;  // on another machine
  if (GetFileAttributesW(unlimited(written).c_str()) == INVALID_FILE_ATTRIBUTES) return written;
  fs::path stored = written.root_path();
  for (const fs::path& name : written.relative_path()) stored /= storedName(stored, name);
  return stored == written ? written : stored;
}

fs::path findForCreation(std::string_view path) { return toPath(path); }

fs::path wholePath(const fs::path& path) {
  constexpr std::wstring_view kPrefix = L"\\\\?\\";
  constexpr std::wstring_view kShare = L"\\\\?\\UNC\\";
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring whole(size, L'\0');
  whole.resize(GetFullPathNameW(path.c_str(), size, whole.data(), nullptr));
  if (whole.starts_with(kShare)) return L"\\\\" + whole.substr(kShare.size());
  return whole.starts_with(kPrefix) ? whole.substr(kPrefix.size()) : whole;
}

std::vector<std::string> expandWildcards(const std::string& path) {
  const std::size_t start = path.find_last_of("\\/:") + 1;  // 0 when there is none
  if (path.find_first_of("*?", start) == std::string::npos) return {path};
  const std::string folder = path.substr(0, start);
  std::wstring pattern = upperCased(toPath(path.substr(start)).native());
  if (pattern == L"*.*") pattern = L"*";  // which has always included names without a dot
  int ignored = 0;
  std::vector<std::pair<std::wstring, std::string>> found;  // sorted by the first
  for (const fs::path& entry : listFolder(toPath(folder), ignored)) {
    const fs::path name = entry.filename();
    std::wstring upper = upperCased(name.native());
    // Not FindFirstFile with the pattern: it matches short (8.3) names as well.
    if (matches(upper, pattern)) found.emplace_back(std::move(upper), folder + fromPath(name));
  }
  if (found.empty()) return {path};
  std::sort(found.begin(), found.end());
  std::vector<std::string> paths;
  for (auto& [upper, name] : found) paths.push_back(std::move(name));
  return paths;
}

std::string pathArgument(std::string path) {
  if (path.ends_with('"')) path.back() = '\\';
  return path;
}

bool namesHaveCase() { return false; }

}  // namespace quillon::files
