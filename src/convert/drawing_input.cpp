#include "convert/drawing_input.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "dxf/stream_position.h"

namespace quillon::convert {
namespace {

[[noreturn]] void failReading() { throw base::ReadError(errno); }

}  // namespace

DrawingInput::DrawingInput(std::FILE* stream, const Cancelled& cancelled)
    : stream_(stream), head_(kCheckedBytes, '\0') {
  std::setvbuf(stream, nullptr, _IONBF, 0);  // the reader already reads large blocks
  std::size_t size = 0;
  while (size < head_.size() && !cancelled()) {
    size += std::fread(head_.data() + size, 1, head_.size() - size, stream);
    if (std::feof(stream) != 0) break;
    if (std::ferror(stream) == 0) continue;
    if (!dxf::readWasInterrupted()) failReading();
    std::clearerr(stream);
  }
  head_.resize(size);
}

DrawingInput DrawingInput::openFile(const std::filesystem::path& path, const Cancelled& cancelled) {
  files::FileHandle file;
  bool interrupted = false;
  do {  // opening a pipe blocks until there is a writer
    file = files::openFile(path, "rb");
    interrupted = file == nullptr && dxf::readWasInterrupted();
  } while (interrupted && !cancelled());
  if (interrupted) throw base::ReadError(EINTR);
  if (file == nullptr) failReading();
  const dxf::FileStamp beforeHead = dxf::stampOf(file.get());
  DrawingInput input(file.get(), cancelled);
  input.file_ = std::move(file);
  input.beforeHead_ = beforeHead;
  return input;
}

DrawingInput DrawingInput::standardInput(const Cancelled& cancelled) {
  return DrawingInput(stdin, cancelled);
}

}  // namespace quillon::convert
