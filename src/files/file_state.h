#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quillon::files {

/// What shows that a file was written again or replaced: all but a change within the clock's
/// resolution that keeps the size.
struct FileState {
  std::filesystem::file_time_type written;
  std::uintmax_t size = 0;  ///< in bytes
  bool operator==(const FileState&) const = default;
};

/// None for a path that names no file, and for an empty one.
std::optional<FileState> fileStateOf(const std::filesystem::path& path);

}  // namespace quillon::files
