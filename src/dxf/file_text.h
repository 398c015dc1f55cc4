#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillon::dxf {

/// The character that ends a line and the one that is dropped wherever it occurs.
struct LineEnds {
  char eolChar = '\n';
  char eolOther = '\r';
  bool eolDetected = false;
};

/// A file could not be read; what() holds the system's reason.
class ReadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The bytes of a drawing in memory: the store that every text of the drawing points into.
///
/// Behind the last byte stands a margin of line ends, so that a search for a line end needs no
/// bounds check. Line ends are made regular once: the other character remains only where it
/// directly follows a line end, which leaves lines and their number as they were.
class FileText {
 public:
  static constexpr std::size_t kMargin = 128;

  FileText() : FileText(std::string_view{}) {}
  /// A copy of bytes in memory.
  explicit FileText(std::string_view bytes);

  /// Reads an open stream to its end, of which `head` has been read already. `expectedSize` of the
  /// whole spares growing (0: unknown). `cancelled` is asked between blocks; when it says yes, the
  /// text ends there. Throws ReadError, and std::bad_alloc when the file does not fit in memory.
  static FileText read(std::FILE* stream, std::string_view head, std::size_t expectedSize,
                       const std::function<bool()>& cancelled);

  std::string_view bytes() const { return {data_.get(), size_}; }
  const char* begin() const { return data_.get(); }
  const char* end() const { return data_.get() + size_; }
  const LineEnds& lineEnds() const { return lineEnds_; }

  /// Number (from 1) of the line that holds this position, or 0 for a position outside the text.
  std::size_t lineOf(const char* position) const;

 private:
  struct Release {
    void operator()(char* p) const { std::free(p); }  // the buffer grows with realloc
  };

  void grow(std::size_t capacity);
  void finish();
  void regulariseLineEnds();

  std::unique_ptr<char, Release> data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
  LineEnds lineEnds_;
};

}  // namespace quillon::dxf
