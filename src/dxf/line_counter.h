#pragma once

#include <cstdint>
#include <string_view>

#include "base/byte_scan.h"

namespace quillon::dxf {

/// Numbers of lines for positions that rise: each byte is looked at once.
class LineCounter {
 public:
  LineCounter(const char* start, std::uint64_t line, char eol)
      : position_(start), line_(line), eol_(eol) {}

  /// The number of the line that a position, not before the last one, is in.
  std::uint64_t lineAt(const char* position) {
    const auto size = static_cast<std::size_t>(position - position_);
    line_ += base::countByte({position_, size}, eol_);
    position_ = position;
    return line_;
  }

 private:
  const char* position_;
  std::uint64_t line_;
  char eol_;
};

}  // namespace quillon::dxf
