#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillon::base {

/// Whether two texts are equal, as == says, with few instructions for names, which are short and
/// often lie at one place.
inline bool isSameText(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a.data() == b.data()) return true;
  const auto isSameAt = [&](std::size_t i, auto bits) {
    auto other = bits;
    std::memcpy(&bits, a.data() + i, sizeof bits);
    std::memcpy(&other, b.data() + i, sizeof other);
    return bits == other;
  };
  constexpr std::size_t kLong = 16;
  const std::size_t size = a.size();
  if (size > kLong) return a == b;
  // The blocks at both ends meet or overlap.
  if (size >= sizeof(std::uint64_t)) {
    return isSameAt(0, std::uint64_t{}) && isSameAt(size - sizeof(std::uint64_t), std::uint64_t{});
  }
  if (size >= sizeof(std::uint32_t)) {
    return isSameAt(0, std::uint32_t{}) && isSameAt(size - sizeof(std::uint32_t), std::uint32_t{});
  }
  for (std::size_t i = 0; i < size; ++i) {
    if (a[i] != b[i]) return false;
  }
  return true;
}

}  // namespace quillon::base
