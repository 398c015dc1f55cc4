#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "base/byte_sink.h"
#include "files/paths.h"

namespace quillon::files {

/// A file could not be opened or written, for the system's reason with this number (errno).
class WriteError : public std::runtime_error {
 public:
  explicit WriteError(int reason)
      : std::runtime_error(std::generic_category().message(reason)), reason_(reason) {}
  int reason() const { return reason_; }

 private:
  int reason_;
};

/// A file that appears under its name only when it is complete.
///
/// Everything goes to a temporary file beside the target, which replaces the target on commit();
/// without a commit the target stays as it was. A link is followed where the system lets this user
/// follow it; where not, that is an error. A target in whose folder no file may be made gets its
/// bytes on commit(), and stays as it was without one. A device or a pipe gets them at once.
/// What a killed process leaves of its temporary file is for clearAbandonedFiles().
class OutputFile : public base::ByteSink {
 public:
  /// Throws WriteError when the target cannot be written.
  explicit OutputFile(const std::filesystem::path& target);
  /// Writes to a stream of the process, which stays open.
  explicit OutputFile(std::FILE* stream);
  ~OutputFile() override;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Throws WriteError when not everything could be written.
  void write(std::string_view block) override;
  /// Finishes the file and puts it in its place. Throws WriteError, and then leaves the target as
  /// it was.
  void commit();

 private:
  explicit OutputFile(const std::filesystem::path& target, bool mayWriteDirectly);
  friend void replaceFile(const std::filesystem::path& target, std::string_view bytes);

  FileHandle openExisting(const std::filesystem::path& target) const;
  void openBeside(FileHandle old, bool mayWriteDirectly);
  void sync();
  void copyIntoTarget();

  std::filesystem::path target_;
  std::filesystem::path temporary_;  ///< empty when there is none beside the target
  FileHandle old_;                   ///< the target, when commit() writes into it
  std::uint64_t size_ = 0;           ///< bytes written
  std::shared_ptr<void> claim_;      ///< on the temporary file
  FileHandle file_;
  std::FILE* stream_ = nullptr;  ///< where the bytes go; owned by file_ unless it is the process's
};

/// The folder in which a target's temporary files are made.
std::filesystem::path folderOfTarget(const std::filesystem::path& target);

/// Gives a file new contents as a whole: after a crash or with a full disk it is as it was. Missing
/// folders are made; what killed writers left beside the file is cleared. Throws WriteError; also
/// where no temporary file can be made beside the target.
void replaceFile(const std::filesystem::path& target, std::string_view bytes);

}  // namespace quillon::files
