#pragma once

#include <cstring>
#include <type_traits>

namespace quillon::base {

/// The bits of a value as those of another type: std::bit_cast, which not every standard library
/// has.
template <typename To, typename From>
To bitCast(const From& from) {
  static_assert(sizeof(To) == sizeof(From));
  static_assert(std::is_trivially_copyable_v<To> && std::is_trivially_copyable_v<From>);
  To to;
  std::memcpy(&to, &from, sizeof to);
  return to;
}

}  // namespace quillon::base
