#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillon::files {

/// Paths of many files are cut and put together here, as std::filesystem::path does it, which takes
/// some ten times as long: it makes a list of all folders of each path.

/// The path of a file, cut in two.
struct FileName {
  std::string_view folder;  ///< with the separator after it; empty where the path has no folder
  std::string_view name;
};

/// Cuts an exact UTF-8 path. Nothing for the rare ones that have more to them: a file in a root
/// folder, a drive, other separators than the system's own, a name that is empty or begins with a
/// dot. Those are left to std::filesystem::path.
std::optional<FileName> cutFileName(std::string_view path);

/// A name up to its extension; not for one that begins with a dot.
std::string_view stemOf(std::string_view name);

/// What precedes the names in paths to the files of a folder; "" for the empty path.
std::string prefixOf(const std::filesystem::path& folder);

}  // namespace quillon::files
