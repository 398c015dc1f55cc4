#pragma once

#include <cstddef>
#include <cstdint>

namespace quillon::bench {

/// Random numbers that are the same on every machine.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next();
  /// 0 … count - 1.
  std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }
  double between(double low, double high);

  /// A number as in drawings: half of them with all digits, a third rounded to four decimals, the
  /// rest to multiples of a half.
  double measure(double low, double high);

 private:
  std::uint64_t state_;
};

}  // namespace quillon::bench
