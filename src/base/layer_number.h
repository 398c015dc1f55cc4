#pragma once

namespace quillon::base {

/// The layer number of what is not converted: nothing is written for it.
inline constexpr int kNotConverted = 999;

/// The numbers that EAGLE's layers can have.
inline constexpr int kFirstLayer = 1;
inline constexpr int kLastLayer = 255;

}  // namespace quillon::base
