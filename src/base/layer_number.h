#pragma once

namespace quillon::base {

/// The layer number that means "do not convert": nothing is written for it.
inline constexpr int kNotConverted = 999;

/// The range of EAGLE's layer numbers.
inline constexpr int kFirstLayer = 1;
inline constexpr int kLastLayer = 255;

/// True for the number of one of EAGLE's layers.
constexpr bool isEagleLayer(double number) { return number >= kFirstLayer && number <= kLastLayer; }

}  // namespace quillon::base
