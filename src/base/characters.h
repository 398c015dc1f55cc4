#pragma once

#include <string_view>

#include "base/byte_of.h"
#include "base/utf8_check.h"

namespace quillon::base {

/// Goes through the characters of a UTF-8 text. Each byte that is not part of a well-formed one
/// counts as U+FFFD.
class Characters {
 public:
  explicit Characters(std::string_view utf8) : at_(utf8.data()), end_(at_ + utf8.size()) {}

  bool atEnd() const { return at_ == end_; }

  /// The next one; not at the end.
  char32_t next() {
    constexpr char32_t kReplacement = 0xFFFD;
    const std::size_t length = utf8SequenceLength(at_, end_);
    if (length <= 1) {
      const char32_t first = byteOf(*at_++);
      return length == 1 ? first : kReplacement;
    }
    char32_t character = byteOf(*at_) & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) character = character << 6 | (byteOf(at_[i]) & 0x3FU);
    at_ += length;
    return character;
  }

 private:
  const char* at_;
  const char* end_;
};

}  // namespace quillon::base
