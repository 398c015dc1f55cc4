#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quillon::base {

/// Length of the well-formed UTF-8 character at p, or 0 when it is malformed.
std::size_t utf8SequenceLength(const char* p, const char* end);

/// Checks text that arrives in pieces for well-formed UTF-8.
class Utf8Check {
 public:
  void add(std::string_view bytes);

  /// False once a malformed byte has been seen.
  bool valid() const { return valid_; }
  /// True when all of it was well-formed and the last character is complete.
  bool complete() const { return valid_ && pending_ == 0; }

 private:
  bool valid_ = true;
  std::array<char, 4> start_{};  ///< the bytes of a character that continues in the next piece
  std::size_t pending_ = 0;
};

}  // namespace quillon::base
