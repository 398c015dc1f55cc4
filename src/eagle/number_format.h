#pragma once

#include <cstddef>
#include <string>

namespace quillon::eagle {

/// Room that formatNumber needs at most: sign, 309 digits, point and seven decimals.
inline constexpr std::size_t kNumberRoom = 320;

/// Writes a finite number with "." and exactly seven decimals, exactly rounded, halves away from
/// zero, "-" for every negative number except zero itself. Returns the end of the text; `out` must
/// have kNumberRoom bytes.
char* formatNumber(double value, char* out);

/// The same as a string.
std::string formatNumber(double value);

}  // namespace quillon::eagle
