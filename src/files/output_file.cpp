#include "files/output_file.h"

#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "files/file_system.h"
#include "files/temporary_file.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

/// Reasons for which a folder refuses a temporary file although the target itself may be writable.
/// With others, such as a full disk, writing directly would leave a broken target.
bool allowsDirectWriting(int reason) {
  return reason == EACCES || reason == EPERM || reason == EROFS || reason == ENAMETOOLONG;
}

}  // namespace

OutputFile::OutputFile(const fs::path& target, Target known) : OutputFile(target, known, true) {}

OutputFile::OutputFile(const fs::path& target, Target known, bool mayWriteDirectly) {
  const bool isNew = known == Target::Vacant;
  int reason = 0;
  target_ = isNew ? target : followLinks(target, reason);
  if (reason != 0) throw WriteError(reason);
  const FileKind kind =
      isNew ? FileKind::Missing : fileKind(target);  // as the system follows links
  if (kind == FileKind::Folder) throw WriteError(EISDIR);
  if (kind == FileKind::Other) {
    if (!mayWriteDirectly) throw WriteError(EACCES);
    file_ = openFile(target, "wb");
  } else {
    openBeside(kind == FileKind::Missing ? nullptr : openExisting(target), mayWriteDirectly);
  }
  if (file_ == nullptr) throw WriteError(errno);
  stream_ = file_.get();
  std::setvbuf(stream_, nullptr, _IONBF, 0);  // the writers already pass large blocks
}

OutputFile::OutputFile(std::FILE* stream) : stream_(stream) {}

OutputFile::~OutputFile() {
  // Flush a borrowed stream, so that our output precedes the owner's next write.
  if (file_ == nullptr && stream_ != nullptr) std::fflush(stream_);
  file_.reset();
  if (!temporary_.empty()) removeFile(temporary_);
}

/// Opens an existing target without changing it. This finds out whether it is writable, and whether
/// the system resolves its links to the same file as we did.
FileHandle OutputFile::openExisting(const fs::path& target) const {
  FileHandle old = openFile(target, "r+b");
  if (old == nullptr) throw WriteError(errno);
  if (target_ != target && !isSameFile(target_, target)) throw WriteError(EACCES);
  return old;
}

/// Opens a temporary file beside the target. If that is impossible but an existing target is
/// writable, the temporary file goes elsewhere, so that a failed run does not cost the old file. A
/// new target is opened itself: its folder may be too deep for the longer name of a temporary file.
void OutputFile::openBeside(FileHandle old, bool mayWriteDirectly) {
  if (std::optional<TemporaryFile> made = makeTemporaryFile(target_.parent_path(), old.get())) {
    temporary_ = std::move(made->path);
    file_ = std::move(made->file);
    claim_ = std::move(made->claim);
    return;
  }
  const int reason = errno;
  if (!mayWriteDirectly || !allowsDirectWriting(reason)) throw WriteError(reason);
  file_ = old == nullptr ? openFile(target_, "wbx") : makeNamelessFile();
  old_ = std::move(old);
}

void OutputFile::write(std::string_view block) {
  if (std::fwrite(block.data(), 1, block.size(), stream_) != block.size()) {
    throw WriteError(errno);
  }
  size_ += block.size();
}

void OutputFile::sync() {
  const int reason = putOnDisk(stream_);
  if (reason != 0) throw WriteError(reason);
}

void OutputFile::commit() {
  if (std::fflush(stream_) != 0) throw WriteError(errno);
  if (file_ == nullptr) return;
  if (old_ != nullptr) copyIntoTarget();
  stream_ = nullptr;
  if (std::fclose(file_.release()) != 0) throw WriteError(errno);
  if (temporary_.empty()) return;
  const int reason = replaceWith(target_, temporary_);
  if (reason != 0) throw WriteError(reason);
  temporary_.clear();
  claim_.reset();
}

/// Reserves the space before overwriting the first byte, so that a full disk is noticed while the
/// old target is still whole.
void OutputFile::copyIntoTarget() {
  int reason = makeRoom(old_.get(), size_);
  std::rewind(stream_);
  std::array<char, 1U << 16> block;
  for (std::size_t got = 0;
       reason == 0 && (got = std::fread(block.data(), 1, block.size(), stream_)) > 0;) {
    if (std::fwrite(block.data(), 1, got, old_.get()) != got) reason = errno;
  }
  if (reason == 0 && std::ferror(stream_) != 0) reason = errno;
  if (reason == 0) reason = cutOff(old_.get(), size_);
  if (reason != 0) throw WriteError(reason);
  if (std::fclose(old_.release()) != 0) throw WriteError(errno);
}

fs::path folderOfTarget(const fs::path& target) {
  int reason = 0;  // a link that must not be followed fails when the file is written
  return followLinks(target, reason).parent_path();
}

void replaceFile(const fs::path& target, std::string_view bytes) {
  // If the folder cannot be created, opening the file fails.
  if (target.has_parent_path()) makeFolders(target.parent_path());
  clearAbandonedFiles(folderOfTarget(target));
  OutputFile file(target, OutputFile::Target::Unknown, false);
  file.write(bytes);
  file.sync();  // on the disk before it replaces the old file
  file.commit();
}

}  // namespace quillon::files
