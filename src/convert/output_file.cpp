#include "convert/output_file.h"

#include <atomic>
#include <cerrno>
#include <random>
#include <string>
#include <system_error>

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

std::string temporaryName() {
  static std::atomic<unsigned> counter{0};
  thread_local std::mt19937 random{std::random_device{}()};
  return ".quillon-" + std::to_string(random()) + "-" + std::to_string(++counter) + ".tmp";
}

}  // namespace

OutputFile::OutputFile(const fs::path& target) : target_(followLinks(target)) {
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
  if (!regular || !openTemporary()) file_ = openFile(target_, "wb");
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
  const fs::path candidate = target_.parent_path() / temporaryName();
  file_ = openFile(candidate, "wbx");
  if (file_ == nullptr) return false;
  temporary_ = candidate;
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

void OutputFile::commit() {
  if (std::fflush(stream_) != 0) throw WriteError(errno);
  if (file_ == nullptr) return;
  if (std::fclose(file_.release()) != 0) throw WriteError(errno);
  if (temporary_.empty()) return;
  std::error_code error;
  fs::rename(temporary_, target_, error);
  if (error) throw WriteError(error.value());
  temporary_.clear();
}

}  // namespace quillon::convert
