#include <io.h>
#include <windows.h>

#include "dxf/stream_position.h"

namespace quillon::dxf {

namespace {

HANDLE handleOf(std::FILE* stream) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
}

std::uint64_t joined(DWORD high, DWORD low) {
  return (static_cast<std::uint64_t>(high) << 32) | low;
}

}  // namespace

FileStamp stampOf(std::FILE* stream) {
  BY_HANDLE_FILE_INFORMATION file{};
  if (GetFileInformationByHandle(handleOf(stream), &file) == 0) return {};
  return {joined(file.nFileSizeHigh, file.nFileSizeLow),
          static_cast<std::int64_t>(
              joined(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime)),
          file.dwVolumeSerialNumber, joined(file.nFileIndexHigh, file.nFileIndexLow)};
}

StreamState stateOf(std::FILE* stream) {
  // On Windows, seeking in a pipe or console succeeds without effect.
  if (GetFileType(handleOf(stream)) != FILE_TYPE_DISK) return {};
  LARGE_INTEGER size{};
  if (GetFileSizeEx(handleOf(stream), &size) == 0) return {};
  return {size.QuadPart, stampOf(stream)};
}

bool seekTo(std::FILE* stream, std::uint64_t position) {
  return _fseeki64(stream, static_cast<long long>(position), SEEK_SET) == 0;
}

bool readWasInterrupted() { return GetLastError() == ERROR_OPERATION_ABORTED; }

}  // namespace quillon::dxf
