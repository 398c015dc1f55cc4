#include "convert/output_file.h"

#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "convert/temporary_file.h"

namespace quillon::convert {

namespace fs = std::filesystem;

namespace {

/// Where writing to this path really ends up.
fs::path followLinks(const fs::path& path) {
  std::error_code error;
  fs::path target = path;
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks && fs::is_symlink(target, error); ++i) {
    const fs::path next = fs::read_symlink(target, error);
    if (error) break;
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  return target;
}

/// Reasons for which a folder takes no temporary file although the target itself may be written.
/// Others, such as a full disk, would leave a target that is written directly torn.
bool allowsDirectWriting(int reason) {
  return reason == EACCES || reason == EPERM || reason == EROFS || reason == ENAMETOOLONG;
}

}  // namespace

OutputFile::OutputFile(const fs::path& target) : OutputFile(target, true) {}

OutputFile::OutputFile(const fs::path& target, bool mayWriteDirectly)
    : target_(followLinks(target)) {
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  const bool exists = fs::exists(status);
  if (exists && fs::is_directory(status)) {
    throw WriteError(EISDIR);
  }
  if (exists && fs::is_regular_file(status)) {
    // Opening for update changes nothing and finds out whether the file may be written.
    if (openFile(target_, "r+b") == nullptr) throw WriteError(errno);
  }
  const bool regular = !exists || fs::is_regular_file(status);
  if (!regular || !openTemporary()) {
    const int reason = regular ? errno : EACCES;
    if (!mayWriteDirectly || !allowsDirectWriting(reason)) throw WriteError(reason);
    file_ = openFile(target_, "wb");
  }
  if (file_ == nullptr) throw WriteError(errno);
  stream_ = file_.get();
  std::setvbuf(stream_, nullptr, _IONBF, 0);  // the writers above hand over large blocks
}

OutputFile::OutputFile(std::FILE* stream) : stream_(stream) {}

OutputFile::~OutputFile() {
  file_.reset();
  std::error_code ignored;
  if (!temporary_.empty()) fs::remove(temporary_, ignored);
}

bool OutputFile::openTemporary() {
  std::optional<TemporaryFile> made = makeTemporaryFile(target_.parent_path());
  if (!made) return false;
  temporary_ = std::move(made->path);
  file_ = std::move(made->file);
  claim_ = std::move(made->claim);
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (fs::exists(status)) fs::permissions(temporary_, status.permissions(), error);
  return true;
}

void OutputFile::write(std::string_view block) {
  if (std::fwrite(block.data(), 1, block.size(), stream_) != block.size()) {
    throw WriteError(errno);
  }
}

void OutputFile::sync() {
  if (std::fflush(stream_) != 0) throw WriteError(errno);
#ifdef _WIN32
  const int result = _commit(_fileno(stream_));
#else
  const int result = fsync(fileno(stream_));
#endif
  if (result != 0) throw WriteError(errno);
}

void OutputFile::commit() {
  if (std::fflush(stream_) != 0) throw WriteError(errno);
  if (file_ == nullptr) return;
  if (std::fclose(file_.release()) != 0) throw WriteError(errno);
  if (temporary_.empty()) return;
  std::error_code error;
  fs::rename(temporary_, target_, error);
  if (error) throw WriteError(error.value());
  temporary_.clear();
  claim_.reset();
}

fs::path folderOfTarget(const fs::path& target) { return followLinks(target).parent_path(); }

void replaceFile(const fs::path& target, std::string_view bytes) {
  std::error_code ignored;  // a folder that cannot be made is noticed when the file is
  if (target.has_parent_path()) fs::create_directories(target.parent_path(), ignored);
  clearAbandonedFiles(folderOfTarget(target));
  OutputFile file(target, false);
  file.write(bytes);
  file.sync();  // on the disk before it takes the old file's place
  file.commit();
}

}  // namespace quillon::convert
