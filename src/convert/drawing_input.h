#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "convert/input_check.h"
#include "dxf/text_source.h"
#include "files/paths.h"

namespace quillon::convert {

/// A drawing that is open for reading.
class DrawingInput {
 public:
  /// Asked where reading may have to wait; after a yes the input ends.
  using Cancelled = std::function<bool()>;

  /// Open a file or the process's standard input and look at the first bytes. Throw ReadError; a
  /// cancel while a pipe waits for its writer is the reason EINTR.
  static DrawingInput openFile(const std::filesystem::path& path, const Cancelled& cancelled);
  static DrawingInput standardInput(const Cancelled& cancelled);

  InputKind kind() const { return checkInput(head_); }

  /// The drawing's text, which needs this input to stay open. Throws ReadError and InputTooLarge.
  dxf::TextSource text(const Cancelled& cancelled, const dxf::InputLimits& limits = {}) const {
    return dxf::TextSource(stream_, head_, cancelled, limits);
  }

 private:
  DrawingInput(std::FILE* stream, const Cancelled& cancelled);

  files::FileHandle file_;  ///< null for standard input
  std::FILE* stream_;       ///< where to read from
  std::string head_;
};

}  // namespace quillon::convert
