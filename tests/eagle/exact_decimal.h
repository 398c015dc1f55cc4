#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quillon::testing {

/// A natural number of any size that can only grow; digits in groups of nine.
class BigNumber {
 public:
  explicit BigNumber(std::uint64_t value) {
    for (; value != 0; value /= kBase) groups_.push_back(value % kBase);
  }

  void multiply(std::uint64_t factor) {
    std::uint64_t carry = 0;
    for (std::uint64_t& group : groups_) {
      carry += group * factor;
      group = carry % kBase;
      carry /= kBase;
    }
    if (carry != 0) groups_.push_back(carry);
  }

  std::string digits() const {
    std::string out;
    for (std::size_t i = groups_.size(); i-- > 0;) {
      const std::string group = std::to_string(groups_[i]);
      if (!out.empty()) out.append(9 - group.size(), '0');
      out += group;
    }
    return out;
  }

 private:
  static constexpr std::uint64_t kBase = 1'000'000'000;
  std::vector<std::uint64_t> groups_;
};

/// Increments a row of decimal digits.
inline void increment(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
}

/// A finite number with seven decimals, halves away from zero, by long-hand arithmetic on all its
/// digits: slow, but without intermediate rounding.
inline std::string exactSevenDecimals(double value) {
  constexpr int kMantissaBits = 53;
  constexpr std::size_t kDecimals = 7;
  int exponent = 0;
  const double fraction = std::frexp(std::fabs(value), &exponent);
  BigNumber number(static_cast<std::uint64_t>(std::ldexp(fraction, kMantissaBits)));
  exponent -= kMantissaBits;
  for (int i = 0; i < exponent; ++i) number.multiply(2);
  // m / 2^n is m * 5^n with the point moved n places to the left.
  for (int i = exponent; i < 0; ++i) number.multiply(5);
  const std::size_t places = exponent < 0 ? static_cast<std::size_t>(-exponent) : 0;
  std::string digits = number.digits();
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  if (places <= kDecimals) {
    digits.append(kDecimals - places, '0');
  } else {
    const bool up = digits[digits.size() - (places - kDecimals)] >= '5';
    digits.resize(digits.size() - (places - kDecimals));
    if (up) increment(digits);
  }
  digits.insert(digits.size() - kDecimals, ".");
  if (digits.front() == '.') digits.insert(digits.begin(), '0');
  return value < 0.0 ? "-" + digits : digits;
}

}  // namespace quillon::testing
