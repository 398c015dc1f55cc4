#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "dxf/file_text.h"
#include "dxf/run_monitor.h"

namespace quillon::dxf {

/// Address of the first `wanted` at or after p. The caller guarantees that there is one, with at
/// least 8 readable bytes behind it.
inline const char* findByte(const char* p, char wanted) {
  if constexpr (std::endian::native == std::endian::little) {
    constexpr std::uint64_t kOnes = 0x0101010101010101U;
    const std::uint64_t pattern = kOnes * static_cast<unsigned char>(wanted);
    for (;; p += 8) {
      std::uint64_t word = 0;
      std::memcpy(&word, p, sizeof word);
      word ^= pattern;
      const std::uint64_t hit = (word - kOnes) & ~word & (kOnes << 7);
      if (hit != 0) return p + (std::countr_zero(hit) >> 3);
    }
  } else {
    while (*p != wanted) ++p;
    return p;
  }
}

/// A stretch of whole lines of a drawing.
struct LineRange {
  const char* begin = nullptr;
  const char* end = nullptr;
};

/// Splits a stretch of a FileText into lines. At the end it keeps giving empty lines.
class LineCursor {
 public:
  LineCursor(LineRange range, const LineEnds& ends)
      : position_(range.begin), end_(range.end), eol_(ends.eolChar), other_(ends.eolOther) {}

  bool atEnd() const { return position_ == end_; }
  const char* position() const { return position_; }
  /// Moves to a position that this cursor has had before.
  void seek(const char* position) { position_ = position; }

  /// The next line without its line end and without any trimming.
  std::string_view next() {
    const char* start = position_;
    if (start == end_) return {start, 0};
    if (*start == other_) ++start;
    const char* stop = findByte(start, eol_);
    if (stop < end_) {
      position_ = stop + 1;
    } else {
      position_ = stop = end_;
    }
    return {start, static_cast<std::size_t>(stop - start)};
  }

 private:
  const char* position_;
  const char* end_;
  char eol_;
  char other_;
};

/// Reads a whole drawing line by line, counts the lines and keeps the monitor informed.
class LineReader {
 public:
  LineReader(const FileText& text, RunMonitor& monitor)
      : text_(text), monitor_(monitor), cursor_({text.begin(), text.end()}, text.lineEnds()) {}

  /// The next line without its line end; "" at the end of the file, which counts as a line too.
  std::string_view readDxfLine(bool showProgress) {
    const std::string_view line = cursor_.next();
    ++linesRead_;
    if (pacer_.due()) poll(showProgress);
    return line;
  }

  bool atEnd() const { return cursor_.atEnd(); }
  const char* position() const { return cursor_.position(); }
  std::uint64_t linesRead() const { return linesRead_; }
  const LineEnds& lineEnds() const { return text_.lineEnds(); }
  RunMonitor& monitor() { return monitor_; }

  /// True once the user has cancelled, as far as the last poll knows.
  bool cancelled() const { return cancelled_; }

  /// Back to the first byte; the lines are counted from 0 again.
  void rewind() {
    cursor_.seek(text_.begin());
    linesRead_ = 0;
  }

  /// Shows where reading is and asks whether it shall stop.
  void poll(bool showProgress);

 private:
  static constexpr std::uint32_t kLinesPerPoll = 2048;

  const FileText& text_;
  RunMonitor& monitor_;
  LineCursor cursor_;
  Pacer pacer_{kLinesPerPoll};
  std::uint64_t linesRead_ = 0;
  bool cancelled_ = false;
};

}  // namespace quillon::dxf
