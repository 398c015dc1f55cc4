#pragma once

#include <cstdint>
#include <limits>
#include <stdexcept>

namespace quillon::dxf {

/// Most bytes a drawing may have: as a file, and through a pipe, which is held in memory.
struct InputLimits {
  static constexpr std::uint64_t kNone = std::numeric_limits<std::uint64_t>::max();

  std::uint64_t file = kNone;
  std::uint64_t pipe = kNone;
};

/// A drawing has more bytes than allowed.
class InputTooLarge : public std::runtime_error {
 public:
  explicit InputTooLarge(std::uint64_t most) : std::runtime_error("too large"), most_(most) {}
  std::uint64_t most() const { return most_; }

 private:
  std::uint64_t most_;
};

}  // namespace quillon::dxf
