#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "convert/paths.h"

namespace quillon::convert {

/// A new file that takes the bytes of another one until they are complete.
struct TemporaryFile {
  std::filesystem::path path;
  FileHandle file;
  /// Shows, as long as it lives, that the file's writer lives: nobody takes the file for abandoned.
  /// To be kept until the file has been renamed or removed.
  std::shared_ptr<void> claim;
};

/// Makes a temporary file in a folder. Nothing, with errno set, when that fails.
std::optional<TemporaryFile> makeTemporaryFile(const std::filesystem::path& folder);

/// Removes the temporary files that writers left in a folder when they were killed. Those of living
/// writers stay.
void clearAbandonedFiles(const std::filesystem::path& folder);

}  // namespace quillon::convert
