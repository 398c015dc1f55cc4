#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "files/paths.h"

namespace quillon::files {

/// A new file that takes the bytes of another one until they are complete.
struct TemporaryFile {
  std::filesystem::path path;
  FileHandle file;
  /// Shows, as long as it lives, that the file's writer lives: nobody takes the file for abandoned.
  /// To be kept until the file has been renamed or removed.
  std::shared_ptr<void> claim;
};

/// Makes a temporary file in a folder. One that is to take the place of `replaced`, an open file,
/// gets its rights, its owner and its group as far as this user may give them, but never runs with
/// its owner's or group's rights; without it, it is a new file like others. At no moment has
/// anybody more rights than in the end. Nothing, with errno set, when that fails.
std::optional<TemporaryFile> makeTemporaryFile(const std::filesystem::path& folder,
                                               std::FILE* replaced = nullptr);

/// Makes a file without a name for this process alone, to be written and read, in the system's
/// folder for such files. Null, with errno set, when that fails.
FileHandle makeNamelessFile();

/// Removes the temporary files that writers left in a folder when they were killed. Those of living
/// writers stay.
void clearAbandonedFiles(const std::filesystem::path& folder);

}  // namespace quillon::files
