#include "dxf/line_reader.h"

namespace quillon::dxf {

void LineReader::poll(bool showProgress) {
  constexpr std::uint64_t kUnit = 128;  // positions are counted in blocks of 128 bytes
  if (showProgress) {
    const auto size = static_cast<std::uint64_t>(text_.bytes().size());
    const auto position = static_cast<std::uint64_t>(cursor_.position() - text_.begin());
    monitor_.setProgress(false, position / kUnit, (size + kUnit / 2) / kUnit);
  }
  cancelled_ = cancelled_ || monitor_.cancelRequested();
}

}  // namespace quillon::dxf
