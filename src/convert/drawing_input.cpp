#include "convert/drawing_input.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace quillon::convert {
namespace {

[[noreturn]] void failReading() { throw dxf::ReadError(std::generic_category().message(errno)); }

}  // namespace

DrawingInput::DrawingInput(std::FILE* stream) : stream_(stream), head_(kCheckedBytes, '\0') {
  std::setvbuf(stream, nullptr, _IONBF, 0);  // the reader takes large blocks
  head_.resize(std::fread(head_.data(), 1, head_.size(), stream));
  if (std::ferror(stream) != 0) failReading();
}

DrawingInput DrawingInput::openFile(const std::filesystem::path& path) {
  FileHandle file = convert::openFile(path, "rb");
  if (file == nullptr) failReading();
  DrawingInput input(file.get());
  input.file_ = std::move(file);
  return input;
}

DrawingInput DrawingInput::standardInput() { return DrawingInput(stdin); }

}  // namespace quillon::convert
