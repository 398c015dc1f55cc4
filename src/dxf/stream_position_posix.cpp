#include <sys/stat.h>

#include <cerrno>

#include "dxf/stream_position.h"

namespace quillon::dxf {

namespace {

FileStamp stampIn(const struct stat& status) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  return {static_cast<std::uint64_t>(status.st_size),
          status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec, status.st_dev,
          status.st_ino};
}

}  // namespace

FileStamp stampOf(std::FILE* stream) {
  struct stat status {};
  return fstat(fileno(stream), &status) == 0 ? stampIn(status) : FileStamp{};
}

StreamState stateOf(std::FILE* stream) {
  struct stat status {};
  const bool isKnown = fstat(fileno(stream), &status) == 0;
  if (isKnown && S_ISREG(status.st_mode)) return {status.st_size, stampIn(status)};
  // Such as a disk.
  const off_t position = ftello(stream);
  if (position < 0 || fseeko(stream, 0, SEEK_END) != 0) return {};
  const off_t size = ftello(stream);
  if (fseeko(stream, position, SEEK_SET) != 0) return {};
  return {size, isKnown ? stampIn(status) : FileStamp{}};
}

bool seekTo(std::FILE* stream, std::uint64_t position) {
  return fseeko(stream, static_cast<off_t>(position), SEEK_SET) == 0;
}

bool readWasInterrupted() { return errno == EINTR; }

}  // namespace quillon::dxf
