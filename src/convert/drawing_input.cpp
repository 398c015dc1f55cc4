#include "convert/drawing_input.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace quillon::convert {
namespace {

[[noreturn]] void failReading() { throw dxf::ReadError(std::generic_category().message(errno)); }

}  // namespace

DrawingInput::DrawingInput(std::FILE* stream) : stream_(stream), head_(kCheckedBytes, '\0') {
  head_.resize(std::fread(head_.data(), 1, head_.size(), stream));
  if (std::ferror(stream) != 0) failReading();
}

DrawingInput DrawingInput::openFile(const std::filesystem::path& path) {
  FileHandle file = convert::openFile(path, "rb");
  if (file == nullptr) failReading();
  DrawingInput input(file.get());
  input.file_ = std::move(file);
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (!error) input.size_ = static_cast<std::size_t>(size);
  return input;
}

DrawingInput DrawingInput::standardInput() { return DrawingInput(stdin); }

dxf::FileText DrawingInput::read(const std::function<bool()>& cancelled) {
  dxf::FileText text = dxf::FileText::read(stream_, head_, size_, cancelled);
  file_.reset();
  return text;
}

}  // namespace quillon::convert
