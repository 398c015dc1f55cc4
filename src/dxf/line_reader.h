#pragma once

#include <cstdint>
#include <string_view>

#include "dxf/file_text.h"
#include "dxf/line_cursor.h"
#include "dxf/run_monitor.h"

namespace quillon::dxf {

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

  /// Goes on behind the next line whose trimmed text is exactly `text`, counting the lines up to
  /// there. False when there is none: then the reader stands at the end of the file, or anywhere
  /// after a cancel.
  bool skipPastLine(std::string_view text, bool showProgress);

  /// Goes on at a position further on that was reached by other means, and counts the lines up to
  /// there.
  void skipTo(const char* position);

  /// Back to the first byte; the lines are counted from 0 again.
  void rewind() {
    cursor_.seek(text_.begin());
    linesRead_ = 0;
  }

  /// Shows where reading is and asks whether it shall stop.
  void poll(bool showProgress) { pollAt(cursor_.position(), showProgress); }
  void pollAt(const char* position, bool showProgress);

 private:
  bool isWholeLine(const char* start, const char* stop) const;

  static constexpr std::uint32_t kLinesPerPoll = 2048;

  const FileText& text_;
  RunMonitor& monitor_;
  LineCursor cursor_;
  Pacer pacer_{kLinesPerPoll};
  std::uint64_t linesRead_ = 0;
  bool cancelled_ = false;
};

}  // namespace quillon::dxf
