#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "convert/input_check.h"
#include "dxf/text_source.h"
#include "files/paths.h"

namespace quillon::convert {

/// A drawing opened for reading.
class DrawingInput {
 public:
  /// Asked where reading may block; true ends the input.
  using Cancelled = std::function<bool()>;

  /// Open a file or standard input and read its first bytes. Throw ReadError; a cancel while a pipe
  /// waits for its writer gives EINTR.
  static DrawingInput openFile(const std::filesystem::path& path, const Cancelled& cancelled);
  static DrawingInput standardInput(const Cancelled& cancelled);

  InputKind kind() const { return checkInput(head_); }

  /// The drawing's text; this input must outlive it. Throws ReadError and InputTooLarge.
  dxf::TextSource text(const Cancelled& cancelled, const dxf::InputLimits& limits = {}) const {
    return dxf::TextSource(stream_, head_, cancelled, limits, dxf::TextSource::kWindow,
                           file_ == nullptr ? nullptr : &beforeHead_);
  }
  /// The same, held as a whole: it outlives this input.
  dxf::TextSource wholeText(const Cancelled& cancelled, const dxf::InputLimits& limits = {}) const {
    return dxf::TextSource::whole(stream_, head_, cancelled, limits);
  }

 private:
  DrawingInput(std::FILE* stream, const Cancelled& cancelled);

  files::FileHandle file_;  ///< null for standard input
  std::FILE* stream_;       ///< where to read from
  std::string head_;
  dxf::FileStamp beforeHead_;  ///< of a file, taken before its head was read
};

}  // namespace quillon::convert
