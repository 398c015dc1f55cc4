#include <io.h>
#include <windows.h>

#include "dxf/stream_position.h"

namespace quillon::dxf {

long long seekableSize(std::FILE* stream) {
  // Seeking in a pipe or in the console succeeds here, and means nothing.
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  if (GetFileType(handle) != FILE_TYPE_DISK) return -1;
  if (_fseeki64(stream, 0, SEEK_END) != 0) return -1;
  return _ftelli64(stream);
}

bool seekTo(std::FILE* stream, std::uint64_t position) {
  return _fseeki64(stream, static_cast<long long>(position), SEEK_SET) == 0;
}

bool readWasInterrupted() { return GetLastError() == ERROR_OPERATION_ABORTED; }

}  // namespace quillon::dxf
