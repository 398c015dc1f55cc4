#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillon::convert {

/// A text in place of a number has none, or goes on after it: the user may have meant something
/// else. UTF-8.
struct NumberNote {
  std::string name;      ///< of the setting, item or field
  std::string text;      ///< as typed
  std::string countsAs;  ///< the number used
};

/// The note about a numeric text, if it needs one.
std::optional<NumberNote> noteOn(std::string_view name, std::string_view text);

}  // namespace quillon::convert
