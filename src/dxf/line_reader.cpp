#include "dxf/line_reader.h"

#include <algorithm>

namespace quillon::dxf {

void LineReader::skipTo(const char* position) {
  const char* const from = cursor_.position();
  if (position == from) return;
  const char eol = text_.lineEnds().eolChar;
  linesRead_ += static_cast<std::uint64_t>(std::count(from, position, eol));
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
