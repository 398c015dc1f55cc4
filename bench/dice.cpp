#include "dice.h"

#include <cmath>

namespace quillon::bench {

std::uint64_t Dice::next() {
  std::uint64_t z = state_ += 0x9E3779B97F4A7C15U;
  z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9U;
  z = (z ^ z >> 27) * 0x94D049BB133111EBU;
  return z ^ z >> 31;
}

double Dice::between(double low, double high) {
  return low + (high - low) * (static_cast<double>(next() >> 11) * 0x1p-53);
}

double Dice::measure(double low, double high) {
  const std::size_t style = below(6);
  const double value = between(low, high);
  if (style < 3) return value;
  const double grid = style < 5 ? 1e4 : 2.0;
  return std::round(value * grid) / grid;
}

}  // namespace quillon::bench
