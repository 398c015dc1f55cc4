#pragma once

#include <cstddef>
#include <string>

namespace quillon::eagle {

/// Largest size that formatNumber needs: sign, 309 digits, point and seven decimals.
inline constexpr std::size_t kNumberRoom = 320;

/// Writes a finite number with "." and exactly seven decimals, correctly rounded, halves away from
/// zero, with "-" for every negative number except zero itself. Returns the end of the text; `out`
/// needs kNumberRoom bytes.
char* formatNumber(double value, char* out);

/// The same as a string.
std::string formatNumber(double value);

}  // namespace quillon::eagle
