#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quillon::base {

/// Length of the well-formed UTF-8 character at p, or 0.
std::size_t utf8SequenceLength(const char* p, const char* end);

/// Checks a text that comes in pieces for well-formed UTF-8.
class Utf8Check {
 public:
  void add(std::string_view bytes);

  /// False once something malformed was seen.
  bool valid() const { return valid_; }
  /// True when everything was well-formed and no character is left unfinished.
  bool complete() const { return valid_ && pending_ == 0; }

 private:
  bool valid_ = true;
  std::array<char, 4> start_{};  ///< the bytes of a character that goes on in the next piece
  std::size_t pending_ = 0;
};

}  // namespace quillon::base
