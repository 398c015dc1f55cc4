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

/// A file could not be opened or written; carries the system's errno.
class WriteError : public std::runtime_error {
 public:
  explicit WriteError(int reason)
      : std::runtime_error(std::generic_category().message(reason)), reason_(reason) {}
  int reason() const { return reason_; }

 private:
  int reason_;
};

/// A file that appears under its name only once it is complete.
///
/// Everything goes to a temporary file beside the target, which replaces the target on commit();
/// without a commit the target does not change. A link is followed if the system lets this user
/// follow it, otherwise opening fails. If the target's folder takes no new files, the bytes are
/// copied into the target on commit(). A device or a pipe gets them at once. clearAbandonedFiles()
/// removes the temporary files of killed processes.
class OutputFile : public base::ByteSink {
 public:
  /// What is known of a target: with isVacant() just true, it is not looked at again.
  enum class Target : std::uint8_t { Unknown, Vacant };

  /// Throws WriteError when the target cannot be written.
  explicit OutputFile(const std::filesystem::path& target, Target known = Target::Unknown);
  /// Writes to one of the process's streams, which stays open.
  explicit OutputFile(std::FILE* stream);
  ~OutputFile() override;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Throws WriteError when not everything could be written.
  void write(std::string_view block) override;
  /// Finishes the file and puts it in place. Throws WriteError and then leaves the target
  /// unchanged.
  void commit();

 private:
  OutputFile(const std::filesystem::path& target, Target known, bool mayWriteDirectly);
  friend void replaceFile(const std::filesystem::path& target, std::string_view bytes);

  FileHandle openExisting(const std::filesystem::path& target) const;
  void openBeside(FileHandle old, bool mayWriteDirectly);
  void sync();
  void copyIntoTarget();

  std::filesystem::path target_;
  std::filesystem::path temporary_;  ///< empty when there is none beside the target
  FileHandle old_;                   ///< the target, when commit() writes into it
  std::uint64_t size_ = 0;           ///< bytes written
  std::shared_ptr<void> claim_;      ///< keeps the temporary file from being taken for abandoned
  FileHandle file_;
  std::FILE* stream_ = nullptr;  ///< where the bytes go; owned by file_ unless borrowed
};

/// The folder for a target's temporary files.
std::filesystem::path folderOfTarget(const std::filesystem::path& target);

/// Replaces the contents of a file as a whole: after a crash or on a full disk it is unchanged.
/// Missing folders are created; temporary files of killed writers beside it are removed. Throws
/// WriteError, also when no temporary file can be created beside the target.
void replaceFile(const std::filesystem::path& target, std::string_view bytes);

}  // namespace quillon::files
