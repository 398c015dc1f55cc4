#include <cerrno>

#include "dxf/stream_position.h"

namespace quillon::dxf {

long long seekableSize(std::FILE* stream) {
  if (fseeko(stream, 0, SEEK_END) != 0) return -1;
  return ftello(stream);
}

bool seekTo(std::FILE* stream, std::uint64_t position) {
  return fseeko(stream, static_cast<off_t>(position), SEEK_SET) == 0;
}

bool readWasInterrupted() { return errno == EINTR; }

}  // namespace quillon::dxf
