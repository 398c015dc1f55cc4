#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quillon::fuzz {

/// Removes and returns the part of the data up to a NUL byte.
inline std::string_view takePart(std::string_view& data) {
  const std::size_t stop = std::min(data.find('\0'), data.size());
  const std::string_view part = data.substr(0, stop);
  data.remove_prefix(std::min(stop + 1, data.size()));
  return part;
}

/// Ends the fuzzer with a message when a property does not hold.
inline void require(bool holds, const std::string& property) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", property.c_str());
  std::abort();
}

}  // namespace quillon::fuzz
