#include "dxf/line_reader.h"

#include <algorithm>

#include "dxf/byte_scan.h"

namespace quillon::dxf {

bool LineReader::skipPastLine(std::string_view text, bool showProgress) {
  constexpr std::ptrdiff_t kBytesPerPoll = 1 << 18;
  const auto overlap = static_cast<std::ptrdiff_t>(text.size() - 1);
  const char* from = cursor_.position();
  while (from != text_.end() && !cancelled_) {
    const char* const blockEnd = from + std::min(kBytesPerPoll, text_.end() - from);
    const char* const stop = blockEnd + std::min(overlap, text_.end() - blockEnd);
    const std::size_t found = findText({from, static_cast<std::size_t>(stop - from)}, text);
    if (found == std::string_view::npos) {
      from = blockEnd;
      pollAt(from, showProgress);
      continue;
    }
    const char* const hit = from + found;
    if (isWholeLine(hit, hit + text.size())) {
      skipTo(hit);
      readDxfLine(showProgress);
      return true;
    }
    from = hit + 1;
  }
  skipTo(from);
  return false;
}

/// Whether only blanks stand between these characters and the ends of their line.
bool LineReader::isWholeLine(const char* start, const char* stop) const {
  const auto [eol, other, detected] = text_.lineEnds();
  while (start != cursor_.position() && start[-1] == ' ') --start;
  while (stop != text_.end() && *stop == ' ') ++stop;
  const bool starts = start == cursor_.position() || start[-1] == eol || start[-1] == other;
  return starts && (stop == text_.end() || *stop == eol);
}

void LineReader::skipTo(const char* position) {
  const char* const from = cursor_.position();
  if (position == from) return;
  const char eol = text_.lineEnds().eolChar;
  linesRead_ += countByte({from, static_cast<std::size_t>(position - from)}, eol);
  if (position == text_.end() && position[-1] != eol) ++linesRead_;
  cursor_.seek(position);
}

void LineReader::pollAt(const char* at, bool showProgress) {
  constexpr std::uint64_t kUnit = 128;  // positions are counted in blocks of 128 bytes
  if (showProgress) {
    const auto size = static_cast<std::uint64_t>(text_.bytes().size());
    const auto position = static_cast<std::uint64_t>(at - text_.begin());
    monitor_.setProgress(false, position / kUnit, (size + kUnit / 2) / kUnit);
  }
  cancelled_ = cancelled_ || monitor_.cancelRequested();
}

}  // namespace quillon::dxf
