#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "convert/input_check.h"
#include "convert/paths.h"
#include "dxf/file_text.h"

namespace quillon::convert {

/// A drawing that is open for reading.
class DrawingInput {
 public:
  /// Open a file or the process's standard input and look at the first bytes. Throw ReadError.
  static DrawingInput openFile(const std::filesystem::path& path);
  static DrawingInput standardInput();

  InputKind kind() const { return checkInput(head_); }

  /// Reads everything and closes the file. `cancelled` is asked now and then; after a cancel the
  /// text ends early. Throws ReadError, and std::bad_alloc when there is not enough memory.
  dxf::FileText read(const std::function<bool()>& cancelled);

 private:
  explicit DrawingInput(std::FILE* stream);

  FileHandle file_;    ///< null for standard input
  std::FILE* stream_;  ///< where to read from
  std::size_t size_ = 0;
  std::string head_;
};

}  // namespace quillon::convert
