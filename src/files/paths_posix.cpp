#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

#include "base/encoding.h"
#include "files/folder_names_posix.h"
#include "files/paths.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

std::vector<std::string> splitComponents(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::size_t stop = std::min(path.find_first_of(kSeparators), path.size());
    if (stop > 0) parts.emplace_back(path.substr(0, stop));
    path.remove_prefix(std::min(stop + 1, path.size()));
  }
  return parts;
}

std::string folded(std::string_view name) { return base::upperCase(name, base::Encoding::Utf8); }

/// The entry of this name in a folder, exact case first; empty when there is none.
fs::path findEntry(const fs::path& folder, const std::string& name) {
  std::error_code error;
  fs::path exact = folder / toPath(name);
  if (fs::exists(exact, error)) return exact;
  const std::string wanted = folded(name);
  std::string found;
  forEachName(folder, [&](std::string_view candidate) {
    // Upper case takes as many bytes. The first by name, whatever order the folder lists them in.
    if (candidate.size() != wanted.size() || folded(candidate) != wanted) return;
    if (found.empty() || candidate < found) found = candidate;
  });
  return found.empty() ? fs::path() : folder / found;
}

bool isSeparator(char c) { return kSeparators.find(c) != std::string_view::npos; }

fs::path rootOf(std::string_view path) {
  return !path.empty() && isSeparator(path.front()) ? fs::path("/") : fs::path();
}

/// Walks the first `count` components through existing folders; empty when one is missing.
fs::path walk(std::string_view path, const std::vector<std::string>& parts, std::size_t count) {
  fs::path found = rootOf(path);
  for (std::size_t i = 0; i < count; ++i) {
    found = findEntry(found, parts[i]);
    if (found.empty()) return {};
  }
  return found;
}

bool beginsWithDrive(std::string_view path) {
  if (path.size() < 2 || path[1] != ':') return false;
  const char letter = static_cast<char>(path.front() | 0x20);
  return letter >= 'a' && letter <= 'z';
}

struct FolderAndName {
  std::vector<std::string> folder;
  std::string name;
};

FolderAndName splitName(std::string_view path) {
  FolderAndName split;
  split.folder = splitComponents(path);
  if (isSeparator(path.back())) return split;
  split.name = std::move(split.folder.back());
  split.folder.pop_back();
  if (split.folder.empty() && !isSeparator(path.front()) && beginsWithDrive(path)) {
    split.folder.push_back(split.name.substr(0, 2));  // a file in the current folder of a drive
    split.name.erase(0, 2);
  }
  return split;
}

}  // namespace

fs::path findExisting(std::string_view path) {
  fs::path asWritten = toPath(path);
  std::error_code error;
  if (path.empty() || fs::exists(asWritten, error)) return asWritten;
  const std::vector<std::string> parts = splitComponents(path);
  fs::path found = walk(path, parts, parts.size());
  return found.empty() ? asWritten : found;
}

fs::path findForCreation(std::string_view path) {
  fs::path asWritten = toPath(path);
  std::error_code error;
  if (path.empty() || fs::exists(asWritten, error)) return asWritten;
  const bool oneSeparator = path.find('\\') == std::string_view::npos;
  if (oneSeparator && fs::is_directory(asWritten.parent_path(), error)) return asWritten;
  const FolderAndName split = splitName(path);
  fs::path folder = walk(path, split.folder, split.folder.size());
  if (folder.empty()) {
    // The folder counts as missing in this system's spelling too; taken literally, the whole path
    // could be the name of a file in the current folder.
    folder = rootOf(path);
    for (const std::string& part : split.folder) folder /= toPath(part);
  }
  return folder / toPath(split.name);
}

fs::path wholePath(const fs::path& path) {
  std::error_code ignored;
  return fs::absolute(path, ignored).lexically_normal();
}

std::vector<std::string> expandWildcards(const std::string& path) { return {path}; }

std::string pathArgument(std::string path) { return path; }

bool namesHaveCase() { return true; }

}  // namespace quillon::files
