#include "dxf/line_reader.h"

#include <algorithm>
#include <cstddef>

#include "base/byte_scan.h"

namespace quillon::dxf {
namespace {

std::string_view between(const char* from, const char* to) {
  return {from, static_cast<std::size_t>(to - from)};
}

}  // namespace

void LineReader::poll(bool showProgress) {
  constexpr std::uint64_t kUnit = 128;  // positions are reported in blocks of 128 bytes
  if (showProgress) {
    monitor_.setProgress(false, source_.offsetOf(cursor_.position()) / kUnit,
                         (source_.fileSize() + kUnit / 2) / kUnit);
  }
  cancelled_ = cancelled_ || monitor_.cancelRequested();
}

void LineReader::skipTo(const char* position) {
  const char* const from = cursor_.position();
  if (position == from) return;
  const char eol = source_.lineEnds().eolChar;
  linesRead_ += base::countByte(between(from, position), eol);
  const bool atFileEnd = source_.atFileEnd() && position == source_.end();
  if (atFileEnd && position[-1] != eol) ++linesRead_;
  cursor_.seek(position);
}

bool LineReader::extendWindow() {
  if (source_.atFileEnd()) return false;
  refill();
  return true;
}

bool LineReader::skipPastLine(std::string_view text, bool showProgress) {
  while (!atEnd() && !cancelled_) {
    const LineRange lines = window();
    for (const char* from = lines.begin;;) {
      const std::size_t found = base::findText(between(from, lines.end), text);
      if (found == std::string_view::npos) break;
      const char* const hit = from + found;
      if (isWholeLine(hit, hit + text.size())) {
        skipTo(hit);
        readDxfLine(showProgress);
        return true;
      }
      from = hit + 1;
    }
    skipTo(lines.end);
    poll(showProgress);
  }
  return false;
}

std::uint64_t LineReader::fileLinesRead() const {
  const char* const end = source_.end();
  const bool whole = source_.atFileEnd() && cursor_.atEnd() && end != source_.begin();
  const bool halfLineEnd = whole && end[-1] == source_.lineEnds().eolOther;
  const std::uint64_t lines =
      linesRead_ - linesBeyondEnd_ - (halfLineEnd && linesRead_ > 0 ? 1 : 0);
  return std::max(lines, linesBeforeRewind_);
}

void LineReader::rewind() {
  linesBeforeRewind_ = fileLinesRead();
  linesBeyondEnd_ = 0;
  source_.rewind();
  moveTo(source_.begin());
  linesRead_ = 0;
}

std::uint64_t LineReader::lineAt(const char* position) const {
  if (position == nullptr || position < source_.begin() || position > source_.end()) return 0;
  const char eol = source_.lineEnds().eolChar;
  const char* const here = cursor_.position();
  if (position >= here) return linesRead_ + 1 + base::countByte(between(here, position), eol);
  const std::uint64_t back = base::countByte(between(position, here), eol);
  return linesRead_ + 1 - std::min(back, linesRead_);
}

void LineReader::refill() {
  const char* const keep = kept_ != nullptr ? kept_ : cursor_.position();
  const std::ptrdiff_t ahead = cursor_.position() - keep;
  const char* const moved = source_.refill(keep);
  if (kept_ != nullptr) kept_ = moved;
  moveTo(moved + ahead);
}

/// Whether only blanks precede and follow these characters on their line.
bool LineReader::isWholeLine(const char* start, const char* stop) const {
  const auto [eol, other, detected] = source_.lineEnds();
  while (start != cursor_.position() && start[-1] == ' ') --start;
  while (stop != source_.end() && *stop == ' ') ++stop;
  const bool starts = start == cursor_.position() || start[-1] == eol || start[-1] == other;
  return starts && (stop == source_.end() || *stop == eol);
}

}  // namespace quillon::dxf
