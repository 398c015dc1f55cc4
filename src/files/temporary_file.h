#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "files/paths.h"

namespace quillon::files {

/// A new file that is written in place of another one until it is complete.
struct TemporaryFile {
  std::filesystem::path path;
  FileHandle file;
  /// While it lives, it shows that the file's writer is alive, so that nobody takes the file for
  /// abandoned. Keep it until the file has been renamed or removed.
  std::shared_ptr<void> claim;
};

/// Creates a temporary file in a folder. If it is to replace `replaced`, an open file, it gets that
/// file's permissions, owner and group as far as this user may set them, but no setuid or setgid
/// bit; otherwise it gets those of any new file. At no moment does anybody have more access than in
/// the end. Nothing, with errno set, on failure.
std::optional<TemporaryFile> makeTemporaryFile(const std::filesystem::path& folder,
                                               std::FILE* replaced = nullptr);

/// Creates a file without a name, for this process alone, open for reading and writing, in the
/// system's temporary folder. Null, with errno set, on failure.
FileHandle makeNamelessFile();

/// Removes temporary files that killed writers left in a folder. Those of living writers stay.
void clearAbandonedFiles(const std::filesystem::path& folder);

}  // namespace quillon::files
