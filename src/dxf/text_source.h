#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string_view>

#include "base/read_error.h"
#include "base/utf8_check.h"
#include "dxf/input_limits.h"
#include "dxf/stream_position.h"

namespace quillon::dxf {

/// The character that ends a line, and the other one, which never counts.
struct LineEnds {
  char eolChar = '\n';
  char eolOther = '\r';
  bool eolDetected = false;
};

/// A drawing's bytes, seen through a window that moves over the file, so that drawings of any size
/// need little memory. A stream that cannot seek is held as a whole.
///
/// A margin of line ends follows the window's last byte, so that a search for a line end needs no
/// bounds check. Line ends are normalised: the other character remains only directly after a line
/// end, which changes neither the lines nor their number.
class TextSource {
 public:
  static constexpr std::size_t kMargin = 128;
  static constexpr std::size_t kWindow = std::size_t{256} << 10;

  /// Copies bytes from memory.
  explicit TextSource(std::string_view bytes);
  /// A stream at its start, or after `head`, which has already been read from it. A seekable stream
  /// is read through the window and must stay open; any other one is read to its end here, asking
  /// `cancelled` now and then. `window` is the initial size of the window in bytes. `beforeHead` is
  /// the stamp of a file before `head` was read from its start, or null; while it holds, `head` is
  /// not read again. Throws base::ReadError and InputTooLarge.
  TextSource(
      std::FILE* stream, std::string_view head,
      const std::function<bool()>& cancelled = [] { return false; }, const InputLimits& limits = {},
      std::size_t window = kWindow, const FileStamp* beforeHead = nullptr);
  /// The same, but all of it is read here and held, so that it can be read again and again without
  /// the stream, which may be closed then.
  static TextSource whole(
      std::FILE* stream, std::string_view head,
      const std::function<bool()>& cancelled = [] { return false; },
      const InputLimits& limits = {});
  TextSource(const TextSource&) = delete;
  TextSource& operator=(const TextSource&) = delete;

  const char* begin() const { return data_.get(); }
  const char* end() const { return data_.get() + size_; }
  /// End of the last complete line in the window; at the end of the file, the end of the text.
  const char* linesEnd() const { return data_.get() + wholeLines_; }
  /// True when the window reaches to the end of the file.
  bool atFileEnd() const { return atFileEnd_; }
  const LineEnds& lineEnds() const { return lineEnds_; }

  /// Moves the window: it then starts at `keep` and holds at least one more line, or extends to the
  /// end of the file. Returns the new address of `keep`; all other pointers into the window become
  /// invalid. Throws base::ReadError, and std::bad_alloc when the kept part does not fit in memory.
  const char* refill(const char* keep);

  /// Moves the window back to the start of the file.
  void rewind();

  /// File offset of a position in the window, and size of the file as far as known.
  std::uint64_t offsetOf(const char* position) const;
  std::uint64_t fileSize() const { return fileSize_; }
  /// True when the file has been written to since this object was created. A different file that
  /// has taken its name does not count.
  bool hasChanged() const;

  /// True when the whole file is valid UTF-8. Reads a file once; `cancelled` is asked now and then,
  /// and a cancel gives false.
  bool isUtf8(const std::function<bool()>& cancelled);

 private:
  struct Release {
    void operator()(char* p) const { std::free(p); }  // the buffer grows with realloc
  };

  struct Whole {};
  TextSource(Whole, std::FILE* stream, std::string_view head,
             const std::function<bool()>& cancelled, const InputLimits& limits);

  /// Reads everything after `head`. Throws InputTooLarge for more than `most` bytes.
  void readToEnd(std::string_view head, const std::function<bool()>& cancelled, std::uint64_t most);
  void takeHead(std::string_view head);
  void grow(std::size_t capacity);
  /// Reads into the free part of the buffer; false at the end of the stream.
  bool readMore();
  void addBytes(std::size_t count);
  void finishWindow();

  std::FILE* stream_ = nullptr;  ///< null when everything is in memory
  /// For a text held in memory: checks its raw bytes, before line ends are normalised, as is done
  /// for files.
  base::Utf8Check utf8_;
  bool keepsAll_ = false;  ///< the stream is being read to its end
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
