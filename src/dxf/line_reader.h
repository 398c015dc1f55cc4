#pragma once

#include <cstdint>
#include <string_view>

#include "base/run_monitor.h"
#include "dxf/line_cursor.h"
#include "dxf/text_source.h"

namespace quillon::dxf {

/// Reads a drawing line by line, counts the lines and keeps the monitor informed. Returned texts
/// are valid until the next call.
class LineReader {
 public:
  LineReader(TextSource& source, base::RunMonitor& monitor)
      : source_(source),
        monitor_(monitor),
        cursor_({source.begin(), source.linesEnd()}, source.lineEnds()) {}

  /// The next line without its line end; "" at the end of the file, which counts as a line too.
  std::string_view readDxfLine(bool showProgress) {
    if (pacer_.due()) poll(showProgress);
    ++linesRead_;
    if (atEnd()) {
      ++linesBeyondEnd_;
      return {};
    }
    return cursor_.next();
  }

  /// True at the end of the file.
  bool atEnd() {
    if (cursor_.atEnd() && !source_.atFileEnd()) refill();
    return cursor_.atEnd();
  }
  std::uint64_t linesRead() const { return linesRead_; }
  /// Number of lines read from the file: each line once even after a rewind, none beyond the end,
  /// and none for the second character of the last line end.
  std::uint64_t fileLinesRead() const;
  TextSource& source() { return source_; }
  base::RunMonitor& monitor() { return monitor_; }

  /// True once a poll has seen that the user cancelled.
  bool cancelled() const { return cancelled_; }
  /// Reports the reading position and asks whether to stop.
  void poll(bool showProgress);

  /// From here on, lines read are kept in memory for keptLines(), until endKeeping().
  void beginKeeping() { kept_ = cursor_.position(); }
  LineRange keptLines() const { return {kept_, cursor_.position()}; }
  void endKeeping() { kept_ = nullptr; }

  /// The complete lines in memory from the next one on.
  LineRange window() const { return {cursor_.position(), source_.linesEnd()}; }
  /// Skips ahead to a position in the window, counting the lines on the way.
  void skipTo(const char* position);
  /// Reads more lines into the window. False at the end of the file.
  bool extendWindow();

  /// Skips past the next line whose trimmed text is exactly `text`, counting the lines on the way.
  /// False when there is none: then the reader is at the end of the file or, after a cancel,
  /// anywhere.
  bool skipPastLine(std::string_view text, bool showProgress);

  /// Returns to the first byte; the line count restarts at 0.
  void rewind();

  /// Line number (from 1) of a position in the window or the kept lines; 0 for any other position.
  std::uint64_t lineAt(const char* position) const;

 private:
  static constexpr std::uint32_t kLinesPerPoll = 2048;

  void refill();
  bool isWholeLine(const char* start, const char* stop) const;
  void moveTo(const char* position) {
    cursor_ = LineCursor({position, source_.linesEnd()}, source_.lineEnds());
  }

  TextSource& source_;
  base::RunMonitor& monitor_;
  LineCursor cursor_;
  const char* kept_ = nullptr;
  base::Pacer pacer_{kLinesPerPoll};
  std::uint64_t linesRead_ = 0;
  std::uint64_t linesBeyondEnd_ = 0;     ///< of these
  std::uint64_t linesBeforeRewind_ = 0;  ///< of the file, at most
  bool cancelled_ = false;
};

}  // namespace quillon::dxf
