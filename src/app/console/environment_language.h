#pragma once

#include <cstdlib>
#include <string_view>

namespace quillon::console {

/// The language set in the environment, as a locale name, or "".
inline std::string_view environmentLanguage() {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace quillon::console
