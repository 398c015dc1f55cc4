#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "convert/input_check.h"
#include "convert/paths.h"
#include "dxf/text_source.h"

namespace quillon::convert {

/// A drawing that is open for reading.
class DrawingInput {
 public:
  /// Open a file or the process's standard input and look at the first bytes. Throw ReadError.
  static DrawingInput openFile(const std::filesystem::path& path);
  static DrawingInput standardInput();

  InputKind kind() const { return checkInput(head_); }

  /// The drawing's text, which needs this input to stay open. Throws ReadError.
  std::unique_ptr<dxf::TextSource> text() const {
    return std::make_unique<dxf::TextSource>(stream_, head_);
  }

 private:
  explicit DrawingInput(std::FILE* stream);

  FileHandle file_;    ///< null for standard input
  std::FILE* stream_;  ///< where to read from
  std::string head_;
};

}  // namespace quillon::convert
