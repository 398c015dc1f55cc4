#include "files/file_name.h"

#include "files/paths.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

constexpr auto kOwnSeparator = static_cast<char>(fs::path::preferred_separator);
/// Elsewhere a backslash is a character like others.
constexpr std::string_view kOwnSeparators = kOwnSeparator == '/' ? "/" : kSeparators;

}  // namespace

std::optional<FileName> cutFileName(std::string_view path) {
  const std::size_t last = path.find_last_of(kOwnSeparators);
  const bool hasFolder = last != std::string_view::npos;
  const std::size_t length = hasFolder ? last + 1 : 0;
  const FileName cut{path.substr(0, length), path.substr(length)};
  if (cut.name.empty() || cut.name.front() == '.') return std::nullopt;
  if (kOwnSeparator != '/' && path.find(':') != std::string_view::npos) return std::nullopt;
  if (!hasFolder) return cut;
  const bool isPlain = last > 0 && path[last] == kOwnSeparator &&
                       kOwnSeparators.find(path[last - 1]) == std::string_view::npos;
  return isPlain ? std::optional(cut) : std::nullopt;
}

std::string_view stemOf(std::string_view name) { return name.substr(0, name.rfind('.')); }

std::string prefixOf(const fs::path& folder) {
  std::string path = fromPath(folder / "x");
  path.pop_back();
  return path;
}

}  // namespace quillon::files
