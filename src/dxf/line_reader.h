#pragma once

#include <cstdint>
#include <string_view>

#include "base/run_monitor.h"
#include "dxf/line_cursor.h"
#include "dxf/text_source.h"

namespace quillon::dxf {

/// Reads a drawing line by line, counts the lines and keeps the monitor informed. Texts that it
/// gives are valid until it is used again.
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
  /// How many lines of the file were read: each once, whatever was rewound, none beyond its end,
  /// and nothing for the second character of its last line end.
  std::uint64_t fileLinesRead() const;
  TextSource& source() { return source_; }
  base::RunMonitor& monitor() { return monitor_; }

  /// True once the user has cancelled, as far as the last poll knows.
  bool cancelled() const { return cancelled_; }
  /// Shows where reading is and asks whether it shall stop.
  void poll(bool showProgress);

  /// From here on the lines read are kept in memory, for keptLines(), until endKeeping().
  void beginKeeping() { kept_ = cursor_.position(); }
  LineRange keptLines() const { return {kept_, cursor_.position()}; }
  void endKeeping() { kept_ = nullptr; }

  /// The whole lines in memory from the next one on.
  LineRange window() const { return {cursor_.position(), source_.linesEnd()}; }
  /// Goes on at a position of the window further on, and counts the lines up to there.
  void skipTo(const char* position);
  /// Brings more lines into the window. False at the end of the file.
  bool extendWindow();

  /// Goes on behind the next line whose trimmed text is exactly `text`, counting the lines up to
  /// there. False when there is none: then the reader stands at the end of the file, or anywhere
  /// after a cancel.
  bool skipPastLine(std::string_view text, bool showProgress);

  /// Back to the first byte; the lines are counted from 0 again.
  void rewind();

  /// Number (from 1) of the line that holds a position of the window or of the kept lines; 0 for
  /// any other position.
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
