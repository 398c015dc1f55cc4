#include <algorithm>
#include <system_error>
#include <vector>

#include "convert/paths.h"
#include "dxf/encoding.h"

namespace quillon::convert {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kSeparators = "\\/";

std::vector<std::string> splitComponents(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::size_t stop = std::min(path.find_first_of(kSeparators), path.size());
    if (stop > 0) parts.emplace_back(path.substr(0, stop));
    path.remove_prefix(std::min(stop + 1, path.size()));
  }
  return parts;
}

std::string folded(std::string_view name) { return dxf::upperCase(name, dxf::Encoding::Utf8); }

/// The entry of a folder with this name, exact case first; empty when there is none.
fs::path findEntry(const fs::path& folder, const std::string& name) {
  std::error_code error;
  fs::path exact = folder / toPath(name);
  if (fs::exists(exact, error)) return exact;
  const std::string wanted = folded(name);
  fs::path found;
  for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end;
       !error && entry != end; entry.increment(error)) {
    const fs::path candidate = entry->path().filename();
    // The first one in the order of names, whatever order the folder lists them in.
    if (folded(fromPath(candidate)) == wanted && (found.empty() || candidate < found)) {
      found = candidate;
    }
  }
  return found.empty() ? found : folder / found;
}

/// Walks existing folders as far as `count` components; empty when one is missing.
fs::path walk(std::string_view path, const std::vector<std::string>& parts, std::size_t count) {
  const bool rooted = !path.empty() && kSeparators.find(path.front()) != std::string_view::npos;
  fs::path found = rooted ? fs::path("/") : fs::path();
  for (std::size_t i = 0; i < count; ++i) {
    found = findEntry(found, parts[i]);
    if (found.empty()) return {};
  }
  return found;
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
  const std::vector<std::string> parts = splitComponents(path);
  if (parts.size() < 2) return asWritten;
  const fs::path folder = walk(path, parts, parts.size() - 1);
  return folder.empty() ? asWritten : folder / toPath(parts.back());
}

fs::path wholePath(const fs::path& path) {
  std::error_code ignored;
  return fs::absolute(path, ignored).lexically_normal();
}

std::vector<std::string> expandWildcards(const std::string& path) { return {path}; }

std::string pathArgument(std::string path) { return path; }

bool namesHaveCase() { return true; }

}  // namespace quillon::convert
