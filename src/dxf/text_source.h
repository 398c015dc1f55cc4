#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "base/read_error.h"
#include "base/utf8_check.h"
#include "dxf/stream_position.h"

namespace quillon::dxf {

/// The character that ends a line and the one that is dropped wherever it occurs.
struct LineEnds {
  char eolChar = '\n';
  char eolOther = '\r';
  bool eolDetected = false;
};

/// Most bytes that a drawing may have: as a file, and through a pipe, which is held in memory.
struct InputLimits {
  static constexpr std::uint64_t kNone = std::numeric_limits<std::uint64_t>::max();

  std::uint64_t file = kNone;
  std::uint64_t pipe = kNone;
};

/// A drawing has more bytes than it may have.
class InputTooLarge : public std::runtime_error {
 public:
  explicit InputTooLarge(std::uint64_t most) : std::runtime_error("too large"), most_(most) {}
  std::uint64_t most() const { return most_; }

 private:
  std::uint64_t most_;
};

/// A drawing's bytes, seen through a window that moves over the file, so that a drawing of any size
/// takes little memory. A stream that cannot be read again from its start is held as a whole.
///
/// Behind the window's last byte stands a margin of line ends, so that a search for a line end
/// needs no bounds check. Line ends are made regular: the other character remains only where it
/// directly follows a line end, which leaves lines and their number as they were.
class TextSource {
 public:
  static constexpr std::size_t kMargin = 128;
  static constexpr std::size_t kWindow = std::size_t{256} << 10;

  /// A copy of bytes in memory.
  explicit TextSource(std::string_view bytes);
  /// A stream that stands at its start, or behind `head`, which has been read from it already.
  /// A stream that can seek is read through the window and must stay open; another one is read to
  /// its end here, and `cancelled` is asked now and then. `window` is the size of the window at
  /// first, in bytes. Throws base::ReadError and InputTooLarge.
  TextSource(
      std::FILE* stream, std::string_view head,
      const std::function<bool()>& cancelled = [] { return false; }, const InputLimits& limits = {},
      std::size_t window = kWindow);
  TextSource(const TextSource&) = delete;
  TextSource& operator=(const TextSource&) = delete;

  const char* begin() const { return data_.get(); }
  const char* end() const { return data_.get() + size_; }
  /// End of the last whole line in the window; at the end of the file, the end of the text.
  const char* linesEnd() const { return data_.get() + wholeLines_; }
  /// True when the window reaches to the end of the file.
  bool atFileEnd() const { return atFileEnd_; }
  const LineEnds& lineEnds() const { return lineEnds_; }

  /// Moves the window on: it starts at `keep` and holds at least one more line, or reaches to the
  /// end of the file. Returns where `keep` stands now; every other pointer into the window is
  /// invalid. Throws base::ReadError, and std::bad_alloc when what is kept does not fit in memory.
  const char* refill(const char* keep);

  /// Puts the window at the start of the file again.
  void rewind();

  /// Bytes of the file in front of a position in the window, and in the whole file as far as known.
  std::uint64_t offsetOf(const char* position) const;
  std::uint64_t fileSize() const { return fileSize_; }
  /// True when the file was written to since this object was made. A file that took its name in the
  /// meantime is another one and does not count.
  bool hasChanged() const;

  /// True when the whole file is well-formed UTF-8. Reads a file through once; `cancelled` is asked
  /// now and then, and a cancel gives false.
  bool isUtf8(const std::function<bool()>& cancelled);

 private:
  struct Release {
    void operator()(char* p) const { std::free(p); }  // the buffer grows with realloc
  };

  void grow(std::size_t capacity);
  /// Reads into the free part of the buffer; false at the end of the stream.
  bool readMore();
  void addBytes(std::size_t count);
  void finishWindow();

  std::FILE* stream_ = nullptr;  ///< null when everything is in memory
  /// Of a text that is held in memory as a whole: of its bytes as they came, before line ends were
  /// made regular, just as those of a file are checked.
  base::Utf8Check utf8_;
  bool keepsAll_ = false;  ///< a stream is being read to its end
  std::unique_ptr<char, Release> data_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
  std::size_t wholeLines_ = 0;
  bool atFileEnd_ = false;
  char lastByte_ = '\0';         ///< the last byte read from the stream
  std::uint64_t bytesRead_ = 0;  ///< from the start of the file to the window's end
  std::uint64_t fileSize_ = 0;
  FileStamp stamp_;
  LineEnds lineEnds_;
};

}  // namespace quillon::dxf
